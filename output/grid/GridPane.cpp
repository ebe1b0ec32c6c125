#include "output/grid/GridPane.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <utility>

namespace CommonUI
{

namespace
{

// Beyond every view.
constexpr int c_outside = 1 << 24;

} // namespace

CGridPane::CGridPane()
{
    SetHeaderLines(1);
}

CGridPane::~CGridPane() = default;

void CGridPane::SetView(CGridView* view)
{
    Link(*this, view);
    if (view)
        Changed();
}

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
    m_frozenRows = std::min(m_frozenRows, count);
    m_selection.SetSize(m_rowCount, GetColumnCount());
    Changed();
}

void CGridPane::SetFrozenRows(std::size_t count)
{
    m_frozenRows = std::min(count, m_rowCount);
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

void CGridPane::AddColumnWidth(int width)
{
    m_edges.push_back(m_edges.back() + std::max(width, 0));
    SetRowCount(m_rowCount);
}

void CGridPane::SetColumnWidth(std::size_t column, int width)
{
    const int wider = std::max(width, 0) - GetColumnWidth(column);
    for (std::size_t i = column + 1; i < m_edges.size(); ++i)
        m_edges[i] += wider;
    Changed();
}

void CGridPane::FitColumn(std::size_t column)
{
    if (GetView())
        SetColumnWidth(column, GetFittingWidth(column));
}

void CGridPane::FitColumns()
{
    for (std::size_t column = 0; column < GetColumnCount(); ++column)
        FitColumn(column);
}

void CGridPane::OnFitColumns()
{
    const std::vector<int> before = m_edges;
    FitColumns();
    std::vector<std::pair<std::size_t, int>> changed;
    for (std::size_t column = 0; column < GetColumnCount(); ++column)
        if (GetColumnWidth(column) != before[column + 1] - before[column])
            changed.emplace_back(column, GetColumnWidth(column));
    // Gone with the grid.
    const std::weak_ptr closure = m_widthSlot.Share<void, std::size_t, int>();
    for (const auto& [column, width] : changed)
        if (const auto called = closure.lock())
            called->Invoke(column, width);
}

void CGridPane::OnWiden(int steps)
{
    const SGridCell focus = m_selection.GetFocus();
    if (focus.column >= GetColumnCount())
        return;
    const int before = GetColumnWidth(focus.column);
    const int step = std::max(m_lineHeight / 2, 1);
    SetColumnWidth(focus.column, std::max(before + steps * step, std::min(before, step)));
    EnsureVisible(focus);
    AnnounceWidth(focus.column, before);
}

void CGridPane::AnnounceWidth(std::size_t column, int before)
{
    const auto closure = m_widthSlot.Share<void, std::size_t, int>();
    if (closure && column < GetColumnCount() && GetColumnWidth(column) != before)
        closure->Invoke(column, GetColumnWidth(column));
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
    if (GetView())
        GetView()->UpdateScrollBars();
    OnLayoutChanged();
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

long long CGridPane::TopToShow(std::size_t row) const
{
    if (row < m_frozenRows)
        return m_top;
    const long long rowTop = static_cast<long long>(row - m_frozenRows) * GetRowHeight();
    const long long bodyHeight = std::max(m_size.cy - GetBodyTop(), GetRowHeight());
    return std::clamp(m_top, rowTop + GetRowHeight() - bodyHeight, rowTop);
}

int CGridPane::LeftToShow(std::size_t column) const
{
    if (column < m_frozen)
        return m_left;
    // Where a cell is wider than the view, its beginning counts.
    const int left = std::max(m_left, m_edges[column + 1] - m_size.cx);
    return std::min(left, m_edges[column] - GetFrozenWidth());
}

void CGridPane::EnsureVisible(SGridCell cell)
{
    if (cell.row < m_rowCount && cell.column < GetColumnCount())
        ScrollTo(LeftToShow(cell.column), TopToShow(cell.row));
}

std::size_t CGridPane::RowAt(long long y) const
{
    const long long scrolled = y < GetBodyTop() ? 0 : m_top;
    const long long row = (y - m_headerHeight + scrolled) / GetRowHeight();
    return static_cast<std::size_t>(std::max(row, 0LL));
}

std::size_t CGridPane::PageRows() const
{
    return static_cast<std::size_t>(std::max((m_size.cy - GetBodyTop()) / GetRowHeight(), 1));
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
    const std::size_t lastRow = RowAt(std::max(m_size.cy - 1, GetBodyTop()));
    return {RowAt(GetBodyTop()), std::min(lastRow, std::max<std::size_t>(m_rowCount, 1) - 1), columns.first,
            std::max(columns.end, columns.first + 1) - 1};
}

SRect CGridPane::GetCellRect(SGridCell cell) const
{
    const long long scrolled = cell.row < m_frozenRows ? 0 : m_top;
    const long long y = static_cast<long long>(cell.row) * GetRowHeight() - scrolled + m_headerHeight;
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
    const bool hasFocus = m_focus && GetColumnCount() != 0;
    const auto drawRow = [&](std::size_t row, std::size_t first, std::size_t end, bool isFrozen) {
        for (std::size_t column = first; column < end; ++column)
            DrawCell(painter, {row, column}, GetCellRect({row, column}));
        if (hasFocus && focus.row == row && (focus.column < m_frozen) == isFrozen)
            painter.DrawFocus(GetCellRect(focus));
    };
    const auto drawRows = [&](int top, int bottom) {
        const std::size_t end = top < bottom ? std::min(RowAt(bottom - 1) + 1, m_rowCount) : 0;
        for (std::size_t row = RowAt(top); row < end; ++row) {
            drawRow(row, columns.first, columns.end, false);
            drawRow(row, 0, frozen, true);
        }
    };
    // What is frozen lies over what is scrolled below it, and the headers over both.
    drawRows(std::max(clip.top, GetBodyTop()), clip.bottom);
    drawRows(std::max(clip.top, m_headerHeight), std::min(clip.bottom, GetBodyTop()));
    if (clip.top >= m_headerHeight)
        return;
    if (columns.first < columns.end)
        DrawHeader(painter, columns.first, columns.end - 1);
    if (frozen != 0)
        DrawHeader(painter, 0, frozen - 1);
}

void CGridPane::Redraw() const
{
    if (GetView())
        GetView()->Invalidate({0, 0, m_size.cx, m_size.cy});
}

void CGridPane::SelectAll()
{
    m_selection.SelectAll();
    AnnounceSelection();
}

void CGridPane::OnSelectionChanged()
{
}

void CGridPane::OnLayoutChanged()
{
}

void CGridPane::AnnounceSelection()
{
    OnSelectionChanged();
    Redraw();
    if (GetView())
        GetView()->OnSelectionChanged();
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

void CGridPane::PressAt(const SGridHit& hit, bool extend)
{
    m_dragged = hit.part;
    SelectAndShow(hit.part, hit.cell, extend);
}

void CGridPane::EndDrag() noexcept
{
    m_dragged = SGridHit::EPart::Nothing;
    m_resized.reset();
}

void CGridPane::Drag(SPoint point)
{
    const bool column = m_dragged == SGridHit::EPart::ColumnHeader;
    if (m_selection.IsEmpty() || (!column && m_dragged != SGridHit::EPart::Cell))
        return;
    const auto toward = [](int place, int low, int high, std::size_t focus, std::size_t hit) {
        if (place >= low && place < high)
            return hit;
        return place < low ? focus - std::min<std::size_t>(focus, 1) : focus + 1;
    };
    const SExtent extent = GetExtent();
    const long long bottom = std::min<long long>(m_size.cy, extent.height - m_top);
    const int right = std::min(m_size.cx, extent.width - m_left);
    const SPoint inside{std::max(std::min(point.x, right - 1), 0),
                        std::max(std::min(point.y, static_cast<int>(bottom) - 1), m_headerHeight)};
    const SGridCell hit = HitTest(inside).cell;
    SGridCell focus = m_selection.GetFocus();
    // Rows that are scrolled away come back before those that stay with the headers are reached.
    const bool between = m_top > 0 && focus.row >= m_frozenRows;
    if (!column)
        focus.row = toward(point.y, between ? GetBodyTop() : m_headerHeight, m_size.cy, focus.row, hit.row);
    focus.column = toward(point.x, 0, m_size.cx, focus.column, hit.column);
    const SGridRange before = m_selection.GetRange();
    m_selection.ExtendTo(focus);
    if (m_selection.GetRange() == before)
        return;
    focus = m_selection.GetFocus();
    ScrollTo(LeftToShow(focus.column), column ? m_top : TopToShow(focus.row));
    AnnounceSelection();
}

std::optional<std::size_t> CGridPane::FindEdge(SPoint point) const
{
    constexpr int c_reach = 4;
    if (point.y < 0 || point.y >= m_headerHeight)
        return std::nullopt;
    // From the right, so that a column without width is found and can be opened again.
    const auto find = [&](std::size_t first, std::size_t end, int shift) -> std::optional<std::size_t> {
        for (std::size_t column = end; column-- > first;) {
            const int edge = m_edges[column + 1] - shift;
            if (std::abs(edge - point.x) <= c_reach && (shift == 0 || edge >= GetFrozenWidth()))
                return column;
        }
        return std::nullopt;
    };
    const auto frozen = find(0, m_frozen, 0);
    return frozen ? frozen : find(m_frozen, GetColumnCount(), m_left);
}

bool CGridPane::PressEdge(unsigned int message, SPoint point)
{
    const auto edge = FindEdge(point);
    if (edge && message == GridMouse::c_leftDown) {
        m_resized = edge;
        // From where the pointer is, so that nothing moves before the pointer does.
        m_resizedFrom = GetColumnWidth(*edge);
        m_resizedLeft = point.x - m_resizedFrom;
    } else if (edge) {
        const int before = GetColumnWidth(*edge);
        FitColumn(*edge);
        AnnounceWidth(*edge, before);
    }
    return edge.has_value();
}

void CGridPane::Resize(std::size_t column, SPoint point)
{
    // The column moves in the view when that is scrolled to its end, and may have gone.
    if (column < GetColumnCount())
        SetColumnWidth(column, std::max(point.x - m_resizedLeft, 2 * c_margin));
}

EGridCursor CGridPane::OnSetCursor(SPoint point) const
{
    return m_resized || FindEdge(point) ? EGridCursor::Resize : EGridCursor::Arrow;
}

void CGridPane::OnMouse(unsigned int message, SPoint point, SGridModifiers modifiers)
{
    if (message == GridMouse::c_move) {
        if (m_resized)
            Resize(*m_resized, point);
        else
            Drag(point);
        return;
    }
    const auto resized = m_resized;
    EndDrag();
    if (resized && message == GridMouse::c_leftUp)
        AnnounceWidth(*resized, m_resizedFrom);
    const bool press = message == GridMouse::c_leftDown || message == GridMouse::c_leftDoubleClick;
    if (press && !PressEdge(message, point) && message == GridMouse::c_leftDown)
        PressAt(HitTest(point), modifiers.shift);
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

bool CGridPane::OnText(const CStr& /*text*/)
{
    return false;
}

bool CGridPane::EndEdit(const CStr& /*text*/)
{
    return false;
}

void CGridPane::CancelEdit()
{
}

bool CGridPane::EditNext(bool /*backward*/)
{
    return false;
}

void CGridPane::OnFocus(bool focus)
{
    m_focus = focus;
    Redraw();
}

} // namespace CommonUI
