#include <CommonUI/common/ini/Inifile.h>
#include <CommonUI/measurement/ResultSets.h>
#include <CommonUI/qt/results/ResultWindow.h>
#include <CommonUI/qt/selection/QtSelectionDlg.h>
#include <CommonUI/qt/services/QtServices.h>

#include <QApplication>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>
#include <memory>

using namespace CommonUI;

// Hills of 0.4 µm on a square of 100 µm. A program with files has Formats::ReadSurface("scan.sdf") here.
Analysis::SSurface MakeSurface()
{
    Analysis::SSurface surface{.points = 200, .lines = 200, .dx = 5e-7, .dy = 5e-7}; // m
    surface.fileName = "hills";
    for (int line = 0; line < 200; ++line)
        for (int point = 0; point < 200; ++point)
            surface.heights.push_back(2e-7 * std::sin(point / 9.0) * std::sin(line / 7.0));
    return surface;
}

class CMeasurementWindow : public QWidget
{
public:
    explicit CMeasurementWindow(CAnalysisPreferencesManager& preferences)
        : m_preferences(preferences)
        , m_results(this)
    {
        auto* layout = new QVBoxLayout(this);
        auto* choose = new QPushButton("&Parameters...");
        auto* show = new QPushButton("&Results");
        layout->addWidget(choose);
        layout->addWidget(show);
        connect(choose, &QPushButton::clicked, this,
                [this] { CQtSelectionDlg(m_preferences, EAnalysis::Roughness, this).DoModal(); });
        connect(show, &QPushButton::clicked, this, &CMeasurementWindow::ShowResults);
        m_preferences.GetChangeList().Subscribe(*this, &CMeasurementWindow::OnPreferences, m_connection);
        Compute();
    }
    void ShowResults()
    {
        if (!m_results.IsOpen())
            m_results.Create(); // stays open beside this window
        m_results.GetWindow()->activateWindow();
    }

private:
    // Told of real changes only: a dialog that is left as it was opened changes nothing.
    void OnPreferences(const SPreferencesChange& change)
    {
        if (change.analysis == EAnalysis::Roughness)
            Compute();
    }
    void Compute()
    {
        const auto choices = Measurement::MakeChoices(m_preferences, {.usesPreferences = true});
        const auto computed = Measurement::ComputeResults(m_surface, choices);
        m_results.SetResults(std::make_shared<const SResultSet>(
            Measurement::MakeSurfaceSet(computed, u"Roughness"))); // the name of its layout in the file
    }

    const Measurement::SInput m_surface =
        Measurement::Process(MakeSurface(), Analysis::ELevelling::Plane, {});
    CAnalysisPreferencesManager& m_preferences;
    CQtResultDialog m_results;
    CClosureConnection m_connection;
};

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    CQtServices services; // timers, message loop, message boxes, file dialogs, clipboard, folders

    CInifile file;
    file.Load(u"measurement.ini"); // there is none at first
    file.SelectSection(u"Analysis");
    GetAnalysisPreferencesManager().Load(file);
    GetResultLayoutManager().Load(file);

    CMeasurementWindow window(GetAnalysisPreferencesManager());
    window.show();
    window.ShowResults();
    const int result = QApplication::exec();

    file.SelectSection(u"Analysis");
    GetAnalysisPreferencesManager().Save(file);
    GetResultLayoutManager().Save(file);
    return file.Save() ? result : 1;
}
