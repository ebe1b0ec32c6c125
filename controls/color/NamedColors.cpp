#include "controls/color/NamedColors.h"

#include "common/StringTable.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

constexpr SNamedColor c_colors[] = {
    {u"black", {0, 0, 0}, 11401},       {u"dimgray", {105, 105, 105}, 11402},
    {u"gray", {128, 128, 128}, 11403},  {u"silver", {192, 192, 192}, 11404},
    {u"white", {255, 255, 255}, 11405}, {u"beige", {245, 245, 220}, 11406},
    {u"brown", {165, 42, 42}, 11407},   {u"maroon", {128, 0, 0}, 11408},
    {u"red", {255, 0, 0}, 11409},       {u"orange", {255, 165, 0}, 11410},
    {u"gold", {255, 215, 0}, 11411},    {u"yellow", {255, 255, 0}, 11412},
    {u"olive", {128, 128, 0}, 11413},   {u"lime", {0, 255, 0}, 11414},
    {u"green", {0, 128, 0}, 11415},     {u"teal", {0, 128, 128}, 11416},
    {u"cyan", {0, 255, 255}, 11417},    {u"skyblue", {135, 206, 235}, 11418},
    {u"blue", {0, 0, 255}, 11419},      {u"navy", {0, 0, 128}, 11420},
    {u"indigo", {75, 0, 130}, 11421},   {u"purple", {128, 0, 128}, 11422},
    {u"magenta", {255, 0, 255}, 11423}, {u"pink", {255, 192, 203}, 11424},
};
static_assert(std::size(c_colors) % c_namedColorsInRow == 0);

} // namespace

std::span<const SNamedColor> GetNamedColors()
{
    return c_colors;
}

CStr GetColorName(const SColor& color)
{
    const auto* const found =
        std::ranges::find(std::begin(c_colors), std::end(c_colors), color, &SNamedColor::color);
    return found == std::end(c_colors) ? CStr() : GetString(found->textId);
}

} // namespace CommonUI
