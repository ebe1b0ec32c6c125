#include "view/ColorTexture.h"

#include "gl/GLStack.h"
#include "view/detail/OpenGL.h"

namespace SurfaceView
{

static_assert(sizeof(CommonUI::SColor) == 3); // the layout in which OpenGL takes the colours

CColorTexture::CColorTexture(std::span<const CommonUI::SColor> colors)
{
    CommonUI::CGLStack stack;
    if (!stack.PushAttrib(GL_TEXTURE_BIT))
        return;
    glGenTextures(1, &m_name);
    glBindTexture(GL_TEXTURE_1D, m_name);
    glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    // The row's length is a multiple of four bytes, which is how rows are aligned unless somebody changes
    // that.
    glTexImage1D(GL_TEXTURE_1D, 0, GL_RGB8, static_cast<GLsizei>(colors.size()), 0, GL_RGB, GL_UNSIGNED_BYTE,
                 colors.data());
}

CColorTexture::~CColorTexture()
{
    glDeleteTextures(1, &m_name);
}

void CColorTexture::Bind() const
{
    glBindTexture(GL_TEXTURE_1D, m_name);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    glEnable(GL_TEXTURE_1D);
}

} // namespace SurfaceView
