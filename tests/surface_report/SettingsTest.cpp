#include "tests/surface_report/SurfaceReportFixture.h"

namespace
{

using CTexts = std::vector<CommonUI::CStr>;

// Runs the program with settings sets and files of its own.
class Settings : public ReportProgram
{
protected:
    // Reports on the sample; the text report, or the message.
    std::string Apply(const std::string& line) { return Report("--parameters Sq,Rq --settings " + line); }
    // The recent sets of a type in the preferences file.
    CTexts Recent(std::u16string_view type) const
    {
        CommonUI::CInifile ini;
        EXPECT_TRUE(ini.Load(m_preferences.u16string()));
        ini.SelectSection(u"SettingsFactory");
        return ini.ReadTexts(type);
    }

    const fs::path m_preferences = m_folder / "choices.ini";
};

} // namespace

TEST_F(Settings, ProcessedSurfaceStandsBesideTheRawOne)
{
    const std::string levelled = Apply("PlaneCorr[Id(4)]");
    EXPECT_TRUE(
        Has(levelled, "\r\nLevelling: none\r\nStep 1: Plane Correction / Images / Global Leveling\r\n"));
    EXPECT_TRUE(Has(levelled, "\r\nSurface parameter\tRaw\tProcessed\tUnit\r\n"
                              "Sq, Root Mean Square Height\t354.61\t284.48\tnm\r\n"))
        << levelled;
    EXPECT_TRUE(Has(m_out.str(), "Surface parameter               Raw  Processed  Unit\n"));
    // The same by other names, from a file and from the program's own levelling, as far as the values go.
    const auto valuesOf = [](const std::string& report) {
        return report.substr(report.find("Surface para"));
    };
    EXPECT_EQ(valuesOf(Apply("PlaneCorr[Id(PlaneCorrQuickLaunchImageLeveling)]")), valuesOf(levelled));
    m_temporary.Write("my.pln", "; mine\n[PlaneCorrection]\nMethod=Polynomial\n");
    const std::string fromFile = Apply("PlaneCorr[File($folder/my.pln)]");
    EXPECT_EQ(valuesOf(fromFile), valuesOf(levelled));
    EXPECT_TRUE(Has(fromFile, "\r\nStep 1: Plane Correction / my.pln\r\n"));
    EXPECT_TRUE(Has(Apply("PlaneCorr[Id(8)] --level plane"), "Height\t354.61\t284.48\tnm\r\n"))
        << "raw is what was read";
}

TEST_F(Settings, TheOrderCounts)
{
    const auto lineOf = [](const std::string& report) { return report.substr(report.find("\nSq"), 60); };
    const std::string other = lineOf(Apply("PlaneCorr[Id(6)] --settings Filter[Id(84)]"));
    EXPECT_NE(lineOf(Apply("Filter[Id(84)] --settings PlaneCorr[Id(6)]")), other);
    EXPECT_TRUE(Has(m_out.str(), "\nStep 2            Plane Correction / Images / Linewise Offset\n"));
}

TEST_F(Settings, EveryCorrectionAndFilterOfTheCatalogueIsAppliedOrRefusedForItsCutoff)
{
    int applied = 0;
    const auto apply = [&](const std::string& type, int first, int last) {
        for (int number = first; number <= last; ++number) {
            const std::string userSpec = type + "[Id(" + std::to_string(number) + ")]";
            const std::string report = Apply(userSpec);
            applied += m_err.str().empty() ? 1 : 0;
            EXPECT_TRUE(m_err.str().empty() || Has(report, userSpec + ": the cut-off is ")) << report;
        }
    };
    apply("PlaneCorr", 1, 21);
    apply("Filter", 75, 169);
    EXPECT_EQ(applied, 74) << "cut-offs of more than 1 and less than 48 micrometres fit the sample";
}

TEST_F(Settings, UsesAreRememberedInThePreferencesFile)
{
    const std::string keep = " --preferences $folder/choices.ini";
    const fs::path file = m_folder / "my.flt";
    m_temporary.Write(file, "[Filter]\nKind=Mean\n");
    Report(keep);
    EXPECT_FALSE(Has(m_temporary.Read(m_preferences), "[SettingsFactory]"));
    std::ofstream(m_preferences, std::ios::app | std::ios::binary) << "[Theirs]\nkey = kept\n";

    Apply("Filter[Id(84)] --settings PlaneCorr[Id(4)] --settings Filter[File($folder/my.flt)]" + keep);
    const CTexts expected = {u"FILE:" + CommonUI::CStr(file.u16string()),
                             u"BUILT-IN:Filter_Noise_reduction_Median_3x3_full"};
    EXPECT_EQ(Recent(u"Filter"), expected);
    const std::string roundabout = "$folder/../" + m_folder.filename().string() + "/./my.flt";
    Apply("Filter[File(" + roundabout + ")]" + keep);
    EXPECT_EQ(Recent(u"Filter"), expected) << "the same file";
    EXPECT_EQ(Recent(u"PlaneCorr"), CTexts{u"BUILT-IN:PlaneCorrQuickLaunchImageLeveling"});
    EXPECT_TRUE(Has(Apply("Filter[Id(200)]" + keep), "Step 1: Filter / my.flt\r\n")) << "a recent file";

    fs::remove(file);
    EXPECT_TRUE(Has(Apply("Filter[Id(200)]" + keep), "Cannot load \"" + file.string() + "\": "));
    EXPECT_EQ(Recent(u"Filter"), expected) << "a run that failed";
    Apply("Filter[Id(84)]" + keep);
    EXPECT_EQ(Recent(u"Filter"), CTexts(expected.rbegin(), expected.rend()));
    const std::string bytes = m_temporary.Read(m_preferences);
    EXPECT_TRUE(Has(bytes, "[Theirs]\nkey = kept\n"));
    EXPECT_TRUE(Has(bytes, "\n[SurfaceReport_RoughnessAnalysis]\n")) << "beside the choices";
    EXPECT_FALSE(Has(bytes, "[SettingsFactory_"));
}

TEST_F(Settings, ThresholdSetsSayWhichGrainsAreMeasured)
{
    m_temporary.Write("islands.txt", "# Width: 4 um\n# Height: 3 um\n# Value units: nm\n"
                                     "9 0 0 0\n9 0 0 7\n0 0 0 -5\n");
    const struct {
        const char* set;
        const char* threshold;
        const char* leftOut; // all grains lie at the border
        int count;
    } rows[] = {
        {"Threshold=Absolute;Value=5e-9", "particles from 5 nm", nullptr, 2},
        {"Value=75;MinimumPoints=2",
         "particles from 5.5 nm, 75 % of the way from the lowest point to the highest",
         "1 (of fewer than 2 points)", 1},
        {"Threshold=Percentile;Value=50;Side=Pores;IncludeEdgeGrains=0",
         "pores below 0 m, the height below which 50 % of the points lie", "1 (cut off by the border)", 0},
        {"Threshold=Otsu;MinimumArea=1.5e-12",
         "particles from 3.5 nm, the height that parts the points into two "
         "classes by Otsu",
         "1 (smaller than 1.5 µm²)", 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.set);
        std::string set = std::string("[GrainThreshold]\n") + row.set + "\n";
        std::ranges::replace(set, ';', '\n');
        m_temporary.Write("my.pnps", set);
        ASSERT_EQ(Run("$folder/islands.txt --out $out --grains PnP[File($folder/my.pnps)] --preferences "
                      "$folder/choices.ini"),
                  0)
            << m_err.str();
        const std::string report = Read("report.txt");
        EXPECT_TRUE(Has(report, std::string(": ") + row.threshold + "\r\n")) << report;
        EXPECT_TRUE(Has(report, "\r\nShape Count: " + std::to_string(row.count) + "\r\n")) << report;
        EXPECT_TRUE(row.leftOut ? Has(report, std::string("\r\nLeft out: ") + row.leftOut + "\r\n")
                                : !Has(report, "Left out"))
            << report;
    }
    EXPECT_EQ(Recent(u"PnP").size(), 1u);
}

TEST_F(Settings, RoughnessSetsChooseForThisRunAlone)
{
    const std::string keep = "--preferences $folder/choices.ini --set Sdr=on --set Sa.unit=um ";
    Report(keep);
    const std::string before = m_temporary.Read(m_preferences);
    const std::string image =
        Report("--settings ImageRoughness[Id(73)] --level plane --preferences $folder/choices.ini");
    EXPECT_TRUE(Has(image, "\r\nSettings: Image Roughness / VORN Classic Default\r\n")) << image;
    EXPECT_TRUE(Has(image, "\r\nSa, Arithmetical Mean Height\t209") && !Has(image, "Sdr")) << image;
    m_temporary.Write("my.prs", "[Analysis_RoughnessProfileAnalysis]\n4287Ra_P_On=0\n4287Rz_P_On=1\n"
                                "Fractile_S_On=1\nFractile_S_Value=95\n");
    const std::string profiles =
        Report("--settings ProfileRoughness[File($folder/my.prs)] --preferences $folder/choices.ini");
    EXPECT_TRUE(Has(profiles, "Percentile 95 %") && !Has(profiles, "\tRa\r\n")) << profiles;
    EXPECT_TRUE(Has(profiles, "Sdr")) << "of the surface the preferences count";

    // But for the recent sets, and the version at the end.
    const std::string after = m_temporary.Read(m_preferences);
    EXPECT_TRUE(after.substr(0, after.find("\n[SettingsFactory]")) ==
                before.substr(0, before.find("\n[FileFormat]")));
    EXPECT_EQ(Recent(u"ImageRoughness").size(), 1u);
    EXPECT_TRUE(Has(Report("--settings ImageRoughness[Id(73)] --grains 5nm"), "says nothing of grains"));
    m_temporary.Write("other.irs", "[Analysis_RoughnessProfileAnalysis]\n");
    EXPECT_TRUE(
        Has(Report("--settings ImageRoughness[File($folder/other.irs)]"), "there is no such section"));
}

TEST_F(Settings, ListShowsRecentCustomAndBuiltInSets)
{
    for (const char* name : {"ground/b.pln", "a10.pln", "A2.PLN", "no.flt"})
        m_temporary.Write(fs::path("Custom Settings") / name, "[PlaneCorrection]\nMethod=Offset\n");
    fs::create_directory(m_folder / "Custom Settings" / "ground" / "empty");
    Apply("PlaneCorr[Id(20)] --preferences $folder/choices.ini");
    const std::string before = m_temporary.Read(m_preferences);
    ASSERT_EQ(Run("--list-settings PlaneCorr --settings-folder $folder --preferences $folder/choices.ini"), 0)
        << m_err.str();
    EXPECT_EQ(m_out.str(), ReadTestData("plane-corrections.list.txt"));
    EXPECT_EQ(m_temporary.Read(m_preferences), before);

    ASSERT_EQ(Run("--list-settings"), 0);
    EXPECT_TRUE(Has(m_out.str(), "FFT (FFT): none\n") && Has(m_out.str(), "\n    177  Grey\n"))
        << m_out.str();
    EXPECT_FALSE(Has(m_out.str(), "Unknown"));
}
