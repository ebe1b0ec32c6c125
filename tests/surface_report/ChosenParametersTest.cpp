#include "common/ini/Inifile.h"
#include "dialogs/selection/InputsDlg.h"
#include "dialogs/selection/MemorySelectionView.h"
#include "programs/surface_report/PreferencesFile.h"
#include "tests/surface_report/SurfaceReportFixture.h"

using namespace CommonUI;

// What a user makes in the dialog outlives the program, and is computed by another one.
TEST_F(ReportProgram, ComputesWhatAUserHasMadeInTheSelectionDialog)
{
    CAnalysisPreferencesManager manager;
    CSelectionDlg dialog(manager, EAnalysis::Roughness);
    CMemorySelectionView window;
    dialog.SetView(&window);
    dialog.Create();
    window.Check(u"VORN Classic", false);
    window.Select(u"Sch(p), Percentile Height");
    window.onOptions = [](CMemoryOptionsView& inputs) {
        inputs.Type(CInputsDlg::c_firstInput, u"12.5");
        inputs.Press(CBaseDialog::c_ok);
    };
    window.Press(CSelectionDlg::c_add);
    window.ChooseUnit(u"Sch(12.5 %), Percentile Height", u"µm");
    window.Press(CBaseDialog::c_ok);

    CInifile ini;
    ini.SelectSection(SurfaceReport::c_section);
    manager.Save(ini);
    m_temporary.Write("choices.ini", ini.GetBytes());
    ASSERT_EQ(Run("$sample --out $out --level plane --preferences $folder/choices.ini"), 0) << m_err.str();
    const std::string report = Read("report.txt");
    EXPECT_TRUE(Has(report, "Sch(12.5 %), Percentile Height\t")) << report;
    EXPECT_FALSE(Has(report, "Sq, ")) << report;
    EXPECT_TRUE(Has(report, "\t\xC2\xB5m\r\n")) << report;
}
