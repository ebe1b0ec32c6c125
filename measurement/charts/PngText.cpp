#include "measurement/charts/PngText.h"

#ifdef COMMONUI_WITH_PNG
#include <png.h>
#endif

namespace CommonUI::Measurement
{

#ifdef COMMONUI_WITH_PNG
std::string MakePng(const SIndexedPicture& picture)
{
    std::vector<std::uint8_t> colors(4); // red, green, blue and opacity of each
    for (const SColor& color : picture.colors)
        colors.insert(colors.end(), {color.red, color.green, color.blue, 0xFF});
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = PNG_FORMAT_RGBA_COLORMAP;
    image.colormap_entries = static_cast<png_uint_32>(colors.size() / 4);
    if (picture.numbers.empty())
        return {};
    png_alloc_size_t length = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::string bytes(length, '\0');
    if (!png_image_write_to_memory(&image, bytes.data(), &length, 0, picture.numbers.data(), 0,
                                   colors.data()))
        return {};
    bytes.resize(length);
    return bytes;
}
#else
std::string MakePng(const SIndexedPicture&)
{
    return {};
}
#endif

std::string DataUri(std::string_view mediaType, std::string_view bytes)
{
    constexpr std::string_view c_digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string uri = "data:" + std::string(mediaType) + ";base64,";
    uri.reserve(uri.size() + (bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::string_view group = bytes.substr(i, 3);
        std::uint32_t bits = 0;
        for (std::size_t j = 0; j < 3; ++j)
            bits = bits << 8 | (j < group.size() ? static_cast<std::uint8_t>(group[j]) : 0u);
        for (std::size_t j = 0; j < 4; ++j)
            uri += j <= group.size() ? c_digits[bits >> (18 - 6 * j) & 63] : '=';
    }
    return uri;
}

} // namespace CommonUI::Measurement
