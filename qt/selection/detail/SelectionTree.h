#pragma once

#include "qt/selection/detail/SelectionItemModel.h"

#include <QTreeView>

#include <set>

namespace CommonUI
{

/// The rows of a tab as a tree. Space ticks the current row, F2 opens the list of its units.
class CSelectionTree final : public QTreeView
{
public:
    /// @param view that has its dialog, with a tab of rows; as of CSelectionItemModel
    CSelectionTree(const CSelectionView& view, std::size_t tab);
    ~CSelectionTree() override;

    CSelectionItemModel& GetModel() noexcept { return m_model; }
    /// Rows have come or gone, or are shown or hidden: what was opened and selected stays so.
    void ShowRows();
    void GoToRow(int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    void Toggle();
    bool EditUnit();
    void RunCommand(int command);
    void NoteCollapsed(const QModelIndex& parent);
    void Collapse(const QModelIndex& parent);
    void SelectRows();

    CSelectionItemModel m_model;
    std::set<QString> m_collapsed;
    bool m_resetting = false;
};

} // namespace CommonUI
