#pragma once

#include "analysis/surface/Surface.h"
#include "tests/analysis/TestSurfaces.h"

#include <algorithm>
#include <random>
#include <string_view>

namespace CommonUI::Analysis
{

inline constexpr double c_threshold = 50e-9;

/// A surface from a picture of lines that end with a slash: `#` is 100 nm, `.` 0, `=` the threshold, `?`
/// missing.
inline SSurface MakePicture(std::string_view picture, double dx = 1, double dy = 1)
{
    SSurface surface{.points = std::min(picture.find('/'), picture.size()), .dx = dx, .dy = dy};
    for (const char c : picture)
        if (c != '/')
            surface.heights.push_back(c == '#' ? 100e-9 : c == '=' ? c_threshold : c == '?' ? c_missing : 0);
    surface.lines = surface.points > 0 ? surface.heights.size() / surface.points : 0;
    return surface;
}

/// Each point has this share of chances to be 100 nm high, and is 0 otherwise.
inline SSurface MakeNoise(std::mt19937& random, std::size_t points, std::size_t lines, double share)
{
    return MakeSurface(points, lines, [&](double, double) {
        return static_cast<double>(random()) < share * 4294967296.0 ? 100e-9 : 0;
    });
}

} // namespace CommonUI::Analysis
