#pragma once

#include "model/Parameter.h"
#include "model/selection/AnalysisSelection.h"

#include <functional>
#include <map>
#include <vector>

namespace CommonUI
{

/// What comes of two changes of one list.
struct SMergedEntries {
    std::vector<CParameter> list{};
    std::map<int, ESelectionMark> marks{}; ///< by the number in `list`
    int taken = 0;                         ///< changes of theirs that are in the list
    int kept = 0;                          ///< changes of theirs that own ones have overruled
};

/// Joins two changes of a list: what only one side has changed is taken from it, field by field; where both
/// have, the own change stays.
/// @param base what both have started from
/// @param nextNumber gives a number that no entry has had, for an own entry whose number theirs has taken
SMergedEntries MergeEntries(const std::vector<CParameter>& base, const std::vector<CParameter>& theirs,
                            const std::vector<CParameter>& own, const std::function<int()>& nextNumber);

} // namespace CommonUI
