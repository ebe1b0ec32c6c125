#pragma once

#include "analysis/surface/Surface.h"
#include "analysis/surface/Value.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace CommonUI::Analysis
{

inline constexpr double c_pi = std::numbers::pi;

/// A surface with points 1 µm apart whose heights the function gives from column and row.
template<class FHeight>
SSurface MakeSurface(std::size_t points, std::size_t lines, const FHeight& getHeight)
{
    SSurface surface{.points = points, .lines = lines, .dx = 1e-6, .dy = 1e-6};
    for (std::size_t y = 0; y < lines; ++y)
        for (std::size_t x = 0; x < points; ++x)
            surface.heights.push_back(getHeight(static_cast<double>(x), static_cast<double>(y)));
    return surface;
}

/// A picture of lines that end with a slash: which grain, hill or dale a point belongs to, `.` for none.
template<class TMap>
std::string DrawLabels(const TMap& map)
{
    std::string text;
    for (std::size_t i = 0; i < map.labels.size(); ++i) {
        if (i > 0 && i % map.points == 0)
            text += '/';
        text += map.labels[i] == 0 ? '.' : static_cast<char>('0' + map.labels[i]);
    }
    return text;
}

inline double Get(const std::vector<SValue>& values, std::string_view key)
{
    const auto found =
        std::find_if(values.begin(), values.end(), [&](const SValue& v) { return v.key == key; });
    EXPECT_NE(found, values.end()) << key;
    return found == values.end() ? -1 : found->value;
}

/// Compares to a relative 1e-9; NaN equals NaN, and next to nothing equals 0.
inline void ExpectValues(const std::vector<SValue>& values, const std::vector<SValue>& expected)
{
    for (const SValue& row : expected) {
        const double actual = Get(values, row.key);
        if (std::isnan(row.value))
            EXPECT_TRUE(std::isnan(actual)) << row.key << " is " << actual;
        else
            EXPECT_NEAR(actual, row.value, 1e-9 * std::max(std::abs(row.value), 1e-9)) << row.key;
    }
}

/// Likewise, of values given as text: key, value, key, value ...
inline void ExpectText(const std::vector<SValue>& values, const std::string& expected)
{
    std::istringstream stream(expected);
    std::string key;
    std::string value;
    while (stream >> key >> value)
        ExpectValues({{key, Get(values, key)}}, {{key, std::stod(value)}});
}

/// Numbers apart by spaces; "?" is NaN.
inline std::vector<double> GetNumbers(const std::string& text)
{
    std::vector<double> numbers;
    std::istringstream stream(text);
    for (std::string number; stream >> number;)
        numbers.push_back(number == "?" ? c_missing : std::stod(number));
    return numbers;
}

} // namespace CommonUI::Analysis
