#pragma once

#include "../../common/Rect.h"
#include "../../common/Str.h"
#include "../../controls/Closure.h"
#include "../../export/Export.h"
#include "GridPainter.h"
#include "GridValue.h"
#include "GridView.h"

#include <memory>
#include <vector>

namespace CommonUI
{

class CGridCtrl;
class CGridRow;

/// A cell of a grid: a value with flags, and how it is drawn, clicked and edited. What follows is a plain
/// cell, which shows its value and edits it as a text; derived items override.
///
/// A row shares its items with whoever else keeps them. Every callback may remove the item, its row or the
/// grid: an item that has lost its row has no grid, and its functions come to an end.
class COMMONUI_API CGridItem : public std::enable_shared_from_this<CGridItem>
{
public:
    /// What an item may do and shows; each is set and asked for alone.
    enum EFlag : unsigned int {
        ReadOnly = 0x01,   ///< the user cannot change the value
        HasButton = 0x02,  ///< a button at the right opens a set-up
        HasSpin = 0x04,    ///< the editor has two arrows
        HasOptions = 0x08, ///< the editor is a list of options
        Disabled = 0x10    ///< greyed, and not to be clicked
    };

    /// @param data whatever the application keeps with the item
    explicit CGridItem(const CGridValue& value = {}, unsigned long data = 0,
                       const SGridEditRules& rules = {});
    virtual ~CGridItem();
    CGridItem(const CGridItem&) = delete;
    CGridItem& operator=(const CGridItem&) = delete;

    /// What is shown and edited; what is being typed into an editor is not in it yet.
    const CGridValue& GetValue() const noexcept { return m_value; }
    /// Replaces the value, whatever its type, without telling the grid's listener.
    void SetValue(const CGridValue& value, bool redraw = true);
    /// Whatever the application keeps with the item; 0 unless given. The library makes no use of it.
    unsigned long GetData() const noexcept { return m_data; }
    /// Changes what GetData returns, and nothing else.
    void SetData(unsigned long data) noexcept { m_data = data; }
    /// The number by which listeners tell items apart; 0 from the start.
    int GetId() const noexcept { return m_id; }
    /// The grid does not care whether an id is unique.
    void SetId(int id) noexcept { m_id = id; }
    /// What a text must be that is typed into the cell; given at construction.
    const SGridEditRules& GetEditRules() const noexcept { return m_rules; }
    /// What a list offers; used with HasOptions.
    const std::vector<CStr>& GetOptions() const noexcept { return m_options; }
    /// Offered while the flag HasOptions is set. The value stays as it is.
    void SetOptions(const std::vector<CStr>& options) { m_options = options; }
    /// The range of the arrows; used with HasSpin.
    int GetMinimum() const noexcept { return m_minimum; }
    /// The other end of that range; both are 0 until a derived item sets them.
    int GetMaximum() const noexcept { return m_maximum; }

    /// Whether the item has the flag itself; ReadOnly is not set by the grid being read-only.
    bool HasFlag(EFlag flag) const noexcept { return (m_flags & flag) != 0; }
    /// Sets or clears a flag and asks for the item to be drawn.
    void SetFlag(EFlag flag, bool set = true);
    /// Whether the item is neither greyed nor deaf to clicks: it has no flag Disabled.
    bool IsEnabled() const noexcept { return !HasFlag(Disabled); }
    /// Whether the user has changed the item since the flag was last cleared.
    bool IsChanged() const noexcept { return m_changed; }
    /// Marks the item as changed, or as unchanged once its value has been taken over. Draws nothing.
    void SetChanged(bool changed = true) noexcept { m_changed = changed; }
    /// Whether the item is drawn pressed, as it is while its closure runs.
    bool IsButtonPressed() const noexcept { return m_pressed; }
    /// Whether the user can change the item: it is in a grid, and neither is read-only or disabled.
    bool CanChange() const noexcept;

    /// The row and the grid that the item is in; null when it is in none.
    CGridRow* GetRow() const noexcept { return m_row; }
    /// The grid of that row; null when the item is in none.
    CGridCtrl* GetGrid() const noexcept;
    /// Asks for the item to be drawn, if it is in a grid.
    void Redraw() const;

    /// The text that is shown.
    virtual CStr FormatItem() const;
    /// What a screen reader says of the item, the state of a check box included.
    virtual CStr GetSpokenText() const { return FormatItem(); }
    /// Draws the item: background, text and the button that its flags give it.
    /// @param rect where the item lies, as in all functions here: the cell, without the room that a tree
    ///     takes
    virtual void OnDrawValue(CGridPainter& painter, const SRect& rect) const;
    /// A mouse button has been pressed over the item. @param message one of GridMouse
    /// @return whether the click is consumed; the grid handles every other
    virtual bool OnClickValue(unsigned int message, SPoint point, const SRect& rect);
    /// The button at the right has been pressed.
    virtual void OnClickButton();
    /// The space bar does what a click on a check box does. @return false when the item has no use for it
    virtual bool OnSpace();
    /// Enter opens the set-up of an item that has one. @return false when the item has none
    virtual bool OnEnter();
    /// The shape of the pointer over a point of the cell.
    virtual EGridCursor OnSetCursor(SPoint point, const SRect& rect) const;
    /// Describes the editor of the value. @return false for an item without one
    virtual bool CreateInPlaceEdit(SGridEdit& edit) const;
    /// Takes over what has been typed or chosen in the editor. @return false, with nothing changed, when the
    /// text does not fit the item
    virtual bool OnEndEdit(const CStr& text);

    /// Where the text lies, and the button at the right; empty without one.
    virtual SRect GetTextRect(const SRect& rect) const;
    /// A square at the right end of the cell, two for arrows; empty when no flag gives the item a button.
    SRect GetButtonRect(const SRect& rect) const;

protected:
    /// Fills the rectangle as that of a selected cell where the item is one, else as that of a plain one.
    void DrawBackground(CGridPainter& painter, const SRect& rect) const;
    /// The text and the button at the right.
    void DrawContents(CGridPainter& painter, const SRect& rect) const;
    /// The colour of the item's text and marks.
    EGridColor GetColor() const;
    /// Tells the grid's listener that the user has changed the item, marks it as changed and redraws it.
    void ReportChange();
    /// Sets the range of the arrows; a reversed one is exchanged. The value stays as it is.
    void SetRange(int minimum, int maximum) noexcept;
    /// Shows the item pressed and calls the closure with it, then shows it released. The closure may throw,
    /// and remove the item.
    /// @param takeFocus whether the grid gets the focus back after the call
    template<class TItem>
    static void InvokePressed(TItem& item, const CCallbackSlot& slot, bool takeFocus)
    {
        const auto closure = slot.Share<void, TItem&>();
        if (!closure)
            return;
        const CPressed pressed(item);
        closure->Invoke(item);
        if (takeFocus)
            pressed.TakeFocus();
    }
    /// Whether the item's cell is shown and belongs to the selection of the grid.
    bool IsSelected() const;

private:
    friend class CGridRow;
    friend class CGridCtrl;

    // Keeps an item alive and pressed until the end of a block.
    class COMMONUI_API CPressed
    {
    public:
        explicit CPressed(CGridItem& item);
        ~CPressed();
        CPressed(const CPressed&) = delete;
        CPressed& operator=(const CPressed&) = delete;
        void TakeFocus() const;

    private:
        std::shared_ptr<CGridItem> m_item;
    };

    void SetPressed(bool pressed);

    CGridValue m_value;
    unsigned long m_data;
    SGridEditRules m_rules;
    std::vector<CStr> m_options;
    int m_id = 0;
    int m_minimum = 0;
    int m_maximum = 0;
    unsigned int m_flags = 0;
    bool m_changed = false;
    bool m_pressed = false;
    CGridRow* m_row = nullptr;
};

} // namespace CommonUI
