#pragma once

#include "../../common/Str.h"
#include "../../output/results/GridBaseOutputCtrl.h"

#include <vector>

namespace CommonUI
{

/// What is printed. The tables belong to who prints.
struct SResultPages {
    CStr title{};
    CStr provenance{}; ///< a line below it, on each page
    const CGridBaseOutputCtrl* summary = nullptr;
    const CGridBaseOutputCtrl* results = nullptr;
    const CGridBaseOutputCtrl* statistics = nullptr; ///< of the same columns; without rows there are none
    std::vector<CStr> notes{};                       ///< below the tables
};

} // namespace CommonUI
