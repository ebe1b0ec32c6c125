#pragma once

namespace CommonUI
{

/// One thing for each axis of a surface, passed together: SBase3D<CUnit> holds the units of X, Y and Z.
template<class T>
struct SBase3D {
    T x{};
    T y{};
    T z{};

    bool operator==(const SBase3D& other) const = default;
};

} // namespace CommonUI
