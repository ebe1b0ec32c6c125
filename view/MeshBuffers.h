#pragma once

#include "view/Mesh.h"

namespace SurfaceView
{

/// A mesh in the memory of the driver of the current context, in which it is made and goes. Where the driver
/// has no buffers (GetGLEntryPoints gives none) it is sent anew whenever it is drawn.
class CMeshBuffers
{
public:
    /// @param mesh not owned; it stays where it is
    /// @param keep false for one that is drawn once
    explicit CMeshBuffers(const SMesh& mesh, bool keep = true);
    ~CMeshBuffers();
    CMeshBuffers(const CMeshBuffers&) = delete;
    CMeshBuffers& operator=(const CMeshBuffers&) = delete;

    const SMesh& GetMesh() const noexcept { return m_mesh; }
    /// Whether the driver keeps it.
    bool IsKept() const noexcept { return m_vertices != 0; }
    /// Of vertices and triangles.
    std::size_t GetByteCount() const noexcept;
    void DrawTriangles() const;

private:
    const SMesh& m_mesh;
    unsigned int m_vertices = 0; // names of the buffers
    unsigned int m_triangles = 0;
};

} // namespace SurfaceView
