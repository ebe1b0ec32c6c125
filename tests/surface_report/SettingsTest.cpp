#include "tests/surface_report/SurfaceReportFixture.h"

#include "common/ini/Inifile.h"

namespace
{

// Runs the program with settings sets and files of its own.
class Settings : public ReportProgram
{
protected:
    // Reports on the sample; the text report, or the message.
    std::string Report(const std::vector<std::string>& userSpecs, std::vector<std::string> more = {})
    {
        std::vector<std::string> arguments = {c_sample.string(), "--out", Out().string(), "--parameters",
                                              "Sq,Rq"};
        for (const std::string& userSpec : userSpecs)
            arguments.insert(arguments.end(), {"--settings", userSpec});
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments) == 0 ? BytesOf(Out() / "report.txt") : m_err.str();
    }
    // The recent sets of a type in the preferences file.
    std::vector<CommonUI::CStr> Recent(std::u16string_view type) const
    {
        CommonUI::CInifile ini;
        EXPECT_TRUE(ini.Load(m_preferences.u16string()));
        ini.SelectSection(u"SettingsFactory");
        return ini.ReadTexts(type);
    }

    const fs::path m_preferences = m_folder / "choices.ini";
};

bool Has(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

} // namespace

TEST_F(Settings, ProcessedSurfaceStandsBesideTheRawOne)
{
    const std::string levelled = Report({"PlaneCorr[Id(4)]"});
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
    const std::string file = Write("my.pln", "; mine\n[PlaneCorrection]\nMethod=Polynomial\n").string();
    EXPECT_EQ(valuesOf(Report({"PlaneCorr[Id(PlaneCorrQuickLaunchImageLeveling)]"})), valuesOf(levelled));
    const std::string fromFile = Report({"PlaneCorr[File(" + file + ")]"});
    EXPECT_EQ(valuesOf(fromFile), valuesOf(levelled));
    EXPECT_TRUE(Has(fromFile, "\r\nStep 1: Plane Correction / my.pln\r\n"));
    EXPECT_TRUE(Has(Report({"PlaneCorr[Id(8)]"}, {"--level", "plane"}), "Height\t354.61\t284.48\tnm\r\n"))
        << "raw is what was read";
}

TEST_F(Settings, TheOrderCounts)
{
    const auto lineOf = [](const std::string& report) { return report.substr(report.find("\nSq"), 60); };
    const std::string other = lineOf(Report({"PlaneCorr[Id(6)]", "Filter[Id(84)]"}));
    EXPECT_NE(lineOf(Report({"Filter[Id(84)]", "PlaneCorr[Id(6)]"})), other);
    EXPECT_TRUE(Has(m_out.str(), "\nStep 2            Plane Correction / Images / Linewise Offset\n"));
}

TEST_F(Settings, EveryCorrectionAndFilterOfTheCatalogueIsAppliedOrRefusedForItsCutoff)
{
    int applied = 0;
    const auto apply = [&](const std::string& type, int first, int last) {
        for (int number = first; number <= last; ++number) {
            const std::string userSpec = type + "[Id(" + std::to_string(number) + ")]";
            const std::string report = Report({userSpec});
            applied += m_err.str().empty() ? 1 : 0;
            EXPECT_TRUE(m_err.str().empty() || Has(report, userSpec + ": the cut-off is ")) << report;
        }
    };
    apply("PlaneCorr", 1, 21);
    apply("Filter", 75, 169);
    EXPECT_EQ(applied, 74) << "cut-offs of more than 1 and less than 48 micrometres fit the sample";
}

TEST_F(Settings, WhatCannotBeAppliedIsSaidInOneLineAndNothingIsKept)
{
    const std::string noKind = Write("nokind.flt", "[Filter]\nRows=3\n").string();
    const std::string huge = Write("huge.flt", "").string();
    fs::resize_file(huge, std::uintmax_t{100} << 20);
    const struct {
        std::string userSpec;
        std::string message;
    } rows[] = {
        {"PlaneCorr[Id(177)]", "--settings PlaneCorr[Id(177)]: there is no such set; see --list-settings"},
        {"PlaneCorr[Id(4", "--settings: Syntax error in specification: PlaneCorr[Id(4"},
        {"ColorScale[Id(177)]", "only plane corrections (PlaneCorr) and filters (Filter) can be applied"},
        {"Filter[File(" + (m_folder / "none.flt").string() + ")]", "Cannot load \""},
        {"Filter[File(" + huge + ")]", "Cannot load \""},
        {"Filter[File(" + noKind + ")]", "[Filter] Kind="},
        {"Filter[Id(140)]", "--settings Filter[Id(140)]: the cut-off is longer than the surface"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.userSpec);
        const std::string message =
            Report({"Filter[Id(84)]", row.userSpec}, {"--preferences", m_preferences.string()});
        EXPECT_TRUE(Has(message, row.message)) << message;
        EXPECT_EQ(message.find('\n'), message.size() - 1) << "one line: " << message;
        EXPECT_FALSE(fs::exists(Out()));
        EXPECT_FALSE(fs::exists(m_preferences));
    }
    EXPECT_EQ(Run({c_sample.string(), "--out", noKind + "/sub", "--settings", "Filter[Id(84)]",
                   "--preferences", m_preferences.string()}),
              1);
    EXPECT_FALSE(fs::exists(m_preferences)) << "no folder for the reports";
    EXPECT_EQ(Run({"--list-settings", "Nothing"}), 1);
    EXPECT_EQ(m_err.str(), "surface_report: --list-settings: there is no type \"Nothing\"\n");
    EXPECT_EQ(Run({"--list-settings", "--settings-folder", noKind}), 1);
    EXPECT_EQ(m_err.str(), "surface_report: --settings-folder: \"" + noKind + "\" is no folder\n");
}

TEST_F(Settings, UsesAreRememberedInThePreferencesFile)
{
    using CTexts = std::vector<CommonUI::CStr>;
    const std::vector<std::string> keep = {"--preferences", m_preferences.string()};
    const fs::path file = Write("my.flt", "[Filter]\nKind=Mean\n");
    Report({}, keep);
    EXPECT_FALSE(Has(BytesOf(m_preferences), "[SettingsFactory]"));
    std::ofstream(m_preferences, std::ios::app) << "[Theirs]\nkey = kept\n";

    Report({"Filter[Id(84)]", "PlaneCorr[Id(4)]", "Filter[File(" + file.string() + ")]"}, keep);
    const CTexts expected = {u"FILE:" + CommonUI::CStr(file.u16string()),
                             u"BUILT-IN:Filter_Noise_reduction_Median_3x3_full"};
    EXPECT_EQ(Recent(u"Filter"), expected);
    const fs::path roundabout = m_folder / ".." / m_folder.filename() / "." / "my.flt";
    Report({"Filter[File(" + roundabout.string() + ")]"}, keep);
    EXPECT_EQ(Recent(u"Filter"), expected) << "the same file";
    EXPECT_EQ(Recent(u"PlaneCorr"), CTexts{u"BUILT-IN:PlaneCorrQuickLaunchImageLeveling"});
    EXPECT_TRUE(Has(Report({"Filter[Id(200)]"}, keep), "Step 1: Filter / my.flt\r\n")) << "a recent file";

    fs::remove(file);
    EXPECT_TRUE(Has(Report({"Filter[Id(200)]"}, keep), "Cannot load \"" + file.string() + "\": "));
    EXPECT_EQ(Recent(u"Filter"), expected) << "a run that failed";
    Report({"Filter[Id(84)]"}, keep);
    EXPECT_EQ(Recent(u"Filter"), CTexts(expected.rbegin(), expected.rend()));
    const std::string bytes = BytesOf(m_preferences);
    EXPECT_TRUE(Has(bytes, "[Theirs]\nkey = kept\n"));
    EXPECT_TRUE(Has(bytes, "\n[SurfaceReport_RoughnessAnalysis]\n")) << "beside the choices";
    EXPECT_FALSE(Has(bytes, "[SettingsFactory_"));
}

TEST_F(Settings, ListShowsRecentCustomAndBuiltInSets)
{
    const fs::path custom = m_folder / "Custom Settings";
    fs::create_directories(custom / "ground" / "empty");
    for (const char* name : {"ground/b.pln", "a10.pln", "A2.PLN", "no.flt"})
        std::ofstream(custom / name) << "[PlaneCorrection]\nMethod=Offset\n";
    Report({"PlaneCorr[Id(20)]"}, {"--preferences", m_preferences.string()});
    const std::string before = BytesOf(m_preferences);
    ASSERT_EQ(Run({"--list-settings", "PlaneCorr", "--settings-folder", m_folder.string(), "--preferences",
                   m_preferences.string()}),
              0)
        << m_err.str();
    EXPECT_EQ(m_out.str(), BytesOf(fs::path(COMMONUI_TEST_DATA) / "plane-corrections.list.txt"));
    EXPECT_EQ(BytesOf(m_preferences), before);

    ASSERT_EQ(Run({"--list-settings"}), 0);
    EXPECT_TRUE(Has(m_out.str(), "FFT (FFT): none\n") && Has(m_out.str(), "\n    177  Grey\n"))
        << m_out.str();
    EXPECT_FALSE(Has(m_out.str(), "Unknown"));
}
