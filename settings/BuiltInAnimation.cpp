#include "settings/detail/BuiltInContents.h"

namespace CommonUI
{

void WriteBuiltInAnimation(EBuiltInSetting, CInifile&)
{
}

} // namespace CommonUI
