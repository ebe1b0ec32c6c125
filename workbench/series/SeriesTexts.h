#pragma once

#include "common/StringTable.h"
#include "qt/QtText.h"

namespace Workbench
{

/// The texts of series of surfaces.
enum class ESeriesText {
    Command = 12161,

    Source = 12163,
    OpenSurfaces,
    FolderFiles,
    Folder,
    Browse,
    ChooseAll,
    Steps,
    StepsOfCurrent,
    StepsOfEach,
    Compute,

    Progress = 12174,
    Looking,
    Done,
    ParametersAdded,
    NothingChosen,
    Failed,
    Means,
    SeeSummary,
};

inline CommonUI::CStr Text(ESeriesText text)
{
    return CommonUI::GetString(static_cast<int>(text));
}

inline QString QText(ESeriesText text)
{
    return CommonUI::ToQString(Text(text));
}

} // namespace Workbench
