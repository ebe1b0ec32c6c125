#pragma once

#include "../../common/Rect.h"
#include "../../controls/Closure.h"
#include "../../controls/View.h"
#include "../../export/Export.h"
#include "GridPainter.h"
#include "GridSelection.h"
#include "GridView.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace CommonUI
{

/// What the mouse does, by the numbers of window messages.
namespace GridMouse
{
constexpr unsigned int c_move = 0x200;     ///< with the left button held down, also outside of the view
constexpr unsigned int c_leftDown = 0x201; ///< the left button is pressed
constexpr unsigned int c_leftUp = 0x202;   ///< the left button is released
/// The left button is pressed a second time; comes in place of c_leftDown.
constexpr unsigned int c_leftDoubleClick = 0x203;
constexpr unsigned int c_rightDown = 0x204; ///< the right button is pressed
} // namespace GridMouse

/// What lies under a point of a grid.
struct SGridHit {
    /// The parts of a grid; Corner is where the headers meet the columns that stay at the left.
    enum class EPart { Nothing, Corner, ColumnHeader, Cell };

    EPart part = EPart::Nothing; ///< Nothing beside the columns and below the last row
    SGridCell cell{};            ///< the column counts for ColumnHeader, both for Cell
};

/// What a screen reader tells of a cell.
struct SSpokenCell {
    CStr text{};          ///< the value in words, with the state of a check box; empty where there is nothing
    bool enabled = true;  ///< false for a cell that is greyed
    bool readOnly = true; ///< whether the user cannot change it, be it for the cell or for the grid
    bool hasSubRows = false; ///< it has rows below it, which are shown if it is expanded
    bool expanded = false;   ///< the rows below it are shown
};

/// What all grids have in common: where their cells lie, which of them are drawn, scrolling, selection and
/// keys. All rows have one height, so that nothing here depends on how many there are.
///
/// A view beside it shows the grid and forwards events. User-interface thread only.
class COMMONUI_API CGridPane : public CViewedControl<CGridView>
{
public:
    /// The size of everything there is to scroll through, in pixels, the headers included.
    struct SExtent {
        int width;        ///< of all columns
        long long height; ///< of the headers and all rows
    };

    virtual ~CGridPane();
    CGridPane(const CGridPane&) = delete;
    CGridPane& operator=(const CGridPane&) = delete;

    /// Gives the grid its view; null takes it away. The view is not owned; either may go first. An editor
    /// that is open comes to its end, but is left to the view before.
    virtual void SetView(CGridView* view);
    /// The size of the view in pixels; to be told whenever it changes.
    void SetViewSize(const SSize& size);
    /// The height of a line of text in pixels, 1 or more, by which rows and headers are laid out.
    void SetLineHeight(int height);
    /// The height of every row in pixels: a line of text and the margins above and below it.
    int GetRowHeight() const noexcept { return m_lineHeight + 2 * c_margin; }
    /// The height of the headers in pixels with all their lines; 0 for a grid without headers.
    int GetHeaderHeight() const noexcept { return m_headerHeight; }
    /// Where the rows begin that are scrolled, in pixels from the top of the view: below the headers and the
    /// rows that stay with them.
    int GetBodyTop() const noexcept
    {
        return m_headerHeight + static_cast<int>(m_frozenRows) * GetRowHeight();
    }

    /// How many rows there are; of a tree, those that are not hidden below a collapsed one.
    std::size_t GetRowCount() const noexcept { return m_rowCount; }
    /// How many of them, at the top, stay with the headers when the others are scrolled.
    std::size_t GetFrozenRowCount() const noexcept { return m_frozenRows; }
    /// How many columns there are, those that stay at the left included.
    std::size_t GetColumnCount() const noexcept { return m_edges.size() - 1; }
    /// In pixels.
    int GetColumnWidth(std::size_t column) const { return m_edges[column + 1] - m_edges[column]; }
    /// Gives a column a width in pixels; a negative one counts as 0. The width callback is not called.
    void SetColumnWidth(std::size_t column, int width);
    /// Sets the member function that is called with a column and its width after the user has given it
    /// another one: when the edge that was dragged is released, and when a column was fitted. What the
    /// program sets is not told. The object is not owned; the function may destroy the grid.
    template<class TObject>
    void SetColumnWidthCallback(std::type_identity_t<TObject>& object,
                                void (TObject::*method)(std::size_t, int))
    {
        m_widthSlot.Set(MakeClosure(object, method));
    }
    /// Makes a column as wide as its header and the cells of the first hundred rows need it, by the view's
    /// font. Does nothing without a view.
    void FitColumn(std::size_t column);
    /// FitColumn for all columns.
    virtual void FitColumns();
    /// The user has asked for FitColumns: the columns that have got another width are told. The grid may be
    /// gone afterwards.
    void OnFitColumns();

    /// The user wants the column that keys go to wider by steps of half the height of a line, or narrower
    /// where their number is negative: its width is told. The grid may be gone afterwards.
    void OnWiden(int steps);

    /// What scroll bars are laid out by.
    SExtent GetExtent() const noexcept;
    /// How many pixels of the columns are scrolled out at the left.
    int GetScrollLeft() const noexcept { return m_left; }
    /// How many pixels of the rows are scrolled out above the body.
    long long GetScrollTop() const noexcept { return m_top; }
    /// Shows what begins at that many pixels from the left and below the headers, cut to what there is.
    void ScrollTo(int left, long long top);
    /// Scrolls as little as it takes to show the whole cell.
    void EnsureVisible(SGridCell cell);
    /// The cells that are scrolled of which the view shows something; no row when the first is not below
    /// GetRowCount.
    SGridRange GetVisibleRange() const;
    /// Where a cell lies in the view. Far outside it, the place is only roughly right.
    SRect GetCellRect(SGridCell cell) const;
    /// What lies under a point of the view, in pixels.
    SGridHit HitTest(SPoint point) const;

    /// What is selected, and the cell that keys go to.
    const CGridSelection& GetSelection() const noexcept { return m_selection; }
    /// Does what a press on the cell does: in a column that stays at the left it selects the whole row.
    void SelectCell(SGridCell cell) { SelectAndShow(SGridHit::EPart::Cell, cell, false); }
    /// Selects all cells and calls the selection callback; scrolls nothing.
    void SelectAll();
    /// Sets the member function that is called after the user has selected something else. The object is not
    /// owned; the function may destroy the grid.
    template<class TObject>
    void SetSelectionCallback(std::type_identity_t<TObject>& object, void (TObject::*method)())
    {
        m_selectionSlot.Set(MakeClosure(object, method));
    }

    /// Draws what lies within `clip`, at a cost by what is drawn.
    void Draw(CGridPainter& painter, const SRect& clip) const;
    /// Asks the view to draw everything anew.
    void Redraw() const;

    /// What a screen reader tells of a cell; nothing but defaults for one that holds nothing.
    virtual SSpokenCell Speak(SGridCell cell) const = 0;
    /// The header of a column as a screen reader says it, in one line.
    virtual CStr SpeakHeader(std::size_t column) const = 0;

    /// The mouse has done something. @param message one of GridMouse; others are ignored
    ///
    /// Dragging the right edge of a column's header changes its width, and a double click fits it. The grid
    /// may be gone afterwards.
    virtual void OnMouse(unsigned int message, SPoint point, SGridModifiers modifiers);
    /// A key has been pressed. @return false for one that the grid has no use for
    virtual bool OnKey(const SGridKey& key);
    /// A text has been typed that is none of the keys. @return false when it opens no editor
    virtual bool OnText(const CStr& text);
    /// The editor of the view is done: closes it and gives its text to the cell. @return false when the cell
    /// refuses the text and keeps its value, or is no more
    virtual bool EndEdit(const CStr& text);
    /// Closes the editor, if there is one, and leaves the value as it is.
    virtual void CancelEdit();
    /// Opens the editor of the next cell that has one, from left to right and from top to bottom.
    /// @return false, with the focus where it was, when there is none
    virtual bool EditNext(bool backward);
    /// The shape of the pointer over a point of the view.
    virtual EGridCursor OnSetCursor(SPoint point) const;
    /// The view has got the keyboard's focus, or lost it.
    void OnFocus(bool focus);
    /// Whether the view has the keyboard's focus; only then the focused cell has its mark.
    bool HasFocus() const noexcept { return m_focus; }

    /// What lies between the edge of a cell and its contents, in pixels.
    COMMONUI_CONSTANT int c_margin = 2;
    /// How many rows FitColumn looks at.
    COMMONUI_CONSTANT std::size_t c_fittedRows = 100;

protected:
    CGridPane();

    /// @param frozen how many columns at the left stay when the others are scrolled
    void SetColumnWidths(const std::vector<int>& widths, std::size_t frozen);
    /// Appends a column at the same cost however many there are.
    void AddColumnWidth(int width);
    /// To be told how many rows there are; selection, focus and scrolling are cut to them.
    void SetRowCount(std::size_t count);
    /// See GetFrozenRowCount.
    void SetFrozenRows(std::size_t count);
    /// @param lines how many lines of text the headers have
    void SetHeaderLines(int lines);
    /// The height of a line of text in pixels, without margins.
    int GetLineHeight() const noexcept { return m_lineHeight; }
    /// What a fitted column has beyond the widest text and the margins, so that texts do not touch.
    int GetFittingRoom() const noexcept { return m_lineHeight / 4; }
    /// The selection, to be changed without a word to the view or the callback.
    CGridSelection& EditSelection() noexcept { return m_selection; }
    /// Selects by the place that was hit, shows it and calls the selection callback. The grid may be gone
    /// afterwards.
    void SelectAndShow(SGridHit::EPart part, SGridCell cell, bool extend);
    /// Selects what was pressed; moving the mouse selects more until EndDrag. The grid may be gone
    /// afterwards.
    void PressAt(const SGridHit& hit, bool extend);
    /// Ends selecting and resizing with the mouse: moves do nothing until the next press.
    void EndDrag() noexcept;

    /// The selection has changed; called before the selection callback.
    virtual void OnSelectionChanged();
    /// Cells have other places than before.
    virtual void OnLayoutChanged();
    /// The width that a column needs to show its cells whole. Only asked for while there is a view.
    virtual int GetFittingWidth(std::size_t column) const = 0;
    /// Draws a cell with its background. @param rect where it lies in the view
    virtual void DrawCell(CGridPainter& painter, SGridCell cell, const SRect& rect) const = 0;
    /// Draws the headers of the columns from `first` to `last`.
    virtual void DrawHeader(CGridPainter& painter, std::size_t first, std::size_t last) const = 0;

private:
    struct SColumns {
        std::size_t first;
        std::size_t end;
    };

    int GetFrozenWidth() const { return m_edges[m_frozen]; }
    SColumns ColumnsBetween(int left, int right) const;
    std::size_t RowAt(long long y) const;
    std::size_t PageRows() const;
    void CutScrolling();
    void Changed();
    // Redraws and calls the selection callback. The grid may be gone afterwards.
    void AnnounceSelection();
    // Extends the selection to the cell under the pointer, or by one cell towards a pointer outside of the
    // cells, so that a pointer held there scrolls.
    void Drag(SPoint point);
    // The column whose right edge is under the pointer.
    std::optional<std::size_t> FindEdge(SPoint point) const;
    // Returns whether an edge is under the pointer.
    bool PressEdge(unsigned int message, SPoint point);
    void Resize(std::size_t column, SPoint point);
    // Tells of a width that is another one than before. The grid may be gone afterwards.
    void AnnounceWidth(std::size_t column, int before);
    long long TopToShow(std::size_t row) const;
    int LeftToShow(std::size_t column) const;

    CCallbackSlot m_selectionSlot;
    CCallbackSlot m_widthSlot;
    CGridSelection m_selection;
    SSize m_size;
    int m_lineHeight = 16;
    int m_headerLines = 1;
    int m_headerHeight;
    std::size_t m_rowCount = 0;
    std::size_t m_frozenRows = 0; // no more than there are
    std::vector<int> m_edges{0};  // the left edges of the columns unscrolled, and the right one of the last
    std::size_t m_frozen = 0;
    int m_left = 0;
    long long m_top = 0;
    // What was pressed that selects while it is dragged.
    SGridHit::EPart m_dragged = SGridHit::EPart::Nothing;
    std::optional<std::size_t> m_resized; // the column whose edge is being dragged
    int m_resizedLeft = 0;                // where in the view its width is counted from
    int m_resizedFrom = 0;                // its width before
    bool m_focus = false;
};

} // namespace CommonUI
