#pragma once

#include "../../common/Rect.h"
#include "../../common/Str.h"
#include "../../export/Export.h"
#include "../../platform/ScreenService.h"

#include <span>

namespace CommonUI
{

/// Where a pane is held. The numbers are stored.
enum class EDock : int { None = 0, Left = 1, Right = 2, Top = 3, Bottom = 4 };

/// Where a window stands and how large it is. That of a maximised window, or of a docked pane, is what it
/// comes back to when it is neither any more. A minimised window is none of that: it comes back as it was
/// before.
struct SWindowPlacement {
    SPoint position{};        ///< of the upper left corner, with the frame
    SSize size{};             ///< without the frame
    bool isMaximized = false; ///< fills the monitor
    bool isHidden = false;    ///< a pane that the user has closed; dialogs are shown whatever it says
    EDock dock = EDock::None; ///< the edge that holds a pane; None where it floats, and for other windows
    int dockedExtent = 0;     ///< the width of a pane held left or right, the height of one at the others

    friend bool operator==(const SWindowPlacement&, const SWindowPlacement&) = default;
};

/// Brings a window where its user reaches it, whatever numbers its placement has: no larger than the work
/// area of one monitor; where it lies if all of it can be seen, on several monitors together if need be;
/// else wholly on the monitor that most of it lies on, or, where it lies on none, on the nearest one.
/// Without monitors nothing but a size below one pixel is changed.
/// @param frame how much larger the window is with its frame
COMMONUI_API SWindowPlacement FitToScreens(const SWindowPlacement& placement, const SSize& frame,
                                           std::span<const SScreen> screens);

/// A name for a set-up of monitors: their areas from left to right and top to bottom, such as
/// "1920x1080+0+0 2560x1440+1920-180@150". The scale is named where it is not 100 percent. Monitors that
/// show the same count once.
COMMONUI_API CStr GetSetUpName(std::span<const SScreen> screens);
/// The name of the set-up that GetScreenService() tells of.
COMMONUI_API CStr GetCurrentSetUpName();

} // namespace CommonUI
