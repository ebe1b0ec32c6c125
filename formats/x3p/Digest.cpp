#include "formats/x3p/detail/Digest.h"

#include <stdexcept>

namespace CommonUI::Formats
{

// A system can be set up to have no MD5.
void CDigest::Refuse() const
{
    throw std::runtime_error(std::string(m_kind == EDigest::Md5 ? "MD5 checksums" : "SHA-256 digests") +
                             " cannot be computed on this system");
}

std::string CDigest::ToHexadecimal(std::span<const unsigned char> digest)
{
    std::string text;
    for (const unsigned char byte : digest) {
        text += "0123456789abcdef"[byte >> 4];
        text += "0123456789abcdef"[byte & 15];
    }
    return text;
}

} // namespace CommonUI::Formats

#if defined(COMMONUI_WITH_X3P)

namespace CommonUI::Formats
{

std::string DigestOf(std::string_view bytes)
{
    CDigest digest;
    digest.Add(bytes);
    return digest.Finish();
}

} // namespace CommonUI::Formats

#endif
