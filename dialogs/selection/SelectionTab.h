#pragma once

#include "../../export/Export.h"
#include "../../model/selection/AnalysisSelection.h"
#include "../../settings/readers/GrainThresholdSettings.h"
#include "DialogOption.h"
#include "SelectionRows.h"

#include <vector>

namespace CommonUI
{

/// The tabs of selection dialogs.
enum class ESelectionTab {
    Parameters,
    Curves, ///< the outputs that are curves, of the roughness analyses
    Statistics,
    Outputs, ///< the other outputs, and where results go
    Preprocessing,
    BarChart, ///< of the roughness analyses
    Grains    ///< which points are grains
};

/// The columns of a tab's rows.
enum class ESelectionColumn {
    Name,
    Setting, ///< the number of a percentile, the classes of a histogram
    Unit,
    Format
};

/// What a selection dialog edits.
struct SSelectionSubject {
    CAnalysisSelection& selection;                   ///< what the user has chosen so far; not owned
    SBase3D<CUnit> units{};                          ///< of the surface, in which values are shown
    const SGrainThresholdSettings* grains = nullptr; ///< null where they are not chosen in the dialog
};

/// The tabs that an analysis has, in their order.
COMMONUI_API std::vector<ESelectionTab> GetSelectionTabs(const SSelectionSubject& subject);
/// What the user reads on a tab, in the language of the string table.
COMMONUI_API CStr GetSelectionTabName(ESelectionTab tab);
/// The list whose entries the rows of a tab are.
COMMONUI_API ESelectionList GetSelectionList(ESelectionTab tab);
/// The entries of a tab in their groups; none for one of options only.
COMMONUI_API std::vector<SParameterGroup> GetSelectionGroups(ESelectionTab tab,
                                                             const CAnalysisPreferencesData& data);
/// The columns of a tab; none for one of options only.
COMMONUI_API std::vector<ESelectionColumn> GetSelectionColumns(ESelectionTab tab, EAnalysis analysis);
/// The heading of a column, in the language of the string table.
COMMONUI_API CStr GetSelectionColumnName(ESelectionColumn column);
/// What a column says of an entry.
COMMONUI_API CStr GetSelectionText(const CParameter& entry, ESelectionColumn column, ESelectionTab tab,
                                   const SSelectionSubject& subject);
/// What an entry means: its name, standard and unit; that it is a template, and what has become of somebody
/// else's change of it.
COMMONUI_API CStr GetSelectionToolTip(const CParameter& entry, ESelectionMark mark,
                                      const SBase3D<CUnit>& units);

} // namespace CommonUI
