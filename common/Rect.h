#pragma once

namespace CommonUI
{

/// A place, y downwards, in the unit of the place that uses it (mostly pixels).
struct SPoint {
    int x = 0; ///< to the right
    int y = 0; ///< downwards

    friend bool operator==(const SPoint&, const SPoint&) = default;
};

/// A width and a height, in the unit of the place that uses it (mostly pixels).
struct SSize {
    int cx = 0; ///< the width
    int cy = 0; ///< the height

    friend bool operator==(const SSize&, const SSize&) = default;
};

/// A rectangle by its edges, y downwards; right and bottom lie one beyond it. Nothing keeps the edges in
/// order.
struct SRect {
    int left = 0;   ///< the first column within
    int top = 0;    ///< the first row within
    int right = 0;  ///< one beyond the last column
    int bottom = 0; ///< one beyond the last row

    /// Right minus left edge: below 0 where they are out of order.
    constexpr int GetWidth() const noexcept { return right - left; }
    /// Lower minus upper edge: below 0 where they are out of order.
    constexpr int GetHeight() const noexcept { return bottom - top; }
    /// Whether no point lies within, as where edges are out of order.
    constexpr bool IsEmpty() const noexcept { return right <= left || bottom <= top; }
    /// Whether a point lies within; none does on the right and lower edge.
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
