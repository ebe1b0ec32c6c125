#include "view/MeshBuffers.h"

#include "platform/GLEntryPoints.h"
#include "view/detail/DrawingSteps.h"
#include "view/detail/OpenGL.h"

#include <cstddef>

namespace SurfaceView
{

namespace
{

#ifdef _WIN32
#define COMMONUI_GL_CALL __stdcall
#else
#define COMMONUI_GL_CALL
#endif

constexpr GLenum c_vertexBuffer = 0x8892; // GL_ARRAY_BUFFER
constexpr GLenum c_indexBuffer = 0x8893;  // GL_ELEMENT_ARRAY_BUFFER
constexpr GLenum c_drawnOften = 0x88E4;   // GL_STATIC_DRAW

// The functions of OpenGL 1.5 for buffers; null where the driver has none.
struct SFunctions {
    void(COMMONUI_GL_CALL* genBuffers)(GLsizei, GLuint*) = nullptr;
    void(COMMONUI_GL_CALL* deleteBuffers)(GLsizei, const GLuint*) = nullptr;
    void(COMMONUI_GL_CALL* bindBuffer)(GLenum, GLuint) = nullptr;
    void(COMMONUI_GL_CALL* bufferData)(GLenum, std::ptrdiff_t, const void*, GLenum) = nullptr;

    SFunctions()
    {
        Find(genBuffers, "glGenBuffers");
        Find(deleteBuffers, "glDeleteBuffers");
        Find(bindBuffer, "glBindBuffer");
        Find(bufferData, "glBufferData");
    }
    bool AreThere() const { return genBuffers && deleteBuffers && bindBuffer && bufferData; }

private:
    template<class T>
    static void Find(T& function, const char* name)
    {
        function = reinterpret_cast<T>(CommonUI::GetGLEntryPoints().GetProcedure(name));
    }
};

// Gives the arrays and buffers of the client back when it goes.
class CClientState
{
public:
    CClientState() { glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT); }
    ~CClientState() { glPopClientAttrib(); }
    CClientState(const CClientState&) = delete;
    CClientState& operator=(const CClientState&) = delete;
};

template<class T>
std::ptrdiff_t BytesOf(const std::vector<T>& values)
{
    return static_cast<std::ptrdiff_t>(values.size() * sizeof(T));
}

// Where OpenGL finds a member of the vertices: an address, or an offset in the buffer.
const void* Place(const SVertex* first, std::size_t offset)
{
    return reinterpret_cast<const std::byte*>(first) + offset;
}

} // namespace

CMeshBuffers::CMeshBuffers(const SMesh& mesh, bool keep)
    : m_mesh(mesh)
{
    if (!keep)
        return;
    const SFunctions gl;
    if (!gl.AreThere())
        return;
    const CClientState state;
    gl.genBuffers(1, &m_vertices);
    gl.genBuffers(1, &m_triangles);
    gl.bindBuffer(c_vertexBuffer, m_vertices);
    gl.bufferData(c_vertexBuffer, BytesOf(mesh.vertices), mesh.vertices.data(), c_drawnOften);
    gl.bindBuffer(c_indexBuffer, m_triangles);
    gl.bufferData(c_indexBuffer, BytesOf(mesh.triangles), mesh.triangles.data(), c_drawnOften);
}

CMeshBuffers::~CMeshBuffers()
{
    if (!IsKept())
        return;
    const SFunctions gl;
    if (!gl.AreThere())
        return; // the context has gone, and the buffers with it
    gl.deleteBuffers(1, &m_vertices);
    gl.deleteBuffers(1, &m_triangles);
}

std::size_t CMeshBuffers::GetByteCount() const noexcept
{
    return static_cast<std::size_t>(BytesOf(m_mesh.vertices) + BytesOf(m_mesh.triangles));
}

void CMeshBuffers::DrawTriangles() const
{
    const CClientState state;
    if (IsKept()) {
        const SFunctions gl;
        gl.bindBuffer(c_vertexBuffer, m_vertices);
        gl.bindBuffer(c_indexBuffer, m_triangles);
    }
    const SVertex* const first = IsKept() ? nullptr : m_mesh.vertices.data();
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_NORMAL_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glVertexPointer(3, GL_FLOAT, sizeof(SVertex), Place(first, offsetof(SVertex, position)));
    glNormalPointer(GL_FLOAT, sizeof(SVertex), Place(first, offsetof(SVertex, normal)));
    glTexCoordPointer(1, GL_FLOAT, sizeof(SVertex), Place(first, offsetof(SVertex, share)));
    glDrawElements(GL_TRIANGLES, static_cast<GLsizei>(3 * m_mesh.triangles.size()), GL_UNSIGNED_INT,
                   IsKept() ? nullptr : m_mesh.triangles.data());
}

} // namespace SurfaceView
