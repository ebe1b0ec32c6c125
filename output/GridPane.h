#pragma once

#include "../common/Rect.h"
#include "../controls/Closure.h"
#include "../platform/Export.h"
#include "GridPainter.h"
#include "GridSelection.h"
#include "GridView.h"

#include <cstddef>
#include <vector>

namespace CommonUI
{

/// What the mouse does, by the numbers of window messages.
namespace GridMouse
{
constexpr unsigned int c_move = 0x200; ///< with the left button held down, also outside of the view
constexpr unsigned int c_leftDown = 0x201;
constexpr unsigned int c_leftUp = 0x202;
constexpr unsigned int c_leftDoubleClick = 0x203;
constexpr unsigned int c_rightDown = 0x204;
} // namespace GridMouse

/// What lies under a point of a grid.
struct SGridHit {
    enum class EPart { Nothing, Corner, ColumnHeader, Cell };

    EPart part = EPart::Nothing;
    SGridCell cell{}; ///< the column counts for ColumnHeader, both for Cell
};

/// What all grids have in common: where their cells lie, which of them are drawn, scrolling, selection and
/// keys. All rows have one height, so that nothing here depends on how many there are.
///
/// A view beside it shows the grid and forwards events. User-interface thread only.
class COMMONUI_API CGridPane
{
public:
    /// The size of everything there is to scroll through, in pixels, the headers included.
    struct SExtent {
        int width;
        long long height;
    };

    virtual ~CGridPane();
    CGridPane(const CGridPane&) = delete;
    CGridPane& operator=(const CGridPane&) = delete;

    /// Gives the grid its view; null takes it away. The view is not owned and must outlive its use.
    void SetView(CGridView* view) noexcept { m_view = view; }
    CGridView* GetView() const noexcept { return m_view; }
    /// The size of the view in pixels; to be told whenever it changes.
    void SetViewSize(const SSize& size);
    /// The height of a line of text in pixels, 1 or more, by which rows and headers are laid out.
    void SetLineHeight(int height);
    int GetRowHeight() const noexcept { return m_lineHeight + 2 * c_margin; }
    int GetHeaderHeight() const noexcept { return m_headerHeight; }

    std::size_t GetRowCount() const noexcept { return m_rowCount; }
    std::size_t GetColumnCount() const noexcept { return m_edges.size() - 1; }
    /// In pixels.
    int GetColumnWidth(std::size_t column) const { return m_edges[column + 1] - m_edges[column]; }
    void SetColumnWidth(std::size_t column, int width);

    SExtent GetExtent() const noexcept;
    int GetScrollLeft() const noexcept { return m_left; }
    long long GetScrollTop() const noexcept { return m_top; }
    /// Shows what begins at that many pixels from the left and below the headers, cut to what there is.
    void ScrollTo(int left, long long top);
    /// Scrolls as little as it takes to show the whole cell.
    void EnsureVisible(SGridCell cell);
    /// The rows of which the view shows something; none when the first is not below GetRowCount.
    SGridRange GetVisibleRange() const;
    /// Where a cell lies in the view. Far outside it, the place is only roughly right.
    SRect GetCellRect(SGridCell cell) const;
    SGridHit HitTest(SPoint point) const;

    const CGridSelection& GetSelection() const noexcept { return m_selection; }
    void SelectCell(SGridCell cell) { SelectAndShow(SGridHit::EPart::Cell, cell, false); }
    void SelectAll();
    /// Sets the member function that is called after the user has selected something else. The object is not
    /// owned; the function may destroy the grid.
    template<class C>
    void SetSelectionCallback(std::type_identity_t<C>& object, void (C::*method)())
    {
        m_selectionSlot.Set(MakeClosure(object, method));
    }

    /// Draws what lies within `clip`, at a cost by what is drawn.
    void Draw(CGridPainter& painter, const SRect& clip) const;
    /// Asks the view to draw everything anew.
    void Redraw() const;

    /// The mouse has done something. @param message one of GridMouse; others are ignored
    virtual void OnMouse(unsigned int message, SPoint point, SGridModifiers modifiers);
    /// A key has been pressed. @return false for one that the grid has no use for
    virtual bool OnKey(const SGridKey& key);
    /// The view has got the keyboard's focus, or lost it.
    void OnFocus(bool focus);
    bool HasFocus() const noexcept { return m_focus; }

    /// What lies between the edge of a cell and its contents, in pixels.
    static constexpr int c_margin = 2;

protected:
    CGridPane();

    /// @param frozen how many columns at the left stay when the others are scrolled
    void SetColumnWidths(const std::vector<int>& widths, std::size_t frozen);
    void SetRowCount(std::size_t count);
    /// @param lines how many lines of text the headers have
    void SetHeaderLines(int lines);
    int GetLineHeight() const noexcept { return m_lineHeight; }
    CGridSelection& EditSelection() noexcept { return m_selection; }
    /// Selects by the place that was hit, shows it and calls the selection callback. The grid may be gone
    /// afterwards.
    void SelectAndShow(SGridHit::EPart part, SGridCell cell, bool extend);

    /// The selection has changed; called before the selection callback.
    virtual void OnSelectionChanged();
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
    /// Redraws and calls the selection callback. The grid may be gone afterwards.
    void AnnounceSelection();
    /// Extends the selection to the cell under the pointer, or by one cell towards a pointer outside of the
    /// cells, so that a pointer held there scrolls.
    void Drag(SPoint point);

    CGridView* m_view = nullptr;
    CCallbackSlot m_selectionSlot;
    CGridSelection m_selection;
    SSize m_size;
    int m_lineHeight = 16;
    int m_headerLines = 1;
    int m_headerHeight;
    std::size_t m_rowCount = 0;
    std::vector<int> m_edges{0}; ///< the left edges of the columns unscrolled, and the right one of the last
    std::size_t m_frozen = 0;
    int m_left = 0;
    long long m_top = 0;
    bool m_focus = false;
};

} // namespace CommonUI
