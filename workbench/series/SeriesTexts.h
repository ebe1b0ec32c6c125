#pragma once

#include "workbench/TextOf.h"

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

} // namespace Workbench
