#include "gl/OpenGLWrapper.h"
#include "platform/GLEntryPoints.h"
#include "tests/gl/GLTesting.h"

using namespace CommonUI;

namespace
{

class OpenGLReports : public CContextTest
{
protected:
    // The lines of a report, which all are of one kind.
    std::string TakeReport()
    {
        std::string report = TakeLines();
        constexpr std::string_view head = "           1 ";
        for (std::size_t at = 0; at < report.size(); at = report.find('\n', at) + 1) {
            EXPECT_EQ(report.substr(at, head.size()), head);
            report.erase(at, head.size());
        }
        return report;
    }

    static std::string Text(GLenum name) { return reinterpret_cast<const char*>(glGetString(name)); }

    CTableGLEntryPoints m_entryPoints;
    CServiceScope<CGLEntryPoints> m_entryPointsScope{m_entryPoints};
};

const char* GetExtensionsOf(HDC hdc)
{
    return hdc ? nullptr : "WGL_ARB_multisample";
}

} // namespace

TEST_F(OpenGLReports, Strings)
{
    std::string expected = "OpenGL Vendor: " + Text(GL_VENDOR);
    expected += "\nOpenGL Renderer: " + Text(GL_RENDERER) + "\nOpenGL Version: " + Text(GL_VERSION);
    expected += "\nOpenGL Extensions: \"" + Text(GL_EXTENSIONS) + "\"\n";
    COpenGLWrapper::DiagnoseOutputOpenGLStrings(nullptr);
    EXPECT_EQ(TakeReport(), expected);
    m_entryPoints.Set("wglGetExtensionsStringARB", GetExtensionsOf);
    COpenGLWrapper::DiagnoseOutputOpenGLStrings(nullptr);
    EXPECT_EQ(TakeReport(), expected + "CWGL_ARB_extensions_string: \"WGL_ARB_multisample\"\n");
    int window = 0;
    COpenGLWrapper::DiagnoseOutputOpenGLStrings(reinterpret_cast<HDC>(&window));
    EXPECT_EQ(TakeReport(), expected);
}

TEST_F(OpenGLReports, ExtensionsAreLookedForInBothLists)
{
    const CWGL_ARB_extensions_string before;
    EXPECT_TRUE(before.IsSupported(nullptr, "GL_ARB_multitextur")); // a part of a longer name
    EXPECT_FALSE(before.IsSupported(nullptr, "WGL_ARB_multisample"));
    m_entryPoints.Set("wglGetExtensionsStringARB", GetExtensionsOf);
    EXPECT_TRUE(CWGL_ARB_extensions_string().IsSupported(nullptr, "WGL_ARB_multisample"));
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(OpenGLReports, PixelStore)
{
    int value = 3;
    for (const GLenum name : {GL_PACK_ROW_LENGTH, GL_PACK_SKIP_ROWS, GL_PACK_SKIP_PIXELS,
                              GL_UNPACK_ROW_LENGTH, GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS})
        glPixelStorei(name, value++);
    glPixelStorei(GL_PACK_LSB_FIRST, 2);
    glPixelStorei(GL_PACK_ALIGNMENT, 2);
    glPixelStorei(GL_UNPACK_SWAP_BYTES, 1);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 8);
    COpenGLWrapper::DiagnoseOutputPixelStore();
    EXPECT_EQ(TakeReport(), "GL_PACK_SWAP_BYTES:  0\nGL_PACK_LSB_FIRST:   1\nGL_PACK_ROW_LENGTH:  3\n"
                            "GL_PACK_SKIP_ROWS:   4\nGL_PACK_SKIP_PIXELS: 5\nGL_PACK_ALIGNMENT:   2\n"
                            "GL_UNPACK_SWAP_BYTES:  1\nGL_UNPACK_LSB_FIRST:   0\nGL_UNPACK_ROW_LENGTH:  6\n"
                            "GL_UNPACK_SKIP_ROWS:   7\nGL_UNPACK_SKIP_PIXELS: 8\nGL_UNPACK_ALIGNMENT:   8\n");
}

TEST_F(OpenGLReports, Stacks)
{
    glPushAttrib(GL_TRANSFORM_BIT);
    glPushMatrix();
    glPushMatrix();
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    const auto limit = [](GLenum name) { return " (" + std::to_string(GetInteger(name)) + ")\n"; };
    const std::string depths = "Attribute stack: 1" + limit(GL_MAX_ATTRIB_STACK_DEPTH) +
                               "ModelView stack: 3" + limit(GL_MAX_MODELVIEW_STACK_DEPTH) +
                               "Projection stack: 2" + limit(GL_MAX_PROJECTION_STACK_DEPTH);
    constexpr std::pair<GLenum, const char*> c_rows[] = {
        {GL_MODELVIEW, "Current MatrixMode: GL_MODELVIEW (5888)\n"},
        {GL_PROJECTION, "Current MatrixMode: GL_PROJECTION (5889)\n"},
        {GL_TEXTURE, "Current MatrixMode: GL_TEXTURE (5890)\n"},
    };
    for (const auto& [mode, line] : c_rows) {
        glMatrixMode(mode);
        COpenGLWrapper::DiagnoseOutputStacks();
        EXPECT_EQ(TakeReport(), depths + line);
    }
}
