#include "gl/OpenGLWrapper.h"
#include "platform/GLEntryPoints.h"
#include "platform/memory/TableGLEntryPoints.h"
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
        constexpr std::string_view c_head = "           1 ";
        for (std::size_t at = 0; at < report.size(); at = report.find('\n', at) + 1) {
            EXPECT_EQ(report.substr(at, c_head.size()), c_head);
            report.erase(at, c_head.size());
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

TEST_F(OpenGLReports, ExtensionsAreLookedForAmongThoseOfTheDriver)
{
    EXPECT_TRUE(CWGL_ARB_extensions_string().IsSupported(nullptr, "GL_ARB_multitextur")); // a part of a name
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(OpenGLReports, PixelStore)
{
    glPixelStorei(GL_PACK_LSB_FIRST, 2);
    glPixelStorei(GL_UNPACK_SKIP_ROWS, 7);
    COpenGLWrapper::DiagnoseOutputPixelStore();
    const std::string report = TakeReport();
    EXPECT_TRUE(report.starts_with("GL_PACK_SWAP_BYTES:  0\nGL_PACK_LSB_FIRST:   1\n"));
    EXPECT_TRUE(Has(report, "GL_UNPACK_SKIP_ROWS:   7\n"));
}
