#include "measurement/data/ReportData.h"

#include "measurement/ReportTables.h"
#include "tests/analysis/TestSurfaces.h"
#include "tests/StrictJson.h"
#include "tests/TestData.h"

#include <bit>
#include <cmath>
#include <cstdint>

using namespace CommonUI;
using namespace CommonUI::Measurement;

namespace
{

std::string Whole(void (*write)(const SResults&, const FWriteText&), const SResults& results)
{
    std::string whole;
    write(results, [&whole](std::string_view piece) { whole += piece; });
    return whole;
}

bool IsSame(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

// The fields of each line, which have no line ends in them here.
std::vector<std::vector<std::string>> ParseCsv(const std::string& text)
{
    std::vector<std::vector<std::string>> lines;
    for (const std::string& line : SplitText(text, '\n')) {
        std::vector<std::string> fields(1);
        bool isQuoted = false;
        for (const char c : line.substr(0, line.size() - 1)) {
            if (c == '"')
                isQuoted = !isQuoted;
            else if (c == ',' && !isQuoted)
                fields.emplace_back();
            else
                fields.back() += c;
        }
        EXPECT_TRUE(line.ends_with('\r') && fields.size() == 7) << line;
        lines.push_back(fields);
    }
    return lines;
}

// Results whose values have been replaced by those that digits are easily lost of.
SResults AwkwardResults(const SInput& input)
{
    constexpr double c_awkward[] = {0.1, -0.0, 5e-324, 1.7976931348623157e308, 1e23, 1.0 / 3, 4.35, 1e5};
    SResults results = ComputeResults(
        input, MakeChoices(CAnalysisPreferencesManager(), {.keys = {u"Sq", u"Sdc(0.1,10)", u"4287Ra"}}));
    for (SColumn& column : results.columns) {
        for (std::size_t i = 0; i < column.values.size(); ++i)
            column.values[i] = c_awkward[i % std::size(c_awkward)];
        column.values[1] = Analysis::c_undefined;
        column.values[2] = -INFINITY;
    }
    return results;
}

SInput Input()
{
    SInput input{.surface = Analysis::MakeSurface(
                     40, 20, [](double x, double y) { return std::sin(x * x + 3 * y) / 1e7; })};
    input.surface.fileName = "a \"b\", \x01\xFF.sdf";
    input.surface.date = "2024-05-31T14:30";
    input.sha256 = "00ff";
    input.raw = input.surface;
    input.steps = {u"Mean", u"25 um"};
    input.cutoffs = {{2, 25e-6}};
    return input;
}

} // namespace

TEST(ReportData, EachValueOfJsonIsTheSameNumber)
{
    const SInput input = Input();
    const SResults results = AwkwardResults(input);
    const SJson json = CStrictJson::Parse(Whole(WriteJson, results));
    EXPECT_EQ(json["source"]["file"].text, "a \"b\", \x01\uFFFD.sdf");
    EXPECT_EQ(json["source"]["sha256"].text, "00ff");
    EXPECT_EQ(json["source"]["date"].text, input.surface.date);
    EXPECT_TRUE(json["source"]["channel"].IsNull());
    EXPECT_TRUE(IsSame(json["source"]["dy"].number, input.surface.dy));
    EXPECT_FALSE(json["method"]["steps"][0].Has("cutoff"));
    EXPECT_EQ(json["method"]["steps"][1]["cutoff"].number, 25e-6);
    EXPECT_TRUE(IsSame(json["method"]["cutoff"].number, *results.origin.cutoff));
    EXPECT_EQ(json["surface"][1]["key"].text, "Sdc(0.1,10)");
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_TRUE(IsSame(json["surface"][i]["raw"].number, results.surface[i].values[0]));
        EXPECT_TRUE(IsSame(json["surface"][i]["value"].number, results.surface[i].values[1]));
    }
    const SJson& column = json["rows"]["columns"][0];
    EXPECT_EQ(column["key"].text + column["unit"].text, "4287Ram");
    ASSERT_EQ(column["values"].elements.size(), 20u);
    for (std::size_t i = 0; i < 20; ++i) {
        const double value = results.columns[0].values[i];
        EXPECT_EQ(column["values"][i].IsNull(), !std::isfinite(value)) << i;
        EXPECT_TRUE(!std::isfinite(value) || IsSame(column["values"][i].number, value)) << i;
    }
    ASSERT_EQ(column["missing"].elements.size(), 2u);
    EXPECT_EQ(column["missing"][0]["rows"][0].number, 3) << column["missing"][0]["reason"].text;
    EXPECT_EQ(column["missing"][0]["reason"].text, "the value is infinite");
    EXPECT_EQ(column["missing"][1]["rows"][0].number, 2) << column["missing"][1]["reason"].text;
    for (const SJson& statistic : column["statistics"].elements)
        EXPECT_EQ(statistic["unit"].text, statistic["key"].text == "Count" ? "" : "m");
}

TEST(ReportData, EachLineOfCsvIsAValueOrAReason)
{
    const SInput input = Input();
    const SResults results = AwkwardResults(input);
    const auto lines = ParseCsv(Whole(WriteCsv, results));
    std::map<std::string, std::vector<std::string>> found;
    for (const auto& line : lines)
        found[line[0] + "|" + line[1] + "|" + line[2] + "|" + line[3]] = {line[4], line[5], line[6]};
    EXPECT_EQ(found.size(), lines.size()) << "each once";
    EXPECT_EQ(found["provenance||cutoff of step 2|"], (std::vector<std::string>{"2.5e-05", "m", ""}));
    EXPECT_EQ(found["provenance||sha256|"], (std::vector<std::string>{"", "", "00ff"}));
    const auto expectValue = [&](const std::string& place, double value) {
        const std::vector<std::string>& fields = found[place];
        ASSERT_EQ(fields.size(), 3u) << place;
        EXPECT_EQ(fields[0].empty(), !std::isfinite(value)) << place;
        EXPECT_EQ(fields[2].empty(), std::isfinite(value)) << place;
        EXPECT_TRUE(fields[0].empty() || IsSame(std::strtod(fields[0].c_str(), nullptr), value)) << place;
    };
    expectValue("raw||Sdc(0.1,10)|", results.surface[1].values[0]);
    expectValue("surface||Sq|", results.surface[0].values[1]);
    for (std::size_t i = 0; i < 20; ++i)
        expectValue("profile|" + std::to_string(i + 1) + "|4287Ra|", results.columns[0].values[i]);
    for (const Analysis::SValue& statistic : results.columns[0].statistics) {
        if (found.contains("profile||4287Ra|" + std::string(statistic.key)))
            expectValue("profile||4287Ra|" + std::string(statistic.key), statistic.value);
    }
}

TEST(ReportData, ExactTextsOfTheTablesAreThoseOfTheData)
{
    const SInput input = Input();
    const CReportTables tables(AwkwardResults(input), false);
    const auto textOf = [](const CGridBaseOutputCtrl& grid) {
        CGridBaseOutputCtrl::CCells cells;
        grid.GetGridHeaders(cells, grid.GetType(), true);
        grid.GetGridCells(cells, grid.GetType(), true);
        return CGridBaseOutputCtrl::GenerateResultsText(cells).ToUtf8();
    };
    EXPECT_TRUE(Has(textOf(tables.GetSurface()), "\r\nSdc(0.1,10)\t")) << textOf(tables.GetSurface());
    EXPECT_TRUE(Has(textOf(tables.GetRows()), "Profile\t4287Ra\r\nUnit\tm\r\n1\t0.1\r\n2\t\r\n3\t-INF\r\n"
                                              "4\t1.7976931348623157e+308\r\n"))
        << textOf(tables.GetRows());
    EXPECT_TRUE(Has(textOf(tables.GetStatistics()), "Statistic\t4287Ra\r\nCount\t20\r\n"));
}
