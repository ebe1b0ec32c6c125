#pragma once

#include <cstdint>

namespace CommonUI::Analysis
{

/// A point of the lattice of cell corners: (0, 0) is where the first cell of the first line begins. x grows
/// along a line, y from line to line.
struct SCorner {
    std::int64_t x = 0;
    std::int64_t y = 0;

    friend SCorner operator+(SCorner a, SCorner b) { return {a.x + b.x, a.y + b.y}; }
    friend SCorner operator-(SCorner a, SCorner b) { return {a.x - b.x, a.y - b.y}; }
    friend bool operator==(SCorner, SCorner) = default;
};

/// Twice the area of a triangle: above 0 if the way from a over b to c turns as from the x to the y axis, 0
/// on a straight line. Exact, and the sign does not depend on the spacings.
inline std::int64_t Cross(SCorner a, SCorner b, SCorner c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

} // namespace CommonUI::Analysis
