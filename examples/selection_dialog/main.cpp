#include <CommonUI/common/ini/Inifile.h>
#include <CommonUI/qt/grid/ResultGridWidget.h>
#include <CommonUI/qt/selection/QtSelectionDlg.h>
#include <CommonUI/qt/services/QtServices.h>

#include <QApplication>
#include <QPushButton>
#include <QVBoxLayout>

using namespace CommonUI;

class CResultWindow : public QWidget
{
public:
    explicit CResultWindow(CAnalysisPreferencesManager& preferences)
        : m_preferences(preferences)
        , m_results(CGridBaseOutputCtrl::SCellInfo::Results)
    {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(&m_results);
        auto* choose = new QPushButton("&Parameters...");
        layout->addWidget(choose);
        connect(choose, &QPushButton::clicked, this,
                [this] { CQtSelectionDlg(m_preferences, EAnalysis::Roughness, this).DoModal(); });
        m_preferences.GetChangeList().Subscribe(*this, &CResultWindow::OnPreferences, m_connection);
        ShowResults();
    }

private:
    // Told of real changes only: a dialog that is left as it was opened changes nothing.
    void OnPreferences(const SPreferencesChange& change)
    {
        if (change.analysis == EAnalysis::Roughness && change.kind == EPreferencesChange::Parameters)
            ShowResults();
    }
    void ShowResults()
    {
        const CUnit metre(CUnit::EUnitFactor::Unity);
        CGridBaseOutputCtrl& table = m_results.GetTable();
        table.Clear();
        table.AddColumn({u"Unit", u""});
        for (const CParameter& parameter : m_preferences.GetData(EAnalysis::Roughness).GetParameters())
            if (parameter.IsOn()) // a program with surfaces shows values here
                table.AddRow(
                    {.name = parameter.GetFriendlyString(), .cells = {parameter.GetScaledUnitStr(metre)}});
        m_results.Update();
        m_results.GetPane().FitColumns();
    }

    CAnalysisPreferencesManager& m_preferences;
    CClosureConnection m_connection;
    CResultGridWidget m_results;
};

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    CQtServices services; // timers, message loop, message boxes, file dialogs, clipboard, folders

    CInifile file;
    file.Load(u"parameters.ini"); // there is none at first
    file.SelectSection(u"Analysis");
    GetAnalysisPreferencesManager().Load(file);

    CResultWindow window(GetAnalysisPreferencesManager());
    window.show();
    const int result = QApplication::exec();
    GetAnalysisPreferencesManager().Save(file);
    return file.Save() ? result : 1;
}
