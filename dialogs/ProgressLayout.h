#pragma once

#include "../common/Rect.h"
#include "../export/Export.h"

namespace CommonUI
{

/// The numbers of the progress dialog and its controls. The text of the string table under c_dialog is the
/// caption where none is given.
namespace ProgressTemplate
{
constexpr unsigned int c_dialog = 7204; ///< the number of the dialog
constexpr int c_cancel = 2;             ///< a button
constexpr int c_bar = 8100;             ///< a progress bar
constexpr int c_text = 8101;            ///< a text of one or more lines
} // namespace ProgressTemplate

/// Where the controls of a progress dialog lie, in dialog units: quarters of the average width of a character
/// and eighths of its height in the font of the dialog.
struct SProgressLayout {
    SSize dialog{184, 60};         ///< the size of the window without its frame
    SRect text{8, 8, 89, 16};      ///< the place of the text
    SRect bar{9, 20, 177, 34};     ///< the place of the progress bar
    SRect cancel{64, 40, 114, 54}; ///< the place of the Cancel button

    friend bool operator==(const SProgressLayout&, const SProgressLayout&) = default;
};

/// The widest that the text of a progress dialog can be, in dialog units: up to the right edge of the bar.
COMMONUI_API int GetProgressTextWidth();

/// The layout for a text of that size in dialog units. A text that does not fit into its place becomes as
/// wide as it can be, and what lies below moves down for its further lines.
/// @param text its size when wrapped at GetProgressTextWidth()
COMMONUI_API SProgressLayout GetProgressLayout(const SSize& text);

} // namespace CommonUI
