#include "python/Results.h"

#include "measurement/charts/Pictures.h"
#include "measurement/data/ReportData.h"
#include "python/Arrays.h"
#include "python/Bindings.h"

#include <pybind11/stl.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <stdexcept>

namespace Python
{

namespace Measurement = CommonUI::Measurement;
using CommonUI::CStr;
using Measurement::SColumn;
using Measurement::SResults;

namespace
{

// Values by the keys of the surface's parameters.
template<class FValue>
py::dict MapSurface(const CScriptResults& results, FValue value)
{
    py::dict map;
    for (const SColumn& column : results.Get().surface)
        map[py::cast(column.GetKey())] = value(column);
    return map;
}

py::dict GetValues(const CScriptResults& results)
{
    return MapSurface(results, [](const SColumn& column) { return column.values.back(); });
}

py::dict GetRawValues(const CScriptResults& results)
{
    return MapSurface(results, [](const SColumn& column) { return column.values.front(); });
}

CStr ReasonOf(const SColumn& column)
{
    for (const Measurement::SIndexedState& exception : column.exceptions) {
        if (exception.index + 1 == column.values.size())
            return exception.state.reason;
    }
    return {};
}

py::dict GetReasons(const CScriptResults& results)
{
    py::dict reasons;
    for (const SColumn& column : results.Get().surface) {
        if (std::isnan(column.values.back()))
            reasons[py::cast(column.GetKey())] = ReasonOf(column);
    }
    return reasons;
}

py::dict GetUnits(const CScriptResults& results)
{
    py::dict units;
    for (const auto* columns : {&results.Get().surface, &results.Get().columns}) {
        for (const SColumn& column : *columns)
            units[py::cast(column.GetKey())] = column.GetBaseUnitText();
    }
    return units;
}

py::dict GetTable(const CScriptResults& results)
{
    const std::vector<SColumn>& columns = results.Get().surface;
    py::dict table;
    const auto add = [&](const char* name, const auto& value) {
        py::list values;
        for (const SColumn& column : columns)
            values.append(value(column));
        table[name] = values;
    };
    add("key", [](const SColumn& column) { return column.GetKey(); });
    add("name", [](const SColumn& column) { return column.parameter.GetFriendlyString(); });
    if (!columns.empty() && columns.front().values.size() > 1)
        add("raw", [](const SColumn& column) { return column.values.front(); });
    add("value", [](const SColumn& column) { return column.values.back(); });
    add("unit", [](const SColumn& column) { return column.GetBaseUnitText(); });
    add("reason", &ReasonOf);
    return table;
}

// Column by column, so many at once as take no more room than the results allow.
py::dict GetColumns(const CScriptResults& script)
{
    const SResults& results = script.Get();
    const std::size_t count = results.columns.size();
    const std::size_t step =
        std::clamp<std::size_t>(results.columnsAtOnce, 1, std::max<std::size_t>(count, 1));
    py::dict columns;
    for (std::size_t first = 0; first < count; first += step) {
        Measurement::CPartValues part;
        {
            const py::gil_scoped_release unlocked;
            part = results.GetValues({first, std::min(first + step, count), 0, results.rowCount});
        }
        for (std::size_t i = 0; i < part.size(); ++i)
            columns[py::cast(results.columns[first + i].GetKey())] = OwnArray(std::move(part[i]));
    }
    return columns;
}

py::dict GetStatistics(const CScriptResults& script)
{
    const SResults& results = script.Get();
    py::dict statistics;
    for (const SColumn& column : results.columns) {
        py::dict values;
        for (const auto& statistic : results.statistics) {
            const std::string key = statistic.GetIniName().ToUtf8();
            const auto found = std::ranges::find(column.statistics, key, &CommonUI::Analysis::SValue::key);
            if (found != column.statistics.end())
                values[py::cast(Measurement::GetStatisticKey(statistic))] = found->value;
        }
        statistics[py::cast(column.GetKey())] = values;
    }
    return statistics;
}

CStr GetReason(const CScriptResults& script, const CStr& key, std::size_t row)
{
    const SResults& results = script.Get();
    const auto found = std::ranges::find(results.columns, key, &SColumn::GetKey);
    if (found == results.columns.end())
        throw py::key_error(key.ToUtf8());
    if (row >= results.rowCount)
        throw py::index_error("there are " + std::to_string(results.rowCount) + " rows");
    const auto column = static_cast<std::size_t>(found - results.columns.begin());
    const py::gil_scoped_release unlocked;
    const double value = results.GetValues({column, column + 1, row, row + 1}).front().front();
    return results.GetState(column, row, value).reason;
}

std::optional<py::array_t<std::uint32_t>> GetLabels(const py::object& self)
{
    const auto& grains = self.cast<const CScriptResults&>().Get().grains;
    if (!grains)
        return std::nullopt;
    const CommonUI::Analysis::SGrainMap& map = grains->map;
    py::array_t<std::uint32_t> labels({map.lines, map.points}, map.labels.data(), self);
    labels.attr("flags").attr("writeable") = false;
    return labels;
}

std::string GetText(const CScriptResults& results, bool isTransposed)
{
    return isTransposed ? results.MakeTransposed().GetText() : results.GetTables().GetText();
}

using FWriteData = void (*)(const SResults&, const Measurement::FWriteText&);

template<FWriteData Write>
std::string GetData(const CScriptResults& results)
{
    std::string text;
    Write(results.Get(), [&text](std::string_view piece) { text += piece; });
    return text;
}

py::object ToPandas(const py::object& self, const std::string& table)
{
    const auto frame = py::module_::import("pandas").attr("DataFrame");
    const auto& results = self.cast<const CScriptResults&>();
    if (table == "surface")
        return frame(GetTable(results)).attr("set_index")("key");
    if (table != "rows")
        throw std::invalid_argument("table: surface, rows expected, not \"" + table + "\"");
    const auto index = py::module_::import("pandas").attr("RangeIndex");
    return frame(GetColumns(results), py::arg("index") = index(1, results.Get().rowCount + 1));
}

} // namespace

CScriptResults::CScriptResults(Measurement::SInput input, const Measurement::SChoices& choices)
    : m_input(std::make_shared<const Measurement::SInput>(std::move(input)))
    , m_method(choices.method)
    , m_tables(Measurement::ComputeResults(*m_input, choices), false)
{
}

std::string CScriptResults::MakeHtml(bool isTransposed, bool hasPictures) const
{
    Measurement::CReportTables tables{Get(), isTransposed};
    if (hasPictures)
        tables.SetPictures(MakePictures(*m_input, m_method, Get()));
    return tables.GetHtml();
}

void AddResults(py::module_& module)
{
    using CUnlocked = py::call_guard<py::gil_scoped_release>;
    py::class_<CScriptResults>(module, "Results",
                               "What an analysis of a surface has come to. Values are in SI units, degrees "
                               "or percent, as `units` says; NaN where they are not defined.")
        .def_property_readonly("values", &GetValues, "The surface's values by the keys of the parameters.")
        .def_property_readonly("raw_values", &GetRawValues,
                               "Those of the surface as it was read; the same where no sets were applied.")
        .def_property_readonly(
            "reasons", &GetReasons,
            "Why values of the surface are not defined, by key; empty where the key says it.")
        .def_property_readonly("units", &GetUnits, "The units of all values, by key.")
        .def_property_readonly(
            "is_profile", [](const CScriptResults& self) { return self.Get().isProfile; },
            "Whether the surface is a profile, which has no rows.")
        .def_property_readonly(
            "row_name", [](const CScriptResults& self) { return self.Get().rowName; },
            "What rows are: profiles or grains.")
        .def_property_readonly(
            "row_count", [](const CScriptResults& self) { return self.Get().rowCount; },
            "How many rows there are.")
        .def_property_readonly("statistics", &GetStatistics,
                               "Statistics over the rows: by key of the parameter, then of the statistic.")
        .def_property_readonly(
            "summary", [](const CScriptResults& self) { return self.Get().summary; },
            "What was measured and how: pairs of a label and a text.")
        .def_property_readonly(
            "failures", [](const CScriptResults& self) { return self.Get().CountFailures(); },
            "Of how many parameters the computation has failed.")
        .def_property_readonly("grains", &GetLabels,
                               "The number of the grain of each point, or 0; None where none were measured.")
        .def("table", &GetTable,
             "The surface's table as columns: key, name, raw where sets were applied, value, unit, reason.")
        .def("columns", &GetColumns, "An array for each parameter with a value for each row.")
        .def("reason", &GetReason, py::arg("key"), py::arg("row"),
             "Why the value of a row, from 0, is not defined; empty where it is, or the key says it.")
        .def("to_pandas", &ToPandas, py::arg("table") = "rows",
             "The rows, or the surface, as a DataFrame of pandas, which has to be installed.")
        .def("text", &GetText, py::arg("transpose") = false, CUnlocked(),
             "The tables as tab-separated text with a byte order mark, as surface_report writes report.txt.")
        .def("html", &CScriptResults::MakeHtml, py::arg("transpose") = false, py::arg("pictures") = true,
             CUnlocked(), "The tables as a page of HTML, as report.html.")
        .def("csv", &GetData<&Measurement::WriteCsv>, CUnlocked(),
             "A value in each line with all digits, as report.csv.")
        .def("json", &GetData<&Measurement::WriteJson>, CUnlocked(), "The same, as report.json.");
}

} // namespace Python
