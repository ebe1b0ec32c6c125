#include "settings/detail/BuiltInContents.h"

namespace CommonUI
{

void WriteBuiltInImageRoughness(EBuiltInSetting, CInifile&)
{
}

void WriteBuiltInProfileRoughness(EBuiltInSetting, CInifile&)
{
}

} // namespace CommonUI
