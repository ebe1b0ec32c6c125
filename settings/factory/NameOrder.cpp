#include "settings/factory/detail/NameOrder.h"

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

} // namespace

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
