#include "measurement/documents/OdtDocument.h"
#include "settings/catalogue/BuiltInSetting.h"
#include "settings/SetReference.h"
#include "tests/surface_report/SurfaceReportFixture.h"

using namespace CommonUI;

namespace
{

// Runs batch sequences on a small surface in which every kind of filter finds something.
class Batch : public ReportProgram
{
protected:
    Batch()
    {
        std::string text = "# Width: 48 um\n# Height: 32 um\n# Value units: nm\n";
        for (int y = 0; y < 32; ++y) {
            for (int x = 0; x < 48; ++x)
                text += x == 20 && y == 20 ? "BAD " : std::to_string(HeightAt(x, y)) + ' ';
            text += '\n';
        }
        m_temporary.Write("surface.txt", text);
    }
    // A tilted bow with a step, a grain on top, noise, spikes and streaks.
    static int HeightAt(int x, int y)
    {
        const int noise = (x * 7 + y * 13 + x * y) % 11;
        const int spike = x % 13 == 6 && y % 11 == 5 ? 900 : 0;
        const int streak = y == 9 || y == 12 || y == 13 ? 400 : (y == 17 || y == 22 || y == 23 ? -400 : 0);
        const int grain = x > 10 && x < 18 && y > 24 && y < 29 ? 1500 : 0;
        return 5 * x + 3 * y + x * x / 4 + (x > 30 ? 200 : 0) + noise + spike + streak + grain;
    }
    // The text report; nothing is left of the reports before.
    std::string RunBatch(const std::string& userSpec, const std::string& input = "$folder/surface.txt")
    {
        fs::remove_all(Out());
        EXPECT_EQ(Run(input + " --out $out --preferences $folder/choices.ini --batch " + userSpec), 0)
            << m_err.str();
        return Read("report.txt");
    }
    std::string RunSteps(const std::string& steps, const std::string& input = "$folder/surface.txt")
    {
        m_temporary.Write("my.batch", "[Batch]\n" + steps);
        return RunBatch("Batch[File($folder/my.batch)]", input);
    }
    // How many files there are besides the report of the whole run.
    std::ptrdiff_t CountReports() const
    {
        return std::distance(fs::directory_iterator(Out()), fs::directory_iterator()) - 4;
    }
};

std::string Tables(const std::string& report)
{
    return report.substr(report.find("\r\n\r\n"));
}

// Whether a value of the processed surface is another one than that of the raw one.
bool HasChange(const std::string& report)
{
    return std::ranges::any_of(SplitText(report, '\n'), [](const std::string& line) {
        const std::vector<std::string> cells = SplitText(line, '\t');
        return cells.size() == 4 && cells[0] != "Surface parameter" && cells[1] != cells[2];
    });
}

} // namespace

// The record holds the sets that have no effect on a surface, or another one than they say, with the reason.
TEST_F(Batch, EveryBuiltInSetTakesEffectOrSaysWhyNot)
{
    ASSERT_EQ(Run("$folder/surface.txt --out $out --preferences $folder/choices.ini --set Smean=on"), 0)
        << m_err.str();
    const std::string untouched = Tables(Read("report.txt"));
    std::string refusals;
    for (const auto& row : GetBuiltInSettingEnum()) {
        const std::string key = row.GetIniName().ToUtf8();
        SCOPED_TRACE(key);
        const ESettingType type = GetSettingType(EBuiltInSetting{row.GetValue()});
        const std::string typeKey = GetSettingTypeEnum().GetIniName(static_cast<int>(type)).ToUtf8();
        const std::string report =
            type == ESettingType::Batch
                ? RunBatch("Batch[Id(" + key + ")]")
                : RunSteps("Step1=Apply\nStep1_Type=" + typeKey + "\nStep1_Settings=BUILT-IN:" + key + "\n");
        const std::string said = m_err.str();
        EXPECT_LE(std::ranges::count(said, '\n'), 1) << "one sentence";
        if (said.empty())
            EXPECT_TRUE(CountReports() > 0 ||
                        (Has(report, "\tRaw\tProcessed\t") ? HasChange(report) : Tables(report) != untouched))
                << "no effect";
        else
            refusals += key + said.substr(said.find(", ")).substr(1);
    }
    if (Measurement::HasOdt()) {
        EXPECT_EQ(refusals, ReadTestData("sets-without-effect.txt"));
    }
}

TEST_F(Batch, StepsAreDoneInTheirOrder)
{
    m_temporary.Write("my.prs", "[Analysis_RoughnessProfileAnalysis]\n4287Pz_P_On=1\n");
    const std::string report = RunSteps(
        "Step1=InterpolateVoids\n"
        "Step2=Apply\nStep2_Type=PlaneCorr\nStep2_Settings=BUILT-IN:PlaneCorrQuickLaunchImageLeveling\n"
        "Step3=Apply\nStep3_Type=PnP\nStep3_Settings=BUILT-IN:PnPQuickLaunchSimpleThresholdParticles\n"
        "Step4=Apply\nStep4_Type=ActiveReport\nStep4_Settings=BUILT-IN:"
        "bisActiveReportQuickLaunchParticleDoc\n"
        "Step5=Apply\nStep5_Type=ProfileRoughness\nStep5_Settings=FILE:" +
        (m_folder / "my.prs").string() +
        "\nStep6=ShowProfiles\nStep6_Profiles=3\n"
        "Step7=Apply\nStep7_Type=ActiveReport\nStep7_Settings=FILE:C:\\mine.docx\n");
    EXPECT_TRUE(Has(report, "\r\nMissing points: 0\r\n")) << report;
    EXPECT_TRUE(Has(report, "\r\nStep 2: Plane Correction / Images / Global Leveling\r\n")) << report;
    EXPECT_TRUE(Has(report, "\r\nStep 6: Show profiles (3)\r\n")) << report;
    EXPECT_TRUE(Has(report, "\tRaw\tProcessed\t") && Has(report, "\r\nProfile\t")) << report;
    EXPECT_TRUE(Has(m_err.str(), "surface_report: step 7, mine.docx: a template")) << m_err.str();
    EXPECT_EQ(fs::exists(Out() / "report-04-Particle-Doc.odt"), Measurement::HasOdt());
    EXPECT_EQ(Has(m_err.str(), "step 4, ActiveReport / Particle (Doc): written as HTML, since this build"),
              !Measurement::HasOdt());
    EXPECT_EQ(CountReports(), 8);
    const std::string particles = Read("report-04-Particle-Doc.txt");
    EXPECT_TRUE(Has(particles, "\r\nParticle\tArea\tMax Height") || Has(particles, "\r\nParticle\t"))
        << particles;
    EXPECT_TRUE(Has(particles, "50 % of the way") && !Has(particles, "Step 4")) << particles;
    const std::string sections = Read("report-06-Show-profiles-3.txt");
    EXPECT_TRUE(Has(sections, "\r\nProfile 2: line 17, at 16 µm of 32 µm\r\n")) << sections;
    EXPECT_TRUE(Has(sections, "\r\n3\t") && !Has(sections, "\r\n4\t") && !Has(sections, "Surface parameter"))
        << sections;
    CInifile ini;
    ASSERT_TRUE(ini.Load((m_folder / "choices.ini").u16string()));
    ini.SelectSection(u"SettingsFactory");
    EXPECT_EQ(ini.ReadTexts(u"Batch").size(), 1u);
    EXPECT_TRUE(ini.ReadTexts(u"PnP").empty()) << "a set of a step is not chosen by the user";
}

TEST_F(Batch, WhatProfilesHaveNotIsSaid)
{
    std::string text = "x [um] z [nm]\n";
    for (int i = 0; i < 60; ++i)
        text += std::to_string(i) + ' ' + std::to_string(i * i % 17) + '\n';
    m_temporary.Write("profile.txt", text);
    RunSteps("Step1=ShowProfiles\nStep2=InterpolateVoids\nStep3=Apply\nStep3_Type=ImageRoughness\n"
             "Step3_Settings=BUILT-IN:bisRoughnessImageVORNClassic\n",
             "$folder/profile.txt");
    EXPECT_EQ(m_err.str(), "surface_report: step 1, Show profiles (1): the measurement is a profile itself\n"
                           "surface_report: step 2, Interpolate voids: no point is missing\n"
                           "surface_report: step 3, Image Roughness / VORN Classic Default: it is for "
                           "images, and this is a profile\n");
}

TEST_F(Batch, ManyFilesAreATableWithReportsOfEach)
{
    m_temporary.Write("data/a.txt", m_temporary.Read(m_folder / "surface.txt"));
    m_temporary.Write("data/b.txt", m_temporary.Read(m_folder / "surface.txt"));
    m_temporary.Write("data/c.txt", "nothing");
    m_temporary.Write("my.batch", "[Batch]\n"
                                  "Step1=Apply\nStep1_Type=PlaneCorr\nStep1_Settings=BUILT-IN:"
                                  "PlaneCorrQuickLaunchImageLeveling\n"
                                  "Step2=Apply\nStep2_Type=PnP\nStep2_Settings=BUILT-IN:"
                                  "PnPQuickLaunchSimpleThresholdParticles\n"
                                  "Step3=Apply\nStep3_Type=ActiveReport\nStep3_Settings=BUILT-IN:"
                                  "bisActiveReportQuickLaunchParticleDoc\n"
                                  "Step4=ShowProfiles\nStep4_Profiles=2\n");
    const std::string batch = " --pictures no --out $out --batch Batch[File($folder/my.batch)]";
    EXPECT_EQ(Run("$folder/data" + batch), 1);
    const std::string table = Read("report.txt");
    EXPECT_TRUE(Has(table, "\r\nStep 4: Show profiles (2)\r\n")) << table;
    EXPECT_EQ(Has(table, "\tstep 3, ActiveReport / Particle (Doc): written as HTML"), !Measurement::HasOdt())
        << table;
    EXPECT_EQ(fs::exists(Out() / "data/a.txt-03-Particle-Doc.odt"), Measurement::HasOdt());
    EXPECT_TRUE(Has(Read("data/a.txt-03-Particle-Doc.txt"), "\r\nParticle\t"));
    const std::string sections = Read("data/b.txt-04-Show-profiles-2.txt");
    EXPECT_TRUE(Has(sections, "\r\nStep 1: Plane Correction / Images / Global Leveling\r\n")) << sections;
    EXPECT_EQ(std::distance(fs::directory_iterator(Out() / "data"), fs::directory_iterator()), 16);
    // The values are those of the surface after the steps.
    const std::string sq = "Sq, Root Mean Square Height\t";
    ASSERT_EQ(Run("$folder/data/a.txt" + batch + " --unit nm --data no"), 0) << m_err.str();
    ASSERT_EQ(Run("$folder/data/a.txt --pictures no --out $out --unit nm --settings PlaneCorr[Id(4)]"), 0);
    const std::string alone = Read("report.txt");
    const std::string value = SplitText(alone.substr(alone.find(sq)), '\t')[2];
    ASSERT_EQ(Run("$folder/data/a.txt $folder/data/b.txt --unit nm" + batch), 0) << m_err.str();
    EXPECT_TRUE(Has(Read("report.txt"), "\t" + value + "\t")) << Read("report.txt") << value;
    EXPECT_EQ(Run("$folder/data --each" + batch), 1);
    EXPECT_TRUE(Has(m_err.str(), "--each and --resume are not for --batch")) << m_err.str();
}
