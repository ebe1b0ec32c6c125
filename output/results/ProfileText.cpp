#include "output/results/ProfileText.h"

#include "common/ControlCharacters.h"
#include "common/NumberText.h"
#include "common/TextBuilder.h"
#include "output/results/detail/ResultPieces.h"

#include <cmath>
#include <cstddef>

namespace CommonUI
{

using CCells = CGridBaseOutputCtrl::CCells;
using SCellInfo = CGridBaseOutputCtrl::SCellInfo;

namespace
{

bool IsNumber(std::u16string_view text)
{
    double value = 0;
    return ParseDouble(text, value) && std::isfinite(value);
}

// Spreadsheet programs look behind blanks, and some of them take the wide forms of the signs for the signs.
bool LooksLikeFormula(std::u16string_view text)
{
    constexpr std::u16string_view c_signs = u"=+-@\uFF1D\uFF0B\uFF0D\uFF20";
    if (!text.empty() && IsControl(text.front()))
        return true;
    const std::u16string_view trimmed = TrimView(text);
    return !trimmed.empty() && c_signs.find(trimmed.front()) != c_signs.npos;
}

CStr Guarded(const CStr& text)
{
    return LooksLikeFormula(text) && !IsNumber(text) ? u"'" + text : text;
}

bool IsHeader(const SCellInfo& cell)
{
    return cell.Has(SCellInfo::ColumnHeader) || cell.Has(SCellInfo::RowHeader) ||
           cell.Has(SCellInfo::SubHeader);
}

template<class FConvert>
void ForEachCell(CCells& cells, const SNumberProfile& profile, FConvert convert)
{
    if (profile.kind == ENumberProfile::Shown)
        return;
    for (CGridBaseOutputCtrl::CRow& row : cells) {
        for (SCellInfo& cell : row) {
            cell.text = cell.text.Replace(c_lineEnd, u" ");
            if (profile.kind == ENumberProfile::Spreadsheet)
                cell.text = convert(cell);
        }
    }
}

void AppendRow(CTextBuilder& text, const CGridBaseOutputCtrl::CRow& row, char16_t separator)
{
    bool isFirst = true;
    for (const SCellInfo& cell : row) {
        if (cell.columnSpan < 1)
            continue;
        if (!isFirst)
            text += separator;
        isFirst = false;
        text += QuoteCell(cell.text, separator).View();
        for (std::int32_t covered = 1; covered < cell.columnSpan; ++covered)
            text += separator;
    }
    text += c_lineEnd;
}

} // namespace

void ConvertCells(CCells& cells, const SNumberProfile& profile)
{
    const CStr decimal(1, profile.decimal);
    ForEachCell(cells, profile, [&decimal](const SCellInfo& cell) {
        return IsHeader(cell) || !IsNumber(cell.text) ? Guarded(cell.text) : cell.text.Replace(u".", decimal);
    });
}

void ConvertTexts(CCells& cells, const SNumberProfile& profile)
{
    ForEachCell(cells, profile, [](const SCellInfo& cell) { return Guarded(cell.text); });
}

CStr GenerateProfileCell(const SCellInfo& cell, const SNumberProfile& profile)
{
    if (profile.kind == ENumberProfile::Shown)
        return cell.text;
    CCells cells{{cell}};
    ConvertCells(cells, profile);
    return QuoteCell(cells[0][0].text, profile.separator);
}

CStr QuoteCell(std::u16string_view text, char16_t separator)
{
    if (text.find_first_of(std::u16string{u'"', u'\r', u'\n', separator}) == text.npos)
        return text;
    return u"\"" + CStr(text).Replace(u"\"", u"\"\"") + u"\"";
}

CStr GenerateProfileText(const CCells& cells, const SNumberProfile& profile)
{
    if (profile.kind == ENumberProfile::Shown)
        return CGridBaseOutputCtrl::GenerateResultsText(cells);
    CTextBuilder text;
    for (const CGridBaseOutputCtrl::CRow& row : cells)
        AppendRow(text, row, profile.separator);
    return text.Take();
}

CStr GenerateProfileText(const CGridBaseOutputCtrl* summary, const CGridBaseOutputCtrl* results,
                         const CGridBaseOutputCtrl* statistics, bool transpose, const SNumberProfile& profile)
{
    return CReportRows(summary, results, statistics, transpose, profile).MakeText(profile);
}

} // namespace CommonUI
