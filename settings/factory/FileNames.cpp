#include "settings/factory/detail/SettingsFiles.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

// The small letter of a capital one, for the alphabets that are likely in names of files: Latin of western
// Europe, Greek and Cyrillic. The C locale plays no part.
constexpr char16_t ToSmall(char16_t unit) noexcept
{
    const auto isIn = [unit](char16_t first, char16_t last) { return unit >= first && unit <= last; };
    const bool isLatin = isIn(u'A', u'Z') || (isIn(0xC0, 0xDE) && unit != 0xD7);
    if (isLatin || isIn(0x391, 0x3A9) || isIn(0x410, 0x42F))
        return static_cast<char16_t>(unit + 0x20);
    return isIn(0x400, 0x40F) ? static_cast<char16_t>(unit + 0x50) : unit;
}

constexpr bool IsDigit(char16_t unit) noexcept
{
    return unit >= u'0' && unit <= u'9';
}

} // namespace

bool MatchesMask(std::u16string_view name, std::u16string_view mask) noexcept
{
    if (mask == u"*.*")
        return true;
    std::size_t inName = 0;
    std::size_t inMask = 0;
    std::size_t star = mask.npos; // the last star met, to which the name is given back when the rest fails
    std::size_t afterStar = 0;
    while (inName < name.size()) {
        if (inMask < mask.size() && mask[inMask] == u'*') {
            star = inMask++;
            afterStar = inName;
        } else if (inMask < mask.size() &&
                   (mask[inMask] == u'?' || ToSmall(mask[inMask]) == ToSmall(name[inName]))) {
            ++inMask;
            ++inName;
        } else if (star != mask.npos) {
            inMask = star + 1;
            inName = ++afterStar;
        } else {
            return false;
        }
    }
    return mask.find_first_not_of(u'*', inMask) == mask.npos;
}

std::u16string GetSortKey(std::u16string_view name)
{
    std::u16string key;
    key.reserve(name.size() + 2);
    while (!name.empty()) {
        if (!IsDigit(name.front())) {
            key += ToSmall(name.front());
            name.remove_prefix(1);
            continue;
        }
        // The count of digits before them: of two numbers the longer one is greater.
        std::u16string_view number = name.substr(0, name.find_first_not_of(u"0123456789"));
        name.remove_prefix(number.size());
        number.remove_prefix(std::min(number.find_first_not_of(u'0'), number.size() - 1));
        key += u'0';
        key += static_cast<char16_t>(number.size());
        key += number;
    }
    return key;
}

} // namespace CommonUI
