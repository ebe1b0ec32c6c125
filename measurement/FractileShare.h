#pragma once

#include "model/Enumerations.h"
#include "model/Parameter.h"

#include <algorithm>
#include <vector>

namespace CommonUI::Measurement
{

/// The percentile that the statistics ask for, as a share.
inline double FractileShare(const std::vector<CParameter>& statistics)
{
    const auto found =
        std::ranges::find(statistics, static_cast<int>(EStatistics::Fractile), &CParameter::GetValue);
    return found == statistics.end() ? 0.5 : found->GetVariableValue() / 100;
}

} // namespace CommonUI::Measurement
