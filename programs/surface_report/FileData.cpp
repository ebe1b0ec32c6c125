#include "analysis/surface/Value.h"
#include "measurement/data/CsvWriter.h"
#include "measurement/data/JsonWriter.h"
#include "model/Enumerations.h"
#include "programs/surface_report/FileTable.h"

#include <algorithm>
#include <cmath>

namespace SurfaceReport
{

using namespace CommonUI;
using Measurement::CCsvWriter;
using Measurement::CJsonWriter;
using Measurement::SColumn;

namespace
{

// Why a value is missing; empty where it is there.
std::string ReasonOf(const SFileRow& row, std::size_t index)
{
    if (std::isfinite(row.values[index]))
        return {};
    const auto found = row.reasons.find(index);
    return found == row.reasons.end() ? "there is no value" : found->second;
}

std::string ReasonOf(const Analysis::SValue& statistic)
{
    if (std::isfinite(statistic.value))
        return {};
    return statistic.reason.empty() ? "there is no value" : std::string(statistic.reason);
}

// Calls visit(parameter, statistic) for those of a column that are shown.
template<class FVisit>
void ForEachStatistic(const std::vector<CParameter>& shown, const SColumn& column, FVisit visit)
{
    for (const CParameter& parameter : shown) {
        const auto found =
            std::ranges::find(column.statistics, parameter.GetIniName().ToUtf8(), &Analysis::SValue::key);
        if (found != column.statistics.end())
            visit(parameter, *found);
    }
}

void WriteProvenance(CCsvWriter& csv, std::string_view row, std::string_view key, std::string_view text)
{
    if (!text.empty())
        csv.Write(
            {.table = "provenance", .row = row, .key = key, .value = Analysis::c_undefined, .note = text});
}

void WriteStatistics(const std::vector<CParameter>& shown, const SColumn& column, CJsonWriter& json)
{
    json.Key("statistics").BeginArray();
    ForEachStatistic(shown, column, [&](const CParameter& parameter, const Analysis::SValue& statistic) {
        json.BeginObject();
        json.Key("key").Text(Measurement::GetStatisticKey(parameter));
        json.Key("unit").Text(GetStatisticUnitText(column, parameter));
        json.Key("value").Number(statistic.value);
        if (const std::string reason = ReasonOf(statistic); !reason.empty())
            json.Key("reason").Text(reason);
        json.End();
    });
    json.End();
}

void TextOrNull(CJsonWriter& json, std::string_view key, std::string_view text)
{
    json.Key(key);
    if (text.empty())
        json.Null();
    else
        json.Text(text);
}

void WriteFile(const SFileRow& row, const std::vector<std::string>& keys, CJsonWriter& json)
{
    json.BeginObject();
    json.Key("file").Text(row.name);
    TextOrNull(json, "sha256", row.sha256);
    TextOrNull(json, "date", row.date);
    if (row.values.empty()) {
        json.Key("values").Null();
        json.Key("reason").Text(row.remark);
    } else {
        json.Key("values").BeginObject();
        for (std::size_t i = 0; i < keys.size(); ++i)
            json.Key(keys[i]).Number(row.values[i]);
        json.End();
        if (!row.remark.IsEmpty())
            json.Key("remark").Text(row.remark);
        json.Key("reasons").BeginObject();
        for (std::size_t i = 0; i < keys.size(); ++i) {
            if (const std::string reason = ReasonOf(row, i); !reason.empty())
                json.Key(keys[i]).Text(reason);
        }
        json.End();
    }
    json.End();
}

} // namespace

void CFileTable::WriteCsv(const Measurement::FWriteText& write) const
{
    CCsvWriter csv(write);
    for (const SRunFact& fact : m_facts)
        WriteProvenance(csv, {}, fact.key, fact.text);
    for (const SFileRow& row : m_files) {
        const std::string name = row.name.ToUtf8();
        WriteProvenance(csv, name, "sha256", row.sha256);
        WriteProvenance(csv, name, "date", row.date);
        if (row.values.empty())
            csv.Write(
                {.table = "file", .row = name, .value = Analysis::c_undefined, .note = row.remark.ToUtf8()});
        for (std::size_t i = 0; i < row.values.size(); ++i)
            csv.Write({.table = "file",
                       .row = name,
                       .key = m_columns[i].GetKey().ToUtf8(),
                       .value = row.values[i],
                       .unit = m_columns[i].GetBaseUnitText().ToUtf8(),
                       .note = ReasonOf(row, i)});
    }
    for (const SColumn& column : m_columns) {
        ForEachStatistic(m_shownStatistics, column, [&](const auto& parameter, const auto& statistic) {
            csv.Write({.table = "file",
                       .key = column.GetKey().ToUtf8(),
                       .statistic = Measurement::GetStatisticKey(parameter).ToUtf8(),
                       .value = statistic.value,
                       .unit = GetStatisticUnitText(column, parameter).ToUtf8(),
                       .note = ReasonOf(statistic)});
        });
    }
    csv.Finish();
}

void CFileTable::WriteJson(const Measurement::FWriteText& write) const
{
    CJsonWriter json(write);
    json.BeginObject();
    json.Key("format").Text("surface_report files 1");
    json.Key("method").BeginObject();
    for (const SRunFact& fact : m_facts)
        json.Key(fact.key).Text(fact.text);
    json.End();
    json.Key("parameters").BeginArray();
    std::vector<std::string> keys;
    for (const SColumn& column : m_columns) {
        keys.push_back(column.GetKey().ToUtf8());
        json.BeginObject();
        json.Key("key").Text(keys.back());
        json.Key("symbol").Text(column.parameter.GetShortFriendlyString());
        json.Key("standard")
            .Text(GetAnalysisStandardsEnum().GetFriendlyString(column.parameter.GetStandard()));
        json.Key("unit").Text(column.GetBaseUnitText());
        WriteStatistics(m_shownStatistics, column, json);
        json.End();
    }
    json.End();
    json.Key("files").BeginArray();
    for (const SFileRow& row : m_files)
        WriteFile(row, keys, json);
    json.End();
    json.End();
    json.Finish();
}

} // namespace SurfaceReport
