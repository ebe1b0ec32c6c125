#pragma once

#include "../../common/Str.h"
#include "../../controls/Closure.h"
#include "../../export/Export.h"
#include "GridPane.h"
#include "GridRow.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace CommonUI
{

/// A grid of items that the user edits: columns with headers, rows with rows below them, and an editor that
/// opens in a cell. Tables of results, which only show, are a CResultGridPane.
///
/// When memory runs out in a call that adds, moves or shows rows, columns or items, nothing changes.
class COMMONUI_API CGridCtrl : public CGridPane
{
public:
    /// A column to be added.
    struct SColumn {
        CStr header{};   ///< one line, which a screen reader says, too; empty for none
        int width = 100; ///< in pixels; the user may change it
    };

    CGridCtrl();
    ~CGridCtrl() override;

    /// Appends a column. Items that rows already have at its place are shown from now on.
    void AddColumn(const SColumn& column);
    /// Appends a row. The grid owns it until it is removed.
    CGridRow& AddRow();
    /// Destroys a row of this grid and those below it.
    void RemoveRow(CGridRow& row);
    /// Destroys all rows; the columns stay. An open editor is closed without taking over its text.
    void RemoveAllRows();
    /// The rows at the top; each has those below it.
    const CGridRowList<std::unique_ptr<CGridRow>>& GetRows() const noexcept { return m_rows; }
    /// The rows that are shown, from top to bottom: those at the top and those below expanded ones.
    const CGridRowList<CGridRow*>& GetShownRows() const noexcept { return m_shown; }
    /// The item of a shown cell; null where there is none.
    std::shared_ptr<CGridItem> GetItem(SGridCell cell) const;
    /// The item of the cell that keys go to; null where there is none.
    std::shared_ptr<CGridItem> GetFocusItem() const { return GetItem(GetSelection().GetFocus()); }

    /// Whether the user can change nothing. Buttons of their own, which run a command, still do.
    bool IsReadOnly() const noexcept { return m_readOnly; }
    /// Making it read-only closes an open editor without taking over its text.
    void SetReadOnly(bool readOnly);
    /// Whether the item is in a shown cell that is selected.
    bool IsSelected(const CGridItem& item) const;
    /// Where an item lies in the view, which is what it draws in; empty when its row is not shown.
    SRect GetItemRect(const CGridItem& item) const;
    /// Asks the view to draw an item soon; does nothing for one that is not shown.
    void RedrawItem(const CGridItem& item) const;

    /// Sets the member function that is called after the user has changed an item, with the item and its id.
    /// The object is not owned; the function may remove the item and destroy the grid.
    template<class TObject>
    void SetChangeCallback(std::type_identity_t<TObject>& object, void (TObject::*method)(CGridItem&, int))
    {
        m_changeSlot.Set(MakeClosure(object, method));
    }
    /// Calls that function.
    virtual void OnItemChanged(CGridItem& item, int id);

    /// Opens the editor of the item that has the focus. @return false when it has none, or cannot be changed
    /// @param typed what goes into the editor in place of the value
    bool BeginEdit(const CStr& typed = {});
    /// Whether an editor is open.
    bool IsEditing() const noexcept { return m_editing; }

    void SetView(CGridView* view) override;
    SSpokenCell Speak(SGridCell cell) const override;
    CStr SpeakHeader(std::size_t column) const override;
    void OnMouse(unsigned int message, SPoint point, SGridModifiers modifiers) override;
    bool OnKey(const SGridKey& key) override;
    /// Begins to edit, with the text in place of the value.
    bool OnText(const CStr& text) override;
    bool EndEdit(const CStr& text) override;
    void CancelEdit() override;
    bool EditNext(bool backward) override;
    EGridCursor OnSetCursor(SPoint point) const override;

protected:
    void OnLayoutChanged() override;
    int GetFittingWidth(std::size_t column) const override;
    void DrawCell(CGridPainter& painter, SGridCell cell, const SRect& rect) const override;
    void DrawHeader(CGridPainter& painter, std::size_t first, std::size_t last) const override;

private:
    friend class CGridRow;

    // Changes which rows are shown.
    template<class FChange>
    void ChangeShown(FChange&& change);
    // A row has come below another one.
    void SubRowAdded(CGridRow& row);
    void ExpansionChanged(CGridRow& row);
    static bool IsShown(const CGridRow& row) noexcept { return row.m_shownPart; }
    // Whether any row has rows below it.
    bool HasTree() const noexcept { return m_trees != 0; }
    bool CanEdit(SGridCell cell) const;
    // An item has come or gone: an editor whose item is no longer in the grid is closed.
    void ItemsChanged();
    void ShowAll();
    // What is below an expanded row, from that place on.
    void ShowBelow(CGridRow& row, std::size_t place);
    // Headers begin where the contents of rows at the top do.
    int GetHeaderIndent(std::size_t column) const { return HasTree() && column == 0 ? GetRowHeight() : 0; }
    SRect GetExpanderRect(SGridCell cell, const SRect& rect) const;
    SRect GetContentRect(SGridCell cell) const;
    bool ClickExpander(SGridCell cell, SPoint point);
    bool ClickItem(unsigned int message, SPoint point, CGridItem& item);
    bool UseKey(const SGridKey& key, CGridItem& item);
    bool Expand(const SGridKey& key);

    std::vector<SColumn> m_columns;
    CGridRowList<std::unique_ptr<CGridRow>> m_rows;
    CGridRowList<CGridRow*> m_shown;
    std::size_t m_trees = 0; // how many rows at the top have rows below them
    bool m_readOnly = false;
    CCallbackSlot m_changeSlot;
    std::weak_ptr<CGridItem> m_edited;
    bool m_editing = false;
};

} // namespace CommonUI
