#pragma once

#include "output/grid/GridPane.h"

#include <QAccessible>
#include <QPointer>

namespace CommonUI
{

class CGridWidget;

/// A cell of a grid as screen readers see it. It keeps its place, not its item, and is valid as long as the
/// grid has the place.
class CGridCellAccessible final : public QAccessibleInterface,
                                  public QAccessibleTableCellInterface,
                                  public QAccessibleActionInterface
{
public:
    CGridCellAccessible(CGridWidget& widget, SGridCell cell);

    SGridCell GetPlace() const noexcept { return m_cell; }

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override { return table(); }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QString text(QAccessible::Text what) const override;
    void setText(QAccessible::Text /*what*/, const QString& /*text*/) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::Cell; }
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    bool isSelected() const override;
    QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return static_cast<int>(m_cell.column); }
    int rowIndex() const override { return static_cast<int>(m_cell.row); }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
    CGridPane* GetGrid() const;

    QPointer<CGridWidget> m_widget;
    SGridCell m_cell;
};

} // namespace CommonUI
