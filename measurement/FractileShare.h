#pragma once

#include "../model/Enumerations.h"
#include "../model/Parameter.h"

#include <algorithm>
#include <vector>

namespace CommonUI::Measurement
{

/// The percentile that statistics ask for, as a share of the values; the median where they ask for none.
inline double FractileShare(const std::vector<CParameter>& statistics)
{
    const auto found =
        std::ranges::find(statistics, static_cast<int>(EStatistics::Fractile), &CParameter::GetValue);
    return found == statistics.end() ? 0.5 : found->GetVariableValue() / 100;
}

} // namespace CommonUI::Measurement
