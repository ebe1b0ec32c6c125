#include "gl/PixelFormatText.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace CommonUI
{

namespace
{

struct SNamedNumber {
    int number;
    std::u16string_view name;
};

constexpr SNamedNumber c_accelerations[] = {
    {0x2025, u"WGL_NO_ACCELERATION_ARB"},
    {0x2026, u"WGL_GENERIC_ACCELERATION_ARB"},
    {0x2027, u"WGL_FULL_ACCELERATION_ARB"},
};

constexpr SNamedNumber c_swapMethods[] = {
    {0x2028, u"WGL_SWAP_EXCHANGE_ARB"},
    {0x2029, u"WGL_SWAP_COPY_ARB"},
    {0x202A, u"WGL_SWAP_UNDEFINED_ARB"},
};

constexpr SNamedNumber c_pixelTypes[] = {
    {0x202B, u"WGL_TYPE_RGBA_ARB"},
    {0x202C, u"WGL_TYPE_COLORINDEX_ARB"},
};

struct SAttribute {
    int number;
    std::u16string_view name;
    std::span<const SNamedNumber> values{}; // empty where the value is a plain number
};

constexpr SAttribute c_attributes[] = {
    {0x2001, u"WGL_DRAW_TO_WINDOW_ARB"},
    {0x2002, u"WGL_DRAW_TO_BITMAP_ARB"},
    {0x2003, u"WGL_ACCELERATION_ARB", c_accelerations},
    {0x2004, u"WGL_NEED_PALETTE_ARB"},
    {0x2005, u"WGL_NEED_SYSTEM_PALETTE_ARB"},
    {0x2006, u"WGL_SWAP_LAYER_BUFFERS_ARB"},
    {0x2007, u"WGL_SWAP_METHOD_ARB", c_swapMethods},
    {0x2008, u"WGL_NUMBER_OVERLAYS_ARB"},
    {0x2009, u"WGL_NUMBER_UNDERLAYS_ARB"},
    {0x200A, u"WGL_TRANSPARENT_ARB"},
    {0x200C, u"WGL_SHARE_DEPTH_ARB"},
    {0x200D, u"WGL_SHARE_STENCIL_ARB"},
    {0x200E, u"WGL_SHARE_ACCUM_ARB"},
    {0x200F, u"WGL_SUPPORT_GDI_ARB"},
    {0x2010, u"WGL_SUPPORT_OPENGL_ARB"},
    {0x2011, u"WGL_DOUBLE_BUFFER_ARB"},
    {0x2012, u"WGL_STEREO_ARB"},
    {0x2013, u"WGL_PIXEL_TYPE_ARB", c_pixelTypes},
    {0x2014, u"WGL_COLOR_BITS_ARB"},
    {0x2015, u"WGL_RED_BITS_ARB"},
    {0x2016, u"WGL_RED_SHIFT_ARB"},
    {0x2017, u"WGL_GREEN_BITS_ARB"},
    {0x2018, u"WGL_GREEN_SHIFT_ARB"},
    {0x2019, u"WGL_BLUE_BITS_ARB"},
    {0x201A, u"WGL_BLUE_SHIFT_ARB"},
    {0x201B, u"WGL_ALPHA_BITS_ARB"},
    {0x201C, u"WGL_ALPHA_SHIFT_ARB"},
    {0x201D, u"WGL_ACCUM_BITS_ARB"},
    {0x201E, u"WGL_ACCUM_RED_BITS_ARB"},
    {0x201F, u"WGL_ACCUM_GREEN_BITS_ARB"},
    {0x2020, u"WGL_ACCUM_BLUE_BITS_ARB"},
    {0x2021, u"WGL_ACCUM_ALPHA_BITS_ARB"},
    {0x2022, u"WGL_DEPTH_BITS_ARB"},
    {0x2023, u"WGL_STENCIL_BITS_ARB"},
    {0x2024, u"WGL_AUX_BUFFERS_ARB"},
    {0x202D, u"WGL_DRAW_TO_PBUFFER_ARB"},
    {0x202E, u"WGL_MAX_PBUFFER_PIXELS_ARB"},
    {0x202F, u"WGL_MAX_PBUFFER_WIDTH_ARB"},
    {0x2030, u"WGL_MAX_PBUFFER_HEIGHT_ARB"},
    {0x2037, u"WGL_TRANSPARENT_RED_VALUE_ARB"},
    {0x2038, u"WGL_TRANSPARENT_GREEN_VALUE_ARB"},
    {0x2039, u"WGL_TRANSPARENT_BLUE_VALUE_ARB"},
    {0x203A, u"WGL_TRANSPARENT_ALPHA_VALUE_ARB"},
    {0x203B, u"WGL_TRANSPARENT_INDEX_VALUE_ARB"},
};

template<class TRow>
const TRow* FindNumber(std::span<const TRow> rows, int number)
{
    const auto found = std::ranges::find(rows, number, &TRow::number);
    return found == rows.end() ? nullptr : &*found;
}

CStr GetValueText(const SAttribute& attribute, int value)
{
    if (attribute.values.empty())
        return CStr::Format(u"%d", value);
    const SNamedNumber* found = FindNumber(attribute.values, value);
    return found ? CStr(found->name) : CStr::Format(u"INVALID (%d)", value);
}

} // namespace

CStr ExtPixelFormatDescriptorString(unsigned int count, const int* attributes, const int* values,
                                    const CStr& separator)
{
    constexpr SAttribute c_unknown{0, u"INVALID"};
    CStr text;
    for (unsigned int i = 0; i < count; ++i) {
        const SAttribute* found = FindNumber(std::span<const SAttribute>(c_attributes), attributes[i]);
        const SAttribute& attribute = found ? *found : c_unknown;
        if (i > 0)
            text += separator;
        text += CStr::Format(u"%-31s : %s", attribute.name, GetValueText(attribute, values[i]));
    }
    return text;
}

} // namespace CommonUI
