#pragma once

#include "common/Rect.h"
#include "view/Font.h"

#include <cstdint>
#include <filesystem>
#include <vector>

namespace SurfaceView
{

/// The picture as a file has it: red, green and blue of each pixel, rows from the top down.
struct SPicture {
    CommonUI::SSize size{};
    std::vector<std::uint8_t> bytes{};
};

/// How many pixels are drawn for one of a picture, along each side: three, or as many as drivers can be
/// relied on to make and a large picture is worth.
/// @param size of the picture
int SuitableScale(CommonUI::SSize size);

/// A picture of the means of squares of pixels, which smooths all edges.
/// @param scale the side of the squares; the size of the pixels is a multiple of it
SPicture ScaleDown(const SPixels& pixels, int scale);

/// Writes a PNG file in place of what was there.
/// @throws std::runtime_error, the old file untouched, when that fails
void WritePng(const SPicture& picture, const std::filesystem::path& path);

} // namespace SurfaceView
