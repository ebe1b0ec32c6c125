#pragma once

#include "view/GridPart.h"
#include "view/MeshBuffers.h"
#include "view/ViewedSurface.h"

#include <memory>

namespace SurfaceView
{

/// The mesh of the part of a surface that a view shows, for which the meshes of all of it have too few
/// points. It is made when a view shows another part, in a time that goes by its own points, and stays in
/// the memory of the driver of the current context, in which it also goes.
class CCloseUp
{
public:
    /// @param margin how much more it has than what is seen, on each side, as a share of that: so much the
    ///     view may move before another one is made
    explicit CCloseUp(double margin)
        : m_margin(margin)
    {
    }

    /// @param surface the same one until Drop
    /// @param box in which it is drawn
    /// @param most how many points along a side the mesh may have
    /// @return null where a mesh of all of the surface with so many points would show about as much
    const CMeshBuffers* Update(const SViewedSurface& surface, const SBox& box, const SView& view,
                               std::size_t most);
    void Drop();
    /// Whether the last call made another mesh.
    bool IsNew() const noexcept { return m_isNew; }

private:
    double m_margin;
    std::size_t m_most = 0;
    SGridPart m_part{};
    SMesh m_mesh{};
    std::unique_ptr<CMeshBuffers> m_buffers;
    bool m_isNew = false;
};

} // namespace SurfaceView
