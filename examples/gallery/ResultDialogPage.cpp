#include "examples/gallery/Pages.h"
#include "examples/gallery/Preferences.h"
#include "examples/gallery/SelectionResults.h"
#include "qt/grid/ResultGridWidget.h"
#include "qt/QtText.h"
#include "qt/results/ResultPanelWidget.h"
#include "qt/results/ResultWindow.h"
#include "qt/selection/QtSelectionDlg.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <memory>

namespace Gallery
{

namespace
{

using namespace CommonUI;

// The results of an analysis, as a pane of the page and in a window of their own, and the choice of what is
// computed.
class CResultDialogPage : public QWidget
{
public:
    explicit CResultDialogPage(FLog log)
        : m_log(std::move(log))
        , m_analysis(new QComboBox)
        , m_pane(new CResultPanelWidget)
        , m_dialog(std::make_unique<CQtResultDialog>(this))
    {
        for (int i = 0; i <= static_cast<int>(EAnalysis::Measure); ++i)
            if (IsComputed(EAnalysis{i}))
                m_analysis->addItem(ToQString(CAnalysisPreferencesData::GetFriendlyName(EAnalysis{i})), i);
        auto* const label = new QLabel(QStringLiteral("&Analysis:"));
        label->setBuddy(m_analysis);
        auto* const choose = new QPushButton(QStringLiteral("C&hoose..."));
        auto* const open = new QPushButton(QStringLiteral("In a &Window"));
        auto* const line = new QHBoxLayout;
        line->addWidget(label);
        line->addWidget(m_analysis);
        line->addWidget(choose);
        line->addWidget(open);
        line->addStretch();
        auto* const layout = new QVBoxLayout(this);
        layout->addLayout(line);
        layout->addWidget(m_pane, 1);
        connect(choose, &QPushButton::clicked, this, [this] { Choose(); });
        connect(open, &QPushButton::clicked, this, [this] { OpenWindow(); });
        connect(m_analysis, &QComboBox::activated, this, [this] { ShowResults(); });
        m_preferences.manager.GetChangeList().Subscribe(*this, &CResultDialogPage::OnChange, m_connection);
        ShowResults();
        m_pane->Attach(m_panel);
    }

    void Stage()
    {
        m_analysis->setCurrentIndex(m_analysis->findData(static_cast<int>(EAnalysis::RoughnessProfile)));
        ShowResults();
        CResultGridWidget& results = *m_pane->GetTable(EResultTable::Results);
        results.setFocus(Qt::TabFocusReason);
        results.GetPane().SelectCell({3, 2});
        results.GetPane().OnKey({EGridKey::Right, {.shift = true}});
        results.GetPane().OnKey({EGridKey::Down, {.shift = true}});
    }

private:
    EAnalysis GetAnalysis() const { return EAnalysis{m_analysis->currentData().toInt()}; }
    void Choose()
    {
        CQtSelectionDlg dialog(m_preferences.manager, GetAnalysis(), this);
        dialog.SetGrainSettings(m_preferences.grains);
        if (dialog.DoModal() != CBaseDialog::c_ok)
            return;
        m_preferences.grains = *dialog.GetGrainSettings();
        if (!m_preferences.Save())
            m_log(QStringLiteral("Not kept: the file of preferences cannot be written"));
        ShowResults();
    }
    void OpenWindow()
    {
        if (!m_dialog->IsOpen())
            m_dialog->Create();
        m_dialog->GetWindow()->activateWindow();
    }
    void OnChange(const SPreferencesChange& change)
    {
        if (change.analysis == GetAnalysis())
            ShowResults();
    }
    void ShowResults()
    {
        const auto results = std::make_shared<const SResultSet>(
            MakeSelectionResults(m_preferences.manager, GetAnalysis(), m_preferences.grains));
        m_panel.SetResults(results);
        m_dialog->SetResults(results);
        m_log(QStringLiteral("Results: %1 quantities of %2 rows")
                  .arg(results->quantities.size())
                  .arg(results->rowNames.size()));
    }

    FLog m_log;
    CPreferences& m_preferences = GetPreferences();
    CClosureConnection m_connection;
    QComboBox* m_analysis;
    CResultPanel m_panel;
    CResultPanelWidget* m_pane;
    std::unique_ptr<CQtResultDialog> m_dialog;
};

} // namespace

QWidget* MakeResultDialogPage(const FLog& log)
{
    return new CResultDialogPage(log);
}

void StageResultDialogPage(QWidget& page)
{
    static_cast<CResultDialogPage&>(page).Stage();
}

} // namespace Gallery
