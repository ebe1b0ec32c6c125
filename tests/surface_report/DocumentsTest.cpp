#include "measurement/documents/OdtDocument.h"
#include "tests/FullDisk.h"
#include "tests/surface_report/SurfaceReportFixture.h"

using namespace CommonUI;
using Measurement::HasOdt;

namespace
{

// Runs a template on the sample.
class Documents : public ReportProgram
{
protected:
    int RunTemplate(const std::string& content, const std::string& options = "")
    {
        m_temporary.Write("my.template", "[ReportTemplate]\n" + content);
        return Run("$sample --out $out --settings ActiveReport[File($folder/my.template)] " + options);
    }
    // The headings, captions and sentences of the page.
    std::string PageOutline() const
    {
        const std::string page = Read("report.html");
        std::string outline;
        for (const std::string element : {"h1", "h2", "figcaption", "p"}) {
            for (std::size_t at = 0; (at = page.find("<" + element + ">", at)) != page.npos; ++at) {
                const std::size_t begin = at + element.size() + 2;
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
    for (const rlim_t room : {0, 1000, 10'000}) {
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
