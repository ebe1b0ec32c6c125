#include "settings/detail/BuiltInContents.h"

namespace CommonUI
{

void WriteBuiltInBatchSequence(EBuiltInSetting, CInifile&)
{
}

} // namespace CommonUI
