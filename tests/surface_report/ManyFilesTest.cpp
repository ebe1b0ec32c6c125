#include "tests/surface_report/SurfaceReportFixture.h"

#include <chrono>
#include <csignal>
#include <functional>
#include <streambuf>
#include <thread>
#include <utility>

namespace
{

// Runs the program on folders with small surfaces.
class ManyFiles : public ReportProgram
{
protected:
    // Writes surfaces whose Sz is given, in nm.
    void WriteSurface(const std::string& name, int height)
    {
        m_temporary.Write(name, "# Width: 4 um\n# Height: 3 um\n# Value units: nm\n0 0 0 0\n0 " +
                                    std::to_string(height) + " 0 0\n0 0 0 0\n");
    }
    std::string Table() const { return Read("report.txt"); }
    bool HasRow(const std::string& name, const std::string& cells) const
    {
        return Has(Table(), "\r\n" + (m_folder / name).string() + "\t" + cells + "\r\n");
    }
};

// Does something as soon as something is written.
class COnWriting : public std::streambuf
{
public:
    explicit COnWriting(std::function<void()> action)
        : m_action(std::move(action))
    {
    }

protected:
    int overflow(int c) override
    {
        ActOnce();
        return c;
    }
    std::streamsize xsputn(const char*, std::streamsize count) override
    {
        ActOnce();
        return count;
    }

private:
    void ActOnce()
    {
        if (m_action)
            std::exchange(m_action, {})();
    }

    std::function<void()> m_action;
};

} // namespace

TEST_F(ManyFiles, TableHasARowForEachAndStatistics)
{
    WriteSurface("data/a.txt", 10);
    WriteSurface("data/below/a.txt", 30);
    WriteSurface("other/c&b.txt", 20);
    WriteSurface("other/d.dat", 90);
    m_temporary.Write("data/broken.txt", "nothing");
    m_temporary.Write("data/z.txt", "x [um] z [um]\n0 1\n1 2\n2 1\n");
    EXPECT_EQ(Run("$folder/data $folder/oth* $folder/other/c?b.t*t --out $out --parameters Sz,Sp"), 1)
        << "a pattern that is a folder's matches no file";
    EXPECT_EQ(Run("$folder/data $folder/other/c?b.t*t --out $out --parameters Sz,Sp"), 1);
    EXPECT_TRUE(Has(m_err.str(), "surface_report: 2 of 5 files failed; report.txt says why\n"))
        << m_err.str();
    const std::string table = Table();
    EXPECT_TRUE(Has(table, "Files: 5\r\nFailed: 2\r\nCommonUI version: ") &&
                Has(table, "\r\nLevelling: none\r\n\r\nFile\tSp\tSz\tRemark\r\nUnit\tnm\tnm\t\r\n"))
        << table;
    EXPECT_TRUE(HasRow("data/a.txt", "9.1667\t10\t")) << table;
    EXPECT_TRUE(HasRow("data/below/a.txt", "27.5\t30\t"));
    EXPECT_TRUE(HasRow("other/c&b.txt", "18.333\t20\t"));
    EXPECT_TRUE(HasRow("data/z.txt", "\t\tit is a profile, and the table has parameters of surfaces"));
    EXPECT_TRUE(Has(table, "data/broken.txt\t\t\tnot a surface: ")) << table;
    EXPECT_TRUE(Has(table, "\r\nCount\t3\t3\r\n") && Has(table, "\r\nMean\t18.333\t20\r\n")) << table;
    EXPECT_TRUE(Has(Read("report.html"), "other/c&amp;b.txt"));
    EXPECT_FALSE(fs::exists(Out() / "data")) << "single reports are asked for by --each";
}

TEST_F(ManyFiles, ListNamesFilesFoldersAndPatterns)
{
    WriteSurface("data/a.txt", 10);
    WriteSurface("more/b.txt", 20);
    m_temporary.Write("list", "\xEF\xBB\xBF" + (m_folder / "data" / "a.txt").string() + "\r\n\r\n" +
                                  (m_folder / "more").string() + "\n" +
                                  (m_folder / "data" / "*.txt").string());
    ASSERT_EQ(Run("@$folder/list --out $out --parameters Sz --settings PlaneCorr[Id(8)]"), 0) << m_err.str();
    EXPECT_TRUE(Has(Table(), "Files: 2\r\n")) << "each file once";
}

TEST_F(ManyFiles, ReportsLieByTheirPathsAndNothingIsOverwritten)
{
    WriteSurface("one/a.txt", 10);
    WriteSurface("one/below/a.txt", 10);
    WriteSurface("two/a.txt", 20);
    const std::string line =
        "$folder/one $folder/one/below/a.txt $folder/two/a.txt $folder/two/../one/a.txt --each "
        "--out $out --parameters Sz,Ra";
    ASSERT_EQ(Run(line), 0) << m_err.str();
    for (const char* name : {"one/a.txt.html", "one/below/a.txt.txt", "a.txt.html", "a.txt.txt"})
        EXPECT_TRUE(fs::exists(Out() / name)) << name;
    const std::string before = Read("a.txt.txt");
    EXPECT_TRUE(Has(before, "Sz, Maximum Height\t20\tnm") && Has(before, "\r\nProfile\t")) << before;
    ASSERT_EQ(Run(line), 0);
    EXPECT_TRUE(fs::exists(Out() / "a.txt-2.txt"));
}

TEST_F(ManyFiles, InterruptedRunLeavesWhatIsFinishedAndGoesOn)
{
    constexpr int c_count = 200;
    for (int i = 0; i < c_count; ++i)
        WriteSurface("data/" + std::to_string(i) + ".txt", i + 1);
    const std::string folder = (m_folder / "data").string();
    const std::string out = Out().string();
    const std::vector<const char*> arguments = {folder.c_str(), "--out", out.c_str(), "--parameters", "Sz"};
    COnWriting buffer([] {
        std::raise(SIGINT);
        EXPECT_EQ(std::signal(SIGINT, SIG_DFL), SIG_DFL) << "the second interruption ends the program";
    });
    std::ostream err(&buffer);
    EXPECT_EQ(SurfaceReport::RunProgram(arguments, m_out, err), 1);
    const std::string partial = Table();
    EXPECT_FALSE(Has(partial, "Files: 200\r\n")) << partial;
    const auto rows = std::ranges::count(partial, '\n');
    EXPECT_GT(rows, 20) << "the first line of the progress came after a tenth";

    // What is finished is not looked at again: these files have other values in the state.
    std::string state = Read("report.state");
    EXPECT_GE(std::ranges::count(state, '\n'), 20);
    WriteSurface("data/0.txt", 900);
    ASSERT_EQ(Run("$folder/data --out $out --parameters Sz --resume"), 0) << m_err.str();
    EXPECT_TRUE(Has(Table(), "Files: 200\r\nFailed: 0\r\n"));
    EXPECT_TRUE(HasRow("data/0.txt", "900\t")) << "a file that has changed";
    EXPECT_TRUE(HasRow("data/199.txt", "200\t"));
    const std::string whole = Table();
    ASSERT_EQ(Run("$folder/data --out $out --parameters Sz"), 0);
    EXPECT_EQ(Table(), whole);
    // Taken over, not computed: a value that only the state has.
    state = Read("report.state");
    const std::size_t end = state.find('\n', WithSlashes(state).find("/7.txt\t"));
    const std::size_t value = state.rfind('\t', end) + 1;
    m_temporary.Write(Out() / "report.state", state.replace(value, end - value, "4472406533629990549"));
    ASSERT_EQ(Run("$folder/data --out $out --parameters Sz --resume"), 0);
    EXPECT_TRUE(HasRow("data/7.txt", "1\t")) << Table().substr(0, 300);
    ASSERT_EQ(Run("$folder/data --out $out --parameters Sz,Sp --resume"), 0);
    EXPECT_TRUE(HasRow("data/7.txt", "7.3333\t8\t")) << "of other options nothing is taken over";
}

TEST_F(ManyFiles, FolderThatGoesDuringTheRunLeavesRowsThatSayIt)
{
    const auto write = [this] {
        for (int i = 0; i < 100; ++i)
            WriteSurface((i < 20 ? "data/a/" : "data/b/") + std::to_string(i) + ".txt", i + 1);
    };
    write();
    const std::string folder = (m_folder / "data").string();
    const std::string out = Out().string();
    const std::vector<const char*> arguments = {folder.c_str(), "--out", out.c_str(), "--parameters", "Sz"};
    COnWriting buffer([this] { fs::remove_all(m_folder / "data/b"); });
    std::ostream err(&buffer);
    EXPECT_EQ(SurfaceReport::RunProgram(arguments, m_out, err), 1);
    EXPECT_TRUE(Has(Table(), "Files: 100\r\n") && HasRow("data/a/0.txt", "1\t")) << Table();
    EXPECT_TRUE(HasRow("data/b/99.txt", "\tthe file cannot be read")) << Table();
    write();
    EXPECT_EQ(Run("$folder/data --out $out --parameters Sz --resume"), 0);
    EXPECT_TRUE(HasRow("data/b/99.txt", "100\t")) << Table();
}

TEST_F(ManyFiles, ResumedRunWritesReportsThatAreMissing)
{
    WriteSurface("data/a.txt", 10);
    WriteSurface("data/b.txt", 20);
    const std::string line = "$folder/data --each --pictures no --out $out --parameters Sz";
    ASSERT_EQ(Run(line), 0) << m_err.str();
    const std::string report = Read("data/a.txt.html");
    fs::remove(Out() / "data" / "a.txt.html");
    m_temporary.Write(Out() / "data" / "b.txt.html", "kept");
    ASSERT_EQ(Run(line + " --resume"), 0) << m_err.str();
    EXPECT_EQ(Read("data/a.txt.html"), report);
    EXPECT_EQ(Read("data/b.txt.html"), "kept");
    EXPECT_EQ(std::distance(fs::directory_iterator(Out() / "data"), fs::directory_iterator()), 8);
}

TEST_F(ManyFiles, StateThatCannotBeWrittenIsToldAtTheEnd)
{
    for (int i = 0; i < 50; ++i)
        WriteSurface("data/" + std::to_string(i) + ".txt", i + 1);
    fs::create_directories(Out() / "report.state" / "in the way");
    const std::string folder = (m_folder / "data").string();
    const std::string out = Out().string();
    const std::vector<const char*> arguments = {folder.c_str(), "--out", out.c_str(), "--parameters", "Sz"};
    // As long as it takes until the state is saved besides the end.
    COnWriting buffer([] { std::this_thread::sleep_for(std::chrono::milliseconds(5100)); });
    std::ostream err(&buffer);
    EXPECT_EQ(SurfaceReport::RunProgram(arguments, m_out, err), 1);
}

TEST_F(ManyFiles, ReportsOfFilesLeaveThoseOfTheTable)
{
    WriteSurface("report", 10);
    WriteSurface("report.sheet", 20);
    ASSERT_EQ(Run("$folder/report $folder/report.sheet --each --pictures no --csv-separator semicolon "
                  "--out $out --parameters Sz"),
              0)
        << m_err.str();
    for (const char* name : {"report-2.html", "report-2.sheet.csv", "report.sheet-2.csv"})
        EXPECT_TRUE(fs::exists(Out() / name)) << name;
    EXPECT_TRUE(HasRow("report", "10\t"));
}

TEST_F(ManyFiles, ResumedRunReplacesTheReportsOfItsFiles)
{
    for (const char* name : {"d0/s.txt", "d1/s.txt", "d2/s.txt"})
        WriteSurface(name, 10 + name[1] - '0');
    const std::string options = " --each --pictures no --out $out --parameters Sz,Ra --cutoff ";
    ASSERT_EQ(Run("$folder/d1/s.txt $folder/d2/s.txt" + options + "3um"), 0) << m_err.str();
    const auto countFiles = [this] {
        return std::distance(fs::directory_iterator(Out()), fs::directory_iterator());
    };
    const std::string first = Read("s.txt.txt");
    const std::string second = Read("s.txt-2.txt");
    const std::string line = "$folder/d0/s.txt $folder/d1/s.txt $folder/d2/s.txt --resume" + options;
    ASSERT_EQ(Run(line + "3um"), 0) << m_err.str();
    EXPECT_TRUE(Has(Read("s.txt-3.txt"), "Sz, Maximum Height\t10\t"));
    EXPECT_TRUE(Read("s.txt.txt") == first && Read("s.txt-2.txt") == second);
    const auto count = countFiles();

    // A run that ended before it saved a row.
    std::string state;
    for (const std::string& text : SplitText(Read("report.state"), '\n'))
        state += text.starts_with("row\t") ? "" : text + '\n';
    m_temporary.Write(Out() / "report.state", state);
    ASSERT_EQ(Run(line + "3um"), 0) << m_err.str();
    EXPECT_EQ(countFiles(), count);

    ASSERT_EQ(Run(line + "2.5um"), 0) << m_err.str();
    EXPECT_EQ(countFiles(), count);
    EXPECT_NE(Read("s.txt.txt"), first) << "of another cut-off";
}

#if !defined(_WIN32) // which has no such devices, makes no links, and has names that are texts

TEST_F(ManyFiles, WhatIsNoRegularFileIsNotOpened)
{
    WriteSurface("a.txt", 10);
    EXPECT_EQ(Run("/dev/null $folder/a.txt --out $out --parameters Sz"), 1);
    EXPECT_TRUE(Has(Table(), "\r\n/dev/null\t\tit is no regular file\r\n")) << Table();
    EXPECT_TRUE(HasRow("a.txt", "10\t"));
}

TEST_F(ManyFiles, LinkThatLeadsToItselfIsARow)
{
    WriteSurface("data/a.txt", 10);
    fs::create_symlink("loop.sdf", m_folder / "data" / "loop.sdf");
    EXPECT_EQ(Run("$folder/data --out $out --parameters Sz"), 1);
    EXPECT_TRUE(HasRow("data/a.txt", "10\t")) << m_err.str();
    EXPECT_TRUE(HasRow("data/loop.sdf", "\tthe file cannot be read"));
    EXPECT_EQ(Run("$folder/data/loop.sdf $folder/data/a.txt --out $out --parameters Sz"), 1);
    EXPECT_TRUE(HasRow("data/loop.sdf", "\tthe file cannot be read")) << m_err.str();
}

// Also beside each other: the names of reports that are cut get numbers.
TEST_F(ManyFiles, FilesOfAnyNameHaveReports)
{
    const std::string longest(125, 'x');
    const std::string names[] = {"x\xFFy.txt", "x\ny.txt", "$(touch z); `id` 'x' \"y\" <b>.txt",
                                 longest + longest + "1.txt", longest + longest + "2.txt"};
    for (const std::string& name : names)
        WriteSurface("data/" + name, 10);
    const std::string line =
        "$folder/data/x*.txt $folder/data --each --pictures no --out $out --parameters Sz";
    ASSERT_EQ(Run(line), 0) << m_err.str();
    const std::string cut(200, 'x');
    for (const std::string& name : {names[0], names[1], "data/" + names[2], cut, cut + "-2"})
        EXPECT_TRUE(Has(Read((name + ".txt").c_str()), "\t10\tnm")) << name;
    ASSERT_EQ(Run(line + " --resume"), 0) << m_err.str();
}

TEST_F(ManyFiles, NamesThatAreNoUtf8AreTwoRows)
{
    WriteSurface("data/x\xFF.txt", 10);
    WriteSurface("data/x\xFE.txt", 20);
    m_temporary.Write("list", (m_folder / "data/x\xFF.txt").string() + "\n" + (m_folder / "data").string());
    ASSERT_EQ(Run("@$folder/list --out $out --parameters Sz"), 0) << m_err.str();
    const std::string table = Table();
    EXPECT_LT(table.find("\t10\t"), table.find("\t20\t")) << table;
    for (const char* again :
         {"@$folder/list --resume --parameters Sz --out $out", "--merge $out --out $folder/whole"})
        EXPECT_EQ(Run(again), 0) << m_err.str();
    EXPECT_EQ(Table(), table);
    EXPECT_EQ(m_temporary.Read(m_folder / "whole" / "report.txt"), table);
}

#endif
