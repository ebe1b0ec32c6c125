#include "common/file/DeviceName.h"

#include "common/SmallLetter.h"

#include <algorithm>

namespace CommonUI
{

bool IsDeviceName(std::u16string_view name) noexcept
{
    std::u16string_view stem = name.substr(0, name.find_first_of(u".:"));
    stem = stem.substr(0, stem.find_last_not_of(u' ') + 1);
    const auto isStem = [&stem](std::u16string_view device) {
        return std::ranges::equal(stem, device, {}, [](char16_t unit) { return ToSmall(unit); });
    };
    constexpr std::u16string_view c_single[] = {u"con", u"prn", u"aux", u"nul", u"conin$", u"conout$"};
    if (std::ranges::any_of(c_single, isStem))
        return true;
    // The raised digits count as well.
    if (stem.size() != 4 || std::u16string_view(u"123456789\u00B9\u00B2\u00B3").find(stem[3]) == stem.npos)
        return false;
    stem.remove_suffix(1);
    return isStem(u"com") || isStem(u"lpt");
}

} // namespace CommonUI
