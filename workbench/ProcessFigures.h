#pragma once

#include <cstdio>
#include <fstream>
#include <string>

#if !defined(_WIN32)
#include <ctime>
#include <unistd.h>
#endif

namespace Workbench
{

/// Seconds since this process began, to a hundredth; 0 where the system does not say.
inline double GetSecondsSinceStart()
{
#if defined(_WIN32)
    return 0;
#else
    std::ifstream file("/proc/self/stat");
    std::string word;
    while (file >> word && word.back() != ')') // the name may have spaces
        continue;
    constexpr int c_wordsBefore = 19;
    for (int i = 0; i < c_wordsBefore; ++i)
        file >> word;
    double ticks = 0;
    timespec now{};
    if (!(file >> ticks) || clock_gettime(CLOCK_BOOTTIME, &now) != 0)
        return 0;
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9 -
           ticks / static_cast<double>(sysconf(_SC_CLK_TCK));
#endif
}

/// A line of what the system says of the memory of this process, in MB: "VmRSS" now, "VmHWM" at the most.
inline int GetMemory(const std::string& name)
{
    std::ifstream file("/proc/self/status");
    for (std::string line; std::getline(file, line);)
        if (line.starts_with(name + ":"))
            return std::stoi(line.substr(name.size() + 1)) / 1024;
    return 0;
}

} // namespace Workbench
