#pragma once

#include "workbench/TextOf.h"

namespace Workbench
{

/// The texts of reports.
enum class EReportText {
    Command = 12183,

    Template = 12185,
    Title,
    Blocks,
    Pictures,
    OpenAfterwards,
    Save,
    SaveTemplate,

    NoTemplate = 12193,
};

} // namespace Workbench
