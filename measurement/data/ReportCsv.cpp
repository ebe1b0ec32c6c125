#include "measurement/data/CsvWriter.h"
#include "measurement/data/ReportData.h"
#include "measurement/detail/DataTexts.h"

namespace CommonUI::Measurement
{

namespace
{

class CProvenance
{
public:
    explicit CProvenance(CCsvWriter& csv)
        : m_csv(csv)
    {
    }

    void Text(std::string_view key, std::string_view text)
    {
        if (!text.empty())
            m_csv.Write({.table = c_table, .key = key, .value = Analysis::c_undefined, .note = text});
    }
    void Number(std::string_view key, double value, std::string_view unit = {})
    {
        m_csv.Write({.table = c_table, .key = key, .value = value, .unit = unit});
    }

private:
    static constexpr std::string_view c_table = "provenance";

    CCsvWriter& m_csv;
};

void WriteProvenance(const SOrigin& origin, CCsvWriter& csv)
{
    CProvenance provenance(csv);
    provenance.Text("version", GetVersion().ToUtf8());
    provenance.Text("file", origin.fileName);
    provenance.Text("sha256", origin.sha256);
    provenance.Text("date", origin.date);
    provenance.Text("channel", origin.channel);
    provenance.Number("points", static_cast<double>(origin.points));
    provenance.Number("lines", static_cast<double>(origin.lines));
    provenance.Number("missing", static_cast<double>(origin.missing));
    provenance.Number("dx", origin.dx, "m");
    provenance.Number("dy", origin.dy, "m");
    provenance.Text("levelling", LevellingKey(origin.levelling));
    for (std::size_t i = 0; i < origin.steps.size(); ++i)
        provenance.Text("step " + std::to_string(i + 1), origin.steps[i].ToUtf8());
    for (const auto& [step, cutoff] : origin.cutoffs)
        provenance.Number("cutoff of step " + std::to_string(step), cutoff, "m");
    if (origin.cutoff)
        provenance.Number("cutoff", *origin.cutoff, "m");
    if (origin.cutoff || !origin.cutoffs.empty())
        provenance.Text("ends", CStr(c_endTreatment).ToUtf8());
    if (origin.threshold)
        provenance.Number("threshold", *origin.threshold, "m");
}

void WriteSurface(const SResults& results, CCsvWriter& csv)
{
    const std::string_view shown = results.isProfile ? "profile" : "surface";
    for (const SColumn& column : results.surface) {
        const std::string key = column.GetKey().ToUtf8();
        const std::string unit = column.GetBaseUnitText().ToUtf8();
        for (std::size_t i = 0; i < column.values.size(); ++i)
            csv.Write({.table = i + 1 == column.values.size() ? shown : "raw",
                       .key = key,
                       .value = column.values[i],
                       .unit = unit,
                       .note = ReasonOfSurface(column, i)});
    }
}

void WriteStatistics(const SResults& results, std::size_t index, std::string_view table, CCsvWriter& csv)
{
    const SColumn& column = results.columns[index];
    const std::string key = column.GetKey().ToUtf8();
    ForEachStatistic(results, column, [&](const CParameter& parameter, const Analysis::SValue& statistic) {
        csv.Write({.table = table,
                   .key = key,
                   .statistic = GetStatisticKey(parameter).ToUtf8(),
                   .value = statistic.value,
                   .unit = GetStatisticUnitText(column, parameter).ToUtf8(),
                   .note = ReasonOfStatistic(results, index, statistic)});
    });
}

void WriteRows(const SResults& results, CCsvWriter& csv)
{
    const std::string table = RowTable(results);
    ForEachColumn(results, [&](std::size_t index, const std::vector<double>& values) {
        const std::string key = results.columns[index].GetKey().ToUtf8();
        const std::string unit = results.columns[index].GetBaseUnitText().ToUtf8();
        for (std::size_t row = 0; row < values.size(); ++row)
            csv.Write({.table = table,
                       .row = std::to_string(row + 1),
                       .key = key,
                       .value = values[row],
                       .unit = unit,
                       .note = ReasonOfRow(results, index, row, values[row])});
        WriteStatistics(results, index, table, csv);
    });
}

} // namespace

void WriteCsv(const SResults& results, const FWriteText& write)
{
    CCsvWriter csv(write);
    WriteProvenance(results.origin, csv);
    WriteSurface(results, csv);
    WriteRows(results, csv);
    csv.Finish();
}

} // namespace CommonUI::Measurement
