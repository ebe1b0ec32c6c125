#include "view/StackDepths.h"

#include "common/Str.h"
#include "gl/GLUtils.h"
#include "view/detail/OpenGL.h"

#include <stdexcept>

namespace SurfaceView
{

namespace
{

int GetInteger(GLenum name)
{
    GLint value = 0;
    glGetIntegerv(name, &value);
    return value;
}

std::string NameOfMode(int mode)
{
    const std::u16string_view name = CommonUI::GetMatrixModeName(static_cast<GLenum>(mode));
    return name.empty() ? std::to_string(mode) : CommonUI::ToUtf8(name);
}

} // namespace

SStackDepths ReadStackDepths()
{
    return {.attributes = GetInteger(GL_ATTRIB_STACK_DEPTH),
            .modelView = GetInteger(GL_MODELVIEW_STACK_DEPTH),
            .projection = GetInteger(GL_PROJECTION_STACK_DEPTH),
            .matrixMode = GetInteger(GL_MATRIX_MODE)};
}

std::string Describe(const SStackDepths& depths)
{
    std::string text = "attribute stack ";
    text += std::to_string(depths.attributes);
    text += ", model-view stack ";
    text += std::to_string(depths.modelView);
    text += ", projection stack ";
    text += std::to_string(depths.projection);
    text += ", matrix mode ";
    text += NameOfMode(depths.matrixMode);
    return text;
}

void CheckRestored(const SStackDepths& before, const SStackDepths& after)
{
    if (before != after)
        throw std::runtime_error("drawing left " + Describe(after) + "; before it was " + Describe(before));
}

} // namespace SurfaceView
