#pragma once

#include <string>
#include <string_view>

struct evp_md_ctx_st;

namespace CommonUI::Formats
{

enum class EDigest { Md5, Sha256 };

/// The digest of bytes that come piece by piece.
class CDigest
{
public:
    explicit CDigest(EDigest kind = EDigest::Md5);
    ~CDigest();
    CDigest(const CDigest&) = delete;
    CDigest& operator=(const CDigest&) = delete;

    void Add(std::string_view bytes);
    /// In small hexadecimal digits. Nothing is added after it.
    std::string Finish();

private:
    void Require(int success) const;

    EDigest m_kind;
    evp_md_ctx_st* m_context;
};

/// The MD5 checksum of bytes that are at hand.
std::string DigestOf(std::string_view bytes);

} // namespace CommonUI::Formats
