#pragma once

#include "../../export/Export.h"
#include "../../platform/MessageBoxService.h"
#include "../../settings/preferences/PreferencesManager.h"

namespace CommonUI
{

/// Shows a message box with a check box "Do not show this message again", or "Do not ask again" for a
/// question. Where the user has ticked it earlier, nothing is shown and the answer given then counts.
///
/// Cancel is no answer: it is not remembered, and a remembered one of another version is not taken, as the
/// user could not get at what was asked any more. A question of which the cautious answer was remembered is
/// not shown again either; ResetDontShowAgain of the preferences has all be shown again.
/// @param key names the message in the preferences, once and for all; an empty one is never remembered, and
///     its box has no check box
COMMONUI_API EMessageBoxAnswer
ShowRememberedMessageBox(const CStr& key, const SMessageBox& box,
                         CPreferencesData& preferences = GetPreferencesManager().GetData());

} // namespace CommonUI
