#include "formats/x3p/detail/Digest.h"

namespace CommonUI::Formats
{

void CDigest::Refuse() const
{
    throw ENoDigest(std::string(m_kind == EDigest::Md5 ? "MD5 checksums" : "SHA-256 digests") +
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
