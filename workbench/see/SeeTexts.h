#pragma once

#include "workbench/TextOf.h"

namespace Workbench
{

/// The texts of what the workbench shows of a surface beside its views.
enum class ESeeText {
    ToolsMenu = 11910,
    MoveTool,
    ProfileTool,
    DistanceTool,
    AngleTool,
    DeleteLine,
    Profiles,
    Marks,
    Curves,

    Copy = 11920,
    CopyPicture,
    Save,
    ChosenProfile,
    NoProfile,
    ChosenCurve,
    Histogram,
    MaterialRatio,
    Spectrum,
    ProfileName,
    Chart,
    NoCurve,
    NotSaved,
    NoMarks,
    Diagnostics,
    CopyAll,
    SettingsIn,
    Messages,
    NoMessages,
};

} // namespace Workbench
