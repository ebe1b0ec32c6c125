#pragma once

#include "model/Parameter.h"

#include <span>
#include <string_view>
#include <vector>

namespace CommonUI
{

/// Numbers from `first` to `last` belong to the group whose name is the text `textId`.
struct SGroupRow {
    int first;
    int last;
    int textId;
};

/// The kinds of roughness parameters within their standards, in the order in which they are listed.
std::span<const SGroupRow> GetRoughnessKinds();

/// The kinds of curves of the roughness analyses.
std::span<const SGroupRow> GetRoughnessCurveKinds();

/// The kinds of grain quantities.
std::span<const SGroupRow> GetMeasureKinds();

/// Plain statistics and weighted ones.
std::span<const SGroupRow> GetStatisticKinds();

/// The entries under the headings of the rows that hold their base values, in the order of the rows; one
/// heading may have several rows. Empty groups, and entries without a row, are left out.
/// @param standard of the groups
std::vector<SParameterGroup> GroupByKind(const std::vector<CParameter>& entries,
                                         std::span<const SGroupRow> rows, int standard = 0);

} // namespace CommonUI
