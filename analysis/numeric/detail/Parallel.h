#pragma once

#include <algorithm>
#include <cstddef>
#include <future>
#include <thread>
#include <vector>

namespace CommonUI::Analysis
{

/// Calls compute(first, last) for shares of [0, count), one for each processor, side by side. What one of the
/// calls throws is thrown here, after all have ended.
template<class FCompute>
void ComputeInShares(std::size_t count, const FCompute& compute)
{
    const std::size_t threads = std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, 16);
    std::vector<std::future<void>> shares;
    for (std::size_t i = 0; i < threads; ++i)
        shares.push_back(std::async([&compute, first = count * i / threads,
                                     last = count * (i + 1) / threads] { compute(first, last); }));
    for (auto& share : shares)
        share.get();
}

} // namespace CommonUI::Analysis
