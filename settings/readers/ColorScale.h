#pragma once

#include "../../common/Color.h"
#include "../../common/Enum.h"
#include "../../common/ini/Inifile.h"
#include "../../export/Export.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace CommonUI
{

/// How a colour scale fills the space between its stops.
enum class EColorInterpolation {
    Smooth = 0, ///< the red, green and blue values change linearly from stop to stop
    Stripes = 1 ///< each stop's colour reaches up to the next stop
};

/// The kinds of interpolation and the names under which they are stored.
COMMONUI_API const CEnum<EColorInterpolation>& GetColorInterpolationEnum();

/// A colour and where it stands in its scale.
struct SColorStop {
    double position = 0; ///< 0 for the lowest values that are shown, 1 for the highest
    SColor color{};      ///< of values at the position

    friend bool operator==(const SColorStop&, const SColorStop&) = default;
};

/// The colours in which an image shows its values. The stored form is described in docs/color-scale.md.
struct COMMONUI_API SColorScale {
    /// The most stops that a stored scale may have.
    COMMONUI_CONSTANT std::size_t c_mostStops = 256;

    EColorInterpolation interpolation = EColorInterpolation::Smooth; ///< of values between two stops
    /// In ascending order of their positions; of two at one position the first counts below it and the second
    /// from it on, which makes a sharp edge. Beyond the first and the last stop their colours go on.
    std::vector<SColorStop> stops = {{0, {0, 0, 0}}, {1, {255, 255, 255}}};
    std::optional<SColor> missing{}; ///< of points without a value; without it the application's own
    std::optional<SColor> below{};   ///< of values below those that are shown; without it as position 0
    std::optional<SColor> above{};   ///< of values above those that are shown; without it as position 1

    /// Reads the section "ColorScale" of a set, which replaces this scale; the current section stays
    /// selected.
    /// @return false, with the reason in the diagnostics and this scale unchanged, for what is no colour
    ///     scale
    bool Load(CInifile& ini);
    /// Writes the section "ColorScale" in place of what is in it; the current section stays selected.
    void Save(CInifile& ini) const;

    /// @param position NaN for a missing value, which is black if the scale has no colour for it
    SColor GetColor(double position) const;
    /// The colours at evenly spaced positions, the first at 0 and the last at 1: position p has the index
    /// p · (count - 1), rounded. The colours for what is missing, below or above are not in it.
    std::vector<SColor> MakeTable(std::size_t count = 256) const;

    friend bool operator==(const SColorScale&, const SColorScale&) = default;

private:
    SColor GetColorWithin(double position) const;
};

} // namespace CommonUI
