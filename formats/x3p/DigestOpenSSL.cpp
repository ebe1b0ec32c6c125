#if defined(COMMONUI_WITH_X3P) && !defined(_WIN32)

#include "formats/x3p/detail/Digest.h"

#include <array>
#include <new>
#include <openssl/err.h>
#include <openssl/evp.h>

namespace CommonUI::Formats
{

namespace
{

// An error that could not even be noted has lacked it, too.
bool HasLackedMemory()
{
    unsigned long error = ERR_get_error();
    bool hasLacked = error == 0;
    for (; error != 0; error = ERR_get_error())
        hasLacked = hasLacked || ERR_GET_REASON(error) == ERR_R_MALLOC_FAILURE;
    return hasLacked;
}

} // namespace

struct CDigest::SState {
    EVP_MD_CTX* context = EVP_MD_CTX_new();
    bool isReady = false;

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
    ERR_clear_error();
    const EVP_MD* const digest = m_kind == EDigest::Md5 ? EVP_md5() : EVP_sha256();
    m_state->isReady = EVP_DigestInit_ex(m_state->context, digest, nullptr) == 1;
    if (!m_state->isReady && HasLackedMemory())
        throw std::bad_alloc();
    // Where the system has none, the first use says so.
}

CDigest::~CDigest() = default;

void CDigest::Add(std::string_view bytes)
{
    if (!m_state->isReady || EVP_DigestUpdate(m_state->context, bytes.data(), bytes.size()) != 1)
        Refuse();
}

std::string CDigest::Finish()
{
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest;
    unsigned size = 0;
    if (!m_state->isReady || EVP_DigestFinal_ex(m_state->context, digest.data(), &size) != 1)
        Refuse();
    return ToHexadecimal(std::span(digest).first(size));
}

} // namespace CommonUI::Formats

#endif
