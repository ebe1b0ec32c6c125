#pragma once

#include "analysis/numeric/SingleThread.h"

#include <algorithm>
#include <cstddef>
#include <future>
#include <thread>
#include <utility>
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

/// Starts work beside what its caller does next; where CSingleThread is in force, it is done when its result
/// is asked for.
/// @return what the work returns or throws; the work refers to nothing that does not outlive this
template<class FWork>
[[nodiscard]] auto ComputeBeside(FWork work)
{
    return std::async(CSingleThread::IsInForce() ? std::launch::deferred : std::launch::async,
                      std::move(work));
}

/// Calls compute(first, last) for GetShareCount() shares of [0, count), side by side. What one of the
/// calls throws is thrown here, after all have ended.
template<class FCompute>
void ComputeInShares(std::size_t count, const FCompute& compute)
{
    const std::size_t threads = GetShareCount();
    std::vector<std::future<void>> shares;
    for (std::size_t i = 0; i < threads; ++i)
        shares.push_back(ComputeBeside([&compute, first = count * i / threads,
                                        last = count * (i + 1) / threads] { compute(first, last); }));
    for (auto& share : shares)
        share.get();
}

} // namespace CommonUI::Analysis
