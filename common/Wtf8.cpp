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

bool IsTail(std::string_view bytes, std::size_t at)
{
    return (ByteAt(bytes, at) & 0xC0) == 0x80;
}

/// The first position at or after `at` that is not within eight bytes of ASCII.
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

/// The length of the sequence that the lead byte promises; 0 for a byte that leads none.
std::size_t SequenceLength(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead < 0xC2 || lead > 0xF4)
        return 0;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

/// Whether the second byte keeps overlong forms, surrogates and numbers beyond U+10FFFF out.
bool IsSecondByte(unsigned char lead, unsigned char second)
{
    switch (lead) {
    case 0xE0:
        return second >= 0xA0;
    case 0xED:
        return second < 0xA0;
    case 0xF0:
        return second >= 0x90;
    case 0xF4:
        return second < 0x90;
    default:
        return true;
    }
}

bool IsSequence(std::string_view bytes, std::size_t at, std::size_t length)
{
    if (length == 0 || length > bytes.size() - at)
        return false;
    for (std::size_t i = 1; i < length; ++i) {
        if (!IsTail(bytes, at + i))
            return false;
    }
    return length == 1 || IsSecondByte(ByteAt(bytes, at), ByteAt(bytes, at + 1));
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

bool IsUtf8(std::string_view bytes) noexcept
{
    for (std::size_t at = SkipAscii(bytes, 0); at < bytes.size();) {
        const std::size_t length = SequenceLength(ByteAt(bytes, at));
        if (!IsSequence(bytes, at, length))
            return false;
        at = length == 1 ? SkipAscii(bytes, at + 1) : at + length;
    }
    return true;
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
        const std::size_t length = SequenceLength(lead);
        char32_t code = lead & (0x7Fu >> length);
        for (std::size_t i = 1; i < length && at < wtf8.size(); ++i)
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
