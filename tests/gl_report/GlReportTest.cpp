#include "programs/gl_report/Program.h"

#include "platform/GLEntryPoints.h"
#include "platform/memory/TableGLEntryPoints.h"
#include "platform/PixelFormat.h"
#include "tests/ProgramTesting.h"
#include "tests/TestData.h"

#include <algorithm>

namespace
{

class GlReportProgram : public CProgramTest
{
protected:
    int Run(const std::vector<std::string>& arguments,
            const GlReport::FContextMaker& makeContext = Offscreen::CContext::Make)
    {
        return RunWith(GlReport::RunProgram, arguments, makeContext);
    }
    std::string Report()
    {
        EXPECT_EQ(Run({}), 0) << m_err.str();
        return m_out.str();
    }
};

std::unique_ptr<Offscreen::CContext> MakeNone(int, int, std::string& reason)
{
    reason = "nothing to draw on";
    return nullptr;
}

} // namespace

TEST_F(GlReportProgram, ReportHasWhatSupportAsksFor)
{
    const std::string report = Report();
    for (const char* line :
         {"OpenGL Renderer: ", "OpenGL Extensions: \"GL_", "GL_UNPACK_ALIGNMENT:   4\n",
          "Attribute stack: 0 (", "ModelView stack: 1 (", "Current MatrixMode: GL_MODELVIEW (5888)\n",
          "PFD_DRAW_TO_BITMAP | PFD_SUPPORT_OPENGL", "cColorBits       : 24\n", "cAlphaShift      : 24\n",
          "WGL_PIXEL_TYPE_ARB              : WGL_TYPE_RGBA_ARB\n", "WGL_ALPHA_BITS_ARB              : 8\n",
          "Pending errors\n--------------\nnone\n", "both can be used:     no"})
        EXPECT_TRUE(Has(report, line)) << line;
    EXPECT_FALSE(Has(report, "INVALID"));

    EXPECT_EQ(Run({"--out", (m_folder / "report.txt").string()}), 0) << m_err.str();
    EXPECT_EQ(m_out.str(), "");
    EXPECT_EQ(m_temporary.Read("report.txt"), report);
}

TEST_F(GlReportProgram, ExtensionsOfTheWindowSystemAreThoseOfThePort)
{
    CommonUI::CTableGLEntryPoints table;
    table.Set(
        "wglGetExtensionsStringARB", +[](CommonUI::HDC) { return "WGL_ARB_pixel_format"; });
    for (const char* name :
         {"wglGetPixelFormatAttribivARB", "wglGetPixelFormatAttribfvARB", "wglChoosePixelFormatARB"})
        table.Set(
            name, +[] { return 0; });
    const CommonUI::CServiceScope<CommonUI::CGLEntryPoints> scope(table);
    const std::string report = Report();
    EXPECT_TRUE(Has(report, "WGL_ARB_pixel_format: yes\nWGL_ARB_pbuffer:      no\nboth can be used:     no"));
    EXPECT_TRUE(Has(report, "CWGL_ARB_extensions_string: \"WGL_ARB_pixel_format\""));
}

TEST_F(GlReportProgram, WhatGoesWrongIsSaidInOneLine)
{
    const std::tuple<std::vector<std::string>, GlReport::FContextMaker, int, std::string> rows[]{
        {{}, MakeNone, 2, "gl_report: there is no OpenGL to report on: nothing to draw on\n"},
        {{"--out"}, MakeNone, 1, "gl_report: --out needs a value\n"},
        {{"--out", ""}, MakeNone, 1, "gl_report: --out needs a value\n"},
        {{"--out", "a\xFF"}, MakeNone, 1, "gl_report: --out: \"a\xEF\xBF\xBD\" is no text in UTF-8\n"},
        {{"--loud"}, MakeNone, 1, "gl_report: there is no option \"--loud\"\n"},
        {{"--out", "no/such/report"}, Offscreen::CContext::Make, 1, "gl_report: no/such/report: "},
        {{"--help", "--out"}, MakeNone, 0, ""},
        {{"--help"}, MakeNone, 0, ""},
    };
    for (const auto& [arguments, makeContext, status, message] : rows) {
        EXPECT_EQ(Run(arguments, makeContext), status) << message;
        EXPECT_TRUE(m_err.str().starts_with(message)) << m_err.str();
        EXPECT_LE(std::ranges::count(m_err.str(), '\n'), 1);
    }
    std::ostream full(nullptr);
    m_err.str({});
    EXPECT_EQ(GlReport::RunProgram({}, full, m_err), 1);
    EXPECT_EQ(m_err.str(), "gl_report: the report cannot be written\n");
}
