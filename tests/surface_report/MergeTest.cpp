#include "formats/SurfaceReader.h"
#include "tests/StrictJson.h"
#include "tests/surface_report/SurfaceReportFixture.h"

#include <cstring>
#include <map>
#include <tuple>

namespace
{

// A name that needs quotes in a table, as far as a file can have one.
#if defined(_WIN32)
constexpr const char* c_second = "2=x,.txt";
constexpr const char* c_quotedSecond = "2=x,.txt";
#else
constexpr const char* c_second = "2=\"x,\".txt";
constexpr const char* c_quotedSecond = "2=\"\"x,\"\".txt";
#endif

// Runs the program on parts of the files of a folder, and on all of them.
class Merge : public ReportProgram
{
protected:
    Merge()
    {
        const std::string head = "# Width: 4 um\n# Height: 3 um\n# Value units: nm\n";
        m_temporary.Write("data/1.txt", head + "0 0 0 0\n0 7 0 2\n0 0 1 0\n");
        m_temporary.Write(std::string("data/") + c_second,
                          head + "0 0 0 0\n0 0 0 0\n0 0 0 0\n"); // has no skewness
        m_temporary.Write("data/3.txt", "nothing");
        m_temporary.Write("data/4.txt", head + "0 0 0 9\n0 5000 0 0\n0 1 0 3\n");
        m_temporary.Write("data/5.sdf",
                          "aISO-1.0\nCreateDate = 310520241430\nNumPoints = 2\nNumProfiles = 2\n"
                          "Xscale = 1\nYscale = 1\nZscale = 1\n*\n1 2 3 4\n*\n");
        for (const char* part : {"1", "2", "3", "4", "5"}) {
            for (const auto& entry : fs::directory_iterator(m_folder / "data")) {
                if (entry.path().filename().string().starts_with(part))
                    m_lists[part] = entry.path().string() + "\n";
            }
        }
        WriteList("all", {"1", "2", "3", "4", "5"});
        WriteList("first", {"1", "2", "3"});
        WriteList("second", {"4", "5"});
    }
    void WriteList(const std::string& name, const std::vector<std::string>& parts)
    {
        std::string list;
        for (const std::string& part : parts)
            list += m_lists[part];
        m_temporary.Write(name, list);
    }
    int RunOn(const std::string& list, const std::string& options)
    {
        return Run("@$folder/" + list + " --out $folder/out/" + list + " " + options);
    }
    std::string Of(const std::string& run, const char* name)
    {
        return m_temporary.Read(m_folder / "out" / run / name);
    }

    std::map<std::string, std::string> m_lists{};
};

} // namespace

TEST_F(Merge, PartsGiveWhatOneRunGives)
{
    const std::string forms = " --decimal comma";
    const std::string options[] = {
        "--parameters Sz,Ssk,Sdc(10,50)",
        "--parameters Sz,Smr(1e-7) --unit pm --level plane --settings Filter[Id(90)]",
        "--preferences $folder/choices.ini --set Fractile=on:90 --set Sz.format=Decimals:2 --set Sz.unit=mm",
    };
    for (const std::string& option : options) {
        SCOPED_TRACE(option);
        EXPECT_EQ(RunOn("all", option + forms), 1) << "a file is broken";
        const std::string said = m_out.str();
        EXPECT_EQ(RunOn("first", option), 1);
        EXPECT_EQ(RunOn("second", option + " --data no"), 0) << m_err.str();
        EXPECT_EQ(Run("--merge $folder/out/first $folder/out/second --out $folder/out/whole" + forms), 1);
        EXPECT_EQ(m_out.str(), said);
        EXPECT_EQ(m_err.str(), "surface_report: 1 of 5 files failed; report.txt says why\n");
        for (const char* name :
             {"report.txt", "report.html", "report.csv", "report.json", "report.sheet.csv", "report.state"})
            EXPECT_EQ(Of("whole", name), Of("all", name)) << name;
    }
    EXPECT_TRUE(Has(Of("whole", "report.txt"), "\t0.01\t")) << Of("whole", "report.txt");
    // A merged run is one that can be gone on from, and merged.
    const std::string whole = Of("whole", "report.txt");
    fs::rename(m_folder / "out" / "whole", m_folder / "out" / "again");
    m_temporary.Write("again", m_temporary.Read(m_folder / "all"));
    EXPECT_EQ(RunOn("again", options[2] + " --resume"), 1);
    EXPECT_EQ(Of("again", "report.txt"), whole);
    EXPECT_EQ(Run("--merge $folder/out/again --out $folder/out/whole"), 1);
    EXPECT_EQ(Of("whole", "report.txt"), whole);
}

TEST_F(Merge, WhatPlugInsSupplyAndWhatIsNotDefinedIsExplained)
{
    m_temporary.Write("choices.ini",
                      "[SurfaceReport_RoughnessAnalysis_DynamicParameters]\nNumDynamicParameters=1\n"
                      "Dyn1_ParentParam=PlugIn\nDyn1_NumVariables=0\nDyn1_P_On=1\nDyn1_P_Dimension=1\n"
                      "Dyn1_IniName=Theirs\nDyn1_FriendlyName=Their<b>s\nDyn1_ShortFriendlyName=Their <S>\n");
    const std::string options = "--preferences $folder/choices.ini --parameters Theirs,Ssk,Sz";
    for (const char* list : {"all", "first", "second"})
        RunOn(list, options);
    EXPECT_TRUE(Has(Of("all", "report.html"),
                    "</sup> Their &lt;S&gt;: not computed, as plug-ins supply it<br>\n<sup>2</sup> Ssk: the "
                    "surface is flat"))
        << Of("all", "report.html");
    EXPECT_TRUE(Has(m_out.str(), " Their <S>: not computed, as plug-ins supply it\n")) << m_out.str();
    EXPECT_EQ(Run("--merge $folder/out/first $folder/out/second --out $folder/out/whole"), 1);
    for (const char* name : {"report.txt", "report.html", "report.csv", "report.json", "report.state"})
        EXPECT_EQ(Of("whole", name), Of("all", name)) << name;
    // What the file of preferences says is text in every table of a page.
    EXPECT_FALSE(Has(Of("whole", "report.html"), "<S>")) << Of("whole", "report.html");
    for (const char* layout : {"", " --transpose"}) {
        ASSERT_EQ(Run("$folder/data/4.txt --out $folder/one --preferences $folder/choices.ini" +
                      std::string(layout)),
                  0)
            << m_err.str();
        const std::string page = m_temporary.Read(m_folder / "one" / "report.html");
        EXPECT_TRUE(Has(page, "Their") && !Has(page, "Their<") && !Has(page, "Their <")) << page;
    }
    EXPECT_TRUE(Has(m_temporary.Read(m_folder / "one" / "report.txt"), "Their<b>s"));
}

// No table shows how a value fails; its state does.
TEST_F(Merge, ValuesThatFailedMakeTheRunFailAndAreTriedAgain)
{
    ASSERT_EQ(RunOn("second", "--parameters Sz,Ssk"), 0) << m_err.str();
    const fs::path state = m_folder / "out" / "second" / "report.state";
    const std::string good = m_temporary.Read(state);
    std::vector<std::string> lines = SplitText(good, '\n');
    lines.back() += "\t0\tfailed: there is not enough memory";
    std::string bad;
    for (const std::string& line : lines)
        bad += line + '\n';
    m_temporary.Write("out/second/report.state", bad);
    EXPECT_EQ(Run("--merge $folder/out/second --out $folder/out/whole"), 1);
    EXPECT_EQ(m_err.str(),
              "surface_report: values of 1 of 2 files could not be computed; report.html says why\n");
    EXPECT_EQ(RunOn("second", "--parameters Sz,Ssk --resume"), 0) << m_err.str();
    EXPECT_EQ(m_temporary.Read(state), good);
}

TEST_F(Merge, SetsBehindStepsAreThoseOfAllParts)
{
    m_temporary.Write(
        "my.batch",
        Fill("[Batch]\nStep1=Apply\nStep1_Type=ImageRoughness\nStep1_Settings=FILE:$folder/my.irs\n"));
    const std::string options = "--batch Batch[File($folder/my.batch)]";
    for (const char* part : {"first", "second"}) {
        m_temporary.Write("my.irs", "[Analysis_RoughnessAnalysis]\n; " + std::string(part) + "\n");
        RunOn(part, options);
        ASSERT_TRUE(Has(Of(part, "report.state"), "\nkey\tset ")) << m_err.str();
    }
    EXPECT_EQ(Run("--merge $folder/out/first $folder/out/second --out $folder/out/whole"), 1);
    EXPECT_TRUE(Has(m_err.str(), ": it was computed with version ")) << m_err.str();
}

TEST_F(Merge, DataOfTheTableHaveReasonsAndDigests)
{
    EXPECT_EQ(RunOn("all", "--parameters Sz,Ssk"), 1);
    const SJson json = CStrictJson::Parse(Of("all", "report.json"));
    const SJson& files = json["files"];
    EXPECT_EQ(json["parameters"][1]["key"].text + json["parameters"][1]["unit"].text, "Szm");
    EXPECT_EQ(files[3]["values"]["Sz"].number, 5000e-9);
    EXPECT_TRUE(files[1]["values"]["Ssk"].IsNull());
    EXPECT_EQ(files[1]["reasons"]["Ssk"].text, "the surface is flat");
    EXPECT_TRUE(files[2]["values"].IsNull() && Has(files[2]["reason"].text, "not a surface"));
    EXPECT_EQ(files[4]["date"].text, "2024-05-31T14:30");
    EXPECT_EQ(files[0]["sha256"].text.size(), CommonUI::Formats::HasX3p() ? 64u : 0u);
    const std::string name = (m_folder / "data" / c_quotedSecond).string();
    EXPECT_TRUE(Has(Of("all", "report.csv"), "\r\nfile,\"" + name + "\",Ssk,,,,the surface is flat\r\n"))
        << Of("all", "report.csv");
}

TEST_F(Merge, PartsThatDoNotFitAreRefusedInASentence)
{
    ASSERT_EQ(RunOn("first", "--parameters Sz,Sp"), 1);
    // How the second part is made, the line of the merger, and what is said.
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"--parameters Sz,Sq", "",
         "\"$folder/out/second\" does not fit \"$folder/out/first\": its columns are "
         "Sq, Sz, not Sp, Sz"},
        {"--parameters Sz,Sp --level mean", "", "it was computed with version "},
        {"--parameters Sz,Sp --settings Filter[Id(90)]", "", ", settings Filter[Id(90)], not with version "},
        {"--parameters Sz,Sp --unit um", "", "its units, number formats or statistics are others"},
        {"--parameters Sz,Sp", "$folder/out/first", "has the file \"$folder/data/1.txt\", and"},
        {"--parameters Sz,Sp", "$folder/none", "$folder/none/report.state: there is no such file"},
        {"--parameters Sz,Sp", "$folder/out/whole", "is the folder for the reports, and an input, too"},
        {"--parameters Sz,Sp", "--level mean", "\"--level\" has no effect beside it"},
    };
    for (const auto& [options, more, said] : cases) {
        RunOn("second", options);
        EXPECT_EQ(Run("--merge $folder/out/first $folder/out/second " + std::string(more) +
                      " --out $folder/out/whole"),
                  1);
        EXPECT_TRUE(Has(m_err.str(), Fill(said))) << m_err.str() << said;
        EXPECT_EQ(std::ranges::count(m_err.str(), '\n'), 1) << m_err.str();
        EXPECT_FALSE(fs::exists(m_folder / "out" / "whole"));
    }
    // What the state of a part holds instead, and what is said.
    const std::tuple<const char*, const char*, const char*> states[] = {
        {"files\t3", "files\t4", "3 of 4 files are finished; --resume goes on there"},
        {"state 2", "state 1", "it is not what a run on many files leaves"},
        {"column\tSp\n", "", "has another number of values than columns"},
        {"row\t0", "row\tx", "\"x\" in it is no number"},
        {"shown\tautomatic units\n", "", "is nothing that a run writes"},
    };
    const std::string state = Of("first", "report.state");
    for (const auto& [from, to, said] : states) {
        std::string changed = state;
        ASSERT_TRUE(Has(state, from)) << state;
        m_temporary.Write("out/first/report.state",
                          changed.replace(changed.find(from), std::strlen(from), to));
        EXPECT_EQ(Run("--merge $folder/out/first --out $folder/out/whole"), 1);
        EXPECT_TRUE(Has(m_err.str(), said)) << m_err.str() << said;
        EXPECT_FALSE(fs::exists(m_folder / "out" / "whole"));
    }
}
