#include "measurement/documents/CollectionDocument.h"

#include "measurement/charts/ValueCharts.h"
#include "measurement/documents/detail/DocumentBlocks.h"

#include <algorithm>

namespace CommonUI::Measurement
{

using CGrid = CGridBaseOutputCtrl;
using SCell = CGrid::SCellInfo;

namespace
{

using enum EReportBlock;

CStr TitleOfAll(const SReportTemplateSettings& layout)
{
    return TitleOf(layout, u"Surface report");
}

class CCollectionDocument : CDocumentBlocks
{
public:
    CCollectionDocument(const SReportTemplateSettings& layout, const SCollectionSource& source,
                        CDocumentWriter& document)
        : CDocumentBlocks(layout, source.hasPictures, document)
        , m_source(source)
    {
    }

    void Make()
    {
        for (std::size_t i = 0; i < GetLayout().blocks.size(); ++i)
            AddBlock(GetLayout().blocks[i], i);
        FlushPictures();
    }

private:
    std::size_t CountRows() const { return m_source.rows.GetRows().size() - 1; }

    void AddBlock(EReportBlock block, std::size_t index)
    {
        switch (block) {
        case Title:
            return Add(SHeading{TitleOfAll(GetLayout()), true});
        case Information:
            return AddInformation();
        case Comment:
            return Add(SCommentField{NameOf(block)});
        case RoughnessParameters:
            return AddRows();
        case RoughnessStatistics:
            return AddStatistics();
        case RoughnessChart:
            return AddRoughnessChart();
        default:
            return AddPictures(block, index);
        }
    }
    void AddInformation()
    {
        SFacts facts;
        for (const CGrid::SRow& row : m_source.summary.GetRows())
            facts.rows.emplace_back(row.name, row.cells.empty() ? CStr() : row.cells.front());
        Add(facts);
    }
    void AddRows()
    {
        CGrid::CCells cells;
        m_source.rows.GetGridHeaders(cells, SCell::Results);
        m_source.rows.GetGridCells(cells, SCell::Results);
        const std::size_t shown = std::min(CountRows(), c_mostDocumentRows);
        cells.resize(cells.size() - (CountRows() - shown));
        AddTable(NameOf(RoughnessParameters), cells, m_source.notes);
        AddShownRows(shown, CountRows());
    }
    // With parameters as rows, which fit a page.
    void AddStatistics()
    {
        CGrid units(SCell::Results);
        for (const CGrid::SColumn& column : m_source.statistics.GetColumns())
            units.AddColumn(column);
        units.AddRow(m_source.rows.GetRows().front());
        CGrid::CCells cells;
        m_source.statistics.GetGridHeaders(cells, SCell::Statistics);
        units.GetGridCells(cells, SCell::Results);
        m_source.statistics.GetGridCells(cells, SCell::Statistics);
        CGrid::TransposeCells(cells);
        AddTable(NameOf(RoughnessStatistics) + CStr::Format(u" (%u measurements)", CountRows()), cells, {});
    }
    // Sa where it is on, as everybody knows it.
    void AddRoughnessChart()
    {
        if (m_source.columns.empty())
            return AddSentence(RoughnessChart, u"no parameter is on");
        const auto sa = std::ranges::find_if(
            m_source.columns, [](const SColumn& column) { return column.parameter.GetIniName() == u"Sa"; });
        const SColumn& column = sa == m_source.columns.end() ? m_source.columns.front() : *sa;
        AddChart(RoughnessChart, column.parameter.GetFriendlyString() + u", over the measurements",
                 DrawValuesOverRows(column, column.values, u"measurement"),
                 column.parameter.GetShortFriendlyString() + u" has no two values");
    }
    void AddPictures(EReportBlock block, std::size_t index)
    {
        if (!HasPictures() && IsPictureOfOne(block))
            return;
        bool isShown = false;
        for (const SPicturedMeasurement& measurement : m_source.measurements) {
            if (index >= measurement.pictures.size() || measurement.pictures[index].svg.empty())
                continue;
            SPicture picture = measurement.pictures[index];
            picture.caption = measurement.name + u": " + picture.caption;
            AddPicture(picture);
            isShown = true;
        }
        if (!isShown)
            AddSentence(block, u"the document is about several measurements");
        else if (CountRows() > m_source.measurements.size())
            Add(SParagraph{CStr::Format(u"Pictures of the first %u of %u measurements.",
                                        m_source.measurements.size(), CountRows())});
    }

    const SCollectionSource& m_source;
};

} // namespace

bool IsAboutSeveral(const SReportTemplateSettings& layout)
{
    return layout.scope != EReportScope::Single;
}

void MakeCollectionDocument(const SReportTemplateSettings& layout, const SCollectionSource& source,
                            CDocumentWriter& document)
{
    CCollectionDocument(layout, source, document).Make();
}

SDocumentFile GetDocumentFile(const SReportTemplateSettings& layout, const SCollectionSource& source)
{
    return MakeDocumentFile(layout, TitleOfAll(layout), [&](CDocumentWriter& document) {
        MakeCollectionDocument(layout, source, document);
    });
}

} // namespace CommonUI::Measurement
