#pragma once

#include <limits>
#include <string_view>

namespace SurfaceAnalysis
{

/// The value of a quantity that is not defined for the data, such as the skewness of a flat surface.
inline constexpr double c_undefined = std::numeric_limits<double>::quiet_NaN();

/// A computed quantity. Values are in SI units: m, m²; ratios called material ratio and Sdr are in percent.
struct SValue {
    std::string_view key; ///< such as "Sa"; refers to a string literal
    double value;         ///< NaN where the quantity is not defined
};

} // namespace SurfaceAnalysis
