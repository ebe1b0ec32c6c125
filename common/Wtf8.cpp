#include "common/detail/Wtf8.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <type_traits>

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
constexpr std::size_t c_block = 8;

// How many units a word in memory begins with that have none of the bits of `beyond`.
template<class TUnit>
std::size_t CountBefore(std::uint64_t word, std::uint64_t beyond)
{
    static_assert(std::endian::native == std::endian::little, "the first unit has the lowest bits");
    return static_cast<std::size_t>(std::countr_zero(word & beyond)) / (8 * sizeof(TUnit));
}

using CByteBlock [[gnu::vector_size(c_block)]] = unsigned char;
using CUnitBlock [[gnu::vector_size(2 * c_block)]] = unsigned short;

std::size_t CountAscii(const CByteBlock& block)
{
    return CountBefore<char>(std::bit_cast<std::uint64_t>(block), 0x8080808080808080);
}

std::size_t CountAscii(const CUnitBlock& block)
{
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(block);
    const std::size_t first = CountBefore<char16_t>(halves[0], 0xFF80FF80FF80FF80);
    return first < 4 ? first : 4 + CountBefore<char16_t>(halves[1], 0xFF80FF80FF80FF80);
}

template<class TFrom>
using CBlockOf = std::conditional_t<sizeof(TFrom) == 1, CByteBlock, CUnitBlock>;

// Writes blocks of units. @return the number of units that every one of them begins with in ASCII
template<std::size_t Count, class TTo, class TFrom>
std::size_t CopyBlocks(TTo* to, const TFrom* from)
{
    std::array<CBlockOf<TFrom>, Count> blocks;
    std::memcpy(&blocks, from, sizeof blocks);
    CBlockOf<TFrom> all{};
    for (std::size_t i = 0; i < Count; ++i) {
        all |= blocks[i];
        const auto block = __builtin_convertvector(blocks[i], CBlockOf<TTo>);
        std::memcpy(to + i * c_block, &block, sizeof block);
    }
    return CountAscii(all);
}

// Writes the ASCII that `from` begins with, and anything behind it, where there is room for as many units.
// @return how many units it is
template<class TTo, class TFrom>
std::size_t CopyAscii(TTo* to, std::basic_string_view<TFrom> from)
{
    std::size_t at = 0;
    while (from.size() - at >= c_block) {
        const std::size_t count = CopyBlocks<1>(to + at, from.data() + at);
        at += count;
        if (count < c_block)
            return at;
        constexpr std::size_t c_atOnce = 4; // where ASCII goes on, not from word to word of other texts
        while (at >= 8 * c_block && from.size() - at >= c_atOnce * c_block &&
               CopyBlocks<c_atOnce>(to + at, from.data() + at) == c_block)
            at += c_atOnce * c_block;
    }
    for (; at < from.size() && static_cast<std::make_unsigned_t<TFrom>>(from[at]) < 0x80; ++at)
        to[at] = static_cast<TTo>(from[at]);
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
    constexpr std::size_t c_part = 512;
    char part[3 * c_part];
    for (std::size_t at = 0; at < text.size();) {
        char* to = part;
        const std::size_t end = std::min(at + c_part, text.size());
        while (at < end) {
            const std::size_t ascii = CopyAscii(to, text.substr(at, end - at));
            at += ascii;
            to += ascii;
            for (; at < end && text[at] >= 0x80; ++at) {
                char32_t code = text[at];
                if (IsSurrogate(text[at])) {
                    if (!IsPairAt(text, at))
                        code = loneSurrogate(text[at]);
                    else
                        code = 0x10000 + ((code & 0x3FF) << 10) + (text[++at] & 0x3FF);
                }
                to = WriteCode(to, code);
            }
        }
        const auto count = static_cast<std::size_t>(to - part);
        if (bytes.capacity() - bytes.size() < count) // at most once, as no unit has more than three bytes
            bytes.reserve(bytes.size() + count + 3 * (text.size() - std::min(at, text.size())));
        bytes.append(part, count);
    }
}

bool IsTail(std::string_view bytes, std::size_t at)
{
    return (ByteAt(bytes, at) & 0xC0) == 0x80;
}

// Writes the units of bytes, of which there are not more.
// @param writeOther takes where to write and the position of any sequence, from which it goes on behind it
// @return behind the last unit
template<class FWriteOther>
char16_t* WriteAll(char16_t* to, std::string_view bytes, FWriteOther writeOther)
{
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t ascii = CopyAscii(to, bytes.substr(at));
        at += ascii;
        to += ascii;
        while (at < bytes.size() && ByteAt(bytes, at) >= 0x80) {
            const unsigned char lead = ByteAt(bytes, at);
            const std::size_t rest = bytes.size() - at;
            // These leads take any tails.
            if (lead > 0xE0 && lead < 0xED && rest > 2 && IsTail(bytes, at + 1) && IsTail(bytes, at + 2)) {
                *to++ = static_cast<char16_t>((lead & 0xF) << 12 | (ByteAt(bytes, at + 1) & 0x3F) << 6 |
                                              (ByteAt(bytes, at + 2) & 0x3F));
                at += 3;
            } else if (lead > 0xC1 && lead < 0xE0 && rest > 1 && IsTail(bytes, at + 1)) {
                *to++ = static_cast<char16_t>((lead & 0x1F) << 6 | (ByteAt(bytes, at + 1) & 0x3F));
                at += 2;
            } else {
                to = writeOther(to, at);
            }
        }
    }
    return to;
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

char16_t* WriteUtf16(char16_t* to, std::string_view bytes) noexcept
{
    return WriteAll(to, bytes, [bytes](char16_t* next, std::size_t& at) {
        const SUtf8Sequence sequence = SequenceAt(bytes, at);
        if (sequence.wellFormed)
            return WriteUnits(next, ReadCode(bytes, at));
        at += sequence.length;
        *next++ = c_replacement;
        return next;
    });
}

void AppendUtf16(std::u16string& text, std::string_view wtf8)
{
    const std::size_t before = text.size();
    text.resize(before + wtf8.size()); // no byte becomes more than a unit
    const char16_t* end = WriteAll(text.data() + before, wtf8, [wtf8](char16_t* to, std::size_t& at) {
        return WriteUnits(to, ReadCode(wtf8, at));
    });
    text.resize(static_cast<std::size_t>(end - text.data()));
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
