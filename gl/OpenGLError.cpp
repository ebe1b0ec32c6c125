#include "gl/OpenGLError.h"

#include "common/Diagnostics.h"
#include "common/StringTable.h"
#include "gl/detail/ErrorTest.h"
#include "platform/MessageBoxService.h"

namespace CommonUI
{

namespace
{

constexpr int c_messageId = 7308;

constexpr struct {
    GLenum code;
    std::u16string_view name;
} c_errors[] = {
    {GL_NO_ERROR, u"GL_NO_ERROR"},
    {GL_INVALID_ENUM, u"GL_INVALID_ENUM"},
    {GL_INVALID_VALUE, u"GL_INVALID_VALUE"},
    {GL_INVALID_OPERATION, u"GL_INVALID_OPERATION"},
    {GL_STACK_OVERFLOW, u"GL_STACK_OVERFLOW"},
    {GL_STACK_UNDERFLOW, u"GL_STACK_UNDERFLOW"},
    {GL_OUT_OF_MEMORY, u"GL_OUT_OF_MEMORY"},
    {GLU_INVALID_ENUM, u"GLU_INVALID_ENUM"},
    {GLU_INVALID_VALUE, u"GLU_INVALID_VALUE"},
    {GLU_OUT_OF_MEMORY, u"GLU_OUT_OF_MEMORY"},
    {GLU_INCOMPATIBLE_GL_VERSION, u"GLU_INCOMPATIBLE_GL_VERSION"},
};

void WriteError(std::u16string_view message, const SGLStep& step)
{
    CStr line = message;
    if (!step.function.empty())
        line += CStr::Format(u" (Function: %s)", step.function);
    if (!step.file.empty())
        line += CStr::Format(u" (File: %s)", step.file);
    line += u'\n';
    GetDiagnostics().Write({}, EDiagnosticLevel::Error, u"OpenGL Error:\n");
    GetDiagnostics().Write({}, EDiagnosticLevel::Error, line);
}

} // namespace

std::u16string_view GetOpenGLErrorName(unsigned int code)
{
    for (const auto& error : c_errors) {
        if (error.code == code)
            return error.name;
    }
    return u"Unknown error code";
}

const char* GetErrorText(GLenum code)
{
    return reinterpret_cast<const char*>(OpenGL().errorString(code));
}

void ReportError(GLenum code, const SGLStep& step)
{
    const char* text = GetErrorText(code);
    const CStr description = CStr::FromAscii(text ? text : "INVALID");
    const CStr message =
        CStr::Format(GetString(c_messageId), step.operation, GetOpenGLErrorName(code), description, code);
    WriteError(message, step);
    GetMessageBoxService().Show(
        {message, MessageBoxStyle::c_warning | MessageBoxStyle::c_help, c_openGLHelpTopic});
}

bool OpenGLErrorMsg(const CStr& operation, const CStr& function, const CStr& file, int /*line*/)
{
    return HasFailed({operation, function, file});
}

} // namespace CommonUI
