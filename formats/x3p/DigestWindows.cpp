#if defined(COMMONUI_WITH_X3P) && defined(_WIN32)

#include "formats/x3p/detail/Digest.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include <windows.h>

#include <bcrypt.h>

namespace CommonUI::Formats
{

struct CDigest::SState {
    BCRYPT_ALG_HANDLE algorithm = nullptr;
    BCRYPT_HASH_HANDLE hash = nullptr;

    SState() = default;
    SState(const SState&) = delete;
    SState& operator=(const SState&) = delete;
    ~SState()
    {
        if (hash)
            BCryptDestroyHash(hash);
        if (algorithm)
            BCryptCloseAlgorithmProvider(algorithm, 0);
    }
};

CDigest::CDigest(EDigest kind)
    : m_kind(kind)
    , m_state(std::make_unique<SState>())
{
    // Null where the system has none; the first use then says so.
    const wchar_t* const name = kind == EDigest::Md5 ? BCRYPT_MD5_ALGORITHM : BCRYPT_SHA256_ALGORITHM;
    if (BCRYPT_SUCCESS(BCryptOpenAlgorithmProvider(&m_state->algorithm, name, nullptr, 0)))
        BCryptCreateHash(m_state->algorithm, &m_state->hash, nullptr, 0, nullptr, 0, 0);
}

CDigest::~CDigest() = default;

void CDigest::Add(std::string_view bytes)
{
    constexpr std::size_t c_most = std::size_t(1) << 30;
    while (!bytes.empty()) {
        // It does not write to what it is given.
        auto* const data = reinterpret_cast<UCHAR*>(const_cast<char*>(bytes.data()));
        const std::size_t size = std::min(bytes.size(), c_most);
        if (!m_state->hash ||
            !BCRYPT_SUCCESS(BCryptHashData(m_state->hash, data, static_cast<ULONG>(size), 0)))
            Refuse();
        bytes.remove_prefix(size);
    }
}

std::string CDigest::Finish()
{
    constexpr std::size_t c_md5 = 16;
    constexpr std::size_t c_sha256 = 32;
    std::array<unsigned char, c_sha256> digest;
    const auto used = std::span(digest).first(m_kind == EDigest::Md5 ? c_md5 : c_sha256);
    if (!m_state->hash ||
        !BCRYPT_SUCCESS(BCryptFinishHash(m_state->hash, used.data(), static_cast<ULONG>(used.size()), 0)))
        Refuse();
    return ToHexadecimal(used);
}

} // namespace CommonUI::Formats

#endif
