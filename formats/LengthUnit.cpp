#include "formats/detail/LengthUnit.h"

#include "formats/detail/TextScanner.h"

#include <algorithm>
#include <iterator>

namespace CommonUI::Formats
{

namespace
{

struct SUnit {
    std::string_view name;
    double metres;
};

constexpr SUnit c_units[] = {
    {"m", 1},          {"cm", 1e-2},          {"mm", 1e-3},
    {"\u00B5m", 1e-6},                                           // micro sign
    {"\u03BCm", 1e-6},                                           // Greek mu
    {"um", 1e-6},      {"nm", 1e-9},          {"\u00C5", 1e-10}, // A with ring
    {"\u212B", 1e-10},                                           // Angstrom sign
    {"pm", 1e-12},     {"in", 0.0254},        {"inch", 0.0254},
    {"mil", 25.4e-6},  {"\u00B5in", 25.4e-9}, {"\u03BCin", 25.4e-9},
    {"uin", 25.4e-9},
};

} // namespace

std::optional<double> FindLengthUnit(std::string_view name)
{
    const std::string utf8 = ToUtf8(name);
    const auto unit = std::ranges::find(c_units, utf8, &SUnit::name);
    return unit == std::end(c_units) ? std::nullopt : std::optional(unit->metres);
}

} // namespace CommonUI::Formats
