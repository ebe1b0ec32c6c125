#include "model/detail/RoughnessNames.h"

#include "common/Unit.h"

namespace CommonUI
{

namespace
{

CStr ValueText(const CParameter& variable)
{
    const double value = variable.GetVariableValue();
    if (variable.GetDimension() == CParameter::EDimension::Percent)
        return CStr::Format(u"%.10G %%", value);
    if (variable.GetDimension() != CParameter::EDimension::Length)
        return CStr::Format(u"%.10G", value);
    // Nano is what the unit of a height of zero stays at.
    const CUnit nano(CUnit::EUnitFactor::Nano);
    const CUnit unit = nano.WithFactor(nano.SuitableFactor(value, 1));
    return CStr::Format(u"%.10G %s", value / unit.GetFactorValue(), unit.GetText());
}

// The text with `values` in place of what its first parentheses hold.
CStr WithValues(const CStr& text, const CStr& values)
{
    const std::size_t open = text.Find(u'(');
    const std::size_t close = text.Find(u')', open == CStr::npos ? 0 : open);
    if (open == CStr::npos || close == CStr::npos)
        return text + u" (" + values + u")";
    return text.Left(open + 1) + values + text.Mid(close);
}

} // namespace

void NameByVariables(CParameter& instance, const CParameter& parent)
{
    CStr values;
    for (std::size_t i = 0; i < instance.GetVariableCount(); ++i)
        values += (i == 0 ? u"" : u", ") + ValueText(instance.GetVariable(i));
    const CStr text = parent.GetFriendlyString();
    const CStr symbol = parent.GetShortFriendlyString();
    if (instance.GetFriendlyString() == text)
        instance.SetFriendlyString(WithValues(text, values));
    if (instance.GetShortFriendlyString() == symbol)
        instance.SetShortFriendlyString(WithValues(symbol, values));
}

} // namespace CommonUI
