#include "analysis/profile/detail/MotifSearch.h"

#include <algorithm>
#include <cmath>
#include <queue>
#include <tuple>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_leastShare = 0.05;   // of the mean height of the sections
constexpr double c_similarShare = 0.6;  // of the depth of the whole
constexpr double c_rounding = 1 + 1e-9; // a width of exactly the limit may have come out a trifle longer

// The mean height of sections of a length, as many as are whole; of the whole line where it is shorter.
double MeanSectionHeight(std::span<const SLinePoint> line, double length)
{
    const double extent = line.back().at - line.front().at;
    const auto count = std::max<std::size_t>(1, static_cast<std::size_t>(extent / length * c_rounding));
    double sum = 0;
    double height = line.front().height; // where a section ends and the next begins
    std::size_t next = 1;
    for (std::size_t section = 0; section < count; ++section) {
        const double end =
            std::min(line.front().at + static_cast<double>(section + 1) * length, line.back().at);
        auto [lowest, highest] = std::pair(height, height);
        const auto include = [&](double z) {
            lowest = std::min(lowest, z);
            highest = std::max(highest, z);
        };
        for (; next + 1 < line.size() && line[next].at <= end; ++next)
            include(line[next].height);
        const SLinePoint& from = line[next - 1];
        const SLinePoint& to = line[next];
        height = from.height + (to.height - from.height) * (end - from.at) / (to.at - from.at);
        include(height);
        sum += highest - lowest;
    }
    return sum / static_cast<double>(count);
}

// The points next to one another in which a line is highest, or lowest with the sign turned.
class CTop
{
public:
    void Restart(std::size_t index, double z)
    {
        m_first = m_last = index;
        m_height = z;
    }
    void Include(std::size_t index, double z, double noise)
    {
        if (z > m_height + noise)
            Restart(index, z);
        else if (index == m_last + 1 && z >= m_height - noise)
            m_last = index;
    }
    double GetHeight() const { return m_height; }
    SLinePoint GetMiddle(std::span<const SLinePoint> line) const
    {
        return {(line[m_first].at + line[m_last].at) / 2, m_height};
    }

private:
    std::size_t m_first = 0;
    std::size_t m_last = 0;
    double m_height = 0;
};

// The peaks that have a valley to both sides, and the valleys between them.
SMotifs FindTurns(std::span<const SLinePoint> line, double least, double noise)
{
    enum { Start, Rising, Falling } state = Start;
    CTop high;
    CTop low;
    high.Restart(0, line[0].height);
    low.Restart(0, -line[0].height);
    SMotifs turns;
    for (std::size_t i = 1; i < line.size(); ++i) {
        const double z = line[i].height;
        high.Include(i, z, noise);
        low.Include(i, -z, noise);
        if (state != Falling && high.GetHeight() - z >= least) {
            if (state == Rising)
                turns.peaks.push_back(high.GetMiddle(line));
            state = Falling;
            low.Restart(i, -z);
        } else if (state != Rising && z + low.GetHeight() >= least) {
            if (!turns.peaks.empty())
                turns.valleys.push_back(-low.GetHeight());
            state = Rising;
            high.Restart(i, z);
        }
    }
    turns.valleys.resize(std::max<std::size_t>(turns.peaks.size(), 1) -
                         1); // the last one has no peak behind it
    return turns;
}

// Takes out the peaks between motifs that are combined.
class CCombination
{
public:
    CCombination(const SMotifs& motifs, double limit, double noise)
        : m_motifs(motifs)
        , m_limit(limit * c_rounding)
        , m_noise(noise)
    {
        const std::size_t count = motifs.peaks.size();
        for (std::size_t i = 0; i < count; ++i) {
            m_previous.push_back(i - 1);
            m_next.push_back(i + 1);
        }
        for (std::size_t i = 1; i + 1 < count; ++i)
            Consider(i);
    }

    SMotifs Run()
    {
        while (!m_candidates.empty()) {
            const auto [height, peak, left, right] = m_candidates.top();
            m_candidates.pop();
            if (m_previous[peak] == left && m_next[peak] == right)
                Remove(peak);
        }
        SMotifs combined;
        const std::size_t count = m_motifs.peaks.size();
        for (std::size_t i = 0; i < count; i = m_next[i]) {
            combined.peaks.push_back(m_motifs.peaks[i]);
            if (m_next[i] < count)
                combined.valleys.push_back(m_motifs.valleys[i]);
        }
        return combined;
    }

private:
    // How little a peak stands above one of its valleys; the peak; those beside it.
    using CCandidate = std::tuple<double, std::size_t, std::size_t, std::size_t>;

    void Consider(std::size_t peak)
    {
        const std::size_t left = m_previous[peak];
        const std::size_t right = m_next[peak];
        const double a = m_motifs.peaks[left].height;
        const double b = m_motifs.peaks[peak].height;
        const double c = m_motifs.peaks[right].height;
        const double first = m_motifs.valleys[left];
        const double second = m_motifs.valleys[peak];
        const double whole = std::min(a, c) - std::min(first, second);
        const double largest = std::max(std::min(a, b) - first, std::min(b, c) - second);
        const double step = b - std::max(first, second);
        const bool isCombined = b <= std::max(a, c) + m_noise &&
                                m_motifs.peaks[right].at - m_motifs.peaks[left].at <= m_limit &&
                                whole >= largest - m_noise && step < c_similarShare * whole - m_noise;
        if (isCombined)
            m_candidates.emplace(step, peak, left, right);
    }

    void Remove(std::size_t peak)
    {
        const std::size_t left = m_previous[peak];
        const std::size_t right = m_next[peak];
        m_motifs.valleys[left] = std::min(m_motifs.valleys[left], m_motifs.valleys[peak]);
        m_next[left] = right;
        m_previous[right] = left;
        m_next[peak] = peak; // no candidate fits any more
        if (left > 0)
            Consider(left);
        if (m_next[right] < m_motifs.peaks.size())
            Consider(right);
    }

    SMotifs m_motifs; // a valley is that behind its peak, up to the next one that is left
    double m_limit;
    double m_noise;
    std::vector<std::size_t> m_previous{};
    std::vector<std::size_t> m_next{};
    std::priority_queue<CCandidate, std::vector<CCandidate>, std::greater<>> m_candidates{};
};

} // namespace

SMotifs FindMotifs(std::span<const SLinePoint> line, double limit, double noise)
{
    if (line.size() < 3)
        return {};
    const double least = std::max(c_leastShare * MeanSectionHeight(line, limit / 2), noise);
    if (!(least > 0))
        return {};
    return CCombination(FindTurns(line, least, noise), limit, noise).Run();
}

} // namespace CommonUI::Analysis
