#include "common/detail/Wtf8.h"

#include <cstdint>
#include <cstring>

namespace CommonUI
{

namespace
{

unsigned char ByteAt(std::string_view bytes, std::size_t at)
{
    return static_cast<unsigned char>(bytes[at]);
}

// The first position at or after `at` that is not within eight bytes of ASCII.
std::size_t SkipAscii(std::string_view bytes, std::size_t at)
{
    for (; at + 8 <= bytes.size(); at += 8) {
        std::uint64_t eight;
        std::memcpy(&eight, bytes.data() + at, 8);
        if ((eight & 0x8080808080808080) != 0)
            break;
    }
    return at;
}

// What a lead byte promises: how many bytes follow, and the range of the first of them (which excludes
// overlong forms, surrogates and numbers beyond U+10FFFF). Unicode Standard, table 3-7.
struct SLead {
    unsigned following;
    unsigned char low;
    unsigned char high;
};

SLead LeadOf(unsigned char byte)
{
    if (byte >= 0xC2 && byte <= 0xDF)
        return {1, 0x80, 0xBF};
    if (byte >= 0xE0 && byte <= 0xEF)
        return {2, static_cast<unsigned char>(byte == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(byte == 0xED ? 0x9F : 0xBF)};
    if (byte >= 0xF0 && byte <= 0xF4)
        return {3, static_cast<unsigned char>(byte == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(byte == 0xF4 ? 0x8F : 0xBF)};
    return {0, 0, 0};
}

void AppendCode(std::string& bytes, char32_t code)
{
    const auto tail = [code](int shift) { return static_cast<char>(0x80 | ((code >> shift) & 0x3F)); };
    if (code < 0x80) {
        bytes += static_cast<char>(code);
    } else if (code < 0x800) {
        bytes += {static_cast<char>(0xC0 | (code >> 6)), tail(0)};
    } else if (code < 0x10000) {
        bytes += {static_cast<char>(0xE0 | (code >> 12)), tail(6), tail(0)};
    } else {
        bytes += {static_cast<char>(0xF0 | (code >> 18)), tail(12), tail(6), tail(0)};
    }
}

} // namespace

SUtf8Sequence SequenceAt(std::string_view bytes, std::size_t at) noexcept
{
    if (ByteAt(bytes, at) < 0x80)
        return {1, true};
    SLead expected = LeadOf(ByteAt(bytes, at));
    for (std::size_t i = 1; i <= expected.following; ++i) {
        if (at + i == bytes.size() || ByteAt(bytes, at + i) < expected.low ||
            ByteAt(bytes, at + i) > expected.high)
            return {i, false};
        expected.low = 0x80;
        expected.high = 0xBF;
    }
    return {expected.following + 1, expected.following != 0};
}

bool IsUtf8(std::string_view bytes) noexcept
{
    for (std::size_t at = SkipAscii(bytes, 0); at < bytes.size();) {
        const SUtf8Sequence sequence = SequenceAt(bytes, at);
        if (!sequence.wellFormed)
            return false;
        at = sequence.length == 1 ? SkipAscii(bytes, at + 1) : at + sequence.length;
    }
    return true;
}

std::size_t FindSurrogate(std::string_view wtf8, std::size_t from) noexcept
{
    std::size_t at = wtf8.find('\xED', from);
    while (at != wtf8.npos && ByteAt(wtf8, at + 1) < 0xA0)
        at = wtf8.find('\xED', at + 1);
    return at;
}

void AppendWtf8(std::string& bytes, std::u16string_view text)
{
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (IsPairAt(text, at)) {
            const char32_t high = text[at] & 0x3FF;
            AppendCode(bytes, 0x10000 + (high << 10) + (text[++at] & 0x3FF));
        } else {
            AppendCode(bytes, text[at]);
        }
    }
}

std::string ToWtf8(std::u16string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    AppendWtf8(bytes, text);
    return bytes;
}

void AppendUtf16(std::u16string& text, std::string_view wtf8)
{
    for (std::size_t at = 0; at < wtf8.size();) {
        const unsigned char lead = ByteAt(wtf8, at++);
        if (lead < 0x80) {
            text += static_cast<char16_t>(lead);
            continue;
        }
        const unsigned following = LeadOf(lead).following;
        char32_t code = lead & (0x3Fu >> following);
        for (unsigned i = 0; i < following && at < wtf8.size(); ++i)
            code = (code << 6) | (ByteAt(wtf8, at++) & 0x3F);
        if (code < 0x10000) {
            text += static_cast<char16_t>(code);
        } else {
            text += static_cast<char16_t>(0xD7C0 + (code >> 10));
            text += static_cast<char16_t>(0xDC00 | (code & 0x3FF));
        }
    }
}

CStr FromWtf8(std::string_view wtf8)
{
    if (IsAscii(wtf8))
        return CStr::FromAscii(wtf8);
    std::u16string text;
    text.reserve(wtf8.size());
    AppendUtf16(text, wtf8);
    return CStr(text);
}

} // namespace CommonUI
