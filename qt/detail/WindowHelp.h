#pragma once

#include <QDialog>

#include <functional>

namespace CommonUI
{

/// Has F1 and the question mark in the title bar of a window ask for help.
void AddHelp(QDialog& window, std::function<void()> ask);

/// Has them open a topic of the help service.
void AddHelp(QDialog& window, unsigned int topic);

} // namespace CommonUI
