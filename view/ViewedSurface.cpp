#include "view/ViewedSurface.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/surface/Decimate.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace SurfaceView
{

using CommonUI::CRange;
using CommonUI::Analysis::SSurface;

namespace
{

// Colours and marks need heights of some length.
CRange<double> WithLength(double lowest, double highest)
{
    const double least = std::max(1e-12, 1e-9 * std::abs(lowest));
    return highest - lowest >= least ? CRange(lowest, highest) : CRange(lowest - least, highest + least);
}

std::vector<SSurface> MakeCoarser(const SSurface& surface)
{
    std::vector<SSurface> coarser;
    for (std::size_t most = std::max(surface.points, surface.lines) / 2; most > c_mostPoints; most /= 2)
        coarser.push_back(CommonUI::Analysis::Decimate(coarser.empty() ? surface : coarser.back(), most));
    return coarser;
}

} // namespace

const std::vector<SSurface>& CCoarserSurfaces::Get(const SSurface& surface) const
{
    std::call_once(m_once, [&] { m_surfaces = MakeCoarser(surface); });
    return m_surfaces;
}

std::shared_ptr<const SViewedSurface> MakeViewedSurface(const std::filesystem::path& path, SSurface surface)
{
    return MakeViewedSurface(path, std::make_shared<CommonUI::Measurement::SInput>(
                                       CommonUI::Measurement::SInput{.surface = std::move(surface)}));
}

std::shared_ptr<const SViewedSurface>
MakeViewedSurface(const std::filesystem::path& path,
                  std::shared_ptr<const CommonUI::Measurement::SInput> input)
{
    auto viewed = std::make_shared<SViewedSurface>();
    const SSurface& surface = input->surface;
    viewed->path = path;
    const CommonUI::Analysis::SRange range = CommonUI::Analysis::FindRange(surface.heights);
    if (range.count > 0)
        viewed->heights = WithLength(range.lowest, range.highest);
    if (range.count > 0 && surface.points >= 2 && surface.lines >= 2) {
        viewed->box = MakeBox(surface, 0);
        viewed->levels = MakeDetailLevels(surface, *viewed->box);
        viewed->tree = CHeightTree(surface);
    }
    viewed->input = std::move(input);
    return viewed;
}

} // namespace SurfaceView
