#include "qt/services/QtServices.h"

namespace CommonUI
{

CQtServices::CQtServices() = default;

CQtServices::~CQtServices() = default;

} // namespace CommonUI
