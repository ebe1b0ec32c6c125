#include "controls/lists/TextOrder.h"

#include "common/SmallLetter.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

constexpr bool IsDigit(char16_t unit) noexcept
{
    return unit >= u'0' && unit <= u'9';
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
            order = ToSmall(one.front()) <=> ToSmall(other.front());
            one.remove_prefix(1);
            other.remove_prefix(1);
        }
        if (std::is_neq(order))
            return order;
    }
    return one.size() <=> other.size();
}

} // namespace

bool IsSameFolded(std::u16string_view one, std::u16string_view other)
{
    constexpr auto c_toSmall = [](char16_t unit) { return ToSmall(unit); };
    return std::ranges::equal(one, other, {}, c_toSmall, c_toSmall);
}

std::strong_ordering CompareNatural(std::u16string_view one, std::u16string_view other)
{
    const auto folded = CompareFolded(one, other);
    return std::is_neq(folded) ? folded : one <=> other;
}

} // namespace CommonUI
