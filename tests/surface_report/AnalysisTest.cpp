#include "tests/surface_report/SurfaceReportFixture.h"

#include <cmath>
#include <functional>

namespace
{

// A text matrix with points 1 µm apart and heights in nm.
std::string MakeMatrix(int points, int lines, const std::function<double(int, int)>& getHeight)
{
    std::ostringstream text;
    text << "# Channel: Z\n# Width: " << points << " um\n# Height: " << lines << " um\n# Value units: nm\n";
    for (int y = 0; y < lines; ++y)
        for (int x = 0; x < points; ++x)
            text << getHeight(x, y) << (x + 1 == points ? '\n' : '\t');
    return text.str();
}

// The value of a parameter in the text report, with its unit.
std::string FindValue(const std::string& report, const std::string& name)
{
    const std::size_t at = std::min(report.find("\n" + name + "\t"), report.find("\n" + name + ": "));
    if (at == std::string::npos)
        return "none";
    const std::size_t begin = report.find_first_not_of(" :\t", at + name.size() + 1);
    return report.substr(begin, report.find('\r', begin) - begin);
}

} // namespace

TEST_F(ReportProgram, DoesTheAnalysesOfThePreferences)
{
    const auto wave = [](double x, double y) { return 30 * (std::sin(x / 3) + std::sin((x + y) / 5)); };
    m_temporary.Write("step.txt", MakeMatrix(120, 4, [](int x, int) { return x >= 50 && x < 70 ? -50 : 0; }));
    m_temporary.Write("a.txt", MakeMatrix(80, 60, wave));
    m_temporary.Write("b.txt", MakeMatrix(80, 60, [&](int x, int y) { return wave(x - 3, y + 2); }));
    struct SRow {
        const char* line;
        const char* name;
        const char* value;
    };
    const SRow rows[] = {
        {"$folder/step.txt --analysis ZCalibration --reference 49nm", "Calibration Factor of Z", "0.98\t"},
        {"$folder/step.txt --analysis ZCalibration --unit um", "Mean Step Height", "0.05\t\xC2\xB5m"},
        {"$folder/step.txt --analysis ZCalibration --preferences $folder/p.ini --set StepHeight=off",
         "Mean Step Height", "none"},
        {"$folder/a.txt --second $folder/b.txt --analysis CrossCorrelation", "Shift in X", "3\t\xC2\xB5m"},
        {"$folder/a.txt --second $folder/a.txt --analysis Linearity", "Amplification Coefficient", "1\t"},
        {"$folder/a.txt --analysis 1DCalibration --pitch centroid --reference 18.8um", "Mean pitch",
         "by the centres of gravity, ISO 11952"},
        {"$folder/a.txt --analysis XYCalibration --reference 1um,2um", "Mean Pitch in X", "?"},
        {"$folder/a.txt --analysis TipAnalysis --tip 8um,1nm", "Tip", "8 \xC2\xB5m wide"},
        {"$folder/a.txt --analysis TipAnalysis --tip Depth20", "Tip", "down to 20 nm below its apex"},
    };
    for (const auto& [line, name, value] : rows) {
        ASSERT_EQ(Run(std::string(line) + " --out $out --pictures no"), 0) << line << m_err.str();
        const std::string found = FindValue(Read("report.txt"), name);
        if (std::string(value) != "?")
            EXPECT_EQ(found, value) << line;
        else
            EXPECT_NE(found, "none") << line;
    }
}

TEST_F(ReportProgram, ShowsTheOutputsOfAnAnalysis)
{
    m_temporary.Write("a.txt", MakeMatrix(120, 40, [](int x, int y) { return std::sin(x / 3.0) + y; }));
    for (const auto& [analysis, picture] : {std::pair("1DCalibration", "Pitch Chart"),
                                            {"Linearity", "Deviation Curve"},
                                            {"PlaneCorrection", "Corrected Image"}}) {
        ASSERT_EQ(Run(std::string("$folder/a.txt --out $out --analysis ") + analysis), 0) << m_err.str();
        EXPECT_TRUE(Has(Read("report.html"), std::string("<figcaption>") + picture)) << analysis;
        EXPECT_FALSE(Has(Read("report.html"), "<figcaption>Power spectrum")) << analysis;
    }
}

TEST_F(ReportProgram, RefusesWhatAnAnalysisDoesNotTake)
{
    struct SRow {
        const char* line;
        const char* message;
    };
    const SRow rows[] = {
        {"--analysis Foo", "--analysis: \"Foo\" is no analysis such as ZCalibration"},
        {"--analysis RoughnessAnalysis", "is no analysis"},
        {"--tip 8um", "--tip is not for this analysis"},
        {"--analysis PlaneCorrection --reference 1um", "--reference is not for this analysis"},
        {"--analysis ZCalibration --reference 1um,2um", "--reference: only XYCalibration has two"},
        {"--analysis ZCalibration --reference 0nm", "\"0nm\" is not above 0"},
        {"--analysis CrossCorrelation", "takes the surface to compare with by --second"},
        {"--analysis CrossCorrelation --second $folder/none.txt", "none.txt"},
        {"--analysis ZCalibration --grains 5nm", "--grains has no effect beside --analysis"},
        {"--analysis ZCalibration --parameters Sa", "\"Sa\" is not among the parameters"},
        {"--analysis ZCalibration --settings ActiveReport[Id(30)]", "has no effect beside --analysis"},
    };
    for (const auto& [line, message] : rows) {
        EXPECT_EQ(Run(std::string("$sample --out $out ") + line), 1) << line;
        EXPECT_TRUE(Has(m_err.str(), message)) << m_err.str();
        EXPECT_FALSE(fs::exists(Out())) << line;
    }
}

// A series of calibrations: a row for each file with statistics, which a merge and a resumed run know again.
TEST_F(ReportProgram, TablesOfAnalyses)
{
    for (const int height : {40, 50, 60})
        m_temporary.Write("in" + std::to_string(height) + ".txt",
                          MakeMatrix(120, 4, [&](int x, int) { return x >= 50 && x < 70 ? height : 0; }));
    const std::string inputs = "$folder/in40.txt $folder/in50.txt $folder/in60.txt ";
    ASSERT_EQ(Run(inputs + "--out $out --analysis ZCalibration --reference 50nm"), 0) << m_err.str();
    const std::string table = Read("report.txt");
    EXPECT_TRUE(Has(table, "Analysis: Z Calibration")) << table;
    EXPECT_TRUE(Has(table, "Mean\t50\t")) << table;
    ASSERT_EQ(Run("--merge $out --out $folder/merged"), 0) << m_err.str();
    EXPECT_TRUE(Has(m_temporary.Read(m_folder / "merged" / "report.txt"), "Mean\t50\t"));
    EXPECT_EQ(Run(inputs + "--out $out --resume --analysis ZCalibration --reference 50nm"), 0) << m_err.str();
    EXPECT_EQ(Run(inputs + "--out $out --resume --analysis ZCalibration --reference 49nm"), 0) << m_err.str();
    // Of another reference nothing is taken over.
    EXPECT_TRUE(Has(Read("report.txt"), "in50.txt\t50\t0\t0.98\t")) << Read("report.txt");
}
