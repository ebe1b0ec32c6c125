#include "platform/ScreenService.h"

#include "platform/memory/MemoryScreenService.h"

namespace CommonUI
{

namespace
{

CScreenService& GetNoScreens()
{
    static CScreenService& none = *new CMemoryScreenService;
    return none;
}

} // namespace

constinit CCurrentService<CScreenService> CScreenService::s_current(GetNoScreens);

CScreenService::~CScreenService() = default;

CScreenService& GetScreenService()
{
    return CScreenService::s_current.Get();
}

} // namespace CommonUI
