#include "gl/PixelFormatText.h"

#include <cstdint>
#include <span>

#if defined(_WIN32)
#include <windows.h>
#endif

namespace CommonUI
{

namespace
{

struct SNamedMask {
    std::uint32_t mask;
    std::u16string_view name;
};

constexpr SNamedMask c_flags[] = {
    {0x00000004, u"PFD_DRAW_TO_WINDOW "}, // the blank belongs to the known form of the text
    {0x00000008, u"PFD_DRAW_TO_BITMAP"},
    {0x00000010, u"PFD_SUPPORT_GDI"},
    {0x00000020, u"PFD_SUPPORT_OPENGL"},
    {0x00001000, u"PFD_GENERIC_ACCELERATED"},
    {0x00000040, u"PFD_GENERIC_FORMAT"},
    {0x00000080, u"PFD_NEED_PALETTE"},
    {0x00000100, u"PFD_NEED_SYSTEM_PALETTE"},
    {0x00000001, u"PFD_DOUBLEBUFFER"},
    {0x00000002, u"PFD_STEREO"},
    {0x00000800, u"PFD_SWAP_LAYER_BUFFERS"},
    {0x20000000, u"PFD_DEPTH_DONTCARE"},
    {0x40000000, u"PFD_DOUBLEBUFFER_DONTCARE"},
    {0x80000000, u"PFD_STEREO_DONTCARE"},
    {0x00000400, u"PFD_SWAP_COPY"},
    {0x00000200, u"PFD_SWAP_EXCHANGE"},
};

constexpr SNamedMask c_pixelTypes[] = {
    {0, u"PFD_TYPE_RGBA"},
    {1, u"PFD_TYPE_COLORINDEX"},
};

// The names whose bits are set; a name without bits stands for the value 0.
CStr JoinNames(std::uint32_t value, std::span<const SNamedMask> names)
{
    CStr text;
    for (const SNamedMask& row : names) {
        if (row.mask == 0 ? value != 0 : (value & row.mask) == 0)
            continue;
        if (!text.IsEmpty())
            text += u" | ";
        text += row.name;
    }
    return text;
}

CStr Decimal(std::int32_t value)
{
    return CStr::Format(u"%d", value);
}

} // namespace

CStr PixelFormatDescriptorString(const PIXELFORMATDESCRIPTOR& pfd, const CStr& separator)
{
    const struct {
        std::u16string_view name;
        CStr value;
    } fields[] = {
        {u"nSize", Decimal(pfd.nSize)},
        {u"nVersion", Decimal(pfd.nVersion)},
        {u"dwFlags", JoinNames(pfd.dwFlags, c_flags)},
        {u"iPixelType", JoinNames(pfd.iPixelType, c_pixelTypes)},
        {u"cColorBits", Decimal(pfd.cColorBits)},
        {u"cRedBits", Decimal(pfd.cRedBits)},
        {u"cRedShift", Decimal(pfd.cRedShift)},
        {u"cGreenBits", Decimal(pfd.cGreenBits)},
        {u"cGreenShift", Decimal(pfd.cGreenShift)},
        {u"cBlueBits", Decimal(pfd.cBlueBits)},
        {u"cBlueShift", Decimal(pfd.cBlueShift)},
        {u"cAlphaBits", Decimal(pfd.cAlphaBits)},
        {u"cAlphaShift", Decimal(pfd.cAlphaShift)},
        {u"cAccumBits", Decimal(pfd.cAccumBits)},
        {u"cAccumRedBits", Decimal(pfd.cAccumRedBits)},
        {u"cAccumGreenBits", Decimal(pfd.cAccumGreenBits)},
        {u"cAccumBlueBits", Decimal(pfd.cAccumBlueBits)},
        {u"cAccumAlphaBits", Decimal(pfd.cAccumAlphaBits)},
        {u"cDepthBits", Decimal(pfd.cDepthBits)},
        {u"cStencilBits", Decimal(pfd.cStencilBits)},
        {u"cAuxBuffers", Decimal(pfd.cAuxBuffers)},
        {u"iLayerType", Decimal(pfd.iLayerType)},
        {u"bReserved", Decimal(pfd.bReserved)},
        {u"dwLayerMask", Decimal(static_cast<std::int32_t>(pfd.dwLayerMask))},
        {u"dwVisibleMask", Decimal(static_cast<std::int32_t>(pfd.dwVisibleMask))},
        {u"dwDamageMask", Decimal(static_cast<std::int32_t>(pfd.dwDamageMask))},
    };
    CStr text;
    for (const auto& field : fields) {
        if (!text.IsEmpty())
            text += separator;
        text += CStr::Format(u"%-16s : %s", field.name, field.value);
    }
    return text;
}

} // namespace CommonUI
