#include "programs/surface_view/GifWriter.h"

#include "programs/surface_view/Palette.h"

#include <gif_lib.h>

#include <array>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

namespace SurfaceView
{

namespace
{

constexpr int c_colors = 256;

int AppendBytes(GifFileType* file, const GifByteType* bytes, int count)
{
    static_cast<std::string*>(file->UserData)
        ->append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(count));
    return count;
}

void Require(int status)
{
    if (status != GIF_OK)
        throw std::runtime_error("the GIF file cannot be put together");
}

struct SFreeColors {
    void operator()(ColorMapObject* colors) const { GifFreeMapObject(colors); }
};

using CColorMap = std::unique_ptr<ColorMapObject, SFreeColors>;

CColorMap MakeColorMap(const SIndexed& picture)
{
    CColorMap map(GifMakeMapObject(c_colors, nullptr));
    Require(map ? GIF_OK : GIF_ERROR);
    for (std::size_t i = 0; i < picture.colors.size(); ++i)
        map->Colors[i] = {picture.colors[i][0], picture.colors[i][1], picture.colors[i][2]};
    return map;
}

} // namespace

CGifWriter::CGifWriter(bool loop)
    : m_loop(loop)
{
}

CGifWriter::~CGifWriter()
{
    if (m_file)
        EGifCloseFile(m_file, nullptr);
}

void CGifWriter::Begin(CommonUI::SSize size)
{
    m_file = EGifOpen(&m_bytes, AppendBytes, nullptr);
    Require(m_file ? GIF_OK : GIF_ERROR);
    EGifSetGifVersion(m_file, true);
    Require(EGifPutScreenDesc(m_file, size.cx, size.cy, 8, 0, nullptr));
    if (!m_loop)
        return;
    // The extension by which programs know that an animation begins anew, without a limit.
    constexpr std::array<GifByteType, 3> c_forEver{1, 0, 0};
    Require(EGifPutExtensionLeader(m_file, APPLICATION_EXT_FUNC_CODE));
    Require(EGifPutExtensionBlock(m_file, 11, "NETSCAPE2.0"));
    Require(EGifPutExtensionBlock(m_file, c_forEver.size(), c_forEver.data()));
    Require(EGifPutExtensionTrailer(m_file));
}

void CGifWriter::Add(const SPicture& picture, int duration)
{
    if (!m_file)
        Begin(picture.size);
    SIndexed indexed = ReduceColors(picture);
    const CColorMap colors = MakeColorMap(indexed);
    const GraphicsControlBlock control{.DisposalMode = DISPOSE_DO_NOT,
                                       .UserInputFlag = false,
                                       .DelayTime = duration,
                                       .TransparentColor = NO_TRANSPARENT_COLOR};
    std::array<GifByteType, 4> bytes{};
    EGifGCBToExtension(&control, bytes.data());
    Require(EGifPutExtension(m_file, GRAPHICS_EXT_FUNC_CODE, bytes.size(), bytes.data()));
    Require(EGifPutImageDesc(m_file, 0, 0, picture.size.cx, picture.size.cy, false, colors.get()));
    const auto width = static_cast<std::size_t>(picture.size.cx);
    for (std::size_t begin = 0; begin < indexed.indices.size(); begin += width)
        Require(EGifPutLine(m_file, indexed.indices.data() + begin, picture.size.cx));
}

void CGifWriter::Finish()
{
    if (GifFileType* const file = std::exchange(m_file, nullptr))
        Require(EGifCloseFile(file, nullptr));
}

} // namespace SurfaceView
