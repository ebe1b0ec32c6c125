#if defined(COMMONUI_WITH_X3P)

#include "formats/x3p/detail/Digest.h"

#include <array>
#include <new>
#include <openssl/evp.h>
#include <stdexcept>

namespace CommonUI::Formats
{

// A system can be set up to have no MD5.
void CDigest::Require(int success) const
{
    if (success != 1)
        throw std::runtime_error(std::string(m_kind == EDigest::Md5 ? "MD5 checksums" : "SHA-256 digests") +
                                 " cannot be computed on this system");
}

CDigest::CDigest(EDigest kind)
    : m_kind(kind)
    , m_context(EVP_MD_CTX_new())
{
    if (!m_context)
        throw std::bad_alloc();
    // Null where the system has none; the first use then says so.
    EVP_DigestInit_ex(m_context, m_kind == EDigest::Md5 ? EVP_md5() : EVP_sha256(), nullptr);
}

CDigest::~CDigest()
{
    EVP_MD_CTX_free(m_context);
}

void CDigest::Add(std::string_view bytes)
{
    Require(EVP_DigestUpdate(m_context, bytes.data(), bytes.size()));
}

std::string CDigest::Finish()
{
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest;
    unsigned size = 0;
    Require(EVP_DigestFinal_ex(m_context, digest.data(), &size));
    std::string text;
    for (unsigned i = 0; i < size; ++i) {
        text += "0123456789abcdef"[digest[i] >> 4];
        text += "0123456789abcdef"[digest[i] & 15];
    }
    return text;
}

std::string DigestOf(std::string_view bytes)
{
    CDigest digest;
    digest.Add(bytes);
    return digest.Finish();
}

} // namespace CommonUI::Formats

#endif
