#include "dialogs/selection/DialogOption.h"

#include "common/StringTable.h"
#include "controls/TypedNumber.h"
#include "dialogs/selection/detail/SelectionTexts.h"

#include <algorithm>
#include <cfloat>

namespace CommonUI
{

namespace
{

CStr RangeFault(const SDialogOption& option)
{
    const CStr lower = ShowOptionNumber(option, option.lower);
    if (option.upper >= DBL_MAX)
        return CStr::Format(GetString(SelectionText::c_atLeast), lower);
    return CStr::Format(GetString(SelectionText::c_outOfRange), lower,
                        ShowOptionNumber(option, option.upper));
}

} // namespace

CStr ShowOptionNumber(const SDialogOption& option, double number)
{
    return CStr::Format(u"%.10G", number / option.factor);
}

std::optional<double> TypeOption(SDialogOption& option, std::u16string_view text)
{
    option.text = text;
    option.fault.Clear();
    const auto typed = option.whole ? ReadTypedInteger(text) : ReadTypedReal(text, option.unit);
    if (!typed) {
        option.fault = GetString(option.whole ? SelectionText::c_noWholeNumber : SelectionText::c_noNumber);
        return std::nullopt;
    }
    const double number = *typed * option.factor;
    if (option.lower <= number && number <= option.upper)
        return number;
    option.fault = RangeFault(option);
    return std::nullopt;
}

double GetOptionNumber(const SDialogOption& option, int value)
{
    const auto index = static_cast<std::size_t>(value);
    return value >= 0 && index < option.numbers.size() ? option.numbers[index] : value;
}

SDialogOption* FindOption(std::vector<SDialogOption>& options, int id)
{
    const auto found = std::ranges::find(options, id, &SDialogOption::id);
    return found == options.end() ? nullptr : &*found;
}

} // namespace CommonUI
