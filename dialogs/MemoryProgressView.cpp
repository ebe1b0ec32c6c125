#include "dialogs/MemoryProgressView.h"

#include <algorithm>

namespace CommonUI
{

CMemoryProgressView::~CMemoryProgressView() = default;

SSize CMemoryProgressView::MeasureText(const CStr& text, int width) const
{
    constexpr int c_characterWidth = 4;
    constexpr int c_lineHeight = 8;
    const int perLine = std::max(1, width / c_characterWidth);
    SSize size;
    for (const CStr& line : text.Split(u"\n")) {
        const int length = static_cast<int>(line.GetLength());
        size.cx = std::max(size.cx, std::min(length, perLine) * c_characterWidth);
        size.cy += std::max(1, (length + perLine - 1) / perLine) * c_lineHeight;
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
