#include "settings/detail/BuiltInContents.h"

namespace CommonUI
{

void WriteBuiltInGrainThresholds(EBuiltInSetting, CInifile&)
{
}

} // namespace CommonUI
