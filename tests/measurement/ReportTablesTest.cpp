#include "measurement/ReportTables.h"

#include "tests/analysis/TestSurfaces.h"
#include "tests/TestData.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <span>

using namespace CommonUI;
using namespace CommonUI::Measurement;
using CommonUI::Analysis::MakeSurface;

namespace
{

class CTables : public CReportTables
{
public:
    CTables(std::size_t points, std::size_t lines, const SRequest& request, bool transpose)
        : CTables(std::make_shared<SInput>(
                      SInput{.surface = MakeSurface(
                                 points, lines, [](double x, double y) { return std::sin(x * x + 3 * y); })}),
                  request, transpose)
    {
    }

private:
    CTables(std::shared_ptr<SInput> input, const SRequest& request, bool transpose)
        : CReportTables(ComputeResults(*input, MakeChoices(CAnalysisPreferencesManager(), request)),
                        transpose)
        , m_input(std::move(input))
    {
    }

    std::shared_ptr<SInput> m_input;
};

CTables TablesOf(std::size_t lines, bool transpose)
{
    return {4, lines, {.keys = {u"Sq", u"Ra", u"4287Pt"}}, transpose};
}

} // namespace

TEST(ReportTables, WhatIsMadeInPartsIsThatOfTheWholeTable)
{
    using SCell = CGridBaseOutputCtrl::SCellInfo;
    for (const bool transpose : {false, true}) {
        const CTables tables = TablesOf(1200, transpose);
        const CGridBaseOutputCtrl& rows = tables.GetRows();
        EXPECT_TRUE(tables.GetText().ends_with(
            "\r\n\r\n" +
            CGridBaseOutputCtrl::GenerateText(nullptr, &rows, &tables.GetStatistics(), transpose).ToUtf8()))
            << transpose;
        CGridBaseOutputCtrl::CCells cells;
        rows.GetGridHeaders(cells, SCell::Results);
        rows.GetGridCells(cells, SCell::Results);
        tables.GetStatistics().GetGridCells(cells, SCell::Statistics);
        if (transpose)
            CGridBaseOutputCtrl::TransposeCells(cells);
        const std::string whole = CGridBaseOutputCtrl::GenerateResultsHTMLTable(cells).ToUtf8();
        EXPECT_TRUE(tables.GetHtml().ends_with("\n<br>\n" + whole + "\n</html>\n")) << transpose;
    }
}

TEST(ReportTables, ValuesThatAreComputedAgainAreThoseOfOneTable)
{
    constexpr std::size_t c_lines =
        20'000; // so short that all parameters would take more room than the heights
    const SInput input{.surface =
                           MakeSurface(3, c_lines, [](double x, double y) { return std::sin(x * y); })};
    const SResults some =
        ComputeResults(input, MakeChoices(CAnalysisPreferencesManager(), {.keys = {u"Rq", u"4287Pt"}}));
    const SResults all = ComputeResults(input, MakeChoices(CAnalysisPreferencesManager(), {}));
    ASSERT_FALSE(some.computePart);
    ASSERT_TRUE(all.computePart);
    ASSERT_LT(all.columnsAtOnce, all.columns.size());
    for (const SColumn& column : some.columns) {
        const auto found = std::ranges::find(all.columns, column.parameter.GetValue(),
                                             [](const SColumn& other) { return other.parameter.GetValue(); });
        ASSERT_NE(found, all.columns.end());
        EXPECT_EQ(found->values.capacity(), 0) << "memory that is not given back";
        const auto index = static_cast<std::size_t>(found - all.columns.begin());
        const SPart part{index, index + 1, 4000, 9000};
        const auto kept = std::span(column.values).subspan(4000, 5000);
        EXPECT_TRUE(std::ranges::equal(all.GetValues(part).at(0), kept));
        EXPECT_EQ(found->GetText(1e-9), column.GetText(1e-9)) << "the unit";
        for (std::size_t i = 0; i < column.statistics.size(); ++i)
            EXPECT_EQ(found->statistics[i].value, column.statistics[i].value) << column.statistics[i].key;
    }
}

TEST(ReportTables, PageBeyondTheMostRowsHasTheStatisticsAndSaysWhereTheRowsAre)
{
    const std::string last = ">10000</nobr>";
    const CTables most = TablesOf(CReportTables::c_mostRows, false);
    EXPECT_TRUE(Has(most.GetHtml(), last));
    for (const bool transpose : {false, true}) {
        const CTables tables = TablesOf(CReportTables::c_mostRows + 1, transpose);
        EXPECT_EQ(tables.GetRows().GetRows().size(), 1) << "the units";
        const std::string html = tables.GetHtml();
        EXPECT_TRUE(Has(html, "10001, too many for a page: they are in the text file beside it"));
        EXPECT_TRUE(Has(html, "<nobr>Maximum</nobr>"));
        EXPECT_FALSE(Has(html, last));
        EXPECT_TRUE(Has(tables.GetText(), transpose ? "\t10001\tCount\t" : "\r\n10001\t"));
    }
}

TEST(ReportTables, FootnotesSayWhyCellsAreEmpty)
{
    // Ridges along y: in that direction the autocorrelation does not fall. The second line has a missing
    // point.
    SInput input{.surface = MakeSurface(30, 30, [](double x, double) { return std::sin(x); })};
    input.surface.heights[35] = Analysis::c_missing;
    const SRequest request{.keys = {u"Sa", u"Str", u"Str20", u"Str37", u"Rz", u"RSm"}};
    const CReportTables tables(ComputeResults(input, MakeChoices(CAnalysisPreferencesManager(), request)),
                               false);
    const std::vector<CStr> surface = {
        u"1 Str, Str20: the autocorrelation does not fall to 0.2 in all directions within the surface",
        u"2 Str37: the autocorrelation does not fall to 0.37 in all directions within the surface"};
    EXPECT_EQ(tables.GetSurfaceNotes().GetLines(), surface);
    const std::vector<CStr> rows = {u"1 Rz VORN Classic, RSm VORN Classic: points are missing"};
    EXPECT_EQ(tables.GetRowNotes().GetLines(), rows);
    EXPECT_EQ(tables.GetStatisticsNotes().GetLines(), std::vector<CStr>()) << "other lines have values";

    const CGridBaseOutputCtrl::SRow& second = tables.GetRows().GetRows()[2]; // behind the units
    EXPECT_EQ(CGridBaseOutputCtrl::GetCellState(second, 2),
              (SValueState{EValueState::NotApplicable, u"points are missing"}));
    EXPECT_EQ(CGridBaseOutputCtrl::GetCellState(tables.GetSurface().GetRows()[0], 1), SValueState());
    const std::string html = tables.GetHtml();
    EXPECT_TRUE(Has(html, "</table>\n<small><br>\n<sup>1</sup> Str, Str20: the auto"));
    EXPECT_TRUE(Has(html, "\n<sup>2</sup> Str37: the auto"));
    EXPECT_TRUE(html.ends_with("points are missing\n</small>\n\n</html>\n"));
    EXPECT_FALSE(Has(tables.GetText(), "missing\r\n")) << "a spreadsheet gets empty cells";
    EXPECT_EQ(CFootnotes().Add(u"Sa", u""), u"");
}

TEST(ReportTables, StatisticsWithoutValuesHaveTheReasonOfTheFirstRow)
{
    const SRequest request{.keys = {u"Ra", u"4287Ra", u"4287Wq", u"RSm"}};
    const SInput input{
        .surface = MakeSurface(4, 2, [](double x, double y) { return y == 0 ? x : Analysis::c_missing; })};
    const CReportTables tables(ComputeResults(input, MakeChoices(CAnalysisPreferencesManager(), request)),
                               false);
    std::string lines;
    for (const CStr& line : tables.GetStatisticsNotes().GetLines())
        lines += line.ToUtf8() + '\n';
    EXPECT_EQ(lines,
              "1 RSm VORN Classic: the profile has no whole element\n"
              "2 Ra ISO 4287, Wq ISO 4287: the cut-off is not longer than two spacings of the surface's "
              "points\n"
              "3 Std. Dev.: there is a single value\n");
}
