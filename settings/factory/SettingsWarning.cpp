#include "settings/factory/detail/SettingsWarning.h"

#include "common/Diagnostics.h"

namespace CommonUI
{

void WarnOfSettings(const CStr& text)
{
    GetDiagnostics().Write(u"SettingsFactory", EDiagnosticLevel::Warning, text);
}

} // namespace CommonUI
