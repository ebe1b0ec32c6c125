#include "dialogs/results/ResultTables.h"

#include "dialogs/results/ResultTexts.h"
#include "output/results/NumberFormat.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace CommonUI
{

namespace
{

using CGrid = CGridBaseOutputCtrl;
using SCellInfo = CGrid::SCellInfo;
using EUnit = SResultStatistic::EUnit;

constexpr double c_none = std::numeric_limits<double>::quiet_NaN();
// For machines, in every language.
constexpr const char16_t* c_exactUnit = u"Unit";
constexpr const char16_t* c_exactStatistics = u"Statistic";
// Of columns that are no quantities.
constexpr const char16_t* c_namesKey = u"|";

CStr TextOf(const CParameter& parameter, double value)
{
    return FormatParameterValue(value * parameter.CalcFactor(), parameter.GetFloatFormat());
}

CStr StatisticText(const CParameter& parameter, EUnit unit, double value)
{
    if (unit == EUnit::Count)
        return FormatParameterValue(value, {CParameter::EFormatSpecifier::FormatInteger, 0});
    return unit == EUnit::Percent ? FormatParameterValue(value, parameter.GetFloatFormat())
                                  : TextOf(parameter, value);
}

CStr BaseUnitOf(CParameter parameter, const SBase3D<CUnit>& units)
{
    parameter.SetUnitFactor(CUnit::EUnitFactor::Unity);
    return parameter.GetScaledUnitStr(units);
}

CStr OneLine(const CStr& header)
{
    return header.Replace(u"\r\n", u" ");
}

double At(const std::vector<double>& values, std::size_t index)
{
    return index < values.size() ? values[index] : c_none;
}

CStr NumberedKey(std::size_t column)
{
    return CStr::Format(u"%s%zu", c_namesKey, column);
}

} // namespace

CResultTables::CResultTables()
    : m_tables{CGrid(SCellInfo::Summary), CGrid(SCellInfo::Results), CGrid(SCellInfo::Statistics)}
{
}

CParameter CResultTables::GetShownParameter(const SResultQuantity& quantity, const SResultLayout& layout)
{
    CParameter shown = quantity.parameter;
    const auto found = layout.columns.find(quantity.key);
    if (found == layout.columns.end())
        return shown;
    const auto& [unit, format, isHidden, width] = found->second;
    if (unit && unit->replaced == shown.GetUnitFactor())
        shown.SetUnitFactor(unit->chosen);
    if (format && format->replaced == shown.GetFloatFormat())
        shown.SetFloatFormat(format->chosen);
    return shown;
}

void CResultTables::Make(const SResultSet& set, const SResultLayout& layout)
{
    for (CGrid& table : m_tables)
        table.Clear();
    m_shown.clear();
    m_parameters.clear();
    m_rowOwners.clear();
    m_columnKeys = {c_namesKey};
    m_notes = {};
    m_isTransposed =
        layout.isTransposed.value_or(set.isTransposed) && set.rowNames.size() <= c_mostTransposedRows;
    const auto isHidden = [&](const SResultQuantity& quantity) {
        const auto found = layout.columns.find(quantity.key);
        return found != layout.columns.end() && found->second.isHidden;
    };
    // Other quantities may have been there when these were hidden.
    const bool areAllHidden = std::ranges::all_of(set.quantities, isHidden);
    for (std::size_t i = 0; i < set.quantities.size(); ++i) {
        const SResultQuantity& quantity = set.quantities[i];
        if (!areAllHidden && isHidden(quantity))
            continue;
        m_shown.push_back(i);
        m_parameters.push_back(GetShownParameter(quantity, layout));
    }
    FillSummary(set);
    if (m_shown.empty())
        return;
    if (m_isTransposed) {
        FillTransposedColumns(set);
        for (std::size_t i = 0; i < m_shown.size(); ++i)
            FillTransposedRow(set, i);
        return;
    }
    FillColumns(set);
    FillUnits(set);
    FillRows(set);
    FillStatistics(set);
}

void CResultTables::FillSummary(const SResultSet& set)
{
    for (const auto& [label, text] : set.summary)
        Get(EResultTable::Summary).AddRow({.name = label, .cells = {text}});
}

void CResultTables::FillColumns(const SResultSet& set)
{
    CGrid& results = Get(EResultTable::Results);
    CGrid& statistics = Get(EResultTable::Statistics);
    results.SetNameHeader(set.rowHeader, set.exactRowHeader);
    statistics.SetNameHeader(GetResultText(EResultText::StatisticsName));
    for (const std::size_t shown : m_shown) {
        const SResultQuantity& quantity = set.quantities[shown];
        const CGrid::SColumn column{
            .header = quantity.header, .group = quantity.group, .exactHeader = quantity.key};
        results.AddColumn(column);
        statistics.AddColumn(column);
        m_columnKeys.push_back(quantity.key);
    }
}

void CResultTables::FillUnits(const SResultSet& set)
{
    CGrid::SRow units{.name = GetResultText(EResultText::UnitName), .cells = {}, .subHeader = true};
    units.exactTexts = {{0, c_exactUnit}};
    for (const CParameter& parameter : m_parameters) {
        units.cells.push_back(parameter.GetScaledUnitStr(set.units));
        units.exactTexts.push_back({units.cells.size(), BaseUnitOf(parameter, set.units)});
    }
    Get(EResultTable::Results).AddRow(std::move(units));
}

void CResultTables::FillRows(const SResultSet& set)
{
    std::vector<CGrid::SRow> rows(set.rowNames.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i].name = set.rowNames[i];
        if (!set.exactRowNames.empty())
            rows[i].exactTexts = {{0, set.exactRowNames[i]}};
        rows[i].cells.reserve(m_shown.size());
        rows[i].values.reserve(m_shown.size());
    }
    for (std::size_t column = 0; column < m_shown.size(); ++column) {
        const SResultQuantity& quantity = set.quantities[m_shown[column]];
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const double value = At(quantity.values, i);
            rows[i].cells.push_back(TextOf(m_parameters[column], value));
            rows[i].values.push_back(value);
        }
        for (const SResultState& state : quantity.states)
            if (state.index < rows.size()) {
                rows[state.index].states.push_back({column + 1, state.state});
                m_notes.Add(OneLine(quantity.header), state.state.reason);
            }
    }
    for (CGrid::SRow& row : rows)
        Get(EResultTable::Results).AddRow(std::move(row));
}

void CResultTables::FillStatistics(const SResultSet& set)
{
    std::vector<CGrid::SRow> rows(set.statistics.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i].name = set.statistics[i].name;
        rows[i].exactTexts = {{0, set.statistics[i].key}};
    }
    for (std::size_t column = 0; column < m_shown.size(); ++column) {
        const SResultQuantity& quantity = set.quantities[m_shown[column]];
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const double value = At(quantity.statistics, i);
            rows[i].cells.push_back(StatisticText(m_parameters[column], set.statistics[i].unit, value));
            rows[i].values.push_back(value);
        }
        for (const SResultState& state : quantity.statisticStates)
            if (state.index < rows.size()) {
                rows[state.index].states.push_back({column + 1, state.state});
                m_notes.Add(OneLine(quantity.header), state.state.reason);
            }
    }
    for (CGrid::SRow& row : rows)
        Get(EResultTable::Statistics).AddRow(std::move(row));
}

void CResultTables::FillTransposedColumns(const SResultSet& set)
{
    CGrid& results = Get(EResultTable::Results);
    m_columnKeys = {NumberedKey(0)};
    results.SetNameHeader(set.rowHeader, set.exactRowHeader);
    const auto add = [&](const CStr& header, const CStr& group, const CStr& exactHeader) {
        m_columnKeys.push_back(NumberedKey(m_columnKeys.size()));
        results.AddColumn({.header = header,
                           .group = group,
                           .exactHeader = exactHeader,
                           .exactGroup = group.IsEmpty() ? CStr() : CStr(c_exactStatistics)});
    };
    add(GetResultText(EResultText::UnitName), {}, c_exactUnit);
    for (std::size_t i = 0; i < set.rowNames.size(); ++i)
        add(set.rowNames[i], {}, set.exactRowNames.empty() ? CStr() : set.exactRowNames[i]);
    for (const SResultStatistic& statistic : set.statistics)
        add(statistic.name, GetResultText(EResultText::StatisticsName), statistic.key);
}

void CResultTables::FillTransposedRow(const SResultSet& set, std::size_t index)
{
    CGrid& results = Get(EResultTable::Results);
    const SResultQuantity& quantity = set.quantities[m_shown[index]];
    const CParameter& parameter = m_parameters[index];
    const CStr before = index == 0 ? CStr() : set.quantities[m_shown[index - 1]].group;
    if (quantity.group != before && !quantity.group.IsEmpty()) {
        results.AddRow({.name = quantity.group, .cells = {}});
        m_rowOwners.emplace_back();
    }
    const CStr name = OneLine(quantity.header);
    CGrid::SRow row{.name = name, .cells = {parameter.GetScaledUnitStr(set.units)}};
    row.values = {c_none};
    row.exactTexts = {{0, quantity.key}, {1, BaseUnitOf(parameter, set.units)}};
    for (std::size_t i = 0; i < set.rowNames.size(); ++i) {
        row.values.push_back(At(quantity.values, i));
        row.cells.push_back(TextOf(parameter, row.values.back()));
    }
    for (std::size_t i = 0; i < set.statistics.size(); ++i) {
        row.values.push_back(At(quantity.statistics, i));
        row.cells.push_back(StatisticText(parameter, set.statistics[i].unit, row.values.back()));
    }
    const auto addStates = [&](const std::vector<SResultState>& states, std::size_t first) {
        for (const auto& [at, state] : states) {
            row.states.push_back({first + at, state});
            m_notes.Add(name, state.reason);
        }
    };
    addStates(quantity.states, 2);
    addStates(quantity.statisticStates, 2 + set.rowNames.size());
    results.AddRow(std::move(row));
    m_rowOwners.emplace_back(m_shown[index]);
}

std::optional<std::size_t> CResultTables::FindQuantity(EResultTable table, SGridCell cell) const
{
    if (table == EResultTable::Summary)
        return {};
    if (m_isTransposed)
        return cell.row < m_rowOwners.size() ? m_rowOwners[cell.row] : std::nullopt;
    return cell.column > 0 && cell.column <= m_shown.size() ? std::optional(m_shown[cell.column - 1])
                                                            : std::nullopt;
}

CStr CResultTables::GetColumnKey(EResultTable table, std::size_t column) const
{
    if (table == EResultTable::Summary || column >= m_columnKeys.size())
        return {};
    return m_columnKeys[column];
}

} // namespace CommonUI
