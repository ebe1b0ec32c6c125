#pragma once

class QString;
class QWidget;

namespace CommonUI
{

// The style sheet of the page: sizes of the widget's font, and colours of its palette that can be read on its
// ground.
QString MakePageStyle(const QWidget& widget);

} // namespace CommonUI
