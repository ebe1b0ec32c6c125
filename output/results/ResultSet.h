#pragma once

#include "../../common/Base3D.h"
#include "../../common/Str.h"
#include "../../common/Unit.h"
#include "../../model/Parameter.h"
#include "ValueState.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace CommonUI
{

/// Why a quantity has no value somewhere.
struct SResultState {
    std::size_t index; ///< of the row, or of the statistic
    SValueState state; ///< what is there instead of a value
};

/// A quantity in a set of results, with a value for each row.
struct SResultQuantity {
    /// By what files and machines know it: unique in the set, such as "Sdc(10,50)".
    CStr key{};
    /// As the analysis shows it: with the unit factor and the number format to begin with.
    CParameter parameter;
    CStr header{}; ///< such as its symbol; lines are separated by "\r\n"
    CStr group{};  ///< of neighbours that stand below one name; empty for none
    /// At unit factor 1; NaN where there is none.
    std::vector<double> values{};
    std::vector<SResultState> states{}; ///< of values that are not there
    /// One for each of the set's statistics, at unit factor 1; NaN where there is none. May be empty.
    std::vector<double> statistics{};
    std::vector<SResultState> statisticStates{}; ///< of statistics that are not there
};

/// A statistic of the values of each quantity.
struct SResultStatistic {
    /// In what it is shown.
    enum class EUnit { Quantity, Count, Percent };

    CStr key{};                   ///< by which files and machines know it; never translated
    CStr name{};                  ///< as it is shown
    EUnit unit = EUnit::Quantity; ///< that of its quantity, a count, or percent
};

/// Results as numbers, from which tables are made: what an analysis hands to who shows, copies and prints it.
struct SResultSet {
    /// What the user's choices about such results are kept under: one word, never translated.
    CStr name{};
    CStr title{};      ///< as it is shown
    CStr provenance{}; ///< a line: from what the values come, and when
    /// Labels and texts of what was measured and how.
    std::vector<std::pair<CStr, CStr>> summary{};
    CStr rowHeader{};             ///< what the rows are, such as profiles
    std::vector<CStr> rowNames{}; ///< from top to bottom; as many as each quantity has values
    /// Both for machines, in every language the same; empty where they are those shown.
    CStr exactRowHeader{};
    std::vector<CStr> exactRowNames{};          ///< from top to bottom
    std::vector<SResultQuantity> quantities{};  ///< the columns from left to right, or the rows
    std::vector<SResultStatistic> statistics{}; ///< below the values, from top to bottom
    /// Whether quantities are rows unless the user wants them as columns.
    bool isTransposed = false;
    SBase3D<CUnit> units{CUnit(CUnit::EUnitFactor::Unity), CUnit(CUnit::EUnitFactor::Unity),
                         CUnit(CUnit::EUnitFactor::Unity)}; ///< of the axes
};

} // namespace CommonUI
