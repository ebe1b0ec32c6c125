#include "common/Version.h"
#include "formats/SurfaceReader.h"
#include "tests/StrictJson.h"
#include "tests/surface_report/SurfaceReportFixture.h"

#include <regex>

namespace
{

// A file of tests/data with the version of the day, and without the digest where none is computed.
std::string Golden(const std::string& name)
{
    std::string text =
        std::regex_replace(ReadTestData(name), std::regex("\\$version"), CommonUI::GetVersion().ToUtf8());
    if (!CommonUI::Formats::HasX3p())
        text = std::regex_replace(text, std::regex("(<tr>\n.*)?SHA-256.*\r?\n(.*</td>\n</tr>\n)?"), "");
    return text;
}

} // namespace

TEST_F(ReportProgram, ReportsOfTheSampleAreThoseOfTheGoldenFiles)
{
    ASSERT_EQ(
        Run("$sample --out $out --level plane --pictures no --parameters Sq,Ra,Sa,Count,Sdr,4287PSm,S2A "
            "--unit um"),
        0)
        << m_err.str();
    EXPECT_EQ(Read("report.txt"), Golden("ground_steel.txt"));
    EXPECT_EQ(Read("report.html"), Golden("ground_steel.html"));
    EXPECT_EQ(m_out.str(), Golden("ground_steel.terminal.txt"));
    EXPECT_EQ(m_err.str(), "");
}

TEST_F(ReportProgram, DataAndSpreadsheetsAreWrittenBeside)
{
    const std::string line = "$sample --out $out --pictures no --parameters Sq,Sdc(10,50) ";
    ASSERT_EQ(Run(line + "--decimal comma"), 0) << m_err.str();
    EXPECT_TRUE(Has(Read("report.sheet.csv"), "\r\nSq, Root Mean Square Height;354,61;nm\r\n"));
    EXPECT_TRUE(Has(Read("report.csv"), "\r\nsurface,,\"Sdc(10,50)\",,4.608999999999999e-07,m,\r\n"));
    const SJson json = CStrictJson::Parse(Read("report.json"));
    EXPECT_EQ(json["surface"][1]["key"].text, "Sdc(10,50)");
    EXPECT_EQ(json["source"]["sha256"].text.size(), CommonUI::Formats::HasX3p() ? 64u : 0u);
    EXPECT_EQ(json["source"]["date"].text, "2025-01-01T00:00");
    const std::string first = Read("report.json") + Read("report.csv");
    ASSERT_EQ(Run(line + "--csv-separator tab --decimal point --transpose"), 0);
    EXPECT_TRUE(Has(Read("report.sheet.csv"), "\r\nValue\t354.61\t460.9\r\nUnit\tnm\tnm\r\n"))
        << Read("report.sheet.csv");
    EXPECT_EQ(Read("report.json") + Read("report.csv"), first)
        << "nothing of the time, or of the way it is shown";
    EXPECT_TRUE(Has(Report("--parameters Sq --settings PlaneCorr[Id(4)] --settings Filter[Id(97)]"),
                    "\r\nCut-off of step 2: 2.5 µm\r\nFilter ends: weights"));
    EXPECT_EQ(CStrictJson::Parse(Read("report.json"))["method"]["steps"][1]["cutoff"].number, 2.5e-6);
    fs::remove_all(Out());
    ASSERT_EQ(Run(line + "--data no"), 0);
    for (const char* name : {"report.csv", "report.json", "report.sheet.csv"})
        EXPECT_FALSE(fs::exists(Out() / name)) << name;
    EXPECT_EQ(Run(line + "--decimal comma --csv-separator comma"), 1);
    EXPECT_TRUE(Has(m_err.str(), "--csv-separator: a comma cannot separate")) << m_err.str();
}

TEST_F(ReportProgram, PicturesStandBehindTheSummaryOfThePageWithoutThem)
{
    const std::string options = "$sample --out $out --level plane --parameters Sq --pictures ";
    ASSERT_EQ(Run(options + "no"), 0) << m_err.str();
    const std::string bare = Read("report.html");
    ASSERT_EQ(Run(options + "yes"), 0) << m_err.str();
    std::string page = Read("report.html");
    const std::size_t begin = bare.find("</table>") + 9;
    const std::size_t count = page.size() - bare.size();
    EXPECT_TRUE(Has(page.substr(begin, count), "<svg"));
    EXPECT_EQ(page.erase(begin, count), bare);
}

TEST_F(ReportProgram, TransposedTableHasParametersAsColumns)
{
    EXPECT_TRUE(Has(Report("--level plane --parameters Sq --transpose"),
                    "\r\nSurface parameter\tSq, Root Mean Square Height\r\nValue\t284.48\r\nUnit\tnm\r\n"));
}

TEST_F(ReportProgram, MotifsAndValleysAreReportedWithTheirLimits)
{
    const std::string asked = "--unit um --parameters p12085_RAr,p12085_Wte,Msm,Sdc(10,50)";
    const std::string usual = Report(asked);
    for (const char* part : {"\r\nMotifs: no wider than A = 20 µm, those of the envelope than B = 100 µm\r\n",
                             "\r\nValleys: below a robust Gaussian regression of order 2 that starts from a "
                             "closing of 6.4 µm\r\n",
                             "\r\nSdc(10 %, 50 %), ", "\r\nProfile\tAR\tWte\tMsm\r\n"})
        EXPECT_TRUE(Has(usual, part)) << part;
    const std::string narrow = Report(asked + " --motif-limits 2um,10um");
    EXPECT_TRUE(Has(narrow, "A = 2 µm, those of the envelope than B = 10 µm\r\n"));
    EXPECT_NE(narrow.substr(narrow.find("\r\nProfile\t")), usual.substr(usual.find("\r\nProfile\t")));
}

TEST_F(ReportProgram, MarkupInTheInputStaysText)
{
    m_temporary.Write("a&b.txt",
                      "# Channel: <b>\n# Width: 3 um\n# Height: 2 um\n# Value units: nm\n1 2 3\n2 3 5\n");
    ASSERT_EQ(Run("$folder/a&b.txt --out $out --parameters Sa"), 0) << m_err.str();
    EXPECT_TRUE(Has(Read("report.html"), "&lt;b&gt;"));
    EXPECT_TRUE(Has(Read("report.html"), "<title>Surface report: a&amp;b.txt</title>"));
    EXPECT_TRUE(Has(Read("report.txt"), "Channel: <b>\r\n"));
}

TEST_F(ReportProgram, EmptyCellsAreExplainedBelowTheirTables)
{
    m_temporary.Write("flat.txt", "# Width: 3 um\n# Height: 2 um\n# Value units: nm\n1 1 1\n1 1 1\n");
    ASSERT_EQ(Run("$folder/flat.txt --out $out --parameters Sku,Rsk"), 0) << m_err.str();
    EXPECT_TRUE(Has(m_out.str(), "\n1 Sku: the surface is flat\n\n")) << m_out.str();
    EXPECT_TRUE(m_out.str().ends_with("\n1 Rsk VORN Classic: the profile is flat\n")) << m_out.str();
    EXPECT_FALSE(Has(Read("report.txt"), " is flat")) << "empty cells alone";
}

// A line of the record: the arguments, and what the message contains.
TEST_F(ReportProgram, WhatCannotBeDoneIsSaidInOneLineAndNothingIsWritten)
{
    const std::string header = "# Width: 3 um\n# Height: 1 um\n# Value units: nm\n";
    m_temporary.Write("file", "x");
    m_temporary.Write("binary.ini", std::string("\x7F"
                                                "ELF\0\x01\xFF",
                                                7));
    m_temporary.Write("text.txt", header + "1 2 x\n");
    m_temporary.Write("heights.txt", "z [um]\n1\n2\n");
    m_temporary.Write("profile.txt", "x [um] z [um]\n0 1\n1 2\n");
    m_temporary.Write("missing.txt", header + "BAD BAD BAD\n");
    m_temporary.Write("short.sdf", "aISO-1.0\nNumPoints = 3\nNumProfiles = 3\nXscale = 1e-6\nYscale = 1e-6\n"
                                   "Zscale = 1\n*\n1 2 3\n*\n");
    m_temporary.Write("mine.DOCX", std::string("PK\3\4\0", 5));
    m_temporary.Write("nokind.flt", "[Filter]\nRows=3\n");
    m_temporary.Write("gone.batch", "[Batch]\nStep1=ShowProfiles\nStep2=Apply\nStep2_Type=Filter\n"
                                    "Step2_Settings=FILE:gone.flt\n");
    m_temporary.Write("huge.flt", "");
    fs::resize_file(m_folder / "huge.flt", std::uintmax_t{100} << 20);
    for (const std::string& row : ReadTestLines("surface-report-refusals.txt")) {
        SCOPED_TRACE(row);
        const std::vector<std::string> cells = SplitText(row, '|');
        EXPECT_EQ(Run(cells[0]), 1);
        EXPECT_TRUE(Has(m_err.str(), Fill(cells[1]))) << m_err.str();
        EXPECT_EQ(m_err.str().find('\n'), m_err.str().size() - 1) << "one line: " << m_err.str();
        EXPECT_EQ(m_out.str(), "");
        EXPECT_FALSE(fs::exists(m_folder / "made") || fs::exists(m_folder / "new.ini"));
    }
}

#if !defined(_WIN32) // whose names are texts
TEST_F(ReportProgram, PathsThatAreNoTextAreRefusedByName)
{
    for (const std::string option : {"--out", "--preferences", "--settings-folder"}) {
        const std::string path = (m_folder / "made" / "a\xFF").string();
        EXPECT_EQ(Run({c_sample, "--out", Out().string(), option, path}), 1);
        EXPECT_EQ(m_err.str(), "surface_report: " + option + ": \"" + m_folder.string() +
                                   "/made/a\xEF\xBF\xBD\" is no text in UTF-8\n");
        EXPECT_FALSE(fs::exists(m_folder / "made")) << "no folder is left behind";
    }
}
#endif

TEST_F(ReportProgram, HelpIsGivenWhateverStandsBesideIt)
{
    for (const std::string line : {"--help --out", "--out --help", "a b -o --help"}) {
        EXPECT_EQ(Run(line), 0) << m_err.str();
        EXPECT_TRUE(Has(m_out.str(), "usage: surface_report"));
    }
}

TEST_F(ReportProgram, NothingOfAFileCommandsTheTerminal)
{
    const std::string hostile = "\x1B[2J\x7F\xC2\x9B"
                                "1m\xFF";
#if defined(_WIN32) // where no name has control characters
    const std::string goodName = "c.txt";
#else
    const std::string goodName = "\x1B"
                                 "c\x7F.txt";
#endif
    const std::string good = (m_folder / goodName).string();
    const std::string bad = (m_folder / "bad.txt").string();
    const std::string out = Out().string();
    m_temporary.Write(goodName, "# Channel: a" + hostile +
                                    "\n# Width: 3 um\n# Height: 2 um\n# Value units: nm\n1 2 3\n2 3 5\n");
    m_temporary.Write("bad.txt", "# " + hostile + ": 1\n" + hostile + "\n");
    const std::pair<std::vector<std::string>, int> rows[] = {
        {{good, "--out", out}, 0},
        {{bad, "--out", out}, 1},
        {{good, "--out", out, "--level", hostile}, 1},
        {{good, "--out", bad + '/' + hostile.substr(0, 7)}, 1},
        {{"--list-settings", hostile}, 1},
    };
    for (const auto& [arguments, status] : rows) {
        EXPECT_EQ(Run(arguments), status) << m_err.str();
        const CommonUI::CStr shown = CommonUI::CStr::FromUtf8(m_out.str() + m_err.str());
        EXPECT_TRUE(std::ranges::none_of(shown.View(), [](char16_t unit) {
            return (unit < u' ' && unit != u'\n') || (unit >= 0x7F && unit <= 0x9F);
        })) << shown.ToUtf8();
    }
}

TEST_F(ReportProgram, ChoicesAreKept)
{
    const fs::path file = m_folder / "choices.ini";
    const std::string keep = "--level plane --preferences $folder/choices.ini ";
    const std::string before = Report(keep);
    EXPECT_TRUE(Has(before, "Sa, Arithmetical Mean Height\t209.35\tnm\r\n"));
    EXPECT_FALSE(Has(before, "Percentile"));
    std::ofstream(file, std::ios::app | std::ios::binary) << "[Theirs]\nkey = kept\n";

    const std::string changed =
        Report(keep + "--set Sa=off --set Sq.unit=um --set Sq.format=Digits:4 --set Fractile=on:90 "
                      "--set Sch=on:95 --set Sch=on:5 --set Sch=on:95 --set Sch.format=Decimals:1 "
                      "--set statistic.Count=off");
    EXPECT_FALSE(Has(changed, "Sa, "));
    EXPECT_TRUE(Has(changed, "Sq, Root Mean Square Height\t0.2845\tµm\r\n"));
    EXPECT_TRUE(Has(changed, "Percentile 90 %\t"));
    EXPECT_TRUE(Has(changed, "\r\nSch(95 %), Percentile Height\t373.9\tnm\r\nSch(5 %), Percentile Height\t"));
    EXPECT_FALSE(Has(changed, "\r\nCount\t"));
    EXPECT_EQ(Report(keep), changed) << "the choices of yesterday";
    EXPECT_TRUE(Has(m_temporary.Read(file), "[Theirs]\nkey = kept\n"));

    EXPECT_FALSE(Has(Report(keep + "--set Sch=off"), "Sch("));
    CommonUI::CInifile hostile;
    ASSERT_TRUE(hostile.Load(file.u16string()));
    hostile.SelectSection(u"SurfaceReport_RoughnessProfileAnalysis");
    hostile.WriteDouble(u"Fractile_S_Value", 5000);
    ASSERT_TRUE(hostile.Save());
    EXPECT_TRUE(Has(Report(keep), "Percentile 95 %\t"));
    const std::string saved = m_temporary.Read(file);
    EXPECT_EQ(Report(keep + "--set Sa=on --set Sq.unit=furlong"),
              "surface_report: --set Sq.unit=furlong: \"furlong\" is no unit of length\n");
    EXPECT_EQ(m_temporary.Read(file), saved) << "nothing is kept of a run that failed";
}

TEST_F(ReportProgram, PreferencesHealAndSaySo)
{
    const std::string keep = "--level plane --preferences $folder/choices.ini ";
    const auto isToldInALine = [&](const std::string& text) {
        return Has(m_err.str(), "surface_report: \"" + (m_folder / "choices.ini").string() + "\" " + text) &&
               std::ranges::count(m_err.str(), '\n') == 1;
    };
    m_temporary.Write("choices.ini", "[SurfaceReport_RoughnessAnalysis]\nWriteToFile=0\nFuture=1\n"
                                     "FormRemoval=Spline\n");
    Report(keep + "--set Sa=off");
    EXPECT_TRUE(isToldInALine("has been brought to the version of this program; ")) << m_err.str();
    EXPECT_TRUE(fs::exists(m_folder / "choices.ini.version-0"));
    const std::string saved = m_temporary.Read("choices.ini");
    EXPECT_TRUE(Has(saved, "Future=1\nFormRemoval=Spline\n") && Has(saved, "[FileFormat]\nVersion=1\n"));
    const std::string changed = Report(keep);
    EXPECT_FALSE(Has(changed, "Sa, "));
    EXPECT_EQ(m_err.str(), "");

    m_temporary.Write("choices.ini", saved.substr(0, saved.size() / 2));
    EXPECT_EQ(Report(keep), changed);
    EXPECT_TRUE(isToldInALine("is damaged: it is cut off in line ")) << m_err.str();
    EXPECT_EQ(m_temporary.Read("choices.ini"), saved);
    m_temporary.Write("choices.ini", saved + "[");
    Report(keep + "--set Sq=off --parameters Nope");
    EXPECT_TRUE(Has(m_err.str(), "is damaged: ")) << "though the run has failed";
}

TEST_F(ReportProgram, GrainsAndPoresAreReportedOneToARow)
{
    m_temporary.Write("islands.txt", "# Width: 4 um\n# Height: 3 um\n# Value units: nm\n"
                                     "9 0 0 0\n9 0 0 7\n0 0 0 -5\n");
    ASSERT_EQ(Run("$folder/islands.txt --out $out --grains 5nm --parameters AreaExHoles,MaxZPosX"), 0);
    EXPECT_TRUE(Has(Read("report.txt"),
                    "Shape Count: 2\r\nCoverage: 25 %\r\n\r\nParticle\tArea\tX Position, Z Max\r\n"
                    "Unit\tµm²\tµm\r\n1\t2\t0.5\r\n2\t1\t3.5\r\nCount\t2\t2\r\n"));
    ASSERT_EQ(Run("$folder/islands.txt --out $out --pores -1nm --parameters AreaExHoles"), 0);
    EXPECT_TRUE(Has(m_out.str(), "Shape Count                        1\n")) << m_out.str();
}

TEST_F(ReportProgram, ReportsAndPreferencesAreReplacedOrNothing)
{
    const std::string change =
        "$sample --out $out --set Sa=off --settings PlaneCorr[Id(4)] --preferences $folder/";
    const fs::path file = m_folder / "choices.ini";
    fs::create_directories(Out() / "report.txt"); // a folder, which cannot be replaced by a file
    EXPECT_EQ(Run(change + "choices.ini"), 1);
    EXPECT_FALSE(fs::exists(Out() / "report.html"));
    EXPECT_FALSE(fs::exists(file)) << "neither the change nor the set that was used";
    std::ofstream(Out() / "report.html") << "before";
    EXPECT_EQ(Run(change + "choices.ini"), 1);
    EXPECT_EQ(Read("report.html"), "before");
    fs::remove(Out() / "report.txt");
    EXPECT_EQ(Run(change + "no/folder.ini"), 1) << "the preferences cannot be saved";
    EXPECT_EQ(Read("report.html"), "before");
    EXPECT_FALSE(fs::exists(Out() / "report.txt"));
    EXPECT_EQ(Run(change + "choices.ini"), 0) << m_err.str();
}
