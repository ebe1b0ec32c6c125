#include "settings/factory/detail/CustomSettingsFolder.h"

#include "common/PathText.h"
#include "platform/Folders.h"
#include "settings/factory/detail/SettingsWarning.h"

namespace CommonUI
{

CStr GetCustomSettingsFolder()
{
    CStr text;
    if (ToText(GetFolders().GetSettingsFolder() / "Custom Settings" / "", text))
        return text;
    WarnOfSettings(u"The name of the settings folder is no text: \"" + text + u'"');
    return {};
}

} // namespace CommonUI
