#pragma once

#include "qt/grid/ResultGridWidget.h"

#include <QIcon>

namespace CommonUI
{

/// The picture of a command that copies, in the colours of the program's palette and at every scale; null for
/// other commands.
QIcon MakeCopyIcon(CResultGridWidget::ECommand command);

} // namespace CommonUI
