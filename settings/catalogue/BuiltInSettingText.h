#pragma once

#include "BuiltInSetting.h"

namespace CommonUI
{

/// What a built-in set holds, as the text of an INI file in the form that files of its type have; empty for a
/// number that the catalogue does not have.
COMMONUI_API CStr GetBuiltInSettingText(EBuiltInSetting setting);

} // namespace CommonUI
