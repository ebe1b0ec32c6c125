#pragma once

#include "qt/framework/DockPane.h"
#include "workbench/analyze/AnalysisForm.h"
#include "workbench/analyze/AnalysisView.h"

namespace Workbench
{

/// The results of an analysis of a surface in a dock, in which the analysis is chosen, with what a result
/// dialog has for them: see CAnalysisView.
class CResultPane : public CommonUI::CDockPane
{
    Q_OBJECT

public:
    CResultPane();
    ~CResultPane() override;

    /// @param input null for none
    /// @param others what else is open, for analyses of two surfaces
    void SetSurface(std::shared_ptr<const CommonUI::Measurement::SInput> input,
                    std::vector<SOtherSurface> others);
    void SetChoice(const SAnalysisChoice& choice);
    CAnalysisForm& GetForm() noexcept { return *m_form; }
    /// Opens the dialog in which the parameters are chosen.
    void Choose() { m_view->Choose(); }
    CommonUI::CResultPanel& GetPanel() noexcept { return m_view->GetPanel(); }
    bool IsBusy() const noexcept { return m_view->IsBusy(); }
    /// What is said above the table.
    QString GetState() const { return m_view->GetState(); }

Q_SIGNALS:
    /// The user has changed the preferences.
    void Chosen();
    /// The user has chosen another analysis, or what it compares with.
    void ChoiceChanged(const SAnalysisChoice& choice);

private:
    void Analyze();

    CAnalysisForm* m_form;
    CAnalysisView* m_view;
    std::shared_ptr<const CommonUI::Analysis::SSurface> m_second;
};

} // namespace Workbench
