#include "dialogs/text/TextFind.h"

#include "common/SmallLetter.h"

namespace CommonUI
{

std::optional<STextMatch> FindInText(std::u16string_view text, std::u16string_view what, std::size_t from,
                                     const STextSearch& search)
{
    if (what.empty())
        return {};
    if (!search.matchesCase)
        return FindInText(ToSmall(text), ToSmall(what), from, {search.isForward, true});
    constexpr std::size_t c_none = std::u16string_view::npos;
    const std::size_t next = search.isForward ? text.find(what, from)
                             : from > 0       ? text.rfind(what, from - 1)
                                              : c_none;
    if (next != c_none)
        return STextMatch{next, false};
    const std::size_t other = search.isForward ? text.find(what) : text.rfind(what);
    return other == c_none ? std::nullopt : std::optional(STextMatch{other, true});
}

} // namespace CommonUI
