#include "formats/FileDigest.h"

#if defined(COMMONUI_WITH_X3P)

#include "formats/detail/InputFile.h"
#include "formats/x3p/detail/Digest.h"

#include <algorithm>
#include <vector>

namespace CommonUI::Formats
{

std::string ComputeSha256(const std::filesystem::path& path)
{
    constexpr std::uintmax_t c_pieceSize = 1 << 16;
    CInputFile file(path);
    CDigest digest(EDigest::Sha256);
    std::vector<char> piece(c_pieceSize);
    for (std::uintmax_t place = 0; place < file.GetSize(); place += piece.size()) {
        piece.resize(static_cast<std::size_t>(std::min(c_pieceSize, file.GetSize() - place)));
        file.Read(place, piece);
        digest.Add({piece.data(), piece.size()});
    }
    return digest.Finish();
}

} // namespace CommonUI::Formats

#else

namespace CommonUI::Formats
{

std::string ComputeSha256(const std::filesystem::path&)
{
    return {};
}

} // namespace CommonUI::Formats

#endif
