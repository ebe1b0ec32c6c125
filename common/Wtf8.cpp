#include "common/detail/Wtf8.h"

#include <algorithm>
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

constexpr char16_t c_replacement = 0xFFFD;

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

// Texts are mostly ASCII, of which this many units go at once, without a branch.
constexpr std::size_t c_block = 16;

template<class TUnit>
bool IsAsciiBlock(const TUnit* units)
{
    unsigned all = 0;
    for (std::size_t i = 0; i < c_block; ++i)
        all |= static_cast<unsigned>(units[i]); // a byte beyond ASCII may be negative, which is large here
    return all < 0x80;
}

// Writes the ASCII blocks that `from` begins with. @return how many units they are
template<class TTo, class TFrom>
std::size_t CopyAsciiBlocks(TTo* to, std::basic_string_view<TFrom> from)
{
    std::size_t at = 0;
    for (; from.size() - at >= c_block && IsAsciiBlock(from.data() + at); at += c_block) {
        TTo block[c_block]; // which nothing else may be part of
        for (std::size_t i = 0; i < c_block; ++i)
            block[i] = static_cast<TTo>(from[at + i]);
        std::memcpy(to + at, block, sizeof block);
    }
    return at;
}

char* WriteCode(char* to, char32_t code)
{
    const auto tail = [code](int shift) { return static_cast<char>(0x80 | ((code >> shift) & 0x3F)); };
    if (code < 0x80) {
        *to++ = static_cast<char>(code);
        return to;
    }
    if (code < 0x800) {
        *to++ = static_cast<char>(0xC0 | (code >> 6));
    } else {
        if (code < 0x10000) {
            *to++ = static_cast<char>(0xE0 | (code >> 12));
        } else {
            *to++ = static_cast<char>(0xF0 | (code >> 18));
            *to++ = tail(12);
        }
        *to++ = tail(6);
    }
    *to++ = tail(0);
    return to;
}

// The code at `at`, which moves behind it.
char32_t ReadCode(std::string_view wtf8, std::size_t& at)
{
    const unsigned char lead = ByteAt(wtf8, at++);
    if (lead < 0x80)
        return lead;
    const unsigned following = LeadOf(lead).following;
    char32_t code = lead & (0x3Fu >> following);
    for (unsigned i = 0; i < following && at < wtf8.size(); ++i)
        code = (code << 6) | (ByteAt(wtf8, at++) & 0x3F);
    return code;
}

char16_t* WriteUnits(char16_t* to, char32_t code)
{
    if (code < 0x10000) {
        *to++ = static_cast<char16_t>(code);
    } else {
        *to++ = static_cast<char16_t>(0xD7C0 + (code >> 10));
        *to++ = static_cast<char16_t>(0xDC00 | (code & 0x3FF));
    }
    return to;
}

// @param loneSurrogate what is written for a surrogate without a partner, given it
template<class FLoneSurrogate>
void AppendBytes(std::string& bytes, std::u16string_view text, FLoneSurrogate loneSurrogate)
{
    constexpr std::size_t c_part = 32 * c_block;
    char part[3 * (c_part + c_block)];
    for (std::size_t at = 0; at < text.size();) {
        char* to = part;
        for (const std::size_t partEnd = std::min(at + c_part, text.size()); at < partEnd;) {
            const std::size_t ascii = CopyAsciiBlocks(to, text.substr(at, partEnd - at));
            at += ascii;
            to += ascii;
            for (const std::size_t end = std::min(at + c_block, partEnd); at < end; ++at) {
                char32_t code = text[at];
                if (IsPairAt(text, at))
                    code = 0x10000 + ((code & 0x3FF) << 10) + (text[++at] & 0x3FF);
                else if (IsSurrogate(text[at]))
                    code = loneSurrogate(text[at]);
                to = WriteCode(to, code);
            }
        }
        bytes.append(part, static_cast<std::size_t>(to - part));
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
    AppendBytes(bytes, text, [](char16_t surrogate) { return surrogate; });
}

std::string ToWtf8(std::u16string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    AppendWtf8(bytes, text);
    return bytes;
}

std::string ToUtf8(std::u16string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    AppendBytes(bytes, text, [](char16_t) { return c_replacement; });
    return bytes;
}

void AppendUtf16(std::u16string& text, std::string_view wtf8)
{
    const std::size_t before = text.size();
    text.resize(before + wtf8.size()); // no byte becomes more than a unit
    char16_t* to = text.data() + before;
    for (std::size_t at = 0; at < wtf8.size();) {
        const std::size_t ascii = CopyAsciiBlocks(to, wtf8.substr(at));
        at += ascii;
        to += ascii;
        for (const std::size_t end = std::min(at + c_block, wtf8.size()); at < end;)
            to = WriteUnits(to, ReadCode(wtf8, at));
    }
    text.resize(static_cast<std::size_t>(to - text.data()));
}

CStr FromWtf8(std::string_view wtf8)
{
    if (IsAscii(wtf8))
        return CStr::FromAscii(wtf8);
    std::u16string text;
    AppendUtf16(text, wtf8);
    return CStr(text);
}

} // namespace CommonUI
