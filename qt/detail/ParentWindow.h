#pragma once

class QWidget;

namespace CommonUI
{

/// The window that a dialog of the library lies over: the one the user works in, or the first that is
/// visible. Null if the application shows none.
QWidget* GetParentWindow();

} // namespace CommonUI
