#include "qt/grid/detail/GridAccessible.h"

#include "qt/grid/detail/GridCellAccessible.h"
#include "qt/grid/GridWidget.h"
#include "qt/QtText.h"

#include <QAccessibleWidget>

#include <algorithm>
#include <limits>
#include <map>
#include <numeric>
#include <utility>

namespace CommonUI
{

namespace
{

int ToInt(std::size_t count)
{
    return static_cast<int>(std::min<std::size_t>(count, std::numeric_limits<int>::max()));
}

// The numbers of neighbouring rows or columns.
struct SNumbers {
    std::size_t first = 0;
    std::size_t end = 0;

    std::size_t GetCount() const { return end - first; }
    bool Contains(int number) const
    {
        return static_cast<std::size_t>(number) >= first && static_cast<std::size_t>(number) < end;
    }
    QList<int> List() const
    {
        QList<int> numbers(ToInt(GetCount()));
        std::iota(numbers.begin(), numbers.end(), static_cast<int>(first));
        return numbers;
    }
};

// A grid as a table. Cells are made when they are asked for and go when there are many, so that a large
// table costs nothing; cells out of the view are not listed as selected.
class CGridAccessible final : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    explicit CGridAccessible(CGridWidget& widget)
        : QAccessibleWidget(&widget, QAccessible::Table)
        , m_widget(widget)
    {
    }
    ~CGridAccessible() override { ForgetCells(); }

    int childCount() const override { return ToInt(GetRowCount() * GetColumnCount()); }
    QAccessibleInterface* child(int index) const override
    {
        const std::size_t columns = std::max<std::size_t>(GetColumnCount(), 1);
        const auto place = static_cast<std::size_t>(index);
        return index < 0 ? nullptr : GetCell({place / columns, place % columns});
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        const auto* const cell = dynamic_cast<const CGridCellAccessible*>(child);
        return cell ? ToInt(cell->GetPlace().row * GetColumnCount() + cell->GetPlace().column) : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override
    {
        const QPoint point = m_widget.viewport()->mapFromGlobal(QPoint(x, y));
        const SGridHit hit = GetGrid() ? GetGrid()->HitTest({point.x(), point.y()}) : SGridHit();
        return hit.part == SGridHit::EPart::Cell ? GetCell(hit.cell) : nullptr;
    }
    QAccessibleInterface* focusChild() const override
    {
        const bool focused = GetGrid() && GetGrid()->HasFocus();
        return focused ? GetCell(GetGrid()->GetSelection().GetFocus()) : nullptr;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override
    {
        return GetCell({static_cast<std::size_t>(row), static_cast<std::size_t>(column)});
    }
    int rowCount() const override { return ToInt(GetRowCount()); }
    int columnCount() const override { return ToInt(GetColumnCount()); }
    QString columnDescription(int column) const override
    {
        return GetGrid() ? ToQString(GetGrid()->SpeakHeader(static_cast<std::size_t>(column))) : QString();
    }
    QString rowDescription(int row) const override
    {
        const QAccessibleInterface* const name = cellAt(row, 0);
        return name ? name->text(QAccessible::Name) : QString();
    }

    bool isRowSelected(int row) const override { return GetSelectedRows().Contains(row); }
    bool isColumnSelected(int column) const override { return GetSelectedColumns().Contains(column); }
    int selectedRowCount() const override { return ToInt(GetSelectedRows().GetCount()); }
    int selectedColumnCount() const override { return ToInt(GetSelectedColumns().GetCount()); }
    QList<int> selectedRows() const override { return GetSelectedRows().List(); }
    QList<int> selectedColumns() const override { return GetSelectedColumns().List(); }
    int selectedCellCount() const override
    {
        const SGridRange range = GetSelected();
        return ToInt((range.lastRow + 1 - range.firstRow) * (range.lastColumn + 1 - range.firstColumn));
    }
    QList<QAccessibleInterface*> selectedCells() const override
    {
        QList<QAccessibleInterface*> cells;
        if (!GetGrid())
            return cells;
        const SGridRange range = GetGrid()->GetVisibleRange();
        const auto addRows = [&](std::size_t first, std::size_t end) {
            for (std::size_t row = first; row < end; ++row)
                for (std::size_t column = 0; column <= range.lastColumn; ++column)
                    if (GetGrid()->GetSelection().Contains({row, column}))
                        cells.push_back(GetCell({row, column}));
        };
        addRows(0, GetGrid()->GetFrozenRowCount());
        addRows(range.firstRow, range.lastRow + 1);
        return cells;
    }
    // A selection is a rectangle, which these could not keep to.
    bool selectRow(int /*row*/) override { return false; }
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* /*event*/) override { ForgetCells(); }

private:
    using CPlace = std::pair<std::size_t, std::size_t>;

    CGridPane* GetGrid() const { return m_widget.GetControl(); }
    std::size_t GetRowCount() const { return GetGrid() ? GetGrid()->GetRowCount() : 0; }
    std::size_t GetColumnCount() const { return GetGrid() ? GetGrid()->GetColumnCount() : 0; }
    SGridRange GetSelected() const
    {
        const bool none = !GetGrid() || GetGrid()->GetSelection().IsEmpty();
        return none ? SGridRange{1, 0, 1, 0} : GetGrid()->GetSelection().GetRange();
    }
    // The rows of which every cell is selected, and the columns.
    SNumbers GetSelectedRows() const
    {
        const SGridRange range = GetSelected();
        const bool whole = range.firstColumn == 0 && range.lastColumn + 1 == GetColumnCount();
        return whole ? SNumbers{range.firstRow, range.lastRow + 1} : SNumbers();
    }
    SNumbers GetSelectedColumns() const
    {
        const SGridRange range = GetSelected();
        const bool whole = range.firstRow == 0 && range.lastRow + 1 == GetRowCount();
        return whole ? SNumbers{range.firstColumn, range.lastColumn + 1} : SNumbers();
    }
    QAccessibleInterface* GetCell(SGridCell cell) const
    {
        constexpr std::size_t c_most = 10000;
        if (cell.row >= GetRowCount() || cell.column >= GetColumnCount())
            return nullptr;
        if (const auto known = m_cells.find({cell.row, cell.column}); known != m_cells.end())
            return QAccessible::accessibleInterface(known->second);
        if (m_cells.size() == c_most)
            ForgetCells();
        auto* const made = new CGridCellAccessible(m_widget, cell);
        m_cells[{cell.row, cell.column}] = QAccessible::registerAccessibleInterface(made);
        return made;
    }
    void ForgetCells() const
    {
        for (const auto& [place, id] : std::exchange(m_cells, {}))
            QAccessible::deleteAccessibleInterface(id);
    }

    CGridWidget& m_widget;
    mutable std::map<CPlace, QAccessible::Id> m_cells;
};

QAccessibleInterface* MakeGridAccessible(const QString& /*className*/, QObject* object)
{
    auto* const widget = qobject_cast<CGridWidget*>(object);
    return widget ? new CGridAccessible(*widget) : nullptr;
}

} // namespace

void InstallGridAccessible()
{
    QAccessible::installFactory(&MakeGridAccessible);
}

void TellGridFocus(CGridWidget& widget, QAccessible::Event what)
{
    QAccessibleInterface* const table = QAccessible::queryAccessibleInterface(&widget);
    QAccessibleInterface* const cell = table ? table->focusChild() : nullptr;
    if (!cell)
        return;
    QAccessibleEvent event(cell, what);
    QAccessible::updateAccessibility(&event);
}

} // namespace CommonUI
