#include "output/grid/GridPainter.h"

namespace CommonUI
{

CGridPainter::~CGridPainter() = default;

} // namespace CommonUI
