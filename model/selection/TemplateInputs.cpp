#include "model/selection/TemplateInputs.h"

#include "model/detail/RoughnessNames.h"

#include <algorithm>
#include <cmath>

namespace CommonUI
{

namespace
{

bool IsPercentage(const CParameter& parent, std::size_t index)
{
    return parent.GetVariable(index).GetDimension() == CParameter::EDimension::Percent;
}

} // namespace

std::optional<SInputFault> CheckInputs(const CParameter& parent, std::span<const double> values)
{
    if (values.size() != parent.GetVariableCount())
        return SInputFault{EInputFault::Count, 0};
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!std::isfinite(values[i]))
            return SInputFault{EInputFault::NoNumber, i};
        if (!IsPercentage(parent, i))
            continue;
        if (values[i] < 0 || values[i] > 100)
            return SInputFault{EInputFault::NoPercent, i};
        if (i > 0 && IsPercentage(parent, i - 1) && values[i] <= values[i - 1])
            return SInputFault{EInputFault::Order, i};
    }
    return std::nullopt;
}

std::vector<double> GetInputs(const CParameter& parameter)
{
    std::vector<double> values(parameter.GetVariableCount());
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = parameter.GetVariable(i).GetVariableValue();
    return values;
}

const CParameter* FindInstance(std::span<const CParameter> list, int parent, std::span<const double> values)
{
    const auto found = std::ranges::find_if(list, [&](const CParameter& parameter) {
        return parameter.GetParentValue() == parent && std::ranges::equal(GetInputs(parameter), values);
    });
    return found == list.end() ? nullptr : &*found;
}

CParameter MakeInstance(int number, const CParameter& parent, std::span<const double> values)
{
    CParameter made(number, parent);
    for (std::size_t i = 0; i < values.size(); ++i)
        made.GetVariable(i).SetVariableValue(values[i]);
    NameByVariables(made, parent);
    return made;
}

} // namespace CommonUI
