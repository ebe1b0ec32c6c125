#include "view/CloseUp.h"

#include <algorithm>

namespace SurfaceView
{

using CommonUI::Analysis::SSurface;

namespace
{

// A mesh of a part is made when its points lie so many times closer than those of all would.
constexpr double c_leastGain = 1.4;

SGridPart AllOf(const SSurface& surface)
{
    return {.points = surface.points, .lines = surface.lines};
}

// How many points of a grid lie between those that are shown.
double DistanceOf(std::size_t points, std::size_t most)
{
    return points < 2 ? 1 : static_cast<double>(points - 1) / static_cast<double>(std::min(points, most) - 1);
}

bool IsFiner(const SGridPart& part, const SGridPart& all, std::size_t most)
{
    return DistanceOf(all.points, most) >= c_leastGain * DistanceOf(part.points, most) ||
           DistanceOf(all.lines, most) >= c_leastGain * DistanceOf(part.lines, most);
}

// The surface with the fewest points that has enough of them in a part.
const SSurface& ChooseSource(const SViewedSurface& surface, const SGridPart& part, std::size_t most)
{
    const SSurface* source = &surface.GetSurface();
    const SGridPart all = AllOf(*source);
    for (const SSurface& coarser : surface.coarser.Get(*source)) {
        const SGridPart there = MoveToGrid(part, all, AllOf(coarser));
        if (there.points < std::min(part.points, most) || there.lines < std::min(part.lines, most))
            break;
        source = &coarser;
    }
    return *source;
}

} // namespace

const CMeshBuffers* CCloseUp::Update(const SViewedSurface& surface, const SBox& box, const SView& view,
                                     std::size_t most)
{
    m_isNew = false;
    const SGridPart all = AllOf(surface.GetSurface());
    const SGridPart seen = surface.tree.FindSeen(box, view);
    const SGridPart wanted = Widen(seen, m_margin, all);
    if (seen.IsEmpty() || !IsFiner(wanted, all, most)) {
        Drop();
        return nullptr;
    }
    if (m_buffers && m_most == most && Serves(m_part, seen, m_margin, all))
        return m_buffers.get();
    Drop();
    const SSurface& source = ChooseSource(surface, wanted, most);
    m_part = wanted;
    m_most = most;
    m_mesh = MakeMesh(source, *surface.box, MoveToGrid(wanted, all, AllOf(source)), most);
    m_buffers = std::make_unique<CMeshBuffers>(m_mesh);
    m_isNew = true;
    return m_buffers.get();
}

void CCloseUp::Drop()
{
    m_buffers.reset();
    m_mesh = {};
}

} // namespace SurfaceView
