#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// Some of a number of heights, as those under a window that slides over them, in rising order.
///
/// The heights are sorted once; which of them are in the window is a bit at each one's rank. The search for a
/// place in the order goes on from where the last one ended, so it is short while the window changes little.
class CRankWindow
{
public:
    /// @param heights missing points are NaN, and never in the window
    explicit CRankWindow(std::span<const double> heights);

    void Add(std::size_t index) { Change(index, 1); }
    void Remove(std::size_t index) { Change(index, -1); }
    /// Removes all.
    void Clear();

    /// How many heights are in the window.
    std::size_t GetCount() const { return static_cast<std::size_t>(m_count); }
    /// The height at a place in rising order.
    /// @param place less than the count
    double GetHeight(std::size_t place);

    /// The middle one of the heights, or the mean of the two that are in the middle; there must be one.
    double GetMedian();
    /// The distance of the quartiles divided by 1.349, which is the standard deviation if the heights are
    /// distributed normally. Of n heights in rising order the quartiles are those with (n - 1) / 4 others,
    /// rounded down, below or above.
    double GetSpread();

private:
    void Change(std::size_t index, int step);

    std::vector<double> m_rising{};
    std::vector<std::uint32_t> m_ranks{}; // of each height
    std::vector<std::uint64_t> m_words{};
    std::vector<int> m_counts{}; // of the bits in each word
    int m_count = 0;
    std::size_t m_word = 0; // where the last search ended
    int m_below = 0;        // bits in the words before that
};

} // namespace CommonUI::Analysis
