#include "qt/controls/ToolTips.h"

#include "qt/QtText.h"

#include <QWidget>

namespace CommonUI
{

void SetToolTip(QWidget& widget, const SToolTip& toolTip)
{
    widget.setToolTip(ToQString(MakeToolTipHtml(toolTip)));
    widget.setAccessibleDescription(ToQString(MakeToolTipText(toolTip)));
}

} // namespace CommonUI
