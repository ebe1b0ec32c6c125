#pragma once

#include "dialogs/results/ResultPanel.h"
#include "measurement/series/Series.h"
#include "model/AnalysisPreferencesManager.h"
#include "workbench/series/SeriesSource.h"

#include <QDialog>

#include <optional>

class QLabel;
class QProgressBar;
class QPushButton;
class QTimer;

namespace CommonUI
{
class CResultPanelWidget;
}

namespace Workbench
{

class CSeriesForm;

/// One table over many surfaces: those that are open, or files of a folder, with the analysis of the
/// workbench and its preferences. They are computed in the background while the workbench goes on; what the
/// table shows follows the preferences.
class CSeriesWindow : public QDialog
{
    Q_OBJECT

public:
    CSeriesWindow(FSeriesSource source, QWidget* parent);
    ~CSeriesWindow() override;

    CSeriesForm& GetForm() noexcept { return *m_form; }
    CommonUI::CResultPanel& GetPanel() noexcept { return m_panel; }
    QPushButton& GetCompute() noexcept { return *m_compute; }
    QPushButton& GetCancel() noexcept { return *m_cancel; }
    QString GetState() const;
    bool IsBusy() const noexcept { return m_series.IsBusy(); }
    /// What is open or done in the workbench has changed.
    void Update();

Q_SIGNALS:
    void ChoiceChanged(const SSeriesChoice& choice);

protected:
    /// Escape gives up what is computed, and closes otherwise. A window that is closed computes on.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Compute();
    void Cancel();
    void ShowProgress();
    void ShowState();
    void OnDone(std::vector<CommonUI::Measurement::SSeriesRow> rows);
    void OnPreferences(const CommonUI::SPreferencesChange& change);
    void ShowTable();
    void Summarize(CommonUI::SResultSet& set) const;

    FSeriesSource m_source;
    CSeriesForm* m_form;
    QPushButton* m_compute;
    QPushButton* m_cancel;
    QProgressBar* m_progress;
    QLabel* m_state;
    QTimer* m_timer;
    CommonUI::CResultPanelWidget* m_tables;
    CommonUI::CResultPanel m_panel;
    std::optional<CommonUI::Measurement::SSeriesRequest> m_request{}; // without surfaces, of the rows
    std::vector<CommonUI::Measurement::SSeriesRow> m_rows{};
    SSeriesSource m_computed{};                     // the analysis of the rows
    CommonUI::Measurement::CProcessSteps m_steps{}; // done to all, where they are the same
    CommonUI::CStr m_failure{};                     // why there is no table of the rows
    bool m_hasAll = true;                           // values of what the preferences choose now
    CommonUI::CClosureConnection m_connection;
    CommonUI::Measurement::CSeries m_series;
};

} // namespace Workbench
