#include "tests/surface_report/SurfaceReportFixture.h"

#include "analysis/form/Levelling.h"
#include "formats/SurfaceReader.h"

#include <cmath>

using CommonUI::Analysis::SSurface;
using CommonUI::Formats::HasX3p;
using CommonUI::Formats::ReadSurface;

namespace
{

// Writes surfaces beside the reports.
class Save : public ReportProgram
{
protected:
    int Report(const fs::path& input, const std::vector<std::string>& more)
    {
        std::vector<std::string> arguments = {input.string(), "--out", Out().string(), "--parameters", "Ra"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments);
    }
    fs::path Write(const char* name, const std::string& bytes) const
    {
        m_temporary.Write(name, bytes);
        return m_folder / name;
    }
    std::string BytesOf(const fs::path& file) const { return m_temporary.Read(fs::absolute(file)); }
};

bool IsSame(double left, double right)
{
    return left == right || (std::isnan(left) && std::isnan(right));
}

} // namespace

TEST_F(Save, SavedSurfaceIsTheProcessedOne)
{
    SSurface expected = ReadSurface(c_sample);
    Level(expected, CommonUI::Analysis::ELevelling::Plane);
    const struct {
        const char* name;
        std::vector<std::string> more;
        const char* start;
    } rows[] = {{"a.sdf", {}, "aISO-1.0"},
                {"b.SDF", {"--binary"}, "bISO-1.0"},
                {"c.x3p", {}, "PK"},
                {"d.txt", {}, "#"}};
    for (const auto& row : rows) {
        if (row.name == std::string("c.x3p") && !HasX3p())
            continue;
        SCOPED_TRACE(row.name);
        const fs::path file = Write(row.name, "replaced");
        std::vector<std::string> more = row.more;
        more.insert(more.end(), {"--save", file.string(), "--level", "plane"});
        ASSERT_EQ(Report(c_sample, more), 0) << m_err.str();
        EXPECT_TRUE(BytesOf(file).starts_with(row.start));
        const SSurface saved = ReadSurface(file);
        EXPECT_EQ(saved.points, expected.points);
        EXPECT_NEAR(saved.dx, expected.dx, 1e-21);
        EXPECT_TRUE(std::ranges::equal(saved.heights, expected.heights, IsSame));
    }
}

TEST_F(Save, InputIsReplacedWhereThatIsAsked)
{
    const fs::path input = m_folder / "input.sdf";
    fs::copy_file(c_sample, input);
    EXPECT_EQ(Report(input, {"--save", input.string()}), 1);
    EXPECT_EQ(BytesOf(input), BytesOf(c_sample));
#if !defined(_WIN32) // its standard library makes no links
    fs::create_symlink(input, m_folder / "link.sdf");
    EXPECT_EQ(Report(input, {"--save", (m_folder / "link.sdf").string()}), 1) << "the same file";
#endif
    ASSERT_EQ(Report(input, {"--save", input.string(), "--replace-input", "--level", "mean"}), 0)
        << m_err.str();
    EXPECT_NE(BytesOf(input), BytesOf(c_sample));
}

TEST_F(Save, RunThatFailsLeavesTheFileAsItWas)
{
    const std::string preferences = (m_folder / "no" / "choices.ini").string(); // cannot be saved
    const fs::path before = Write("before.sdf", "before");
    const fs::path none = m_folder / "none.sdf";
    for (const fs::path& file : {before, none})
        EXPECT_EQ(Report(c_sample, {"--save", file.string(), "--preferences", preferences}), 1);
    EXPECT_EQ(BytesOf(before), "before");
    EXPECT_FALSE(fs::exists(none));
    EXPECT_TRUE(fs::is_empty(m_folder) || !fs::exists(Out())) << "no temporary is left";
    if (HasX3p()) {
        const fs::path broken = Write("broken.x3p", "PK\3\4nothing else");
        EXPECT_EQ(Report(broken, {"--save", before.string()}), 1);
        EXPECT_EQ(m_err.str(),
                  "surface_report: " + broken.string() + ": the archive is damaged, or cut off\n");
    }
}

TEST_F(Save, ProfileHasParametersOfProfilesAlone)
{
    std::string text = "x [um]\tz [nm]\n";
    for (int i = 0; i < 200; ++i)
        text += std::to_string(i) + '\t' + (i % 20 < 10 ? "100" : "-100") + '\n';
    const fs::path input = Write("profile.txt", text);
    const fs::path saved = m_folder / "saved.txt";
    ASSERT_EQ(Run({input.string(), "--out", Out().string(), "--parameters", "Ra,4287Pa,Sa", "--settings",
                   "PlaneCorr[Id(8)]", "--save", saved.string()}),
              0)
        << m_err.str();
    const std::string report = Read("report.txt");
    EXPECT_TRUE(Has(report, "Points: 200\r\nSpacing: 1 \u00B5m\r\n")) << report;
    EXPECT_TRUE(Has(report, "\r\n\r\nProfile parameter\tRaw\tProcessed\tUnit\r\nRa, ")) << report;
    EXPECT_TRUE(Has(report, "(ISO 4287)\t")) << report;
    EXPECT_FALSE(Has(report, "Sa, ") || Has(report, "Statistic"));
    EXPECT_TRUE(BytesOf(saved).starts_with("x [m]\tz [m]\n0\t"));

    const fs::path heights = Write("heights.txt", "z [um]\n1\n2\n1\n2\n");
    ASSERT_EQ(Report(heights, {"--spacing", "0.5um", "--level", "plane"}), 0) << m_err.str();
    EXPECT_TRUE(Has(m_out.str(), "500 nm")) << m_out.str();
}
