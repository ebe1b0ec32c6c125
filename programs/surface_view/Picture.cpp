#include "programs/surface_view/Picture.h"

#include "common/file/FileBytes.h"

#include <png.h>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace SurfaceView
{

namespace
{

// The longest side of an off-screen picture that drivers can be relied on to make.
constexpr int c_longestSide = 4096;

} // namespace

int SuitableScale(CommonUI::SSize size)
{
    const int pixels = size.cx * size.cy;
    const int affordable = pixels <= 2'000'000 ? 3 : pixels <= 6'000'000 ? 2 : 1;
    return std::clamp(c_longestSide / std::max(size.cx, size.cy), 1, affordable);
}

SPicture ScaleDown(const SPixels& pixels, int scale)
{
    SPicture picture{.size = {.cx = pixels.size.cx / scale, .cy = pixels.size.cy / scale}};
    picture.bytes.reserve(static_cast<std::size_t>(picture.size.cx) *
                          static_cast<std::size_t>(picture.size.cy) * 3);
    const auto byteAt = [&pixels](int x, int y, int primary) -> int {
        return pixels.bytes[(static_cast<std::size_t>(y) * static_cast<std::size_t>(pixels.size.cx) +
                             static_cast<std::size_t>(x)) *
                                4 +
                            static_cast<std::size_t>(primary)];
    };
    const auto meanOf = [&](int left, int low, int primary) {
        int sum = scale * scale / 2;
        for (int y = low; y < low + scale; ++y) {
            for (int x = left; x < left + scale; ++x)
                sum += byteAt(x, y, primary);
        }
        return static_cast<std::uint8_t>(sum / (scale * scale));
    };
    for (int row = picture.size.cy - 1; row >= 0; --row) {
        for (int column = 0; column < picture.size.cx; ++column) {
            for (int primary = 0; primary < 3; ++primary)
                picture.bytes.push_back(meanOf(column * scale, row * scale, primary));
        }
    }
    return picture;
}

void WritePng(const SPicture& picture, const std::filesystem::path& path)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.size.cx);
    image.height = static_cast<png_uint_32>(picture.size.cy);
    image.format = PNG_FORMAT_RGB;
    std::string bytes;
    png_alloc_size_t length = PNG_IMAGE_PNG_SIZE_MAX(image);
    bytes.resize(length);
    if (!png_image_write_to_memory(&image, bytes.data(), &length, 0, picture.bytes.data(), 0, nullptr))
        throw std::runtime_error(path.string() + ": " + image.message);
    bytes.resize(length);
    CommonUI::CStr reason;
    if (!CommonUI::ReplaceFileBytes(path.u16string(), bytes, reason))
        throw std::runtime_error(path.string() + ": " + reason.ToUtf8());
}

} // namespace SurfaceView
