#include "examples/gallery/Pages.h"
#include "examples/gallery/Preferences.h"
#include "examples/gallery/SelectionResults.h"
#include "qt/grid/ResultGridWidget.h"
#include "qt/QtText.h"
#include "qt/selection/QtSelectionDlg.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeView>
#include <QVBoxLayout>

#include <memory>

namespace Gallery
{

namespace
{

using namespace CommonUI;

class CSelectionPage : public QWidget
{
public:
    explicit CSelectionPage(FLog log)
        : m_log(std::move(log))
        , m_analysis(new QComboBox)
        , m_results(new CResultGridWidget(CGridBaseOutputCtrl::SCellInfo::Results))
        , m_statistics(new QLabel)
    {
        for (int i = 0; i <= static_cast<int>(EAnalysis::Measure); ++i)
            m_analysis->addItem(ToQString(CAnalysisPreferencesData::GetFriendlyName(EAnalysis{i})));
        m_analysis->setCurrentIndex(static_cast<int>(EAnalysis::Roughness));
        auto* const label = new QLabel(QStringLiteral("&Analysis:"));
        label->setBuddy(m_analysis);
        auto* const choose = new QPushButton(QStringLiteral("C&hoose..."));
        auto* const line = new QHBoxLayout;
        line->addWidget(label);
        line->addWidget(m_analysis);
        line->addWidget(choose);
        line->addStretch();
        auto* const resultLabel = new QLabel(QStringLiteral("&Results of a made-up surface:"));
        resultLabel->setBuddy(m_results);
        m_statistics->setWordWrap(true);
        auto* const layout = new QVBoxLayout(this);
        layout->addLayout(line);
        layout->addWidget(resultLabel);
        layout->addWidget(m_results, 1);
        layout->addWidget(m_statistics);
        connect(choose, &QPushButton::clicked, this, [this] { Choose(); });
        connect(m_analysis, &QComboBox::activated, this, [this] { ShowResults(); });
        m_preferences.manager.GetChangeList().Subscribe(*this, &CSelectionPage::OnChange, m_connection);
        ShowResults();
    }

    // Opens the dialog for the picture.
    void Open()
    {
        m_dialog = std::make_unique<CQtSelectionDlg>(m_preferences.manager, EAnalysis::Roughness, this);
        m_dialog->Create();
        CSelectionWindow& window = *m_dialog->GetWindow();
        // Some of the results stay in sight.
        const QSize room = this->window()->size() - window.size();
        window.move(this->window()->mapToGlobal(QPoint(room.width() - 10, room.height() - 10)));
        window.activateWindow();
        window.GetTree(0)->setFocus();
        window.GetTree(0)->keyboardSearch(QStringLiteral("Sq"));
    }

private:
    EAnalysis GetAnalysis() const { return EAnalysis{m_analysis->currentIndex()}; }
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
    void OnChange(const SPreferencesChange& change)
    {
        constexpr const char* c_kinds[] = {"parameters", "statistics", "outputs"};
        m_log(QStringLiteral("Changed: %1 of %2")
                  .arg(QString::fromUtf8(c_kinds[static_cast<int>(change.kind)]),
                       ToQString(CAnalysisPreferencesData::GetFriendlyName(change.analysis))));
        if (change.analysis == GetAnalysis())
            ShowResults();
    }
    void ShowResults()
    {
        FillSelectionResults(m_preferences.manager, GetAnalysis(), m_preferences.grains,
                             m_results->GetTable());
        m_results->Update();
        m_results->GetPane().FitColumns();
        const CAnalysisPreferencesData& chosen = m_preferences.manager.GetData(GetAnalysis());
        m_statistics->setText(QStringLiteral("Statistics: %1\nOutputs: %2")
                                  .arg(NamesOf(chosen.GetStatistics()), NamesOf(chosen.GetOutputs())));
    }
    static QString NamesOf(const std::vector<CParameter>& list)
    {
        QStringList names;
        for (const CParameter& entry : list)
            if (entry.IsOn())
                names += ToQString(entry.GetFriendlyString());
        return names.join(QStringLiteral(", "));
    }

    FLog m_log;
    CPreferences& m_preferences = GetPreferences();
    CClosureConnection m_connection;
    QComboBox* m_analysis;
    CResultGridWidget* m_results;
    QLabel* m_statistics;
    std::unique_ptr<CQtSelectionDlg> m_dialog;
};

} // namespace

QWidget* MakeSelectionPage(const FLog& log)
{
    return new CSelectionPage(log);
}

void StageSelectionPage(QWidget& page)
{
    static_cast<CSelectionPage&>(page).Open();
}

} // namespace Gallery
