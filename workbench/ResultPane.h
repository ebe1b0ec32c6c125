#pragma once

#include "qt/framework/DockPane.h"
#include "view/ViewedSurface.h"
#include "workbench/analyze/AnalysisForm.h"
#include "workbench/analyze/AnalysisView.h"
#include "workbench/analyze/GrainForm.h"
#include "workbench/analyze/GrainOverlay.h"

#include <QPointer>

namespace Workbench
{

/// An analysis with what it needs beyond its preferences.
struct SAnalysisRequest {
    CommonUI::EAnalysis analysis = CommonUI::EAnalysis::Roughness;
    CommonUI::Measurement::SFurtherOptions options{};
    CommonUI::Measurement::SMethod method{}; ///< of EAnalysis::Measure
};

/// The results of an analysis of a surface in a dock, in which the analysis is chosen, with what a result
/// dialog has for them: see CAnalysisView.
class CResultPane : public CommonUI::CDockPane
{
    Q_OBJECT

public:
    CResultPane();
    ~CResultPane() override;

    /// @param surface null for none
    /// @param others what else is open, for analyses of two surfaces
    /// @param overlay of the surface's map; it may go first
    void SetSurface(const std::shared_ptr<const SurfaceView::SViewedSurface>& surface,
                    std::vector<SOtherSurface> others, CGrainOverlay* overlay);
    void SetChoice(const SAnalysisChoice& choice);
    /// What is analysed of the surface.
    SAnalysisRequest GetRequest() const;
    CAnalysisForm& GetForm() noexcept { return *m_form; }
    CGrainForm& GetGrains() noexcept { return *m_grains; }
    CommonUI::CResultGridWidget& GetTable() const;
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
    void SetOverlay(CGrainOverlay* overlay);
    void ShowGrains(const CommonUI::Measurement::CBackgroundResults::SAnswer& answer);
    void OnRow();
    void SelectRow(std::uint32_t grain);

    CAnalysisForm* m_form;
    CGrainForm* m_grains;
    CAnalysisView* m_view;
    std::shared_ptr<const CommonUI::Analysis::SSurface> m_second;
    QPointer<CGrainOverlay> m_overlay;
    bool m_isShowing = false; // grains that nobody has picked in the table
};

} // namespace Workbench
