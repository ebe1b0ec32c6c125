#include "analysis/grain/GrainMeasures.h"
#include "analysis/grain/GrainThreshold.h"
#include "python/Arrays.h"
#include "python/Bindings.h"
#include "python/Surface.h"

#include <pybind11/stl.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace Python
{

namespace Analysis = CommonUI::Analysis;

namespace
{

// All without Python's lock work on a copy of the surface, which other threads of the script may change.

Analysis::EGrainKind KindOf(bool isPores)
{
    return isPores ? Analysis::EGrainKind::Pore : Analysis::EGrainKind::Particle;
}

Analysis::SGrainMap Find(const Analysis::SSurface& surface, double threshold, bool isPores,
                         const Analysis::SGrainSelection& selection)
{
    Analysis::SGrainMap map = FindGrains(surface, threshold, KindOf(isPores));
    SelectGrains(map, selection, surface.dx * surface.dy);
    return map;
}

py::array_t<std::uint32_t> FindLabels(SScriptSurface& script, double threshold, bool isPores,
                                      double minimumArea, std::size_t minimumPoints, bool includesEdge)
{
    const Analysis::SSurface surface = Checked(script);
    Analysis::SGrainMap map;
    {
        const py::gil_scoped_release unlocked;
        map = Find(surface, threshold, isPores, {minimumArea, minimumPoints, includesEdge});
    }
    return OwnArray(std::move(map.labels), {map.lines, map.points});
}

std::vector<std::string_view> CheckKeys(const std::optional<std::vector<std::string>>& keys)
{
    std::vector<std::string_view> known = Analysis::GetGrainKeys();
    if (!keys)
        return known;
    for (const std::string& key : *keys) {
        if (std::ranges::find(known, key) == known.end())
            throw std::invalid_argument("keys: \"" + key + "\" is no quantity of grains");
    }
    return {keys->begin(), keys->end()};
}

py::dict Measure(SScriptSurface& script, double threshold,
                 const std::optional<std::vector<std::string>>& keys, bool isPores, double minimumArea,
                 std::size_t minimumPoints, bool includesEdge)
{
    const std::vector<std::string_view> wanted = CheckKeys(keys);
    const Analysis::SSurface surface = Checked(script);
    Analysis::SGrains grains;
    {
        const py::gil_scoped_release unlocked;
        const Analysis::SGrainMap map =
            Find(surface, threshold, isPores, {minimumArea, minimumPoints, includesEdge});
        grains = MeasureGrains(surface, threshold, KindOf(isPores), wanted, map);
    }
    py::dict columns;
    for (Analysis::SValues& column : grains.columns)
        columns[py::str(std::string(column.key))] = OwnArray(std::move(column.values));
    return columns;
}

double Threshold(SScriptSurface& script, const std::string& rule, double value)
{
    using enum Analysis::EGrainThreshold;
    const std::pair<std::string_view, Analysis::EGrainThreshold> rules[] = {
        {"relative", Relative}, {"percentile", Percentile}, {"otsu", Otsu}};
    const auto* const found = std::ranges::find(
        rules, std::string_view(rule), &std::pair<std::string_view, Analysis::EGrainThreshold>::first);
    if (found == std::end(rules))
        throw std::invalid_argument("rule: relative, percentile, otsu expected, not \"" + rule + "\"");
    const Analysis::SSurface surface = Checked(script);
    const py::gil_scoped_release unlocked;
    return FindThreshold(surface, found->second, value);
}

} // namespace

void AddGrains(py::module_& module)
{
    module.def("find_threshold", &Threshold, py::arg("surface"), py::arg("rule"), py::arg("value") = 0.0,
               "The height in m that parts grains from what is around them.\n\n"
               "rule: relative, value percent of the way from the lowest point to the highest; percentile, "
               "below which value percent of the points lie; otsu, which needs no value");
    module.def("find_grains", &FindLabels, py::arg("surface"), py::arg("threshold"), py::kw_only(),
               py::arg("pores") = false, py::arg("minimum_area") = 0.0, py::arg("minimum_points") = 1,
               py::arg("edge") = true,
               "The number of the grain of each point, from 1, or 0, as an array of lines and points: "
               "particles at or above the threshold in m, or pores below it.\n\n"
               "minimum_area, minimum_points: smaller ones do not count, in m² and points\n"
               "edge: whether those count that touch the border");
    module.def("measure_grains", &Measure, py::arg("surface"), py::arg("threshold"),
               py::arg("keys") = py::none(), py::kw_only(), py::arg("pores") = false,
               py::arg("minimum_area") = 0.0, py::arg("minimum_points") = 1, py::arg("edge") = true,
               "The grains of find_grains, measured: for each key an array with a value for each grain, in "
               "SI units, degrees or percent; the first is that of grain 1.\n\n"
               "keys: those of GRAIN_KEYS that are wanted; all without it");
    py::list keys;
    for (const std::string_view key : Analysis::GetGrainKeys())
        keys.append(std::string(key));
    module.attr("GRAIN_KEYS") = py::tuple(keys);
}

} // namespace Python
