#pragma once

#include "gl/detail/OpenGLFunctions.h"

#include <string_view>

namespace CommonUI
{

/// A step of OpenGL, for the report of its error. Make constants of it: otherwise the lengths of the texts
/// are counted each time, which takes longer than most steps.
struct SGLStep {
    std::u16string_view operation{};
    std::u16string_view function{};
    std::u16string_view file{};
};

/// Reports an error that was read already.
void ReportError(GLenum code, const SGLStep& step);

/// The error that the driver keeps, which it then forgets; none where no context is current.
inline GLenum TakeError()
{
#if defined(_WIN32) // where every call is an error then
    if (!wglGetCurrentContext())
        return GL_NO_ERROR;
#endif
    return OpenGL().getError();
}

/// OpenGLErrorMsg for the steps of the library itself: as long as nothing goes wrong no text is made.
inline bool HasFailed(const SGLStep& step)
{
    const GLenum code = TakeError();
    if (code == GL_NO_ERROR) [[likely]]
        return false;
    ReportError(code, step);
    return true;
}

/// The text of an error of OpenGL or GLU in the words of GLU; null where it has none.
const char* GetErrorText(GLenum code);

} // namespace CommonUI
