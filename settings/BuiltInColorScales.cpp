#include "settings/detail/BuiltInContents.h"

namespace CommonUI
{

void WriteBuiltInColorScale(EBuiltInSetting, CInifile&)
{
}

} // namespace CommonUI
