#include "programs/gl_report/Program.h"

#include "platform/GLEntryPoints.h"
#include "platform/PixelFormat.h"
#include "platform/TableGLEntryPoints.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace
{

struct SAnswer {
    int status;
    std::string out;
    std::string err;
};

SAnswer RunReport(const std::vector<const char*>& arguments,
                  const GlReport::FContextMaker& makeContext = Offscreen::CContext::Make)
{
    std::ostringstream out;
    std::ostringstream err;
    const int status = GlReport::RunProgram(arguments, out, err, makeContext);
    return {status, out.str(), err.str()};
}

std::unique_ptr<Offscreen::CContext> MakeNone(int, int, std::string& reason)
{
    reason = "nothing to draw on";
    return nullptr;
}

} // namespace

TEST(GlReportProgram, ReportHasWhatSupportAsksFor)
{
    const SAnswer answer = RunReport({});
    ASSERT_EQ(answer.status, 0) << answer.err;
    for (const char* line :
         {"OpenGL Renderer: ", "OpenGL Extensions: \"GL_", "GL_UNPACK_ALIGNMENT:   4\n",
          "Attribute stack: 0 (", "ModelView stack: 1 (", "Current MatrixMode: GL_MODELVIEW (5888)\n",
          "dwFlags          : PFD_DRAW_TO_BITMAP | PFD_SUPPORT_OPENGL\n", "cColorBits       : 24\n",
          "cAlphaShift      : 24\n", "WGL_PIXEL_TYPE_ARB              : WGL_TYPE_RGBA_ARB\n",
          "WGL_ALPHA_BITS_ARB              : 8\n", "Pending errors\n--------------\nnone\n"})
        EXPECT_NE(answer.out.find(line), std::string::npos) << line;
    EXPECT_EQ(answer.out.find("INVALID"), std::string::npos);
}

TEST(GlReportProgram, ExtensionsOfTheWindowSystemAreThoseOfThePort)
{
    EXPECT_NE(RunReport({}).out.find("both can be used:     no"), std::string::npos);

    CommonUI::CTableGLEntryPoints table;
    table.Set(
        "wglGetExtensionsStringARB", +[](CommonUI::HDC) { return "WGL_ARB_pixel_format"; });
    for (const char* name :
         {"wglGetPixelFormatAttribivARB", "wglGetPixelFormatAttribfvARB", "wglChoosePixelFormatARB"})
        table.Set(
            name, +[] { return 0; });
    const CommonUI::CServiceScope<CommonUI::CGLEntryPoints> scope(table);
    const SAnswer answer = RunReport({});
    EXPECT_NE(
        answer.out.find("WGL_ARB_pixel_format: yes\nWGL_ARB_pbuffer:      no\nboth can be used:     no"),
        std::string::npos);
    EXPECT_NE(answer.out.find("CWGL_ARB_extensions_string: \"WGL_ARB_pixel_format\""), std::string::npos);
}

TEST(GlReportProgram, ReportGoesToAFile)
{
    const fs::path file = fs::temp_directory_path() / "gl_report-test.txt";
    const std::string name = file.string();
    const SAnswer answer = RunReport({"--out", name.c_str()});
    EXPECT_EQ(answer.status, 0) << answer.err;
    EXPECT_EQ(answer.out, "");
    std::ifstream stream(file);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), RunReport({}).out);
    fs::remove(file);
}

TEST(GlReportProgram, WhatGoesWrongIsSaidInOneLine)
{
    const struct {
        std::vector<const char*> arguments;
        GlReport::FContextMaker makeContext;
        int status;
        const char* err;
    } rows[]{
        {{}, MakeNone, 2, "gl_report: there is no OpenGL to report on: nothing to draw on\n"},
        {{"--out"}, MakeNone, 1, "gl_report: --out needs a value\n"},
        {{"--out", ""}, MakeNone, 1, "gl_report: --out needs a value\n"},
        {{"--out", "a\xFF"}, MakeNone, 1, "gl_report: --out: \"a\xEF\xBF\xBD\" is no text in UTF-8\n"},
        {{"--help", "--out"}, MakeNone, 0, ""},
        {{"--loud"}, MakeNone, 1, "gl_report: there is no option \"--loud\"\n"},
        {{"--out", "no/such/folder/report.txt"},
         Offscreen::CContext::Make,
         1,
         "gl_report: no/such/folder/report.txt: "},
        {{"--help"}, MakeNone, 0, ""},
    };
    for (const auto& row : rows) {
        const SAnswer answer = RunReport(row.arguments, row.makeContext);
        EXPECT_EQ(answer.status, row.status) << row.err;
        EXPECT_TRUE(answer.err.starts_with(row.err)) << answer.err;
        EXPECT_LE(std::count(answer.err.begin(), answer.err.end(), '\n'), 1);
    }
}

TEST(GlReportProgram, ReportThatCannotBeWrittenIsAFailure)
{
    std::ostringstream err;
    std::ostream full(nullptr);
    EXPECT_EQ(GlReport::RunProgram({}, full, err), 1);
    EXPECT_EQ(err.str(), "gl_report: the report cannot be written\n");
}
