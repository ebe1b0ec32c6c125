#pragma once

#include "../../controls/labels/ToolTip.h"
#include "../../export/Export.h"

class QWidget;

namespace CommonUI
{

/// Gives a widget a tooltip in the colours and the font of the style. Screen readers get it as the
/// description of the widget.
COMMONUIQT_API void SetToolTip(QWidget& widget, const SToolTip& toolTip);

} // namespace CommonUI
