#pragma once

#include "common/Str.h"
#include "gl/detail/OpenGL.h"

#include <string_view>

namespace CommonUI::Detail
{

/// Where a step of OpenGL stands, for the report of its error.
struct SPlace {
    std::u16string_view function{};
    std::u16string_view file{};
};

/// Reports an error that was read already.
void ReportError(GLenum code, std::u16string_view operation, const SPlace& place);

/// OpenGLErrorMsg for the steps of the library itself: as long as nothing goes wrong no text is made.
inline bool HasFailed(std::u16string_view operation, const SPlace& place)
{
    const GLenum code = glGetError();
    if (code == GL_NO_ERROR) [[likely]]
        return false;
    ReportError(code, operation, place);
    return true;
}

/// The text of an error of OpenGL or GLU in the words of GLU; null where it has none.
const char* GetErrorText(GLenum code);

} // namespace CommonUI::Detail
