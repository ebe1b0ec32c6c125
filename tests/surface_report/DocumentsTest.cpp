#include "measurement/documents/OdtDocument.h"
#include "tests/FullDisk.h"
#include "tests/surface_report/SurfaceReportFixture.h"

#include <tuple>

using namespace CommonUI;
using Measurement::HasOdt;

namespace
{

// Runs a template on the sample.
class Documents : public ReportProgram
{
protected:
    int RunTemplate(const std::string& content, const std::string& options = "",
                    const std::string& inputs = "$sample")
    {
        m_temporary.Write("my.template", "[ReportTemplate]\n" + content);
        return Run((inputs + " --out $out --settings ActiveReport[File($folder/my.template)] ") + options);
    }
    // The headings, captions and sentences of the page.
    std::string PageOutline(const char* name = "report.html") const
    {
        const std::string page = Read(name);
        std::string outline;
        for (const std::string element : {"h1", "h2", "figcaption", "p"}) {
            for (std::size_t at = 0; (at = page.find("<" + element + ">", at)) != page.npos; ++at) {
                const std::size_t begin = at + element.size() + 2;
                if (page.compare(begin, 7, "<small>") != 0) // notes
                    outline += page.substr(begin, page.find("</", begin) - begin) + "\n";
            }
        }
        return outline;
    }
    std::ptrdiff_t CountFiles() const
    {
        return std::distance(fs::directory_iterator(Out()), fs::directory_iterator());
    }
};

} // namespace

TEST_F(Documents, TemplateLaysOutTheReport)
{
    ASSERT_EQ(RunTemplate("Title=Incoming\nBlocks=Title,Image,RoughnessStatistics,GrainTable\n"), 0)
        << m_err.str();
    EXPECT_EQ(PageOutline(),
              "Incoming\nRoughness statistics (96 profiles)\nSurface\n"
              "Table of grains: not shown, as no threshold of particles or pores is in force.\n");
    EXPECT_TRUE(Has(Read("report.txt"), "Surface parameter"));
    ASSERT_EQ(RunTemplate("Blocks=Title,GrainTable,RoughnessParameters\nGrainQuantities=AreaExHoles\n",
                          "--grains 50nm --pictures no"),
              0)
        << m_err.str();
    EXPECT_TRUE(PageOutline().starts_with("ground_steel.sdf\nTable of grains\nRoughness parameters\n"))
        << PageOutline();
    EXPECT_TRUE(Has(Read("report.txt"), "\r\nParticle\tArea\r\n")) << Read("report.txt").substr(0, 900);
    EXPECT_EQ(CountFiles(), 4);
}

TEST_F(Documents, FormatIsThatOfTheTemplate)
{
    const int status = RunTemplate("Format=Doc\nBlocks=Title,Information\n");
    EXPECT_EQ(status, HasOdt() ? 0 : 1) << m_err.str();
    EXPECT_EQ(fs::exists(Out() / "report.odt"), HasOdt());
    EXPECT_FALSE(fs::exists(Out() / "report.html"));
    if (HasOdt())
        EXPECT_TRUE(Read("report.odt").starts_with("PK"));
    else
        EXPECT_TRUE(Has(m_err.str(), "this build writes no documents for word processors"));
}

#if !defined(_WIN32) // which has no limit for the size of files
TEST_F(Documents, FullDiskLeavesWhatWasThere)
{
    const std::string name = HasOdt() ? "report.odt" : "report.html";
    const std::string content = (HasOdt() ? "Format=Doc\n" : "") + std::string("Blocks=Title,Image\n");
    fs::create_directories(Out());
    std::ofstream(Out() / name) << "before";
    for (const rlim_t room : std::initializer_list<rlim_t>{0, 1000, 10'000}) {
        const CFullDisk disk(std::max<rlim_t>(room, 100)); // for the template itself
        EXPECT_EQ(RunTemplate(content, "--parameters Sa"), 1);
        EXPECT_TRUE(Has(m_err.str(), name)) << m_err.str();
        EXPECT_EQ(std::ranges::count(m_err.str(), '\n'), 1);
    }
    EXPECT_EQ(Read(name.c_str()), "before");
    EXPECT_EQ(CountFiles(), 1) << "no temporary is left";
    EXPECT_EQ(RunTemplate(content, "--parameters Sa"), 0) << m_err.str();
    EXPECT_NE(Read(name.c_str()), "before");
}
#endif

// A sequence has a report of both kinds at once where its template asks for them.
TEST_F(Documents, SequenceWritesGrainsBesideRoughness)
{
    m_temporary.Write("my.template",
                      "[ReportTemplate]\nBlocks=GrainStatistics,RoughnessParameters,ForceCurve\n");
    m_temporary.Write("my.batch", Fill("[Batch]\nStep1=Apply\nStep1_Type=PnP\n"
                                       "Step1_Settings=BUILT-IN:PnPQuickLaunchSimpleThresholdParticles\n"
                                       "Step2=Apply\nStep2_Type=ActiveReport\n"
                                       "Step2_Settings=FILE:$folder/my.template\n"));
    ASSERT_EQ(Run("$sample --out $out --batch Batch[File($folder/my.batch)]"), 0) << m_err.str();
    EXPECT_EQ(m_err.str(),
              "surface_report: step 2, ActiveReport / my.template: Force curve: not shown, as the "
              "measurement is no force curve\n");
    const std::string page = Read("report-02-my-template.html");
    EXPECT_TRUE(Has(page, "<h2>Statistics of grains (") && Has(page, "<h2>Roughness parameters</h2>"))
        << page.substr(0, 3000);
}

// One document of all files, in which rows, statistics and chart are over them; the others are as without it.
TEST_F(Documents, TemplateOfSeveralMeasurementsIsOneDocumentOfManyFiles)
{
    for (const int height : {10, 20, 60})
        m_temporary.Write("data/" + std::to_string(height) + ".txt",
                          "# Width: 3 um\n# Height: 2 um\n# Value units: nm\n0 0 0\n0 " +
                              std::to_string(height) + " 0\n");
    m_temporary.Write("data/junk.txt", "nothing");
    const std::string blocks = "Blocks=Title,Image,RoughnessParameters,RoughnessStatistics,RoughnessChart,"
                               "GrainTable\n";
    const std::string options = "--parameters Sz,Smean ";
    const auto caption = [this](const char* name) {
        return (fs::path(m_folder.string() + "/data") / name).string() + ": Surface\n";
    };
    EXPECT_EQ(RunTemplate("Scope=Batch\nTitle=All\n" + blocks, options, "$folder/data"), 1);
    const std::string shown = "All\nRoughness parameters\nRoughness statistics (4 measurements)\n";
    const std::string chart = "Sz, Maximum Height, over the measurements\n";
    const std::string grains = "Table of grains: not shown, as the document is about several measurements.\n";
    EXPECT_EQ(PageOutline(),
              shown + caption("10.txt") + caption("20.txt") + caption("60.txt") + chart + grains);
    const std::string page = Read("report.html");
    EXPECT_TRUE(Has(page, "data/junk.txt: not a surface: ")) << "why a row is empty stands below the table";
    EXPECT_TRUE(Has(page, ">30<")) << "the mean";
    EXPECT_TRUE(Has(Read("report.txt"), "\r\nMean\t30\t"));
    EXPECT_EQ(CountFiles(), 5);

    EXPECT_EQ(RunTemplate("Scope=Collection\n" + blocks, options + "--pictures no", "$folder/data"), 1);
    EXPECT_EQ(PageOutline(),
              "Surface report\nRoughness parameters\nRoughness statistics (4 measurements)\n" + grains);
    for (const auto& [scope, option, message] :
         {std::tuple("Single", "", "the report template is about one file, and the input is many"),
          std::tuple("Batch", "--resume", "--resume is not for a report template")}) {
        EXPECT_EQ(RunTemplate("Scope=" + std::string(scope) + "\n" + blocks, option, "$folder/data"), 1);
        EXPECT_TRUE(Has(m_err.str(), message)) << m_err.str();
    }

    // In a sequence it shows the files as they are at its step, with the parameters in force there.
    m_temporary.Write("my.batch",
                      Fill("[Batch]\nStep1=Apply\nStep1_Type=PlaneCorr\n"
                           "Step1_Settings=BUILT-IN:PlaneCorrQuickLaunchImageLeveling\n"
                           "Step2=Apply\nStep2_Type=ActiveReport\nStep2_Settings=FILE:$folder/my.template\n"
                           "Step3=Apply\nStep3_Type=ImageRoughness\n"
                           "Step3_Settings=BUILT-IN:bisRoughnessImageVORNClassic\n"
                           "Step4=Apply\nStep4_Type=PlaneCorr\n"
                           "Step4_Settings=BUILT-IN:PlaneCorrQuickLaunchZeroBackgroundOffset\n"));
    EXPECT_EQ(Run("$folder/data --out $out --data no --batch Batch[File($folder/my.batch)]"), 1);
    EXPECT_TRUE(Has(PageOutline("report-02-my-template.html"), shown.substr(4) + caption("10.txt")));
    const std::string step = Read("report-02-my-template.txt");
    EXPECT_TRUE(Has(step, "\tSal\t") && !Has(Read("report.txt"), "\tSal\t")) << step;
    EXPECT_FALSE(fs::exists(Out() / "data")) << "no file has one of its own";
}
