#pragma once

#include "../../common/Str.h"
#include "../../output/results/GridBaseOutputCtrl.h"

#include <vector>

namespace CommonUI
{

/// What is printed. The tables belong to who prints.
struct SResultPages {
    CStr title{};                                    ///< of the results
    CStr provenance{};                               ///< a line below it, on each page
    const CGridBaseOutputCtrl* summary = nullptr;    ///< what holds for all results; may have no rows
    const CGridBaseOutputCtrl* results = nullptr;    ///< the results, as they are shown
    const CGridBaseOutputCtrl* statistics = nullptr; ///< of the same columns; without rows there are none
    std::vector<CStr> notes{};                       ///< below the tables
};

} // namespace CommonUI
