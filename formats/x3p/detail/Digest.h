#pragma once

#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace CommonUI::Formats
{

enum class EDigest { Md5, Sha256 };

/// The system is set up to have none of that kind.
class ENoDigest : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The digest of bytes that come piece by piece.
class CDigest
{
public:
    /// What follows throws ENoDigest where the system has none.
    explicit CDigest(EDigest kind = EDigest::Md5);
    ~CDigest();
    CDigest(const CDigest&) = delete;
    CDigest& operator=(const CDigest&) = delete;

    void Add(std::string_view bytes);
    /// In small hexadecimal digits. Nothing is added after it.
    std::string Finish();

private:
    struct SState; // of the library that computes it

    [[noreturn]] void Refuse() const;
    static std::string ToHexadecimal(std::span<const unsigned char> digest);

    EDigest m_kind;
    std::unique_ptr<SState> m_state;
};

/// The MD5 checksum of bytes that are at hand.
std::string DigestOf(std::string_view bytes);

} // namespace CommonUI::Formats
