#include "analysis/filter/detail/RankWindow.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace CommonUI::Analysis
{

namespace
{

constexpr std::size_t c_bits = 64;
constexpr std::uint32_t c_noRank = std::numeric_limits<std::uint32_t>::max();

} // namespace

CRankWindow::CRankWindow(std::span<const double> heights)
    : m_ranks(heights.size(), c_noRank)
{
    std::vector<std::pair<double, std::uint32_t>> order;
    order.reserve(heights.size());
    for (std::size_t i = 0; i < heights.size(); ++i)
        if (!std::isnan(heights[i]))
            order.emplace_back(heights[i], static_cast<std::uint32_t>(i));
    std::sort(order.begin(), order.end());
    m_rising.reserve(order.size());
    for (const auto& [height, index] : order) {
        m_ranks[index] = static_cast<std::uint32_t>(m_rising.size());
        m_rising.push_back(height);
    }
    m_words.resize(m_rising.size() / c_bits + 1);
    m_counts.resize(m_words.size());
}

void CRankWindow::Clear()
{
    std::fill(m_words.begin(), m_words.end(), 0);
    std::fill(m_counts.begin(), m_counts.end(), 0);
    m_count = m_below = 0;
}

void CRankWindow::Change(std::size_t index, int step)
{
    const std::uint32_t rank = m_ranks[index];
    if (rank == c_noRank)
        return;
    const std::size_t word = rank / c_bits;
    m_words[word] ^= std::uint64_t{1} << rank % c_bits;
    m_counts[word] += step;
    m_count += step;
    if (word < m_word)
        m_below += step;
}

double CRankWindow::GetHeight(std::size_t place)
{
    const int wanted = static_cast<int>(place);
    while (m_below > wanted)
        m_below -= m_counts[--m_word];
    while (m_below + m_counts[m_word] <= wanted)
        m_below += m_counts[m_word++];
    std::uint64_t word = m_words[m_word];
    for (int i = m_below; i < wanted; ++i)
        word &= word - 1;
    return m_rising[m_word * c_bits + static_cast<std::size_t>(std::countr_zero(word))];
}

double CRankWindow::GetMedian()
{
    const double lower = GetHeight((GetCount() - 1) / 2);
    return GetCount() % 2 == 1 ? lower : std::midpoint(lower, GetHeight(GetCount() / 2));
}

double CRankWindow::GetSpread()
{
    const std::size_t quarter = (GetCount() - 1) / 4;
    const double lower = GetHeight(quarter);
    return (GetHeight(GetCount() - 1 - quarter) - lower) / 1.349;
}

} // namespace CommonUI::Analysis
