#pragma once

#include "controls/ExEdit.h"

class QKeyEvent;

namespace CommonUI
{

/// The key as the controls of the library know it.
SKey ToKey(const QKeyEvent& event);

} // namespace CommonUI
