#include "tests/surface_report/SurfaceReportFixture.h"

#include "common/ini/Inifile.h"
#include "tests/TestData.h"

#include <algorithm>

TEST_F(ReportProgram, ReportsOfTheSampleAreThoseOfTheGoldenFiles)
{
    ASSERT_EQ(Run({c_sample.string(), "--out", Out().string(), "--level", "plane", "--parameters",
                   "Sq,Ra,Sa,Count,Sdr,4287PSm,S2A", "--unit", "um"}),
              0)
        << m_err.str();
    EXPECT_EQ(BytesOf(Out() / "report.txt"), BytesOf(fs::path(COMMONUI_TEST_DATA) / "ground_steel.txt"));
    EXPECT_EQ(BytesOf(Out() / "report.html"), BytesOf(fs::path(COMMONUI_TEST_DATA) / "ground_steel.html"));
    EXPECT_EQ(m_out.str(), BytesOf(fs::path(COMMONUI_TEST_DATA) / "ground_steel.terminal.txt"));
    EXPECT_EQ(m_err.str(), "");
}

TEST_F(ReportProgram, TransposedTableHasParametersAsColumns)
{
    ASSERT_EQ(Run({c_sample.string(), "--out", Out().string(), "--level", "plane", "--parameters", "Sq",
                   "--transpose"}),
              0);
    EXPECT_NE(
        BytesOf(Out() / "report.txt")
            .find("\r\nSurface parameter\tSq, Root Mean Square Height\r\nValue\t284.48\r\nUnit\tnm\r\n"),
        std::string::npos);
}

TEST_F(ReportProgram, MarkupInTheInputStaysText)
{
    const fs::path input =
        Write("a&b.txt", "# Channel: <b>\n# Width: 3 um\n# Height: 2 um\n# Value units: nm\n1 2 "
                         "3\n2 3 5\n");
    ASSERT_EQ(Run({input.string(), "--out", Out().string(), "--parameters", "Sa"}), 0) << m_err.str();
    const std::string html = BytesOf(Out() / "report.html");
    EXPECT_NE(html.find("&lt;b&gt;"), std::string::npos);
    EXPECT_NE(html.find("<title>Surface report: a&amp;b.txt</title>"), std::string::npos);
    EXPECT_NE(BytesOf(Out() / "report.txt").find("Channel: <b>\r\n"), std::string::npos);
}

TEST_F(ReportProgram, EmptyCellsAreExplainedBelowTheirTables)
{
    const fs::path input = Write("flat.txt", "# Width: 3 um\n# Height: 1 um\n# Value units: nm\n1 1 1\n");
    ASSERT_EQ(Run({input.string(), "--out", Out().string(), "--parameters", "Sku,Rsk"}), 0) << m_err.str();
    EXPECT_NE(m_out.str().find("\n1 Sku: the surface is flat\n\n"), std::string::npos) << m_out.str();
    EXPECT_TRUE(m_out.str().ends_with("\n1 Rsk VORN Classic: the profile is flat\n")) << m_out.str();
    EXPECT_EQ(BytesOf(Out() / "report.txt").find(" is flat"), std::string::npos) << "empty cells alone";
}

// A line of the record: the arguments, and what the message contains.
TEST_F(ReportProgram, WhatCannotBeDoneIsSaidInOneLineAndNothingIsWritten)
{
    const std::string header = "# Width: 3 um\n# Height: 1 um\n# Value units: nm\n";
    Write("file", "x");
    Write("binary.ini", std::string("\x7F"
                                    "ELF\0\x01\xFF",
                                    7));
    Write("text.txt", header + "1 2 x\n");
    Write("missing.txt", header + "BAD BAD BAD\n");
    Write("short.sdf", "aISO-1.0\nNumPoints = 3\nNumProfiles = 3\nXscale = 1e-6\nYscale = 1e-6\n"
                       "Zscale = 1\n*\n1 2 3\n*\n");
    const auto fill = [this](const std::string& text) {
        return CommonUI::CStr::FromUtf8(text)
            .Replace(u"$sample", c_sample.u16string())
            .Replace(u"$out", Out().u16string())
            .Replace(u"$folder", m_folder.u16string())
            .ToUtf8();
    };
    for (const std::string& row : ReadTestLines("surface-report-refusals.txt")) {
        SCOPED_TRACE(row);
        const std::vector<std::string> cells = SplitText(row, '|');
        std::vector<std::string> arguments = SplitText(cells[0], ' ');
        std::ranges::transform(arguments, arguments.begin(), fill);
        EXPECT_EQ(Run(arguments), 1);
        EXPECT_NE(m_err.str().find(fill(cells[1])), std::string::npos) << m_err.str();
        EXPECT_EQ(m_err.str().find('\n'), m_err.str().size() - 1) << "one line: " << m_err.str();
        EXPECT_EQ(m_out.str(), "");
        EXPECT_FALSE(fs::exists(Out()));
    }
}

TEST_F(ReportProgram, PathsThatAreNoTextAreRefusedByName)
{
    for (const std::string option : {"--out", "--preferences", "--settings-folder"}) {
        const std::string path = (m_folder / "made" / "a\xFF").string();
        EXPECT_EQ(Run({c_sample.string(), "--out", Out().string(), option, path}), 1);
        EXPECT_EQ(m_err.str(), "surface_report: " + option + ": \"" + m_folder.string() +
                                   "/made/a\xEF\xBF\xBD\" is no text in UTF-8\n");
        EXPECT_FALSE(fs::exists(m_folder / "made")) << "no folder is left behind";
    }
}

TEST_F(ReportProgram, FoldersOfAFailedRunGoAgain)
{
    const fs::path preferences = m_folder / "no" / "choices.ini"; // cannot be saved
    EXPECT_EQ(Run({c_sample.string(), "--out", Out().string(), "--preferences", preferences.string()}), 1);
    EXPECT_FALSE(fs::exists(m_folder / "made"));
}

TEST_F(ReportProgram, HelpIsGivenWhateverStandsBesideIt)
{
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"--help", "--out"}, {"--out", "--help"}, {"a", "b", "-o", "--help"}}) {
        EXPECT_EQ(Run(arguments), 0) << m_err.str();
        EXPECT_TRUE(m_out.str().find("usage: surface_report") != std::string::npos);
    }
}

TEST_F(ReportProgram, NothingOfAFileCommandsTheTerminal)
{
    const std::string hostile = "\x1B[2J\x7F\xC2\x9B"
                                "1m\xFF";
    const fs::path good = Write("\x1B"
                                "c\x7F.txt",
                                "# Channel: a" + hostile +
                                    "\n# Width: 3 um\n# Height: 2 um\n"
                                    "# Value units: nm\n1 2 3\n2 3 5\n");
    const fs::path bad = Write("bad.txt", "# " + hostile + ": 1\n" + hostile + "\n");
    const struct {
        std::vector<std::string> arguments;
        int status;
    } rows[] = {
        {{good.string(), "--out", Out().string()}, 0},
        {{bad.string(), "--out", Out().string()}, 1},
        {{good.string(), "--out", Out().string(), "--level", hostile}, 1},
        {{good.string(), "--out", (bad / hostile.substr(0, 7)).string()}, 1},
        {{"--list-settings", hostile}, 1},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Run(row.arguments), row.status) << m_err.str();
        const CommonUI::CStr shown = CommonUI::CStr::FromUtf8(m_out.str() + m_err.str());
        EXPECT_TRUE(std::ranges::none_of(shown.View(), [](char16_t unit) {
            return (unit < u' ' && unit != u'\n') || (unit >= 0x7F && unit <= 0x9F);
        })) << shown.ToUtf8();
    }
}

TEST_F(ReportProgram, ChoicesAreKept)
{
    const fs::path file = m_folder / "choices.ini";
    const auto report = [&](std::vector<std::string> more) {
        std::vector<std::string> arguments = {c_sample.string(), "--out",         Out().string(), "--level",
                                              "plane",           "--preferences", file.string()};
        arguments.insert(arguments.end(), more.begin(), more.end());
        EXPECT_EQ(Run(arguments), 0) << m_err.str();
        return BytesOf(Out() / "report.txt");
    };
    const auto has = [](const std::string& text, const char* part) {
        return text.find(part) != std::string::npos;
    };
    const std::string before = report({});
    EXPECT_TRUE(has(before, "Sa, Arithmetical Mean Height\t209.35\tnm\r\n"));
    EXPECT_FALSE(has(before, "Percentile"));
    std::ofstream(file, std::ios::app) << "[Theirs]\nkey = kept\n";

    const std::string changed =
        report({"--set", "Sa=off", "--set", "Sq.unit=um", "--set", "Sq.format=Digits:4", "--set",
                "Fractile=on:90", "--set", "Sch=on:95", "--set", "Sch=on:5", "--set", "Sch=on:95", "--set",
                "Sch.format=Decimals:1", "--set", "statistic.Count=off"});
    EXPECT_FALSE(has(changed, "Sa, "));
    EXPECT_TRUE(has(changed, "Sq, Root Mean Square Height\t0.2845\tµm\r\n"));
    EXPECT_TRUE(has(changed, "Percentile 90 %\t"));
    EXPECT_TRUE(has(changed, "\r\nSch(95 %), Percentile Height\t373.9\tnm\r\nSch(5 %), Percentile Height\t"));
    EXPECT_FALSE(has(changed, "\r\nCount\t"));
    EXPECT_EQ(report({}), changed) << "the choices of yesterday";
    EXPECT_TRUE(has(BytesOf(file), "[Theirs]\nkey = kept\n"));

    EXPECT_FALSE(has(report({"--set", "Sch=off"}), "Sch("));
    EXPECT_EQ(Run({(m_folder / "nothing").string(), "--out", Out().string(), "--preferences",
                   (m_folder / "new.ini").string(), "--set", "Sa=off"}),
              1);
    EXPECT_FALSE(fs::exists(m_folder / "new.ini")) << "nothing is kept of a run that failed";
    CommonUI::CInifile hostile;
    ASSERT_TRUE(hostile.Load(file.u16string()));
    hostile.SelectSection(u"SurfaceReport_RoughnessProfileAnalysis");
    hostile.WriteDouble(u"Fractile_S_Value", 5000);
    ASSERT_TRUE(hostile.Save());
    EXPECT_TRUE(has(report({}), "Percentile 95 %\t"));
    ASSERT_EQ(report({"--set", "Fractile=on:90"}).size(), report({}).size());
    const std::string saved = BytesOf(file);
    EXPECT_EQ(Run({c_sample.string(), "--out", Out().string(), "--preferences", file.string(), "--set",
                   "Sa=on", "--set", "Sq.unit=furlong"}),
              1);
    EXPECT_EQ(m_err.str(), "surface_report: --set Sq.unit=furlong: \"furlong\" is no unit of length\n");
    EXPECT_EQ(BytesOf(file), saved);
}

TEST_F(ReportProgram, GrainsAndPoresAreReportedOneToARow)
{
    const fs::path input = Write("islands.txt", "# Width: 4 um\n# Height: 3 um\n# Value units: nm\n"
                                                "9 0 0 0\n9 0 0 7\n0 0 0 -5\n");
    ASSERT_EQ(Run({input.string(), "--out", Out().string(), "--grains", "5nm", "--parameters",
                   "AreaExHoles,MaxZPosX"}),
              0)
        << m_err.str();
    const std::string text = BytesOf(Out() / "report.txt");
    EXPECT_NE(text.find("Shape Count: 2\r\nCoverage: 25 %\r\n\r\nParticle\tArea\tX Position, Z Max\r\n"
                        "Unit\tµm²\tµm\r\n1\t2\t0.5\r\n2\t1\t3.5\r\nCount\t2\t2\r\n"),
              std::string::npos)
        << text;
    ASSERT_EQ(
        Run({input.string(), "--out", Out().string(), "--pores", "-1nm", "--parameters", "AreaExHoles"}), 0);
    EXPECT_NE(m_out.str().find("Shape Count                        1\n"), std::string::npos) << m_out.str();
}

TEST_F(ReportProgram, ReportsAndPreferencesAreReplacedOrNothing)
{
    const fs::path file = m_folder / "choices.ini";
    const auto run = [&](const fs::path& preferences) {
        return Run({c_sample.string(), "--out", Out().string(), "--preferences", preferences.string(),
                    "--set", "Sa=off", "--settings", "PlaneCorr[Id(4)]"});
    };
    fs::create_directories(Out() / "report.txt"); // a folder, which cannot be replaced by a file
    EXPECT_EQ(run(file), 1);
    EXPECT_FALSE(fs::exists(Out() / "report.html"));
    EXPECT_FALSE(fs::exists(file)) << "neither the change nor the set that was used";
    std::ofstream(Out() / "report.html") << "before";
    EXPECT_EQ(run(file), 1);
    EXPECT_EQ(BytesOf(Out() / "report.html"), "before");
    fs::remove(Out() / "report.txt");
    EXPECT_EQ(run(m_folder / "no" / "folder.ini"), 1) << "the preferences cannot be saved";
    EXPECT_EQ(BytesOf(Out() / "report.html"), "before");
    EXPECT_FALSE(fs::exists(Out() / "report.txt"));
    EXPECT_EQ(run(file), 0) << m_err.str();
}
