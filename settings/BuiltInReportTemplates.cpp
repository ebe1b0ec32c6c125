#include "settings/detail/BuiltInContents.h"

namespace CommonUI
{

void WriteBuiltInReportTemplate(EBuiltInSetting, CInifile&)
{
}

} // namespace CommonUI
