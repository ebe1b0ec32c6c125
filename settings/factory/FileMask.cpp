#include "settings/factory/detail/FileMask.h"

#include "common/SmallLetter.h"

namespace CommonUI
{

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

} // namespace CommonUI
