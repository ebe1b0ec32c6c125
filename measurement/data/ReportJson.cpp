#include "measurement/data/JsonWriter.h"
#include "measurement/data/ReportData.h"
#include "measurement/detail/DataTexts.h"
#include "model/Enumerations.h"

#include <map>

namespace CommonUI::Measurement
{

namespace
{

void TextOrNull(CJsonWriter& json, std::string_view key, std::string_view text)
{
    json.Key(key);
    if (text.empty())
        json.Null();
    else
        json.Text(text);
}

// A value and, where there is none, the reason.
void WriteValue(CJsonWriter& json, std::string_view key, double value, const std::string& reason)
{
    json.Key(key).Number(value);
    if (!reason.empty())
        json.Key(key == "value" ? "reason" : std::string(key) + "Reason").Text(reason);
}

void WriteSource(const SOrigin& origin, CJsonWriter& json)
{
    json.Key("source").BeginObject();
    json.Key("file").Text(origin.fileName);
    TextOrNull(json, "sha256", origin.sha256);
    TextOrNull(json, "date", origin.date);
    TextOrNull(json, "channel", origin.channel);
    json.Key("points").Count(origin.points);
    json.Key("lines").Count(origin.lines);
    json.Key("missing").Count(origin.missing);
    json.Key("dx").Number(origin.dx);
    json.Key("dy").Number(origin.dy);
    json.End();
}

void WriteSteps(const SOrigin& origin, CJsonWriter& json)
{
    json.Key("steps").BeginArray();
    for (std::size_t i = 0; i < origin.steps.size(); ++i) {
        json.BeginObject();
        json.Key("name").Text(origin.steps[i]);
        const auto cutoff = std::ranges::find(origin.cutoffs, i + 1, &SStepCutoff::step);
        if (cutoff != origin.cutoffs.end())
            json.Key("cutoff").Number(cutoff->cutoff);
        json.End();
    }
    json.End();
}

void WriteMethod(const SOrigin& origin, CJsonWriter& json)
{
    json.Key("method").BeginObject();
    json.Key("levelling").Text(LevellingKey(origin.levelling));
    WriteSteps(origin, json);
    if (origin.cutoff)
        json.Key("cutoff").Number(*origin.cutoff);
    if (origin.cutoff || !origin.cutoffs.empty())
        json.Key("ends").Text(CStr(c_endTreatment));
    if (origin.threshold)
        json.Key("threshold").Number(*origin.threshold);
    json.End();
}

void WriteSummary(const SResults& results, CJsonWriter& json)
{
    json.Key("summary").BeginArray();
    for (const auto& [label, text] : results.summary) {
        json.BeginObject();
        json.Key("label").Text(label);
        json.Key("text").Text(text);
        json.End();
    }
    json.End();
}

void WriteParameter(const SColumn& column, CJsonWriter& json)
{
    json.Key("key").Text(column.GetKey());
    json.Key("symbol").Text(column.parameter.GetShortFriendlyString());
    json.Key("standard").Text(GetAnalysisStandardsEnum().GetFriendlyString(column.parameter.GetStandard()));
    json.Key("unit").Text(column.GetBaseUnitText());
}

void WriteSurface(const SResults& results, CJsonWriter& json)
{
    json.Key(results.isProfile ? "profile" : "surface").BeginArray();
    for (const SColumn& column : results.surface) {
        json.BeginObject();
        WriteParameter(column, json);
        const std::size_t last = column.values.size() - 1;
        WriteValue(json, "value", column.values[last], ReasonOfSurface(column, last));
        if (last != 0)
            WriteValue(json, "raw", column.values.front(), ReasonOfSurface(column, 0));
        json.End();
    }
    json.End();
}

void WriteStatistics(const SResults& results, std::size_t index, CJsonWriter& json)
{
    const SColumn& column = results.columns[index];
    json.Key("statistics").BeginArray();
    ForEachStatistic(results, column, [&](const CParameter& parameter, const Analysis::SValue& statistic) {
        json.BeginObject();
        json.Key("key").Text(GetStatisticKey(parameter));
        json.Key("unit").Text(GetStatisticUnitText(column, parameter));
        WriteValue(json, "value", statistic.value, ReasonOfStatistic(results, index, statistic));
        json.End();
    });
    json.End();
}

// Which rows have no value, for each reason.
void WriteMissing(const std::map<std::string, std::vector<std::size_t>>& missing, CJsonWriter& json)
{
    json.Key("missing").BeginArray();
    for (const auto& [reason, rows] : missing) {
        json.BeginObject();
        json.Key("reason").Text(reason);
        json.Key("rows").BeginArray();
        for (const std::size_t row : rows)
            json.Count(row);
        json.End();
        json.End();
    }
    json.End();
}

void WriteRows(const SResults& results, CJsonWriter& json)
{
    json.Key("rows").BeginObject();
    json.Key("name").Text(RowTable(results));
    json.Key("count").Count(results.rowCount);
    json.Key("columns").BeginArray();
    ForEachColumn(results, [&](std::size_t index, const std::vector<double>& values) {
        json.BeginObject();
        WriteParameter(results.columns[index], json);
        json.Key("values").BeginArray();
        std::map<std::string, std::vector<std::size_t>> missing;
        for (std::size_t row = 0; row < values.size(); ++row) {
            json.Number(values[row]);
            if (const std::string reason = ReasonOfRow(results, index, row, values[row]); !reason.empty())
                missing[reason].push_back(row + 1);
        }
        json.End();
        WriteMissing(missing, json);
        WriteStatistics(results, index, json);
        json.End();
    });
    json.End();
    json.End();
}

} // namespace

void WriteJson(const SResults& results, const FWriteText& write)
{
    CJsonWriter json(write);
    json.BeginObject();
    json.Key("format").Text("surface_report 1");
    json.Key("version").Text(GetVersion());
    WriteSource(results.origin, json);
    WriteMethod(results.origin, json);
    WriteSummary(results, json);
    WriteSurface(results, json);
    if (!results.columns.empty())
        WriteRows(results, json);
    json.End();
    json.Finish();
}

} // namespace CommonUI::Measurement
