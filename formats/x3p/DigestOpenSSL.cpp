#if defined(COMMONUI_WITH_X3P) && !defined(_WIN32)

#include "formats/x3p/detail/Digest.h"

#include <array>
#include <new>
#include <openssl/evp.h>

namespace CommonUI::Formats
{

struct CDigest::SState {
    EVP_MD_CTX* context = EVP_MD_CTX_new();

    SState()
    {
        if (!context)
            throw std::bad_alloc();
    }
    SState(const SState&) = delete;
    SState& operator=(const SState&) = delete;
    ~SState() { EVP_MD_CTX_free(context); }
};

CDigest::CDigest(EDigest kind)
    : m_kind(kind)
    , m_state(std::make_unique<SState>())
{
    // Null where the system has none; the first use then says so.
    EVP_DigestInit_ex(m_state->context, m_kind == EDigest::Md5 ? EVP_md5() : EVP_sha256(), nullptr);
}

CDigest::~CDigest() = default;

void CDigest::Add(std::string_view bytes)
{
    if (EVP_DigestUpdate(m_state->context, bytes.data(), bytes.size()) != 1)
        Refuse();
}

std::string CDigest::Finish()
{
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest;
    unsigned size = 0;
    if (EVP_DigestFinal_ex(m_state->context, digest.data(), &size) != 1)
        Refuse();
    return ToHexadecimal(std::span(digest).first(size));
}

} // namespace CommonUI::Formats

#endif
