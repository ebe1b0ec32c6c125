#pragma once

#include "common/Rect.h"

#include <QRect>

namespace CommonUI
{

inline QRect ToQRect(const SRect& rect)
{
    return {rect.left, rect.top, rect.GetWidth(), rect.GetHeight()};
}

} // namespace CommonUI
