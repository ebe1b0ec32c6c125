#include "platform/ThreadService.h"

namespace CommonUI
{

namespace
{

CThreadService& GetPlainThreadService()
{
    // Never destroyed, for workers that run to the end of the process.
    static CThreadService& service = *new CThreadService;
    return service;
}

} // namespace

constinit CCurrentService<CThreadService> CThreadService::s_current(GetPlainThreadService);

CThreadService::~CThreadService() = default;

bool CThreadService::SetPriority(int)
{
    return false;
}

CThreadService& GetThreadService()
{
    return CThreadService::s_current.Get();
}

} // namespace CommonUI
