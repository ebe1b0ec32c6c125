#include "settings/detail/BuiltInContents.h"

namespace CommonUI
{

void WriteBuiltInPlaneCorrection(EBuiltInSetting, CInifile&)
{
}

} // namespace CommonUI
