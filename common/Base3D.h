#pragma once

namespace CommonUI
{

/// One thing for each axis of a surface, passed together: SBase3D<CUnit> holds the units of X, Y and Z.
template<class T>
struct SBase3D {
    T x{}; ///< along the surface
    T y{}; ///< along the surface, at a right angle to x
    T z{}; ///< the height

    bool operator==(const SBase3D& other) const = default;
};

} // namespace CommonUI
