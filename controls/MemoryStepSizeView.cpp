#include "controls/MemoryStepSizeView.h"

namespace CommonUI
{

CMemoryStepSizeView::~CMemoryStepSizeView() = default;

void CMemoryStepSizeView::Place(const SRect& screen, const SRect& upper, const SRect& lower)
{
    shown = true;
    rect = screen;
    upperButton = upper;
    lowerButton = lower;
}

} // namespace CommonUI
