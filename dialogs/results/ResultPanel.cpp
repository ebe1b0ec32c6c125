#include "dialogs/results/ResultPanel.h"

#include "common/file/FileBytes.h"
#include "common/StringTable.h"
#include "common/TextBuilder.h"
#include "dialogs/results/ResultTexts.h"
#include "model/selection/AnalysisSelection.h"
#include "output/results/GridCopy.h"
#include "output/results/Markup.h"
#include "output/results/ProfileText.h"
#include "platform/FileDialogService.h"
#include "platform/memory/MemoryClipboard.h"
#include "platform/MessageBoxService.h"

#include <algorithm>
#include <limits>

namespace CommonUI
{

namespace
{

using CGrid = CGridBaseOutputCtrl;
using SCellInfo = CGrid::SCellInfo;

constexpr std::u16string_view c_lineEnd = u"\r\n";
// By which spreadsheet programs know UTF-8.
constexpr const char* c_byteOrderMark = "\xEF\xBB\xBF";

struct SFileKind {
    const char16_t* filter;
    const char16_t* extension;
    const char16_t* memoryKey;
};
// In the order of EResultFile.
constexpr SFileKind c_files[] = {
    {u"Text files (*.txt)|*.txt|All files (*.*)|*.*||", u"txt", u"ResultText"},
    {u"CSV files (*.csv)|*.csv|All files (*.*)|*.*||", u"csv", u"ResultCsv"},
    {u"CSV files (*.csv)|*.csv|All files (*.*)|*.*||", u"csv", u"ResultMachineCsv"},
    {u"HTML files (*.html)|*.html;*.htm|All files (*.*)|*.*||", u"html", u"ResultHtml"},
    {u"PDF files (*.pdf)|*.pdf|All files (*.*)|*.*||", u"pdf", u"ResultPdf"},
};

CGrid::CCells EscapedCells(const CGrid& table, bool headers)
{
    CGrid::CCells cells;
    if (headers)
        table.GetGridHeaders(cells, table.GetType());
    table.GetGridCells(cells, table.GetType());
    for (CGrid::CRow& row : cells)
        for (SCellInfo& cell : row)
            cell.text = EscapeMarkup(cell.text);
    return cells;
}

// A file of separated values has no tabs.
SNumberProfile ForFile(SNumberProfile profile)
{
    if (profile.separator == u'\t')
        profile.separator = profile.decimal == u',' ? u';' : u',';
    return profile;
}

// A choice in place of what the analysis gives, or none.
template<class TValue>
std::optional<SReplacedChoice<TValue>> MakeChoice(const TValue& chosen, const TValue& replaced)
{
    if (chosen == replaced)
        return {};
    return SReplacedChoice<TValue>{chosen, replaced};
}

const CGrid* OrNull(const CGrid& table)
{
    return table.GetRows().empty() ? nullptr : &table;
}

} // namespace

CResultPanelView::~CResultPanelView() = default;

CStr GetResultText(EResultText text, int following)
{
    return GetString(static_cast<int>(text) + following);
}

CResultPanel::CResultPanel(CResultLayoutManager& layouts)
    : m_layouts(&layouts)
    , m_results(std::make_shared<SResultSet>())
    , m_tables(std::make_shared<CResultTables>())
{
    m_layouts->GetChangeList().Subscribe(*this, &CResultPanel::OnLayout, m_connection);
}

CResultPanel::~CResultPanel() = default;

void CResultPanel::SetView(CResultPanelView* view)
{
    Link(*this, view);
    if (view)
        Update();
}

void CResultPanel::SetResults(std::shared_ptr<const SResultSet> results)
{
    m_results = std::move(results);
    Update();
}

void CResultPanel::Update()
{
    m_tables->Make(*m_results, GetLayout());
    if (GetView())
        GetView()->UpdateTables();
    UpdateState();
}

void CResultPanel::UpdateState() const
{
    if (GetView())
        GetView()->UpdateState();
}

void CResultPanel::Announce(const CStr& name, EPart part)
{
    m_layouts->GetChangeList().Invoke({.name = name, .part = part, .origin = this});
}

void CResultPanel::OnLayout(const SResultLayoutChange& change)
{
    if (change.origin == this || change.name != m_results->name)
        return;
    if (change.part == EPart::Tables)
        Update();
    else if (change.part == EPart::State)
        UpdateState();
    else if (GetView())
        GetView()->UpdateSizes();
}

void CResultPanel::OnLayoutChanged()
{
    Update();
    Announce(EPart::Tables);
}

void CResultPanel::OnSignsChanged()
{
    UpdateState();
    Announce(EPart::State);
}

std::vector<CStr> CResultPanel::GetNotes() const
{
    return GetLayout().showsNotes ? m_tables->GetNotes().GetLines() : std::vector<CStr>();
}

std::vector<std::size_t> CResultPanel::GetQuantities(EResultTable table, SGridCell cell,
                                                     const SGridRange& range) const
{
    const bool isTransposed = m_tables->IsTransposed();
    const auto take = [&](std::size_t at, std::size_t first, std::size_t last) {
        const bool isInside = at >= first && at <= last;
        std::vector<std::size_t> quantities;
        if (at == std::numeric_limits<std::size_t>::max())
            return quantities; // headers and the empty area are in no row
        for (std::size_t i = isInside ? first : at; i <= (isInside ? last : at); ++i)
            if (const auto found =
                    m_tables->FindQuantity(table, {isTransposed ? i : 0, isTransposed ? 0 : i}))
                quantities.push_back(*found);
        return quantities;
    };
    return isTransposed ? take(cell.row, range.firstRow, range.lastRow)
                        : take(cell.column, range.firstColumn, range.lastColumn);
}

std::vector<CParameter::CScaling> CResultPanel::GetUnits(std::span<const std::size_t> quantities) const
{
    if (quantities.empty())
        return {};
    const auto dimensionOf = [&](std::size_t index) {
        return m_results->quantities[index].parameter.GetDimension();
    };
    const auto dimension = dimensionOf(quantities.front());
    const auto isOther = [&](std::size_t index) { return dimensionOf(index) != dimension; };
    if (std::ranges::any_of(quantities, isOther))
        return {};
    return GetScalings(dimension, m_results->units);
}

CUnit::EUnitFactor CResultPanel::GetUnitFactor(std::size_t quantity) const
{
    return CResultTables::GetShownParameter(m_results->quantities[quantity], GetLayout()).GetUnitFactor();
}

bool CResultPanel::IsHidden(std::size_t quantity) const
{
    return !std::ranges::binary_search(m_tables->GetShown(), quantity);
}

bool CResultPanel::CanHide(std::span<const std::size_t> quantities) const
{
    return !quantities.empty() && std::ranges::any_of(m_tables->GetShown(), [&](std::size_t shown) {
        return std::ranges::find(quantities, shown) == quantities.end();
    });
}

bool CResultPanel::CanTranspose() const noexcept
{
    return m_results->rowNames.size() <= CResultTables::c_mostTransposedRows;
}

void CResultPanel::SetUnitFactor(std::span<const std::size_t> quantities, CUnit::EUnitFactor factor)
{
    for (const std::size_t index : quantities) {
        const SResultQuantity& quantity = m_results->quantities[index];
        Layout().columns[quantity.key].unit = MakeChoice(factor, quantity.parameter.GetUnitFactor());
    }
    OnLayoutChanged();
}

void CResultPanel::ChangeFormat(std::span<const std::size_t> quantities)
{
    if (quantities.empty() || !GetView())
        return;
    // Other results may come while the dialog is open.
    const auto results = m_results;
    const std::vector<std::size_t> about(quantities.begin(), quantities.end());
    CFormatSpecifierDlg dialog(
        CResultTables::GetShownParameter(results->quantities[about.front()], GetLayout()));
    if (GetView()->Run(dialog) != CBaseDialog::c_ok)
        return;
    const auto format = dialog.GetParameter().GetFloatFormat();
    for (const std::size_t index : about) {
        const SResultQuantity& quantity = results->quantities[index];
        m_layouts->Get(results->name).columns[quantity.key].format =
            MakeChoice(format, quantity.parameter.GetFloatFormat());
    }
    Update();
    Announce(results->name, EPart::Tables);
}

void CResultPanel::Hide(std::span<const std::size_t> quantities, bool hide)
{
    if (hide && !CanHide(quantities))
        return;
    auto& columns = Layout().columns;
    const auto setHidden = [&](std::size_t index, bool isHidden) {
        const CStr& key = m_results->quantities[index].key;
        if (isHidden || columns.contains(key))
            columns[key].isHidden = isHidden;
    };
    // What is shown although the layout hides all of it stays, but for these.
    for (const std::size_t index : m_tables->GetShown())
        setHidden(index, false);
    for (const std::size_t index : quantities)
        setHidden(index, hide);
    OnLayoutChanged();
}

std::vector<std::size_t> CResultPanel::GetAll() const
{
    std::vector<std::size_t> all(m_results->quantities.size());
    for (std::size_t i = 0; i < all.size(); ++i)
        all[i] = i;
    return all;
}

void CResultPanel::ShowAll()
{
    Hide(GetAll(), false);
}

void CResultPanel::Transpose(bool transpose)
{
    if (!CanTranspose() || transpose == m_tables->IsTransposed())
        return;
    Layout().isTransposed = transpose;
    OnLayoutChanged();
}

void CResultPanel::ShowNotes(bool show)
{
    Layout().showsNotes = show;
    OnSignsChanged();
}

void CResultPanel::SetSeparator(char16_t separator)
{
    Layout().separator = separator;
    OnSignsChanged();
}

void CResultPanel::SetDecimal(char16_t decimal)
{
    Layout().decimal = decimal;
    OnSignsChanged();
}

void CResultPanel::OnWidth(EResultTable table, std::size_t column, int width)
{
    const CStr key = m_tables->GetColumnKey(table, column);
    if (key.IsEmpty())
        return;
    Layout().columns[key].width = width;
    Announce(EPart::Sizes);
}

void CResultPanel::OnHeights(const std::array<std::optional<int>, CResultTables::c_count>& heights)
{
    auto& kept = Layout().heights;
    for (std::size_t i = 0; i < heights.size(); ++i)
        kept[i] = heights[i].value_or(kept[i]);
    Announce(EPart::Sizes);
}

int CResultPanel::GetWidth(EResultTable table, std::size_t column) const
{
    const auto& columns = GetLayout().columns;
    const auto found = columns.find(m_tables->GetColumnKey(table, column));
    return found == columns.end() ? 0 : found->second.width;
}

CGrid::SCopiedTexts CResultPanel::GetTexts(EScope scope, ENumberProfile kind) const
{
    const SNumberProfile profile = GetLayout().GetProfile(kind);
    const CGrid& current = m_tables->Get(m_current);
    if (scope == EScope::Selection && current.HasSelection())
        return current.CopySelectionAsHTML(false, true, profile);
    CMemoryClipboard copied;
    CopyGrids(OrNull(m_tables->Get(EResultTable::Summary)), OrNull(m_tables->Get(EResultTable::Results)),
              OrNull(m_tables->Get(EResultTable::Statistics)), false, profile, copied);
    return {copied.GetHtml(), copied.GetText()};
}

bool CResultPanel::Copy(EScope scope, ENumberProfile kind) const
{
    const CGrid::SCopiedTexts texts = GetTexts(scope, kind);
    return !texts.html.IsEmpty() && GetClipboard().Put(texts.html, texts.text);
}

CStr CResultPanel::MakeText(const SNumberProfile& profile, bool summary) const
{
    return GenerateProfileText(summary ? OrNull(m_tables->Get(EResultTable::Summary)) : nullptr,
                               OrNull(m_tables->Get(EResultTable::Results)),
                               OrNull(m_tables->Get(EResultTable::Statistics)), false, profile);
}

CStr CResultPanel::MakeHtml() const
{
    CGrid::CCells cells = EscapedCells(m_tables->Get(EResultTable::Results), true);
    for (CGrid::CRow& row : EscapedCells(m_tables->Get(EResultTable::Statistics), false))
        cells.push_back(std::move(row));
    CTextBuilder html;
    html += u"<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>";
    html += EscapeMarkup(m_results->title);
    html += u"</title>\n";
    html += CGrid::GenerateHTMLTableStyle();
    html += u"</head>\n<body>\n<h1>";
    html += EscapeMarkup(m_results->title);
    html += u"</h1>\n<p>";
    html += EscapeMarkup(m_results->provenance);
    html += u"</p>\n";
    html += CGrid::GenerateSummaryHTMLTable(EscapedCells(m_tables->Get(EResultTable::Summary), false));
    html += u"<br>\n";
    html += CGrid::GenerateResultsHTMLTable(cells);
    for (const CStr& note : GetNotes())
        html += u"<p><small>" + EscapeMarkup(note) + u"</small></p>\n";
    html += u"</body>\n</html>\n";
    return html.Take();
}

std::string CResultPanel::MakeFile(EResultFile kind) const
{
    const SResultLayout& layout = GetLayout();
    switch (kind) {
    case EResultFile::Text: {
        CTextBuilder text;
        text += m_results->title + c_lineEnd + m_results->provenance + c_lineEnd + c_lineEnd;
        text += MakeText({}, true);
        for (const CStr& note : GetNotes())
            text += note + c_lineEnd;
        return c_byteOrderMark + text.Take().ToUtf8();
    }
    case EResultFile::SpreadsheetCsv:
        return c_byteOrderMark +
               MakeText(ForFile(layout.GetProfile(ENumberProfile::Spreadsheet)), true).ToUtf8();
    case EResultFile::MachineCsv:
        return MakeText(ForFile({.kind = ENumberProfile::Machine}), false).ToUtf8();
    case EResultFile::Html:
        return MakeHtml().ToUtf8();
    case EResultFile::Pdf:
        break;
    }
    return GetView() ? GetView()->MakePdf(GetPages()) : std::string();
}

bool CResultPanel::Save(EResultFile kind) const
{
    const SFileKind& file = c_files[static_cast<std::size_t>(kind)];
    CStr path;
    if (!GetFileDialogService().Choose({.forOpen = false,
                                        .filter = file.filter,
                                        .extension = file.extension,
                                        .memoryKey = file.memoryKey},
                                       path))
        return false;
    const std::string bytes = MakeFile(kind);
    CStr reason = GetResultText(EResultText::NotDrawn);
    if (!bytes.empty() && ReplaceFileBytes(path, bytes, reason))
        return true;
    GetMessageBoxService().Show({CStr::Format(GetResultText(EResultText::NotWritten), path, reason),
                                 MessageBoxStyle::c_ok | MessageBoxStyle::c_error});
    return false;
}

SResultPages CResultPanel::GetPages() const
{
    return {.title = m_results->title,
            .provenance = m_results->provenance,
            .summary = &m_tables->Get(EResultTable::Summary),
            .results = &m_tables->Get(EResultTable::Results),
            .statistics = &m_tables->Get(EResultTable::Statistics),
            .notes = GetNotes()};
}

void CResultPanel::Print()
{
    if (GetView())
        GetView()->Print();
}

} // namespace CommonUI
