#include "dialogs/detail/LatestReport.h"

#include <atomic>
#include <mutex>

namespace CommonUI
{

namespace
{

std::atomic<float> s_increment = 0.0F;
std::mutex s_textMutex;

// Never destroyed: workers of dialogs that are static objects may still report.
CStr& LatestText()
{
    static CStr& text = *new CStr;
    return text;
}

} // namespace

void SetLatestReport(float increment, const CStr& text)
{
    s_increment.store(increment, std::memory_order_relaxed);
    const std::lock_guard lock(s_textMutex);
    LatestText() = text;
}

float GetLatestIncrement()
{
    return s_increment.load(std::memory_order_relaxed);
}

CStr GetLatestText()
{
    const std::lock_guard lock(s_textMutex);
    return LatestText();
}

} // namespace CommonUI
