#pragma once

namespace CommonUI
{

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

    friend bool operator==(const SRect&, const SRect&) = default;
};

} // namespace CommonUI
