#include "dialogs/ProgressLayout.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

void MoveDown(SRect& rect, int distance)
{
    rect.top += distance;
    rect.bottom += distance;
}

} // namespace

int GetProgressTextWidth()
{
    constexpr SProgressLayout c_layout;
    return c_layout.bar.right - c_layout.text.left;
}

SProgressLayout GetProgressLayout(const SSize& text)
{
    SProgressLayout layout;
    if (text.cx > layout.text.right - layout.text.left)
        layout.text.right = layout.bar.right;
    const int distance = std::max(0, text.cy - (layout.text.bottom - layout.text.top));
    layout.text.bottom += distance;
    MoveDown(layout.bar, distance);
    MoveDown(layout.cancel, distance);
    layout.dialog.cy += distance;
    return layout;
}

} // namespace CommonUI
