#include "measurement/documents/ReportDocument.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/areal/MaterialRatio.h"
#include "measurement/charts/HeightCharts.h"
#include "measurement/charts/ValueCharts.h"
#include "measurement/detail/DescribeLength.h"
#include "measurement/documents/detail/DocumentBlocks.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace CommonUI::Measurement
{

using Analysis::CMaterialRatio;
using Analysis::SSurface;
using CGrid = CGridBaseOutputCtrl;
using SCell = CGrid::SCellInfo;

namespace
{

using enum EReportBlock;

constexpr auto c_everyMeasurement = {Title, Information, Comment};
constexpr auto c_ofGrains = {GrainImage, GrainTable, GrainStatistics, GrainHistogram};
constexpr auto c_ofRoughness = {RoughnessParameters, RoughnessStatistics, RoughnessChart};
constexpr auto c_pictures = {Image, View3D, CrossSection, Profile, HeightHistogram, GrainImage, AbbottCurve};

bool IsOneOf(EReportBlock block, std::initializer_list<EReportBlock> blocks)
{
    return std::ranges::find(blocks, block) != blocks.end();
}

// A noun that stands at the beginning of a line as it stands in a sentence.
CStr InSentence(const CStr& noun)
{
    std::u16string text(noun.View());
    if (!text.empty() && text.front() >= u'A' && text.front() <= u'Z')
        text.front() = static_cast<char16_t>(text.front() - u'A' + u'a');
    return text;
}

// The picture of a block without grains.
SPicture DrawBlock(EReportBlock block, const SSurface& surface, const SMethod& method,
                   std::optional<double> threshold)
{
    switch (block) {
    case Image:
        return PictureSurface(surface);
    case View3D:
        return PicturePerspective(surface);
    case CrossSection:
        return PictureCrossSection(surface);
    case Profile:
        return PictureProfile(surface, method.cutoff);
    case AbbottCurve:
        return {u"Material ratio curve",
                DrawMaterialRatio(CMaterialRatio(surface.heights), !surface.IsProfile())};
    default:
        return {u"Heights", DrawHistogram(CMaterialRatio(surface.heights), threshold)};
    }
}

// What both analyses say stands there once.
void AddSummary(const CGrid& summary, std::vector<std::pair<CStr, CStr>>& rows)
{
    for (const CGrid::SRow& row : summary.GetRows()) {
        const std::pair<CStr, CStr> fact(row.name, row.cells.empty() ? CStr() : row.cells.front());
        if (std::ranges::find(rows, fact) == rows.end())
            rows.push_back(fact);
    }
}

// Elements in the order of a template's blocks.
class CReportDocument : CDocumentBlocks
{
public:
    CReportDocument(const SReportTemplateSettings& layout, const SDocumentSource& source,
                    CDocumentWriter& document)
        : CDocumentBlocks(layout, source.hasPictures, document)
        , m_source(source)
        , m_surface(source.input.surface)
    {
    }

    void Make()
    {
        for (const EReportBlock block : GetLayout().blocks) {
            const CStr reason = ExplainEmptyBlock(block, m_surface, m_source.method);
            if (reason.IsEmpty())
                AddBlock(block);
            else
                AddSentence(block, reason);
        }
        FlushPictures();
    }

private:
    void AddBlock(EReportBlock block)
    {
        switch (block) {
        case Title:
            return Add(SHeading{TitleOf(GetLayout(), CStr::FromUtf8(m_surface.fileName)), true});
        case Information:
            return AddInformation();
        case Comment:
            return Add(SCommentField{NameOf(block)});
        case GrainTable:
            return AddRows(block, *m_source.grains);
        case GrainStatistics:
            return AddStatistics(block, *m_source.grains, u"");
        case GrainHistogram:
            return AddGrainHistogram();
        case RoughnessParameters:
            return AddParameters();
        case RoughnessStatistics:
            return AddStatistics(block, *m_source.roughness, u"no parameter of profiles is on");
        case RoughnessChart:
            return AddRoughnessChart();
        default:
            return AddPicture(HasPictures() ? PictureOf(block) : SPicture());
        }
    }
    SPicture PictureOf(EReportBlock block) const
    {
        if (block == GrainImage)
            return PictureGrains(m_surface, *m_source.grains->GetResults().grains);
        return DrawBlock(block, m_surface, m_source.method, GetThreshold());
    }
    std::optional<double> GetThreshold() const
    {
        return m_source.grains && IsAboutGrains(GetLayout())
                   ? std::optional(m_source.grains->GetResults().grains->limit.threshold)
                   : std::nullopt;
    }
    void AddInformation()
    {
        SFacts facts;
        for (const CReportTables* const tables : {m_source.grains, m_source.roughness}) {
            if (tables)
                AddSummary(tables->GetSummary(), facts.rows);
        }
        const auto length = [](std::size_t count, double spacing) {
            return DescribeLength(static_cast<double>(count) * spacing);
        };
        const Analysis::SRange range = Analysis::FindRange(m_surface.heights);
        CStr extent = length(m_surface.points, m_surface.dx);
        if (!m_surface.IsProfile())
            extent += u" × " + length(m_surface.lines, m_surface.dy);
        if (range.count > 0)
            extent +=
                u", heights from " + DescribeLength(range.lowest) + u" to " + DescribeLength(range.highest);
        facts.rows.emplace_back(u"Range", extent);
        Add(facts);
    }

    void AddParameters()
    {
        const CReportTables& tables = *m_source.roughness;
        CGrid::CCells cells;
        tables.GetSurface().GetGridHeaders(cells, SCell::Results);
        tables.GetSurface().GetGridCells(cells, SCell::Results);
        if (!tables.GetSurface().GetRows().empty())
            AddTable(NameOf(RoughnessParameters), cells, tables.GetSurfaceNotes().GetLines());
        else if (!tables.GetResults().columns.empty())
            AddRows(RoughnessParameters, tables);
        else
            AddSentence(RoughnessParameters, u"no parameter is on");
    }
    void AddRows(EReportBlock block, const CReportTables& tables)
    {
        const std::size_t count = tables.GetResults().rowCount;
        if (count == 0 || tables.GetResults().columns.empty())
            return AddSentence(block, WhyNoRows(tables));
        const std::size_t shown = std::min(count, c_mostDocumentRows);
        const CGrid rows = tables.MakeRows(0, shown);
        CGrid::CCells cells;
        rows.GetGridHeaders(cells, SCell::Results);
        rows.GetGridCells(cells, SCell::Results);
        AddTable(NameOf(block), cells, tables.GetRowNotes().GetLines());
        AddShownRows(shown, count);
    }
    static CStr WhyNoRows(const CReportTables& tables)
    {
        const SResults& results = tables.GetResults();
        return results.rowCount == 0 ? u"no " + InSentence(results.rowName) + u" is found"
                                     : CStr(u"no quantity is on");
    }
    // With parameters as rows, which fit a page.
    void AddStatistics(EReportBlock block, const CReportTables& tables, const CStr& reason)
    {
        const SResults& results = tables.GetResults();
        if (results.columns.empty() || results.rowCount == 0)
            return AddSentence(block, reason.IsEmpty() ? WhyNoRows(tables) : reason);
        const CGrid units = tables.MakeRows(0, 0);
        CGrid::CCells cells;
        tables.GetStatistics().GetGridHeaders(cells, SCell::Statistics);
        units.GetGridCells(cells, SCell::Results);
        tables.GetStatistics().GetGridCells(cells, SCell::Statistics);
        CGrid::TransposeCells(cells);
        AddTable(NameOf(block) + CStr::Format(u" (%u ", results.rowCount) + InSentence(results.rowName) +
                     (results.rowCount == 1 ? u")" : u"s)"),
                 cells, tables.GetStatisticsNotes().GetLines());
    }
    void AddGrainHistogram()
    {
        const SResults& results = m_source.grains->GetResults();
        if (results.columns.empty())
            return AddSentence(GrainHistogram, WhyNoRows(*m_source.grains));
        const SColumn& column = results.columns.front();
        AddChart(GrainHistogram, column.parameter.GetFriendlyString(),
                 DrawValueHistogram(column, results.GetValues({0, 1, 0, results.rowCount}).front()),
                 WhyNoRows(*m_source.grains));
    }
    // Ra where it is on, as everybody knows it.
    void AddRoughnessChart()
    {
        const SResults& results = m_source.roughness->GetResults();
        if (results.columns.empty())
            return AddSentence(RoughnessChart, u"no parameter of profiles is on");
        const auto found = std::ranges::find_if(results.columns, [](const SColumn& column) {
            return column.parameter.GetIniName() == u"4287Ra";
        });
        const auto index =
            found == results.columns.end() ? 0 : static_cast<std::size_t>(found - results.columns.begin());
        const SColumn& column = results.columns[index];
        AddChart(RoughnessChart, column.parameter.GetFriendlyString() + u", over the profiles",
                 DrawValuesOverRows(column,
                                    results.GetValues({index, index + 1, 0, results.rowCount}).front(),
                                    InSentence(results.rowName)),
                 column.parameter.GetShortFriendlyString() + u" has no two values");
    }

    const SDocumentSource& m_source;
    const SSurface& m_surface;
};

} // namespace

SDocumentSource MakeDocumentSource(const SInput& input, const SMethod& method, const CReportTables& tables,
                                   const CReportTables* roughness, bool hasPictures)
{
    const bool hasGrains = method.MeasuresGrains();
    return {.input = input,
            .method = method,
            .roughness = roughness   ? roughness
                         : hasGrains ? nullptr
                                     : &tables,
            .grains = hasGrains ? &tables : nullptr,
            .hasPictures = hasPictures};
}

bool HasAny(const SReportTemplateSettings& layout, std::initializer_list<EReportBlock> blocks)
{
    return std::ranges::find_first_of(layout.blocks, blocks) != layout.blocks.end();
}

bool IsAboutGrains(const SReportTemplateSettings& layout)
{
    return HasAny(layout, c_ofGrains);
}

bool IsAboutRoughness(const SReportTemplateSettings& layout)
{
    return HasAny(layout, c_ofRoughness);
}

SRequest RequestGrains(SRequest request, const SReportTemplateSettings& layout)
{
    if (request.keys.empty()) {
        for (const EMeasureParameters quantity : layout.grainQuantities)
            request.keys.push_back(GetMeasureParametersEnum().GetIniName(static_cast<int>(quantity)));
    }
    return request;
}

SRequest RequestRoughness(SRequest request)
{
    request.method.grains = {};
    request.method.grainSearch = {};
    request.method.further = {};
    request.keys.clear();
    return request;
}

CStr ExplainEmptyBlock(EReportBlock block, const SSurface& surface, const SMethod& method)
{
    if (IsOneOf(block, {ForceCurve, ForceResults}))
        return u"the measurement is no force curve";
    if (IsOneOf(block, {CalibrationResults, PitchChart, StepHistogram}))
        return u"no calibration is computed";
    if (IsOneOf(block, c_ofGrains) && !method.MeasuresGrains())
        return u"no threshold of particles or pores is in force";
    if (IsOneOf(block, c_pictures) && Analysis::FindRange(surface.heights).count == 0)
        return u"the surface has no valid point";
    if (IsOneOf(block, {Image, View3D, CrossSection}) && surface.IsProfile())
        return u"the measurement is a profile";
    if (block == View3D && surface.points < 2)
        return u"the surface has one column of points alone";
    if (IsOneOf(block, {RoughnessStatistics, RoughnessChart}) && surface.IsProfile())
        return u"the measurement is one profile alone";
    return {};
}

CStr ExplainEmptyBlocks(const SReportTemplateSettings& layout, const SSurface& surface, const SMethod& method)
{
    std::vector<std::pair<CStr, CStr>> reasons; // with the names of the blocks in front
    for (const EReportBlock block : layout.blocks) {
        const CStr reason = ExplainEmptyBlock(block, surface, method);
        if (reason.IsEmpty())
            continue;
        const auto found = std::ranges::find(reasons, reason, &std::pair<CStr, CStr>::second);
        if (found == reasons.end())
            reasons.emplace_back(NameOf(block), reason);
        else
            found->first += u", " + NameOf(block);
    }
    CStr text;
    for (const auto& [names, reason] : reasons)
        text += (text.IsEmpty() ? u"" : u"; ") + EmptyBlockText(names, reason);
    return text;
}

bool ShowsAnything(const SReportTemplateSettings& layout, const SSurface& surface, const SMethod& method)
{
    return std::ranges::any_of(layout.blocks, [&](EReportBlock block) {
        return !IsOneOf(block, c_everyMeasurement) && ExplainEmptyBlock(block, surface, method).IsEmpty();
    });
}

bool IsPictureOfOne(EReportBlock block)
{
    return IsOneOf(block, c_pictures) && block != GrainImage;
}

std::vector<SPicture> DrawBlocks(const SReportTemplateSettings& layout, const SSurface& surface,
                                 const SMethod& method)
{
    std::vector<SPicture> pictures;
    pictures.reserve(layout.blocks.size());
    for (const EReportBlock block : layout.blocks) {
        pictures.push_back(IsPictureOfOne(block) && ExplainEmptyBlock(block, surface, method).IsEmpty()
                               ? DrawBlock(block, surface, method, std::nullopt)
                               : SPicture());
    }
    return pictures;
}

void MakeReportDocument(const SReportTemplateSettings& layout, const SDocumentSource& source,
                        CDocumentWriter& document)
{
    CReportDocument(layout, source, document).Make();
}

SDocumentFile GetDocumentFile(const SReportTemplateSettings& layout, const SDocumentSource& source)
{
    return MakeDocumentFile(layout, TitleOf(layout, CStr::FromUtf8(source.input.surface.fileName)),
                            [&](CDocumentWriter& document) { MakeReportDocument(layout, source, document); });
}

} // namespace CommonUI::Measurement
