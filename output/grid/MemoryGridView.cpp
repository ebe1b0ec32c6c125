#include "output/grid/MemoryGridView.h"

namespace CommonUI
{

CMemoryGridView::~CMemoryGridView() = default;

} // namespace CommonUI
