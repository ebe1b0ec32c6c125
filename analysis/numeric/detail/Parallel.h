#pragma once

#include "analysis/numeric/SingleThread.h"

#include <algorithm>
#include <cstddef>
#include <future>
#include <thread>
#include <vector>

namespace CommonUI::Analysis
{

/// Into how many shares work is cut: one for each processor, within reason, or one in all.
inline std::size_t GetShareCount()
{
    if (CSingleThread::IsInForce())
        return 1;
    return std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, 16);
}

/// Calls compute(first, last) for GetShareCount() shares of [0, count), side by side. What one of the
/// calls throws is thrown here, after all have ended.
template<class FCompute>
void ComputeInShares(std::size_t count, const FCompute& compute)
{
    const std::size_t threads = GetShareCount();
    std::vector<std::future<void>> shares;
    for (std::size_t i = 0; i < threads; ++i)
        shares.push_back(std::async([&compute, first = count * i / threads,
                                     last = count * (i + 1) / threads] { compute(first, last); }));
    for (auto& share : shares)
        share.get();
}

} // namespace CommonUI::Analysis
