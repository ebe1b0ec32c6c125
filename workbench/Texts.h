#pragma once

#include "workbench/TextOf.h"

namespace Workbench
{

/// The texts of the workbench in the string table.
enum class EText {
    FileMenu = 11701,
    ViewMenu,
    AnalyzeMenu,
    HelpMenu,

    Open = 11706,
    OpenRecent,
    ClearRecent,
    CloseTab,
    Quit,

    ShowMap = 11712,
    ShowBlock,
    Fit,
    ZoomIn,
    ZoomOut,
    Parallel,
    Colors,
    NextTab,

    SystemColors = 11721,
    LightColors,
    DarkColors,

    Parameters = 11725,

    HelpContents = 11727,
    About,

    Exaggeration = 11731,
    LightAround,
    LightAbove,
    ColorScale,

    Results = 11741,
    ViewPane,
    Tools,
    Map,
    Block,
    Reading,
    ReadingFile,
    NoSurface,
    NoRecent,
    Computing,
    NoResults,
    NothingToShow,
    NoOpenGL,
    OldOpenGL,
    OnlySoftware,
    DrawingFailed,
    NeedsLines,
    NotKept,
    NoScale,
    AboutText,
    NoDriver,

    Size = 11763,
    ProgramName,
    Surfaces,

    // Processing.
    EditMenu = 12001,
    Undo,
    Redo,
    UndoWhat,
    RedoWhat,
    Processing,

    AddCorrection = 12011,
    AddFilter,
    AddSequence,
    Steps,
    MoveUp,
    MoveDown,
    Remove,
    SaveSequence,
    StepSet,
    LeftOut,
    NoSteps,
    ChangeRemove,
    ChangeReplace,
    ChangeMove,
    ChangeOn,
    ChangeOff,
    ChangeEdit,

    NumberOrder = 12031,
    NumberColumns,
    NumberRows,
    NumberDeviation,
    NumberThreshold,
    NumberWidth,
    NumberCutoff,
    NumberShare,

    SaveSurface = 12041,
    Saving,
    NotSaved,
    IsOpen,
    OfferSession,
    FileChanged,
    StepsNotDone,
    ForgetSession,

    Reload = 12051,
    NoJournal,
    NotThisValue,
};

} // namespace Workbench
