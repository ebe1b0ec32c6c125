#include "settings/readers/ColorScale.h"

#include "settings/readers/detail/SettingsExchange.h"

#include <algorithm>
#include <cmath>

namespace CommonUI
{

namespace
{

constexpr SEnumRow c_interpolations[] = {
    {.value = 0, .iniName = u"Smooth", .textId = 10121},
    {.value = 1, .iniName = u"Stripes", .textId = 10122},
};

constexpr std::u16string_view c_section = u"ColorScale";

template<class TStore, class TScale>
void Exchange(TStore& store, TScale& scale)
{
    store.Choice(u"Interpolation", GetColorInterpolationEnum(), scale.interpolation);
    store.OptionalColor(u"Missing", scale.missing);
    store.OptionalColor(u"Below", scale.below);
    store.OptionalColor(u"Above", scale.above);
}

CStr StopKey(std::size_t index)
{
    return CStr::Format(u"Stop%u", static_cast<unsigned>(index + 1));
}

bool IsPrimary(double value)
{
    return value >= 0 && value <= 255 && value == std::floor(value);
}

// A stop is stored as the list of its position and its red, green and blue values.
std::optional<SColorStop> ReadStop(const CInifile& ini, const CStr& key)
{
    const std::vector<double> values = ini.ReadDoubles(key);
    if (values.size() != 4 || !(values[0] >= 0 && values[0] <= 1) ||
        !std::all_of(values.begin() + 1, values.end(), IsPrimary))
        return std::nullopt;
    const auto primary = [&](std::size_t index) { return static_cast<std::uint8_t>(values[index]); };
    return SColorStop{values[0], {primary(1), primary(2), primary(3)}};
}

void ReadStops(CSettingsReader& reader, std::vector<SColorStop>& stops)
{
    for (CStr key = StopKey(0); reader.GetIni().HasKey(key); key = StopKey(stops.size())) {
        const std::optional<SColorStop> stop = ReadStop(reader.GetIni(), key);
        const double lowest = stops.empty() ? 0 : stops.back().position;
        if (!reader.Require(stop.has_value(), key, u"a position and a colour") ||
            !reader.Require(stop->position >= lowest, key, u"at or above the stop before it") ||
            !reader.Require(stops.size() < SColorScale::c_mostStops, u"too many stops"))
            return;
        stops.push_back(*stop);
    }
    reader.Require(stops.size() >= 2, u"fewer than two stops");
}

std::uint8_t Between(std::uint8_t from, std::uint8_t to, double share)
{
    return static_cast<std::uint8_t>(std::lround(from + share * (to - from)));
}

} // namespace

const CEnum<EColorInterpolation>& GetColorInterpolationEnum()
{
    return GetEnumOfRows<EColorInterpolation, c_interpolations>();
}

bool SColorScale::Load(CInifile& ini)
{
    CSettingsReader reader(ini, c_section);
    SColorScale read{.stops = {}};
    Exchange(reader, read);
    ReadStops(reader, read.stops);
    if (reader.IsUsable())
        *this = std::move(read);
    return reader.IsUsable();
}

void SColorScale::Save(CInifile& ini) const
{
    CSettingsWriter writer(ini, c_section);
    Exchange(writer, *this);
    for (std::size_t i = 0; i < stops.size(); ++i) {
        const SColor& color = stops[i].color;
        ini.WriteDoubles(StopKey(i), {stops[i].position, static_cast<double>(color.red),
                                      static_cast<double>(color.green), static_cast<double>(color.blue)});
    }
}

SColor SColorScale::GetColor(double position) const
{
    if (std::isnan(position))
        return missing.value_or(SColor{});
    if (position < 0 && below)
        return *below;
    if (position > 1 && above)
        return *above;
    return GetColorWithin(std::clamp(position, 0.0, 1.0));
}

SColor SColorScale::GetColorWithin(double position) const
{
    const auto next = std::ranges::upper_bound(stops, position, {}, &SColorStop::position);
    if (next == stops.begin())
        return stops.empty() ? SColor{} : stops.front().color;
    const SColorStop& last = *std::prev(next);
    if (next == stops.end() || interpolation == EColorInterpolation::Stripes)
        return last.color;
    const double share = (position - last.position) / (next->position - last.position);
    return {Between(last.color.red, next->color.red, share),
            Between(last.color.green, next->color.green, share),
            Between(last.color.blue, next->color.blue, share)};
}

std::vector<SColor> SColorScale::MakeTable(std::size_t count) const
{
    std::vector<SColor> table;
    table.reserve(count);
    const double last = std::max<double>(static_cast<double>(count) - 1, 1);
    for (std::size_t i = 0; i < count; ++i)
        table.push_back(GetColorWithin(static_cast<double>(i) / last));
    return table;
}

} // namespace CommonUI
