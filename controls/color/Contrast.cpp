#include "controls/color/Contrast.h"

#include <algorithm>
#include <cmath>

namespace CommonUI
{

namespace
{

double Linearise(std::uint8_t part)
{
    const double value = part / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

} // namespace

double GetLuminance(const SColor& color)
{
    return 0.2126 * Linearise(color.red) + 0.7152 * Linearise(color.green) + 0.0722 * Linearise(color.blue);
}

double GetContrast(const SColor& one, const SColor& other)
{
    const auto [less, more] = std::minmax({GetLuminance(one), GetLuminance(other)});
    return (more + 0.05) / (less + 0.05);
}

SColor MixColors(const SColor& from, const SColor& to, double part)
{
    const auto mix = [=](std::uint8_t one, std::uint8_t other) {
        return static_cast<std::uint8_t>(std::lround(one + (other - one) * part));
    };
    return {mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue)};
}

SColor GetTextColorOn(const SColor& ground)
{
    constexpr SColor c_black{0, 0, 0};
    constexpr SColor c_white{255, 255, 255};
    return GetContrast(c_black, ground) >= GetContrast(c_white, ground) ? c_black : c_white;
}

SColor MakeReadable(const SColor& color, const SColor& ground, double contrast)
{
    constexpr int c_steps = 64;
    const SColor end = GetTextColorOn(ground);
    for (int step = 0; step < c_steps; ++step) {
        const SColor mixed = MixColors(color, end, static_cast<double>(step) / c_steps);
        if (GetContrast(mixed, ground) >= contrast)
            return mixed;
    }
    return end;
}

} // namespace CommonUI
