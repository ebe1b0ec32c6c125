#pragma once

#include "../../common/Rect.h"
#include "../../common/Str.h"
#include "../../controls/View.h"
#include "../../export/Export.h"

#include <functional>
#include <string_view>
#include <vector>

namespace CommonUI
{

class CGridPane;

/// The shapes of the pointer over a grid.
enum class EGridCursor {
    Arrow,
    Hand,
    Text,
    Resize ///< over the edge of a column
};

/// What a text must be that is typed into a cell.
struct COMMONUI_API SGridEditRules {
    /// What stands at each place: 'd' a digit, 'a' an ASCII letter, '*' anything, every other character
    /// itself; empty for texts of any form.
    CStr mask{};
    CStr initialText{};     ///< what the editor of a cell without a text starts with
    CStr validCharacters{}; ///< the characters that may occur; empty for all

    /// Whether a text has valid characters only, and one for each place of the mask.
    bool Accepts(std::u16string_view text) const;
};

/// What an item asks its in-place editor to be.
struct SGridEdit {
    /// The kinds of editors.
    enum class EKind {
        Text,
        Spin, ///< a text with two arrows; see StepGridEdit
        List  ///< one of `options`
    };

    EKind kind = EKind::Text; ///< what the user gets
    SRect rect{};             ///< in pixels of the view
    CStr text{};              ///< what it starts with
    CStr typed{}; ///< what was typed to open it, which goes in place of the text; empty if something else did
    std::vector<CStr> options{}; ///< what a List offers, in this order
    int minimum = 0;             ///< the range of the arrows
    int maximum = 0;             ///< the other end of that range
    SGridEditRules rules{}; ///< the item refuses a text that breaks them; the editor may keep to them already
};

/// The text of a spin editor after its arrows have been pressed: the number moved by whole steps and kept
/// between minimum and maximum. A text that is no number counts as the minimum before the step.
COMMONUI_API CStr StepGridEdit(const SGridEdit& edit, const CStr& text, int steps);

/// How the user has left an editor.
enum class EGridEditEnd {
    Taken,
    Next,     ///< taken, to go on in the next cell
    Previous, ///< taken, to go on in the cell before
    Cancelled
};

/// Tells a grid that its editor is done. A text that the cell refuses is answered by the sound of a warning.
/// @param text of the editor
/// @param getGrid gives the grid, or null when a callback has destroyed it or its view
COMMONUI_API void EndGridEdit(EGridEditEnd end, const CStr& text, const std::function<CGridPane*()>& getGrid);

/// The window that shows a grid, or what stands for it. It asks its control, the grid, to draw and forwards
/// what the user does. Used on the user-interface thread.
class COMMONUI_API CGridView : public CControlView<CGridPane>
{
public:
    ~CGridView() override;

    /// Asks for a rectangle to be drawn soon: the grid must not be called from here.
    virtual void Invalidate(const SRect& rect) = 0;
    /// The extent of the grid or its scroll position has changed, so that scroll bars must follow.
    virtual void UpdateScrollBars() = 0;
    /// Moves the keyboard's focus to the view.
    virtual void TakeFocus() = 0;
    /// Opens an editor over the cell. It ends by the grid's EndEdit or CancelEdit, both of which close it.
    virtual void OpenEditor(const SGridEdit& edit) = 0;
    /// The cell of the editor has moved.
    virtual void MoveEditor(const SRect& rect) = 0;
    /// Closes the editor without a word to the grid.
    virtual void CloseEditor() = 0;
    /// Another cell has got the focus, or more or less is selected: what a screen reader tells.
    virtual void OnSelectionChanged() {}
    /// The width of a text in the font of the cells, in pixels.
    virtual int GetTextWidth(std::u16string_view text) const = 0;
};

} // namespace CommonUI
