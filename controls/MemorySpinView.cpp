#include "controls/MemorySpinView.h"

namespace CommonUI
{

CMemorySpinView::~CMemorySpinView() = default;

} // namespace CommonUI
