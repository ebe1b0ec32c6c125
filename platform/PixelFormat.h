#pragma once

/// @file
/// The device context and the pixel format of the window system. On Windows they are the system's own;
/// elsewhere they have the same fields, so that what reads them is the same everywhere.

#include <cstdint>

struct HDC__; // NOLINT(bugprone-reserved-identifier): the name that windows.h gives it
#if defined(_WIN32)
struct tagPIXELFORMATDESCRIPTOR;
#endif

namespace CommonUI
{

/// Names a device context of the window system. The library only passes it on.
using HDC = ::HDC__*;

#if defined(_WIN32)
using PIXELFORMATDESCRIPTOR = ::tagPIXELFORMATDESCRIPTOR;
#else
/// The pixels that a device context can show, as WGL describes them.
struct PIXELFORMATDESCRIPTOR {
    std::uint16_t nSize = 40;         ///< of this record in bytes
    std::uint16_t nVersion = 1;       ///< of this record
    std::uint32_t dwFlags = 0;        ///< bits PFD_...
    std::uint8_t iPixelType = 0;      ///< 0 for colours of red, green and blue, 1 for indices into a palette
    std::uint8_t cColorBits = 0;      ///< bits of a colour, without those of alpha
    std::uint8_t cRedBits = 0;        ///< bits of red
    std::uint8_t cRedShift = 0;       ///< how far up in a pixel the bits of red begin
    std::uint8_t cGreenBits = 0;      ///< bits of green
    std::uint8_t cGreenShift = 0;     ///< how far up in a pixel the bits of green begin
    std::uint8_t cBlueBits = 0;       ///< bits of blue
    std::uint8_t cBlueShift = 0;      ///< how far up in a pixel the bits of blue begin
    std::uint8_t cAlphaBits = 0;      ///< bits of alpha
    std::uint8_t cAlphaShift = 0;     ///< how far up in a pixel the bits of alpha begin
    std::uint8_t cAccumBits = 0;      ///< bits of the accumulation buffer in all
    std::uint8_t cAccumRedBits = 0;   ///< of them those of red
    std::uint8_t cAccumGreenBits = 0; ///< of them those of green
    std::uint8_t cAccumBlueBits = 0;  ///< of them those of blue
    std::uint8_t cAccumAlphaBits = 0; ///< of them those of alpha
    std::uint8_t cDepthBits = 0;      ///< bits of depth
    std::uint8_t cStencilBits = 0;    ///< bits of the stencil
    std::uint8_t cAuxBuffers = 0;     ///< a number of buffers
    std::uint8_t iLayerType = 0;      ///< not used any more
    std::uint8_t bReserved = 0;       ///< numbers of overlay and underlay planes
    std::uint32_t dwLayerMask = 0;    ///< not used any more
    std::uint32_t dwVisibleMask = 0;  ///< the transparent colour of an underlay plane
    std::uint32_t dwDamageMask = 0;   ///< not used any more
};
#endif

} // namespace CommonUI
