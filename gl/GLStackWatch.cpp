#include "gl/GLStackWatch.h"

#include "common/Diagnostics.h"
#include "gl/detail/OpenGLFunctions.h"

namespace CommonUI
{

namespace
{

int GetDepth(GLenum name) noexcept
{
    GLint depth = 0; // which it stays without a context
    OpenGL().getIntegerv(name, &depth);
    return depth;
}

void PopMatrices(GLenum mode, int count) noexcept
{
    if (count <= 0)
        return;
    GLint before = GL_MODELVIEW;
    OpenGL().getIntegerv(GL_MATRIX_MODE, &before);
    OpenGL().matrixMode(mode);
    for (; count > 0; --count)
        OpenGL().popMatrix();
    OpenGL().matrixMode(static_cast<GLenum>(before));
}

} // namespace

CGLStackWatch::CGLStackWatch() noexcept
    : m_before(Read())
{
}

CGLStackWatch::~CGLStackWatch()
{
    const SDepths now = Read();
    if (now == m_before)
        return;
    Restore();
    try {
        Report(now);
    } catch (...) { // there is nobody left to tell
    }
}

CGLStackWatch::SDepths CGLStackWatch::Read() noexcept
{
    return {GetDepth(GL_ATTRIB_STACK_DEPTH), GetDepth(GL_MODELVIEW_STACK_DEPTH),
            GetDepth(GL_PROJECTION_STACK_DEPTH)};
}

void CGLStackWatch::Report(const SDepths& now) const
{
    GetDiagnostics().Write(
        u"3DStack", EDiagnosticLevel::Error,
        CStr::Format(
            u"Error: Stacks changed behind GLStack: attributes %d to %d, model-view matrices %d to %d, "
            u"projection matrices %d to %d\n",
            m_before.attributes, now.attributes, m_before.modelView, now.modelView, m_before.projection,
            now.projection));
}

// Matrices first: the groups of attributes hold the matrix mode of before.
void CGLStackWatch::Restore() const noexcept
{
    PopMatrices(GL_MODELVIEW, GetDepth(GL_MODELVIEW_STACK_DEPTH) - m_before.modelView);
    PopMatrices(GL_PROJECTION, GetDepth(GL_PROJECTION_STACK_DEPTH) - m_before.projection);
    for (int i = GetDepth(GL_ATTRIB_STACK_DEPTH) - m_before.attributes; i > 0; --i)
        OpenGL().popAttrib();
}

} // namespace CommonUI
