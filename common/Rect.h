#pragma once

namespace CommonUI
{

/// A place, y downwards, in the unit of the place that uses it (mostly pixels).
struct SPoint {
    int x = 0;
    int y = 0;

    friend bool operator==(const SPoint&, const SPoint&) = default;
};

/// A width and a height, in the unit of the place that uses it (mostly pixels).
struct SSize {
    int cx = 0;
    int cy = 0;

    friend bool operator==(const SSize&, const SSize&) = default;
};

/// A rectangle by its edges, y downwards; right and bottom lie one beyond it. Nothing keeps the edges in
/// order.
struct SRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    constexpr int GetWidth() const noexcept { return right - left; }
    constexpr int GetHeight() const noexcept { return bottom - top; }
    constexpr bool IsEmpty() const noexcept { return right <= left || bottom <= top; }
    constexpr bool Contains(SPoint point) const noexcept
    {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }
    /// The rectangle with its edges moved inwards.
    constexpr SRect Shrunk(int dx, int dy) const noexcept
    {
        return {left + dx, top + dy, right - dx, bottom - dy};
    }
    friend bool operator==(const SRect&, const SRect&) = default;
};

} // namespace CommonUI
