#pragma once

#include "common/Str.h"

#include <chrono>

namespace CommonUI
{

/// The day of UTC as names of kept files have it, such as "2026-11-22".
inline CStr Today()
{
    const std::chrono::year_month_day day(
        std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now()));
    return CStr::Format(u"%d-%02u-%02u", int(day.year()), unsigned(day.month()), unsigned(day.day()));
}

} // namespace CommonUI
