#pragma once

#include "../../common/Color.h"
#include "../../export/Export.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace CommonUI::Measurement
{

/// A picture by the numbers of its colours, rows from the top down.
struct SIndexedPicture {
    std::size_t width = 0;               ///< pixels of a row
    std::size_t height = 0;              ///< rows
    std::vector<SColor> colors{};        ///< those of the numbers 1, 2 and on, at most 255; 0 is transparent
    std::vector<std::uint8_t> numbers{}; ///< of the pixels
};

/// The picture as PNG; empty for one without pixels, and where the library is built without libpng.
COMMONUIMEASUREMENT_API std::string MakePng(const SIndexedPicture& picture);

/// Bytes as a URI that needs no network: "data:image/png;base64,…".
COMMONUIMEASUREMENT_API std::string DataUri(std::string_view mediaType, std::string_view bytes);

} // namespace CommonUI::Measurement
