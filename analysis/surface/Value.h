#pragma once

#include <limits>
#include <string_view>
#include <vector>

namespace CommonUI::Analysis
{

/// The value of a quantity that is not defined for the data, such as the skewness of a flat surface.
inline constexpr double c_undefined = std::numeric_limits<double>::quiet_NaN();

/// A computed quantity. Values are in SI units: m, m², m³; angles are in degrees, ratios called material
/// ratio and Sdr in percent.
struct SValue {
    std::string_view key; ///< such as "Sa"; refers to a string literal
    double value;         ///< NaN where the quantity is not defined
    /// Why it is not, as a clause such as "the autocorrelation does not fall to 0.2 within the surface";
    /// refers to a string literal, and is empty where the value is defined or its key says enough.
    std::string_view reason{};
};

/// One quantity of many things, such as the lines of a surface.
struct SValues {
    std::string_view key{};       ///< refers to a string literal
    std::vector<double> values{}; ///< one for each thing, NaN where it is not defined
};

} // namespace CommonUI::Analysis
