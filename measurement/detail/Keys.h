#pragma once

#include "analysis/surface/Value.h"
#include "measurement/detail/AnalysisKey.h"
#include "model/Parameter.h"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace CommonUI::Measurement
{

/// The keys by which the analysis knows some parameters.
class CKeys
{
public:
    explicit CKeys(std::span<const CParameter> parameters)
    {
        for (const CParameter& parameter : parameters)
            m_keys.push_back(AnalysisKey(parameter));
        m_views.assign(m_keys.begin(), m_keys.end());
    }
    CKeys(const CKeys&) = delete;
    CKeys& operator=(const CKeys&) = delete;

    std::span<const std::string_view> Get() const { return m_views; }

private:
    std::vector<std::string> m_keys{};
    std::vector<std::string_view> m_views{};
};

/// Takes out what was computed under a key; nothing if that was not computed.
inline std::vector<double> TakeValues(std::vector<Analysis::SValues>& table, std::string_view key)
{
    const auto found = std::ranges::find(table, key, &Analysis::SValues::key);
    return found == table.end() ? std::vector<double>() : std::exchange(found->values, {});
}

/// The values of the variables of a parameter that is made from a template.
inline std::vector<double> VariableValues(const CParameter& parameter)
{
    std::vector<double> values;
    for (const CParameter& variable : parameter.GetVariables())
        values.push_back(variable.GetVariableValue());
    return values;
}

} // namespace CommonUI::Measurement
