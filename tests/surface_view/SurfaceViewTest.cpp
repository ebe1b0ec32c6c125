#include "programs/surface_view/Program.h"
#include "view/detail/OpenGL.h"

#include "programs/surface_view/ColorTable.h"
#include "programs/surface_view/FreeTypeFont.h"
#include "TestFolders.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/ProgramTesting.h"
#include "view/Drawing.h"
#include "view/StackDepths.h"

#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

namespace fs = std::filesystem;
using namespace SurfaceView;

namespace
{

const std::string c_sample = COMMONUI_EXAMPLE_DATA "/ground_steel.sdf";

using CPixel = std::array<png_byte, 3>;

struct SPng {
    png_uint_32 width = 0;
    png_uint_32 height = 0;
    std::vector<CPixel> pixels{};
};

SPng ReadPng(const std::string& path)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path.c_str()))
        return {};
    image.format = PNG_FORMAT_RGB;
    SPng png{.width = image.width, .height = image.height};
    png.pixels.resize(PNG_IMAGE_SIZE(image) / sizeof(CPixel));
    png_image_finish_read(&image, nullptr, png.pixels.data(), 0, nullptr);
    return png;
}

class ViewProgram : public CProgramTest
{
protected:
    int Run(const std::vector<std::string>& arguments,
            const FContextMaker& makeContext = Offscreen::CContext::Make)
    {
        return RunWith(RunProgram, arguments, makeContext);
    }
    std::string Picture() const { return (m_folder / "picture.png").string(); }
};

std::unique_ptr<Offscreen::CContext> MakeNone(int, int, std::string& reason)
{
    reason = "nothing to draw on";
    return nullptr;
}

// A scene of a small surface.
SScene MakeScene(const CFont& font, CommonUI::SSize size)
{
    CommonUI::Analysis::SSurface surface{.points = 3, .lines = 3, .dx = 1e-6, .dy = 1e-6};
    surface.heights = {0, 1e-7, 0, 2e-7, 3e-7, 1e-7, 0, 0, 1e-7};
    const SDirection direction{30, 35};
    SScene scene{.box = MakeBox(surface, 0), .colors = GetColorTable("Grey"), .eye = direction.ToEye()};
    scene.mesh = MakeMesh(surface, scene.box);
    scene.layout = MakeLayout(scene.box, direction, false, {u"Title", u"Subtitle"}, size, 1, font);
    return scene;
}

// What drawing could leave behind, in lines of a name's number and values.
std::string ReadState()
{
    std::vector<GLenum> names = {GL_LIGHT0, GL_TEXTURE_BINDING_1D};
    for (GLenum name = GL_CURRENT_COLOR; name <= GL_TEXTURE_2D; ++name) // where most of the state is
        names.push_back(name);
    std::ostringstream state;
    for (const GLenum name : names) {
        std::array<double, 16> values{};
        glGetDoublev(name, values.data());
        if (glGetError() != GL_NO_ERROR)
            continue;
        state << std::hex << name << ':';
        for (const double value : values)
            state << ' ' << value;
        state << '\n';
    }
    return state.str();
}

} // namespace

TEST_F(ViewProgram, PictureHasItsSizeColorsAndBackground)
{
    for (const char* projection : {"perspective", "orthographic"}) {
        ASSERT_EQ(Run({c_sample, "--out", Picture(), "--size", "300x200", "--projection", projection,
                       "--color", "CSQuickLaunchGlow"}),
                  0)
            << m_err.str();
        EXPECT_EQ(m_out.str(), "State restored: attribute stack 0, model-view stack 1, projection stack 1, "
                               "matrix mode GL_MODELVIEW\nPicture written: " +
                                   Picture() + "\n");
        const SPng png = ReadPng(Picture());
        EXPECT_EQ(png.width, 300u);
        EXPECT_EQ(png.height, 200u);
        for (const std::size_t corner : {0u, 299u, 199u * 300, 200u * 300 - 1})
            EXPECT_EQ(png.pixels.at(corner), (CPixel{255, 255, 255}));
        // Text is in the upper half only on the left: the picture is not upside down.
        const auto isDark = [](const CPixel& pixel) { return pixel[0] + pixel[1] + pixel[2] < 250; };
        const auto rows = [&](int first, int last) {
            return std::count_if(png.pixels.begin() + first * 300, png.pixels.begin() + last * 300, isDark);
        };
        EXPECT_GT(rows(5, 20), 40);
        EXPECT_LT(rows(185, 200), 20);
        // Of all scales only this one has bright reds.
        EXPECT_GT(std::ranges::count_if(
                      png.pixels,
                      [](const CPixel& pixel) { return pixel[0] > 150 && pixel[1] < 80 && pixel[2] < 60; }),
                  500);
    }
}

TEST_F(ViewProgram, PicturesAsLongAsDriversMakeThem)
{
    for (const char* size : {"4096x100", "100x1366"}) {
        EXPECT_EQ(Run({c_sample, "--out", Picture(), "--size", size}), 0) << m_err.str();
        const SPng png = ReadPng(Picture());
        EXPECT_EQ(std::to_string(png.width) + "x" + std::to_string(png.height), size);
    }
}

TEST_F(ViewProgram, WhatGoesWrongIsSaidInOneLineAndLeavesNoPicture)
{
    const std::string line = (m_folder / "line.txt").string();
    m_temporary.Write(line, "# Width: 3 um\n# Height: 1 um\n# Value units: m\n1 2 3\n");
    const std::string missing = (m_folder / "missing.sdf").string();
    const std::string nowhere = (m_folder / "no" / "picture.png").string();
    const auto real = Offscreen::CContext::Make;
    const std::tuple<std::vector<std::string>, FContextMaker, std::string> rows[]{
        {{missing, "--out", Picture()}, real, missing},
        {{line, "--out", Picture()}, real, line + ": a picture needs at least two lines of two points\n"},
        {{c_sample, "--out", nowhere}, real, nowhere},
        {{c_sample, "--out", Picture(), "--color", "Basic (Doc)"},
         real,
         "--color: \"Basic (Doc)\" is none of Default 2D, Default 3D, "},
        {{c_sample, "--out", Picture(), "--size", "0x0"}, real, "--size: \"0\" is no number of pixels"},
        {{c_sample, "--out", Picture()}, MakeNone, "there is no OpenGL to draw with: nothing to draw on\n"},
    };
    for (const auto& [arguments, makeContext, message] : rows) {
        EXPECT_EQ(Run(arguments, makeContext), 1);
        EXPECT_TRUE(m_err.str().starts_with("surface_view: " + message)) << m_err.str();
        EXPECT_EQ(std::ranges::count(m_err.str(), '\n'), 1) << m_err.str();
        EXPECT_EQ(m_out.str(), "");
        EXPECT_FALSE(fs::exists(Picture()));
    }
}

// Without smoothing, so that lines are of one color; a line along a wall is tens of pixels long.
TEST_F(ViewProgram, WallsHaveTheLinesOfTheAxes)
{
    constexpr CommonUI::SSize size{400, 300};
    std::string reason;
    const auto context = Offscreen::CContext::Make(size.cx, size.cy, reason);
    ASSERT_TRUE(context) << reason;
    const CFreeTypeFont font;
    SScene scene = MakeScene(font, size);
    const auto countGrid = [&] {
        Draw(scene, size, font);
        const std::vector<std::uint8_t> bytes = ReadPixels(size).bytes;
        std::ptrdiff_t count = 0;
        for (std::size_t i = 0; i < bytes.size(); i += 4) // red, green, blue, opacity
            count += CPixel{bytes[i], bytes[i + 1], bytes[i + 2]} == CPixel{208, 212, 217};
        return count;
    };
    const auto all = countGrid();
    for (SAxis& axis : scene.layout.axes) {
        const auto ticks = std::exchange(axis.ticks, {});
        EXPECT_GT(all - countGrid(), 60) << &axis - scene.layout.axes.data();
        axis.ticks = ticks;
    }
}

TEST_F(ViewProgram, DrawingLeavesTheStateAsItWas)
{
    constexpr CommonUI::SSize size{200, 150};
    std::string reason;
    const auto context = Offscreen::CContext::Make(size.cx, size.cy, reason);
    ASSERT_TRUE(context) << reason;
    const CFreeTypeFont font;
    const SScene scene = MakeScene(font, size);
    glViewport(3, 4, 50, 60);
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glScaled(2, 3, 4);
    glColor3ub(10, 20, 30);
    glRasterPos2d(0.1, 0.1);
    const std::string before = ReadState();
    Draw(scene, size, font);
    EXPECT_EQ(ReadState(), before);

    // The attribute stack overflows at one depth of the drawing after the other.
    const CDiagnosticsCapture quiet;
    int limit = 0;
    glGetIntegerv(GL_MAX_ATTRIB_STACK_DEPTH, &limit);
    for (int left = 0; left < 4; ++left) {
        int depth = 0;
        for (glGetIntegerv(GL_ATTRIB_STACK_DEPTH, &depth); depth < limit - left; ++depth)
            glPushAttrib(GL_CURRENT_BIT);
        for (; depth > limit - left; --depth)
            glPopAttrib();
        const std::string full = ReadState();
        EXPECT_THROW(Draw(scene, size, font), std::runtime_error);
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        EXPECT_EQ(ReadState(), full) << left;
    }
}

TEST_F(ViewProgram, StateThatIsNotRestoredIsAnError)
{
    const SStackDepths before{.attributes = 0, .modelView = 1, .projection = 1, .matrixMode = GL_MODELVIEW};
    CheckRestored(before, before);
    EXPECT_THROW(CheckRestored(before, {.attributes = 2, .modelView = 1, .projection = 3}),
                 std::runtime_error);
}
