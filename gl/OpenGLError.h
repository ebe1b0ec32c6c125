#pragma once

#include "../common/Str.h"
#include "../export/Export.h"

#include <string_view>

namespace CommonUI
{

/// The topic of the application's help that a message box about OpenGL leads to: 3D trouble shooting.
constexpr unsigned int c_openGLHelpTopic = 21000;

/// The name by which OpenGL and GLU publish an error, such as "GL_INVALID_ENUM"; "Unknown error code" for
/// others.
COMMONUI_API std::u16string_view GetOpenGLErrorName(unsigned int code);

/// The error test that follows each step of OpenGL: reads one pending error and reports it, to the
/// diagnostics at level Error and to the user in a message box with the help topic c_openGLHelpTopic. Further
/// pending errors stay for the next test. To be called on the thread of the current context; without one
/// there is no error.
/// @param operation what was done, as the user shall read it
/// @param function, file where it was done, for the diagnostics; may be empty
/// @param line of the file, for whoever looks with a debugger; it is not written
/// @return whether there was an error; the caller then gives up what it was doing
COMMONUI_API bool OpenGLErrorMsg(const CStr& operation, const CStr& function, const CStr& file, int line);

} // namespace CommonUI
