#include "settings/detail/BuiltInContents.h"

namespace CommonUI
{

void WriteBuiltInFilter(EBuiltInSetting, CInifile&)
{
}

} // namespace CommonUI
