#include "controls/lists/TextOrder.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

constexpr bool IsDigit(char16_t unit) noexcept
{
    return unit >= u'0' && unit <= u'9';
}

constexpr bool IsIn(char16_t unit, char16_t first, char16_t last) noexcept
{
    return unit >= first && unit <= last;
}

// In the extended Latin and Cyrillic rows capital and small letters take turns.
constexpr char16_t FoldPair(char16_t unit) noexcept
{
    const bool oddIsCapital = IsIn(unit, 0x139, 0x148) || IsIn(unit, 0x179, 0x17E);
    return (unit % 2 != 0) == oddIsCapital ? static_cast<char16_t>(unit + 1) : unit;
}

constexpr char16_t FoldUnit(char16_t unit) noexcept
{
    if (unit < 0x80)
        return IsIn(unit, u'A', u'Z') ? static_cast<char16_t>(unit + 32) : unit;
    if ((IsIn(unit, 0xC0, 0xDE) && unit != 0xD7) || (IsIn(unit, 0x391, 0x3AB) && unit != 0x3A2) ||
        IsIn(unit, 0x410, 0x42F))
        return static_cast<char16_t>(unit + 32);
    if (IsIn(unit, 0x400, 0x40F))
        return static_cast<char16_t>(unit + 80);
    if (unit == 0x178)
        return 0xFF;
    const bool isPaired =
        (IsIn(unit, 0x100, 0x177) && unit != 0x130 && unit != 0x131 && unit != 0x138 && unit != 0x149) ||
        IsIn(unit, 0x179, 0x17E) || IsIn(unit, 0x460, 0x481) || IsIn(unit, 0x48A, 0x4BF);
    return isPaired ? FoldPair(unit) : unit;
}

// Takes a run of digits from the front of a text. @return the digits without leading zeros
std::u16string_view TakeNumber(std::u16string_view& text)
{
    const auto isDigit = [](char16_t unit) { return IsDigit(unit); };
    const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
    std::u16string_view digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(digits.size());
    digits.remove_prefix(std::min(digits.find_first_not_of(u'0'), digits.size()));
    return digits;
}

// Numbers of any length.
std::strong_ordering CompareNumbers(std::u16string_view one, std::u16string_view other)
{
    const auto bySize = one.size() <=> other.size();
    return std::is_neq(bySize) ? bySize : one <=> other;
}

std::strong_ordering CompareFolded(std::u16string_view one, std::u16string_view other)
{
    while (!one.empty() && !other.empty()) {
        std::strong_ordering order = std::strong_ordering::equal;
        if (IsDigit(one.front()) && IsDigit(other.front())) {
            order = CompareNumbers(TakeNumber(one), TakeNumber(other));
        } else {
            order = FoldUnit(one.front()) <=> FoldUnit(other.front());
            one.remove_prefix(1);
            other.remove_prefix(1);
        }
        if (std::is_neq(order))
            return order;
    }
    return one.size() <=> other.size();
}

} // namespace

CStr FoldCase(std::u16string_view text)
{
    CStr folded;
    char16_t* const units = folded.SetLength(text.size());
    std::ranges::transform(text, units, FoldUnit);
    return folded;
}

bool IsSameFolded(std::u16string_view one, std::u16string_view other)
{
    return std::ranges::equal(one, other, {}, FoldUnit, FoldUnit);
}

std::strong_ordering CompareNatural(std::u16string_view one, std::u16string_view other)
{
    const auto folded = CompareFolded(one, other);
    return std::is_neq(folded) ? folded : one <=> other;
}

} // namespace CommonUI
