#include "settings/catalogue/detail/BuiltInContents.h"
#include "settings/readers/ColorScale.h"

#include <cstdint>
#include <span>

namespace CommonUI
{

namespace
{

// A stop as this file writes it: the colour is 0xRRGGBB.
struct SStop {
    double position;
    std::uint32_t color;
};

struct SScale {
    EBuiltInSetting setting;
    std::span<const SStop> stops;
    EColorInterpolation interpolation = EColorInterpolation::Smooth;
    std::optional<SColor> below = {};
    std::optional<SColor> above = {};
};

// Most scales grow steadily lighter, so that they also tell high from low in print and to the colour-blind.
constexpr SStop c_default2D[] = {{0, 0x0A0503},    {0.15, 0x3A1407}, {0.35, 0x7F370B}, {0.55, 0xC06A16},
                                 {0.75, 0xEDA93B}, {0.9, 0xFBDD8B},  {1, 0xFFFBE6}};
constexpr SStop c_default3D[] = {{0, 0x14213F},   {0.2, 0x1F4E79}, {0.4, 0x2F8583},
                                 {0.6, 0x74B072}, {0.8, 0xE2CC75}, {1, 0xFFF6E3}};
constexpr SStop c_defaultFFT[] = {{0, 0x000000},   {0.2, 0x1C0F52},  {0.4, 0x64197A}, {0.6, 0xBB3069},
                                  {0.8, 0xF27C35}, {0.93, 0xFBD35A}, {1, 0xFFFFFF}};
constexpr SStop c_brown[] = {{0, 0x140A04}, {0.35, 0x523019}, {0.7, 0xA47448}, {1, 0xF2E2CB}};
constexpr SStop c_goldBrown[] = {
    {0, 0x1E0F00}, {0.3, 0x6B3D00}, {0.6, 0xC58A0C}, {0.85, 0xFFD23F}, {1, 0xFFF3B0}};
constexpr SStop c_glow[] = {
    {0, 0x000000}, {0.33, 0xB00000}, {0.6, 0xFF6A00}, {0.85, 0xFFE03A}, {1, 0xFFFFFF}};
constexpr SStop c_highContrast[] = {{0, 0x000000}, {0.3, 0x202020}, {0.7, 0xDFDFDF}, {1, 0xFFFFFF}};
constexpr SStop c_grey[] = {{0, 0x000000}, {1, 0xFFFFFF}};
constexpr SStop c_invGrey[] = {{0, 0xFFFFFF}, {1, 0x000000}};
constexpr SStop c_green[] = {{0, 0x00140A}, {0.4, 0x0B5A2A}, {0.75, 0x4FB25F}, {1, 0xE2FADB}};
constexpr SStop c_greenRose[] = {
    {0, 0x0A3B20}, {0.3, 0x3F8A5A}, {0.5, 0xF4F0EA}, {0.7, 0xE58FA8}, {1, 0x8E1F4D}};
constexpr SStop c_greenGold[] = {{0, 0x05210F}, {0.4, 0x2E6B2D}, {0.7, 0xB59A22}, {1, 0xFFE27A}};
constexpr SStop c_lime[] = {{0, 0x0B1400}, {0.4, 0x3F7000}, {0.75, 0x9AD80F}, {1, 0xF2FFB8}};
constexpr SStop c_greenYellow[] = {{0, 0x003820}, {0.5, 0x5DAA2B}, {1, 0xFFFF66}};
constexpr SStop c_greenAqua[] = {{0, 0x03260F}, {0.4, 0x0A7A45}, {0.75, 0x20C9A8}, {1, 0xC9FFF6}};
constexpr SStop c_lightBlue[] = {{0, 0x0D2F57}, {0.4, 0x3C86C6}, {0.75, 0x99CDF2}, {1, 0xF3FAFF}};
constexpr SStop c_bluePink[] = {{0, 0x10186E},   {0.2, 0x2463D6}, {0.4, 0x27B8C9},
                                {0.6, 0x8FDB6B}, {0.8, 0xFFD24A}, {1, 0xFF7FB8}};
constexpr SStop c_violet[] = {{0, 0x12041F}, {0.4, 0x552282}, {0.75, 0xA573D1}, {1, 0xF3E6FF}};
constexpr SStop c_violetSalmon[] = {{0, 0x1E0A3C}, {0.35, 0x6A2C86}, {0.7, 0xE0747A}, {1, 0xFFD3BF}};
constexpr SStop c_redFuchsia[] = {{0, 0x2A0006}, {0.35, 0xB3001B}, {0.7, 0xF0289A}, {1, 0xFFC2F4}};
constexpr SStop c_red[] = {{0, 0x1A0000}, {0.45, 0x9E1111}, {0.75, 0xE8584A}, {1, 0xFFE5DE}};
constexpr SStop c_redAqua[] = {
    {0, 0x7D0A12}, {0.3, 0xDE6A58}, {0.5, 0xF5F2EC}, {0.7, 0x5CC7CC}, {1, 0x045C6B}};
constexpr SStop c_yaleBlueGold[] = {
    {0, 0x06132E}, {0.3, 0x0F4D92}, {0.55, 0x7F8A8C}, {0.8, 0xE6B422}, {1, 0xFFEFA8}};
constexpr SStop c_multicolor1[] = {{0, 0x00007F},     {0.125, 0x0030FF}, {0.375, 0x00E0F0}, {0.5, 0x30D030},
                                   {0.625, 0xF0F000}, {0.875, 0xFF3000}, {1, 0x7F0000}};
constexpr SStop c_multicolor2[] = {{0, 0x000000},    {0.17, 0x5A1A8C}, {0.34, 0x1F5FC4}, {0.5, 0x1FA35C},
                                   {0.67, 0xC9C02A}, {0.84, 0xF08040}, {1, 0xFFFFFF}};
constexpr SStop c_stripes5[] = {
    {0, 0x1D3461}, {0.2, 0x3E8E9E}, {0.4, 0x8CC084}, {0.6, 0xF2C14E}, {0.8, 0xE4572E}};
constexpr SStop c_stripes10[] = {{0, 0x2B1B4D},   {0.1, 0x8E7CC3}, {0.2, 0x1D4E89}, {0.3, 0x6FA8DC},
                                 {0.4, 0x1E7B4F}, {0.5, 0x93C47D}, {0.6, 0xB58900}, {0.7, 0xFFE08A},
                                 {0.8, 0xB03A2E}, {0.9, 0xF4A79D}};

// What lies beyond the ends of High Contrast would look as what lies near them.
constexpr SColor c_markBelow{0x00, 0x50, 0xFF};
constexpr SColor c_markAbove{0xFF, 0x20, 0x00};

using enum EBuiltInSetting;

constexpr SScale c_scales[] = {
    {CSQuickLaunchDefault2D, c_default2D},
    {CSQuickLaunchDefault3D, c_default3D},
    {CSQuickLaunchDefaultFFT, c_defaultFFT},
    {CSQuickLaunchBrown, c_brown},
    {CSQuickLaunchGoldBrown, c_goldBrown},
    {CSQuickLaunchGlow, c_glow},
    {CSQuickLaunchHighContrast, c_highContrast, EColorInterpolation::Smooth, c_markBelow, c_markAbove},
    {CSQuickLaunchGrey, c_grey},
    {CSQuickLaunchInvGrey, c_invGrey},
    {CSQuickLaunchGreen, c_green},
    {CSQuickLaunchGreenRose, c_greenRose},
    {CSQuickLaunchGreenGold, c_greenGold},
    {CSQuickLaunchLime, c_lime},
    {CSQuickLaunchGreenYellow, c_greenYellow},
    {CSQuickLaunchGreenAqua, c_greenAqua},
    {CSQuickLaunchLightBlue, c_lightBlue},
    {CSQuickLaunchBluePink, c_bluePink},
    {CSQuickLaunchViolet, c_violet},
    {CSQuickLaunchVioletSalmon, c_violetSalmon},
    {CSQuickLaunchRedFuchia, c_redFuchsia},
    {CSQuickLaunchRed, c_red},
    {CSQuickLaunchRedAqua, c_redAqua},
    {CSQuickLaunchYaleblueGold, c_yaleBlueGold},
    {CSQuickLaunchMulticololor1, c_multicolor1},
    {CSQuickLaunchMulticololor2, c_multicolor2},
    {CSQuickLaunchStripes5, c_stripes5, EColorInterpolation::Stripes},
    {CSQuickLaunchStripes10, c_stripes10, EColorInterpolation::Stripes},
};

static_assert(HoldsEverySet(ESettingType::ColorScale, c_scales));

constexpr SColor ToColor(std::uint32_t color)
{
    const auto primary = [&](int shift) { return static_cast<std::uint8_t>(color >> shift & 0xFF); };
    return {primary(16), primary(8), primary(0)};
}

} // namespace

void WriteBuiltInColorScale(EBuiltInSetting setting, CInifile& ini)
{
    const SScale* const row = FindRow(c_scales, setting);
    SColorScale scale{
        .interpolation = row->interpolation, .stops = {}, .below = row->below, .above = row->above};
    scale.stops.reserve(row->stops.size());
    for (const SStop& stop : row->stops)
        scale.stops.push_back({stop.position, ToColor(stop.color)});
    scale.Save(ini);
}

} // namespace CommonUI
