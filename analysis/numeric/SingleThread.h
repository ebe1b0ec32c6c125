#pragma once

#include "../../export/Export.h"

namespace CommonUI::Analysis
{

/// As long as it lives, what its thread computes is computed on one thread: for those who share out whole
/// surfaces.
class COMMONUIANALYSIS_API CSingleThread
{
public:
    CSingleThread() noexcept;
    ~CSingleThread();
    CSingleThread(const CSingleThread&) = delete;
    CSingleThread& operator=(const CSingleThread&) = delete;

    /// Whether the calling thread has one.
    static bool IsInForce() noexcept;
};

} // namespace CommonUI::Analysis
