#include "analysis/numeric/SingleThread.h"

namespace CommonUI::Analysis
{

namespace
{

thread_local int s_count = 0;

} // namespace

CSingleThread::CSingleThread() noexcept
{
    ++s_count;
}

CSingleThread::~CSingleThread()
{
    --s_count;
}

bool CSingleThread::IsInForce() noexcept
{
    return s_count != 0;
}

} // namespace CommonUI::Analysis
