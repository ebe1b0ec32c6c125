#pragma once

#include <QAccessible>

namespace CommonUI
{

class CGridWidget;

/// Lets screen readers see grid widgets as tables. Does nothing the second time.
void InstallGridAccessible();

/// Tells screen readers what has happened to the cell that has the focus, if there are any.
void TellGridFocus(CGridWidget& widget, QAccessible::Event what);

} // namespace CommonUI
