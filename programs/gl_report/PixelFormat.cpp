#include "programs/gl_report/PixelFormat.h"

#if defined(_WIN32)
#include <windows.h>
#endif

#include <cstdint>
#include <initializer_list>

namespace GlReport
{

namespace
{

std::uint8_t Byte(int number)
{
    return static_cast<std::uint8_t>(number);
}

std::uint32_t FlagsOf(const Offscreen::SPixelBits& bits)
{
    constexpr std::uint32_t c_doubleBuffer = 0x1;
    constexpr std::uint32_t c_stereo = 0x2;
    constexpr std::uint32_t c_drawToBitmap = 0x8;
    constexpr std::uint32_t c_supportOpenGL = 0x20;
    return c_drawToBitmap | c_supportOpenGL | (bits.doubleBuffered ? c_doubleBuffer : 0) |
           (bits.stereo ? c_stereo : 0);
}

int AccumBits(const Offscreen::SPixelBits& bits)
{
    return bits.accumRed + bits.accumGreen + bits.accumBlue + bits.accumAlpha;
}

} // namespace

CommonUI::PIXELFORMATDESCRIPTOR MakePixelFormat(const Offscreen::SPixelBits& bits)
{
    CommonUI::PIXELFORMATDESCRIPTOR format{};
    format.nSize = sizeof format;
    format.nVersion = 1;
    format.dwFlags = FlagsOf(bits);
    format.cColorBits = Byte(bits.red + bits.green + bits.blue);
    format.cRedBits = Byte(bits.red);
    format.cGreenBits = Byte(bits.green);
    format.cGreenShift = Byte(bits.red);
    format.cBlueBits = Byte(bits.blue);
    format.cBlueShift = Byte(bits.red + bits.green);
    format.cAlphaBits = Byte(bits.alpha);
    format.cAlphaShift = Byte(bits.red + bits.green + bits.blue);
    format.cAccumBits = Byte(AccumBits(bits));
    format.cAccumRedBits = Byte(bits.accumRed);
    format.cAccumGreenBits = Byte(bits.accumGreen);
    format.cAccumBlueBits = Byte(bits.accumBlue);
    format.cAccumAlphaBits = Byte(bits.accumAlpha);
    format.cDepthBits = Byte(bits.depth);
    format.cStencilBits = Byte(bits.stencil);
    format.cAuxBuffers = Byte(bits.auxBuffers);
    return format;
}

SPixelAttributes MakePixelAttributes(const Offscreen::SPixelBits& bits)
{
    struct SAttribute {
        int name;
        int value;
    };
    constexpr int c_typeRgba = 0x202B;
    const std::initializer_list<SAttribute> rows{
        {0x2001, 0},                                 // WGL_DRAW_TO_WINDOW_ARB
        {0x2010, 1},                                 // WGL_SUPPORT_OPENGL_ARB
        {0x2011, bits.doubleBuffered},               // WGL_DOUBLE_BUFFER_ARB
        {0x2012, bits.stereo},                       // WGL_STEREO_ARB
        {0x2013, c_typeRgba},                        // WGL_PIXEL_TYPE_ARB
        {0x2014, bits.red + bits.green + bits.blue}, // WGL_COLOR_BITS_ARB
        {0x2015, bits.red},                          // WGL_RED_BITS_ARB
        {0x2017, bits.green},                        // WGL_GREEN_BITS_ARB
        {0x2019, bits.blue},                         // WGL_BLUE_BITS_ARB
        {0x201B, bits.alpha},                        // WGL_ALPHA_BITS_ARB
        {0x201D, AccumBits(bits)},                   // WGL_ACCUM_BITS_ARB
        {0x201E, bits.accumRed},                     // WGL_ACCUM_RED_BITS_ARB
        {0x201F, bits.accumGreen},                   // WGL_ACCUM_GREEN_BITS_ARB
        {0x2020, bits.accumBlue},                    // WGL_ACCUM_BLUE_BITS_ARB
        {0x2021, bits.accumAlpha},                   // WGL_ACCUM_ALPHA_BITS_ARB
        {0x2022, bits.depth},                        // WGL_DEPTH_BITS_ARB
        {0x2023, bits.stencil},                      // WGL_STENCIL_BITS_ARB
        {0x2024, bits.auxBuffers},                   // WGL_AUX_BUFFERS_ARB
        {0x202D, 1},                                 // WGL_DRAW_TO_PBUFFER_ARB
    };
    SPixelAttributes list;
    for (const auto& [name, value] : rows) {
        list.attributes.push_back(name);
        list.values.push_back(value);
    }
    return list;
}

} // namespace GlReport
