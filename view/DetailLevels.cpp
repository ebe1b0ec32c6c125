#include "view/DetailLevels.h"

#include "analysis/surface/Decimate.h"

#include <algorithm>

namespace SurfaceView
{

using CommonUI::Analysis::SSurface;

namespace
{

constexpr std::size_t c_fewestPoints = 96;
// A finer level is tried when pictures take less than this share of the target.
constexpr double c_shareToSpare = 0.5;
// One picture may be late for reasons of its own.
constexpr int c_mostMisses = 2;
// A level that was too slow is left alone for so many pictures, or the view would change all the time.
constexpr int c_picturesToRetry = 200;

} // namespace

std::vector<SMesh> MakeDetailLevels(const SSurface& surface, const SBox& box)
{
    std::vector<SMesh> levels;
    // Each is made of the finer one: means of means, which is what shows of a surface from far.
    SSurface shown = CommonUI::Analysis::Decimate(surface, c_mostPoints);
    levels.push_back(MakeMesh(shown, box));
    for (std::size_t most = c_mostPoints / 2;
         most >= c_fewestPoints && std::max(shown.points, shown.lines) > c_fewestPoints; most /= 2) {
        if (std::max(shown.points, shown.lines) <= most)
            continue;
        shown = CommonUI::Analysis::Decimate(shown, most);
        levels.push_back(MakeMesh(shown, box));
    }
    std::ranges::reverse(levels);
    return levels;
}

CDetailChoice::CDetailChoice(std::size_t levels, double target)
    : m_levels(levels)
    , m_target(target)
    , m_tooSlow(m_levels)
{
}

void CDetailChoice::AddTime(double seconds)
{
    ++m_pictures;
    m_misses = seconds > m_target ? m_misses + 1 : 0;
    if (m_misses == c_mostMisses && m_moving > 0) {
        m_tooSlow = m_moving--;
        m_misses = 0;
        m_pictures = 0;
    }
    if (m_pictures >= c_picturesToRetry)
        m_tooSlow = m_levels;
    if (seconds < c_shareToSpare * m_target && m_moving + 1 < m_tooSlow)
        ++m_moving;
}

} // namespace SurfaceView
