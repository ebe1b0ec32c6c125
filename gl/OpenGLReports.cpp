#include "common/Diagnostics.h"
#include "gl/detail/ErrorTest.h"
#include "gl/GLUtils.h"
#include "gl/OpenGLWrapper.h"

namespace CommonUI
{

namespace
{

struct SNamedValue {
    GLenum name;
    std::u16string_view format;
};

void WriteLine(std::u16string_view line)
{
    GetDiagnostics().Write({}, EDiagnosticLevel::Info, line);
}

// Writes a text of the driver, if it gives one.
void WriteText(std::u16string_view format, const char* text)
{
    if (text)
        WriteLine(CStr::Format(format, CStr::FromAscii(text)));
}

const char* GetText(GLenum name)
{
    return reinterpret_cast<const char*>(OpenGL().getString(name));
}

int GetInteger(GLenum name)
{
    GLint value = 0;
    OpenGL().getIntegerv(name, &value);
    return value;
}

} // namespace

void COpenGLWrapper::DiagnoseOutputError()
{
    const GLenum code = TakeError();
    if (code == GL_NO_ERROR)
        return;
    if (const char* text = GetErrorText(code))
        WriteLine(CStr::Format(u"Error: \"%s\" (%d)\n", CStr::FromAscii(text), code));
    else
        WriteLine(CStr::Format(u"Error: INVALID (%d)\n", code));
}

void COpenGLWrapper::DiagnoseOutputOpenGLStrings(HDC hdc)
{
    WriteText(u"OpenGL Vendor: %s\n", GetText(GL_VENDOR));
    WriteText(u"OpenGL Renderer: %s\n", GetText(GL_RENDERER));
    WriteText(u"OpenGL Version: %s\n", GetText(GL_VERSION));
    WriteText(u"OpenGL Extensions: \"%s\"\n", GetText(GL_EXTENSIONS));
    WriteText(u"CWGL_ARB_extensions_string: \"%s\"\n", CWGL_ARB_extensions_string().GetExtensions(hdc));
}

void COpenGLWrapper::DiagnoseOutputPixelStore()
{
    constexpr SNamedValue c_values[] = {
        {GL_PACK_SWAP_BYTES, u"GL_PACK_SWAP_BYTES:  %d\n"},
        {GL_PACK_LSB_FIRST, u"GL_PACK_LSB_FIRST:   %d\n"},
        {GL_PACK_ROW_LENGTH, u"GL_PACK_ROW_LENGTH:  %d\n"},
        {GL_PACK_SKIP_ROWS, u"GL_PACK_SKIP_ROWS:   %d\n"},
        {GL_PACK_SKIP_PIXELS, u"GL_PACK_SKIP_PIXELS: %d\n"},
        {GL_PACK_ALIGNMENT, u"GL_PACK_ALIGNMENT:   %d\n"},
        {GL_UNPACK_SWAP_BYTES, u"GL_UNPACK_SWAP_BYTES:  %d\n"},
        {GL_UNPACK_LSB_FIRST, u"GL_UNPACK_LSB_FIRST:   %d\n"},
        {GL_UNPACK_ROW_LENGTH, u"GL_UNPACK_ROW_LENGTH:  %d\n"},
        {GL_UNPACK_SKIP_ROWS, u"GL_UNPACK_SKIP_ROWS:   %d\n"},
        {GL_UNPACK_SKIP_PIXELS, u"GL_UNPACK_SKIP_PIXELS: %d\n"},
        {GL_UNPACK_ALIGNMENT, u"GL_UNPACK_ALIGNMENT:   %d\n"},
    };
    // Flags become 0 or 1 when they are read as integers.
    for (const SNamedValue& value : c_values)
        WriteLine(CStr::Format(value.format, GetInteger(value.name)));
}

void COpenGLWrapper::DiagnoseOutputStacks()
{
    const auto write = [](std::u16string_view format, GLenum depth, GLenum limit) {
        WriteLine(CStr::Format(format, GetInteger(depth), GetInteger(limit)));
    };
    write(u"Attribute stack: %d (%d)\n", GL_ATTRIB_STACK_DEPTH, GL_MAX_ATTRIB_STACK_DEPTH);
    write(u"ModelView stack: %d (%d)\n", GL_MODELVIEW_STACK_DEPTH, GL_MAX_MODELVIEW_STACK_DEPTH);
    write(u"Projection stack: %d (%d)\n", GL_PROJECTION_STACK_DEPTH, GL_MAX_PROJECTION_STACK_DEPTH);
    const int mode = GetInteger(GL_MATRIX_MODE);
    const std::u16string_view name = GetMatrixModeName(static_cast<GLenum>(mode));
    WriteLine(CStr::Format(u"Current MatrixMode: %s (%d)\n", name.empty() ? u"INVALID" : name, mode));
}

} // namespace CommonUI
