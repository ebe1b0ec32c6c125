#pragma once

#include "common/Enum.h"
#include "model/Parameter.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace CommonUI
{

/// Puts parameters into the order of their catalogue; those that the catalogue lacks come behind it, and
/// dynamic ones at the end, by their numbers.
template<class T>
void SortByCatalogue(std::vector<CParameter>& parameters, const CEnum<T>& catalogue)
{
    std::map<int, int> ranks;
    for (const auto& row : catalogue)
        ranks.emplace(row.GetValue(), static_cast<int>(ranks.size()));
    const int count = static_cast<int>(ranks.size());
    std::ranges::stable_sort(parameters, {}, [&](const CParameter& parameter) {
        const auto found = ranks.find(parameter.GetValue());
        const int rank = found == ranks.end() ? count : found->second;
        return std::pair(parameter.HasParent() ? count + 1 : rank,
                         parameter.HasParent() ? parameter.GetValue() : 0);
    });
}

} // namespace CommonUI
