#include "dialogs/MemoryProgressView.h"

#include <algorithm>

namespace CommonUI
{

CMemoryProgressView::~CMemoryProgressView() = default;

SSize CMemoryProgressView::MeasureText(const CStr& text, int width) const
{
    constexpr int characterWidth = 4;
    constexpr int lineHeight = 8;
    const int perLine = std::max(1, width / characterWidth);
    SSize size;
    for (const CStr& line : text.Split(u"\n")) {
        const int length = static_cast<int>(line.GetLength());
        size.cx = std::max(size.cx, std::min(length, perLine) * characterWidth);
        size.cy += std::max(1, (length + perLine - 1) / perLine) * lineHeight;
    }
    return size;
}

void CMemoryProgressView::SetBarRange(int minimum, int maximum)
{
    m_barMinimum = minimum;
    m_barMaximum = maximum;
}

bool CMemoryProgressView::PressCancel()
{
    if (!CanPress(CBaseDialog::c_cancel))
        return false;
    GetControl()->OnCancel();
    return true;
}

bool CMemoryProgressView::Paint()
{
    return !GetControl() || GetControl()->OnPaint();
}

} // namespace CommonUI
