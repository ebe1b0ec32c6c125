#include "output/GridPane.h"

#include <algorithm>
#include <limits>

namespace CommonUI
{

namespace
{

/// Beyond every view.
constexpr int c_outside = 1 << 24;

} // namespace

CGridPane::CGridPane()
{
    SetHeaderLines(1);
}

CGridPane::~CGridPane() = default;

void CGridPane::SetViewSize(const SSize& size)
{
    m_size = size;
    Changed();
}

void CGridPane::SetLineHeight(int height)
{
    m_lineHeight = std::max(height, 1);
    SetHeaderLines(m_headerLines);
}

void CGridPane::SetHeaderLines(int lines)
{
    m_headerLines = lines;
    m_headerHeight = lines == 0 ? 0 : lines * m_lineHeight + 2 * c_margin;
    Changed();
}

void CGridPane::SetRowCount(std::size_t count)
{
    m_rowCount = count;
    m_selection.SetSize(m_rowCount, GetColumnCount());
    Changed();
}

void CGridPane::SetColumnWidths(const std::vector<int>& widths, std::size_t frozen)
{
    m_edges.assign(1, 0);
    for (const int width : widths)
        m_edges.push_back(m_edges.back() + std::max(width, 0));
    m_frozen = std::min(frozen, widths.size());
    SetRowCount(m_rowCount);
}

void CGridPane::SetColumnWidth(std::size_t column, int width)
{
    const int wider = std::max(width, 0) - GetColumnWidth(column);
    for (std::size_t i = column + 1; i < m_edges.size(); ++i)
        m_edges[i] += wider;
    Changed();
}

CGridPane::SExtent CGridPane::GetExtent() const noexcept
{
    return {m_edges.back(), static_cast<long long>(m_rowCount) * GetRowHeight() + m_headerHeight};
}

void CGridPane::CutScrolling()
{
    const SExtent extent = GetExtent();
    m_left = std::clamp(m_left, 0, std::max(extent.width - m_size.cx, 0));
    m_top = std::clamp(m_top, 0LL, std::max(extent.height - m_size.cy, 0LL));
}

void CGridPane::Changed()
{
    CutScrolling();
    if (m_view)
        m_view->UpdateScrollBars();
    Redraw();
}

void CGridPane::ScrollTo(int left, long long top)
{
    const int oldLeft = m_left;
    const long long oldTop = m_top;
    m_left = left;
    m_top = top;
    CutScrolling();
    if (m_left != oldLeft || m_top != oldTop)
        Changed();
}

void CGridPane::EnsureVisible(SGridCell cell)
{
    if (cell.row >= m_rowCount || cell.column >= GetColumnCount())
        return;
    const long long rowTop = static_cast<long long>(cell.row) * GetRowHeight();
    const long long bodyHeight = std::max(m_size.cy - m_headerHeight, GetRowHeight());
    const long long top = std::clamp(m_top, rowTop + GetRowHeight() - bodyHeight, rowTop);
    int left = m_left;
    if (cell.column >= m_frozen) {
        // Where a cell is wider than the view, its beginning counts.
        left = std::max(left, m_edges[cell.column + 1] - m_size.cx);
        left = std::min(left, m_edges[cell.column] - GetFrozenWidth());
    }
    ScrollTo(left, top);
}

std::size_t CGridPane::RowAt(long long y) const
{
    const long long row = (y - m_headerHeight + m_top) / GetRowHeight();
    return static_cast<std::size_t>(std::max(row, 0LL));
}

std::size_t CGridPane::PageRows() const
{
    return static_cast<std::size_t>(std::max((m_size.cy - m_headerHeight) / GetRowHeight(), 1));
}

CGridPane::SColumns CGridPane::ColumnsBetween(int left, int right) const
{
    const auto edges = m_edges.begin();
    const auto scrolled = edges + static_cast<std::ptrdiff_t>(m_frozen);
    const auto first = std::upper_bound(scrolled, m_edges.end(), left + m_left);
    const auto end = std::lower_bound(first, m_edges.end(), right + m_left);
    const auto place = [&](auto edge) {
        return std::min(static_cast<std::size_t>(edge - edges), GetColumnCount());
    };
    return {std::max(place(first) - (first == edges ? 0 : 1), m_frozen), place(end)};
}

SGridRange CGridPane::GetVisibleRange() const
{
    const SColumns columns = ColumnsBetween(GetFrozenWidth(), m_size.cx);
    const std::size_t lastRow = RowAt(std::max(m_size.cy - 1, m_headerHeight));
    return {RowAt(m_headerHeight), std::min(lastRow, std::max<std::size_t>(m_rowCount, 1) - 1), columns.first,
            std::max(columns.end, columns.first + 1) - 1};
}

SRect CGridPane::GetCellRect(SGridCell cell) const
{
    const long long y = static_cast<long long>(cell.row) * GetRowHeight() - m_top + m_headerHeight;
    const int top = static_cast<int>(std::clamp<long long>(y, -c_outside, c_outside));
    const int shift = cell.column < m_frozen ? 0 : m_left;
    return {m_edges[cell.column] - shift, top, m_edges[cell.column + 1] - shift, top + GetRowHeight()};
}

SGridHit CGridPane::HitTest(SPoint point) const
{
    SGridHit hit;
    const int left = point.x < GetFrozenWidth() ? point.x : point.x + m_left;
    if (point.x < 0 || point.y < 0 || left >= m_edges.back())
        return hit;
    const auto edge = std::upper_bound(m_edges.begin(), m_edges.end(), left);
    hit.cell.column = static_cast<std::size_t>(edge - m_edges.begin()) - 1;
    if (point.y < m_headerHeight) {
        hit.part = hit.cell.column < m_frozen ? SGridHit::EPart::Corner : SGridHit::EPart::ColumnHeader;
    } else if (RowAt(point.y) < m_rowCount) {
        hit.part = SGridHit::EPart::Cell;
        hit.cell.row = RowAt(point.y);
    }
    return hit;
}

void CGridPane::Draw(CGridPainter& painter, const SRect& clip) const
{
    if (clip.IsEmpty())
        return;
    const SColumns columns = ColumnsBetween(std::max(clip.left, GetFrozenWidth()), clip.right);
    const std::size_t frozen = clip.left < GetFrozenWidth() ? m_frozen : 0;
    const SGridCell focus = m_selection.GetFocus();
    const bool hasFocus = m_focus && !m_selection.IsEmpty();
    const auto drawRow = [&](std::size_t row, std::size_t first, std::size_t end, bool isFrozen) {
        for (std::size_t column = first; column < end; ++column)
            DrawCell(painter, {row, column}, GetCellRect({row, column}));
        if (hasFocus && focus.row == row && (focus.column < m_frozen) == isFrozen)
            painter.DrawFocus(GetCellRect(focus));
    };
    const std::size_t firstRow = RowAt(std::max(clip.top, m_headerHeight));
    const std::size_t endRow =
        clip.bottom > m_headerHeight ? std::min(RowAt(clip.bottom - 1) + 1, m_rowCount) : 0;
    // What is frozen lies over what is scrolled below it, and the headers over both.
    for (std::size_t row = firstRow; row < endRow; ++row) {
        drawRow(row, columns.first, columns.end, false);
        drawRow(row, 0, frozen, true);
    }
    if (clip.top >= m_headerHeight)
        return;
    if (columns.first < columns.end)
        DrawHeader(painter, columns.first, columns.end - 1);
    if (frozen != 0)
        DrawHeader(painter, 0, frozen - 1);
}

void CGridPane::Redraw() const
{
    if (m_view)
        m_view->Invalidate({0, 0, m_size.cx, m_size.cy});
}

void CGridPane::SelectAll()
{
    m_selection.SelectAll();
    AnnounceSelection();
}

void CGridPane::OnSelectionChanged()
{
}

void CGridPane::AnnounceSelection()
{
    OnSelectionChanged();
    Redraw();
    if (const auto closure = m_selectionSlot.Share<void>())
        closure->Invoke();
}

void CGridPane::SelectAndShow(SGridHit::EPart part, SGridCell cell, bool extend)
{
    if (part == SGridHit::EPart::Nothing)
        return;
    if (part == SGridHit::EPart::Corner) {
        SelectAll();
        return;
    }
    if (part == SGridHit::EPart::ColumnHeader)
        m_selection.SelectColumn(cell.column, extend);
    else if (cell.column < m_frozen)
        m_selection.SelectRow(cell.row, extend);
    else
        m_selection.SelectCell(cell, extend);
    if (part == SGridHit::EPart::Cell)
        EnsureVisible(cell);
    AnnounceSelection();
}

void CGridPane::Drag(SPoint point)
{
    const auto toward = [](int place, int low, int high, std::size_t focus, std::size_t hit) {
        if (place >= low && place < high)
            return hit;
        return place < low ? focus - std::min<std::size_t>(focus, 1) : focus + 1;
    };
    const SGridHit hit = HitTest(point);
    if (m_selection.IsEmpty() ||
        (hit.part == SGridHit::EPart::Nothing && m_size.cy > point.y && m_size.cx > point.x))
        return;
    const SGridCell focus = m_selection.GetFocus();
    m_selection.ExtendTo({toward(point.y, m_headerHeight, m_size.cy, focus.row, hit.cell.row),
                          toward(point.x, 0, m_size.cx, focus.column, hit.cell.column)});
    EnsureVisible(m_selection.GetFocus());
    AnnounceSelection();
}

void CGridPane::OnMouse(unsigned int message, SPoint point, SGridModifiers modifiers)
{
    const SGridHit hit = HitTest(point);
    if (message == GridMouse::c_leftDown)
        SelectAndShow(hit.part, hit.cell, modifiers.shift);
    else if (message == GridMouse::c_move)
        Drag(point);
}

bool CGridPane::OnKey(const SGridKey& key)
{
    if (!m_selection.OnKey(key, PageRows()))
        return false;
    if (key.key != EGridKey::A)
        EnsureVisible(m_selection.GetFocus());
    AnnounceSelection();
    return true;
}

void CGridPane::OnFocus(bool focus)
{
    m_focus = focus;
    Redraw();
}

} // namespace CommonUI
