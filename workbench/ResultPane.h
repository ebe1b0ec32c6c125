#pragma once

#include "measurement/BackgroundResults.h"
#include "model/AnalysisPreferencesManager.h"
#include "qt/framework/DockPane.h"
#include "qt/results/ResultPanelWidget.h"

class QLabel;
class QPushButton;

namespace Workbench
{

/// The roughness parameters of a surface in a dock, with what a result dialog has for them: those that the
/// preferences choose, computed in the background and anew when the preferences change.
class CResultPane : public CommonUI::CDockPane
{
    Q_OBJECT

public:
    CResultPane();
    ~CResultPane() override;

    /// @param input null for none
    void SetSurface(std::shared_ptr<const CommonUI::Measurement::SInput> input);
    /// Opens the dialog in which the parameters are chosen.
    void Choose();
    CommonUI::CResultPanel& GetPanel() noexcept { return m_panel; }
    bool IsBusy() const noexcept { return m_results.IsBusy(); }
    /// What is said above the table.
    QString GetState() const;

Q_SIGNALS:
    /// The user has changed the preferences.
    void Chosen();

private:
    CommonUI::EAnalysis GetAnalysis() const;
    void OnPreferences(const CommonUI::SPreferencesChange& change);
    void Compute();
    void Show(const CommonUI::Measurement::CBackgroundResults::SAnswer& answer);
    void ShowSet(CommonUI::SResultSet set);

    std::shared_ptr<const CommonUI::Measurement::SInput> m_input;
    QLabel* m_state;
    CommonUI::CResultPanelWidget* m_tables;
    CommonUI::CResultPanel m_panel;
    QPushButton* m_choose;
    CommonUI::CClosureConnection m_connection;
    CommonUI::Measurement::CBackgroundResults m_results;
};

} // namespace Workbench
