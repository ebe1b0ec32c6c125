#include "measurement/ReportTables.h"

#include "tests/analysis/TestSurfaces.h"
#include "tests/TestData.h"

using namespace CommonUI;
using namespace CommonUI::Measurement;
using CommonUI::Analysis::MakeSurface;

namespace
{

CReportTables TablesOf(std::size_t lines, bool transpose)
{
    const SInput input{.surface = MakeSurface(4, lines, [](double x, double y) { return x * y; })};
    const SRequest request{.keys = {u"Sq", u"Ra", u"4287Pt"}};
    return {ComputeResults(input, MakeChoices(CAnalysisPreferencesManager(), request)), transpose};
}

} // namespace

TEST(ReportTables, TextMadeInPartsIsThatOfTheWholeTable)
{
    for (const bool transpose : {false, true}) {
        const CReportTables tables = TablesOf(600, transpose);
        const std::string whole =
            CGridBaseOutputCtrl::GenerateText(nullptr, &tables.GetRows(), &tables.GetStatistics(), transpose)
                .ToUtf8();
        EXPECT_TRUE(tables.GetText().ends_with("\r\n\r\n" + whole)) << transpose;
    }
}

TEST(ReportTables, PageBeyondTheMostRowsHasTheStatisticsAndSaysWhereTheRowsAre)
{
    const std::string last = ">10000</nobr>";
    const CReportTables most = TablesOf(CReportTables::c_mostRows, false);
    EXPECT_TRUE(Has(most.GetHtml(), last));
    for (const bool transpose : {false, true}) {
        const CReportTables tables = TablesOf(CReportTables::c_mostRows + 1, transpose);
        EXPECT_EQ(tables.GetRows().GetRows().size(), 1) << "the units";
        const std::string html = tables.GetHtml();
        EXPECT_TRUE(Has(html, "10001, too many for a page: they are in the text file beside it"));
        EXPECT_TRUE(Has(html, "<nobr>Maximum</nobr>"));
        EXPECT_FALSE(Has(html, last));
        EXPECT_TRUE(Has(tables.GetText(), transpose ? "\t10001\tCount\t" : "\r\n10001\t"));
    }
}
