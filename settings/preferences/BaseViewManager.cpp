#include "settings/preferences/BaseViewManager.h"

namespace CommonUI
{

CBaseViewManager::~CBaseViewManager() = default;

} // namespace CommonUI
