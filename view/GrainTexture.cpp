#include "view/GrainTexture.h"

#include "gl/GLStack.h"
#include "platform/GLEntryPoints.h"
#include "view/detail/OpenGL.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace SurfaceView
{

namespace
{

constexpr std::size_t c_leastSide = 64;
constexpr std::size_t c_mostSide = 2048; // that every driver has
// Lines that lie closer than pixels stay visible a little longer than they would for the mean.
constexpr float c_sharper = -1;

#ifdef _WIN32
using FActiveTexture = void(__stdcall*)(GLenum);
#else
using FActiveTexture = void (*)(GLenum);
#endif

// Null where the driver has one texture at a time.
FActiveTexture FindActiveTexture()
{
    return reinterpret_cast<FActiveTexture>(CommonUI::GetGLEntryPoints().GetProcedure("glActiveTexture"));
}

// About so many pixels, and a power of two, as old drivers want it.
std::size_t ToSide(double pixels)
{
    return std::clamp(std::bit_ceil(static_cast<std::size_t>(0.75 * pixels)), c_leastSide, c_mostSide);
}

// The texture's coordinate as a function of the block's along one side.
// @param half of the block's length
std::array<float, 4> PlaneOf(std::size_t axis, double half, std::size_t points, std::size_t first,
                             std::size_t count)
{
    // Points lie in the middles of their rectangles, and the block ends at points.
    const auto intervals = static_cast<double>(points - 1);
    std::array<float, 4> plane{};
    plane[axis] = static_cast<float>(intervals / (2 * half) / static_cast<double>(count));
    plane[3] =
        static_cast<float>((intervals / 2 + 0.5 - static_cast<double>(first)) / static_cast<double>(count));
    return plane;
}

void Generate(GLenum coordinate, GLenum capability, const std::array<float, 4>& plane)
{
    glTexGeni(coordinate, GL_TEXTURE_GEN_MODE, GL_OBJECT_LINEAR);
    glTexGenfv(coordinate, GL_OBJECT_PLANE, plane.data());
    glEnable(capability);
}

} // namespace

CGrainTexture::CGrainTexture(const CommonUI::Analysis::SGrainMap& map, const SGrainColors& colors,
                             std::uint32_t chosen, const SGridPart& part, std::size_t side)
    : m_part(part)
    , m_points(map.points)
    , m_lines(map.lines)
{
    CommonUI::CGLStack stack;
    if (!stack.PushAttrib(GL_TEXTURE_BIT))
        return;
    const double pixels = static_cast<double>(side) / static_cast<double>(std::max(part.points, part.lines));
    const std::size_t width = ToSide(static_cast<double>(part.points) * pixels);
    const std::size_t height = ToSide(static_cast<double>(part.lines) * pixels);
    const std::vector<std::uint32_t> picture = DrawGrains(map, colors, chosen, part, width, height);
    glGenTextures(1, &m_name);
    glBindTexture(GL_TEXTURE_2D, m_name);
    glTexParameteri(GL_TEXTURE_2D, GL_GENERATE_MIPMAP, GL_TRUE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, static_cast<GLsizei>(width), static_cast<GLsizei>(height), 0,
                 GL_BGRA, GL_UNSIGNED_INT_8_8_8_8_REV, picture.data());
}

CGrainTexture::~CGrainTexture()
{
    glDeleteTextures(1, &m_name);
}

void CGrainTexture::Bind(const SBox& box) const
{
    const FActiveTexture activate = FindActiveTexture();
    if (!activate)
        return;
    activate(GL_TEXTURE1);
    glBindTexture(GL_TEXTURE_2D, m_name);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_DECAL);
    glTexEnvf(GL_TEXTURE_FILTER_CONTROL, GL_TEXTURE_LOD_BIAS, c_sharper);
    Generate(GL_S, GL_TEXTURE_GEN_S, PlaneOf(0, box.x, m_points, m_part.column, m_part.points));
    Generate(GL_T, GL_TEXTURE_GEN_T, PlaneOf(1, box.y, m_lines, m_part.line, m_part.lines));
    glEnable(GL_TEXTURE_2D);
    activate(GL_TEXTURE0);
}

} // namespace SurfaceView
