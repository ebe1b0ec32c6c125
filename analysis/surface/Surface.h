#pragma once

#include "../../export/Export.h"

#include <cstddef>
#include <limits>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace CommonUI::Analysis
{

/// The height of a missing point.
inline constexpr double c_missing = std::numeric_limits<double>::quiet_NaN();

/// A measured surface: heights over a regular grid. All lengths are in metres.
struct SSurface {
    std::size_t points = 0; ///< points of each line, along x
    std::size_t lines = 0;  ///< lines of points, along y
    double dx = 0;          ///< spacing of the points of a line
    double dy = 0;          ///< spacing of the lines
    /// Line after line, points * lines heights. A missing point is NaN; a height is never infinite.
    /// Parameters hold for heights up to 1e100 m that are equal or differ by 1e-100 m and more.
    std::vector<double> heights{};
    std::size_t missing = 0; ///< how many of the heights are NaN
    std::string channel{};   ///< UTF-8; empty where the file names none
    std::string fileName{};  ///< UTF-8, without folder
    /// The date that the file states, "2024-05-31T14:30", with seconds and a zone where it has them; empty
    /// where it states none.
    std::string date{};

    /// Whether it is one line alone, of which the parameters of profiles are meant.
    bool IsProfile() const { return lines == 1; }

    std::span<const double> GetLine(std::size_t line) const ///< the heights of a line, from 0
    {
        return std::span(heights).subspan(line * points, points);
    }
};

/// A surface has no valid point to compute from.
class COMMONUIANALYSIS_API ENoPoints : public std::runtime_error
{
public:
    ENoPoints()
        : std::runtime_error("no valid point")
    {
    }
};

} // namespace CommonUI::Analysis
