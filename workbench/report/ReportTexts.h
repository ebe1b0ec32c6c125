#pragma once

#include "common/StringTable.h"
#include "qt/QtText.h"

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

inline CommonUI::CStr Text(EReportText text)
{
    return CommonUI::GetString(static_cast<int>(text));
}

inline QString QText(EReportText text)
{
    return CommonUI::ToQString(Text(text));
}

} // namespace Workbench
