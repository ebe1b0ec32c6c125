#include "programs/surface_view/FreeTypeFont.h"

#if defined(_WIN32)
#include <windows.h>
#endif

#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace SurfaceView
{

using CommonUI::SSize;

struct CFreeTypeFont::SFace {
    std::string bytes{}; // of the file
    FT_Library library = nullptr;
    FT_Face face = nullptr;

    SFace() = default;
    SFace(const SFace&) = delete;
    SFace& operator=(const SFace&) = delete;
    ~SFace() { FT_Done_FreeType(library); } // with its faces; does nothing without a library

    // Pixels of a length that the font gives in 64ths.
    static int Pixels(FT_Pos length) { return static_cast<int>((length + 32) >> 6); }

    // Gives each glyph of a line and where its origin lies along the line.
    // @param flags FT_LOAD_RENDER for glyphs that are drawn
    // @return the length of the line, pixels
    template<class FVisit>
    int ForEachGlyph(std::u16string_view text, int height, FT_Int32 flags, const FVisit& visit)
    {
        FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(height));
        FT_Pos x = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            char32_t character = text[i];
            const bool isPair = (character & 0xFC00) == 0xD800 && i + 1 < text.size();
            if (isPair)
                character = 0x10000 + ((character & 0x3FF) << 10) + (text[++i] & 0x3FF);
            if (FT_Load_Char(face, character, static_cast<FT_Int32>(flags | FT_LOAD_NO_HINTING)) != 0)
                continue;
            visit(*face->glyph, Pixels(x));
            x += face->glyph->advance.x;
        }
        return Pixels(x);
    }
};

namespace
{

// On Windows the font comes with the program and lies beside it.
std::filesystem::path GetFontPath()
{
#if defined(_WIN32)
    std::wstring program(std::size_t(1) << 15, L'\0'); // the longest path
    program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
    return std::filesystem::path(program).parent_path() / SURFACE_VIEW_FONT;
#else
    return SURFACE_VIEW_FONT;
#endif
}

std::string ReadFont()
{
    std::ifstream file(GetFontPath(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Takes over the coverage of a glyph where it is more than what is there.
void CopyGlyph(const FT_GlyphSlotRec_& glyph, int x, int baseline, SPixels& pixels)
{
    const auto width = static_cast<std::size_t>(pixels.size.cx);
    for (int row = 0; row < static_cast<int>(glyph.bitmap.rows); ++row) {
        const int y = baseline + glyph.bitmap_top - 1 - row;
        if (y < 0 || y >= pixels.size.cy)
            continue;
        for (int column = 0; column < static_cast<int>(glyph.bitmap.width); ++column) {
            const int target = x + glyph.bitmap_left + column;
            if (target < 0 || target >= pixels.size.cx)
                continue;
            std::uint8_t& alpha = pixels.bytes[static_cast<std::size_t>(y) * width * 4 +
                                               static_cast<std::size_t>(target) * 4 + 3];
            alpha = std::max(alpha, glyph.bitmap.buffer[row * glyph.bitmap.pitch + column]);
        }
    }
}

} // namespace

CFreeTypeFont::CFreeTypeFont()
    : m_face(std::make_unique<SFace>())
{
    m_face->bytes = ReadFont();
    if (FT_Init_FreeType(&m_face->library) != 0 ||
        FT_New_Memory_Face(m_face->library, reinterpret_cast<const FT_Byte*>(m_face->bytes.data()),
                           static_cast<FT_Long>(m_face->bytes.size()), 0, &m_face->face) != 0)
        throw std::runtime_error("the font " SURFACE_VIEW_FONT " cannot be read");
}

CFreeTypeFont::~CFreeTypeFont() = default;

SSize CFreeTypeFont::Measure(std::u16string_view text, int height) const
{
    const int width =
        m_face->ForEachGlyph(text, height, FT_LOAD_DEFAULT, [](const FT_GlyphSlotRec_&, int) {});
    const FT_Size_Metrics& metrics = m_face->face->size->metrics;
    return {.cx = width, .cy = SFace::Pixels(metrics.ascender - metrics.descender)};
}

SPixels CFreeTypeFont::Draw(std::u16string_view text, int height, CommonUI::SColor color) const
{
    SPixels pixels{.size = Measure(text, height)};
    const auto count = static_cast<std::size_t>(pixels.size.cx) * static_cast<std::size_t>(pixels.size.cy);
    pixels.bytes.reserve(count * 4);
    for (std::size_t i = 0; i < count; ++i)
        pixels.bytes.insert(pixels.bytes.end(), {color.red, color.green, color.blue, 0});
    const int baseline = SFace::Pixels(-m_face->face->size->metrics.descender);
    m_face->ForEachGlyph(text, height, FT_LOAD_RENDER, [&](const FT_GlyphSlotRec_& glyph, int x) {
        CopyGlyph(glyph, x, baseline, pixels);
    });
    return pixels;
}

} // namespace SurfaceView
