#pragma once

#include "../../controls/lists/ItemList.h"
#include "../../export/Export.h"

#include <QWidget>

class QAction;
class QListView;

namespace CommonUI
{

/// An item list in a dialog: the items, and buttons that move and remove what is selected. Alt+Up, Alt+Down
/// and Delete do the same; items can be dragged.
class COMMONUIQT_API CItemListWidget : public QWidget
{
    Q_OBJECT

public:
    /// @param list not owned; it lives as long as the widget is used, and may go first when both go
    /// @param checkable whether the items have boxes
    CItemListWidget(CItemList& list, bool checkable, QWidget* parent = nullptr);
    ~CItemListWidget() override;

    /// The list itself; lives as long as the widget.
    QListView& GetView() noexcept { return *m_view; }

private:
    class CModel;

    QAction* AddCommand(int textId, const QKeySequence& keys, void (CItemListWidget::*act)());
    void LayOut();
    void MoveUp() { m_list.Move(true); }
    void MoveDown() { m_list.Move(false); }
    void Remove() { m_list.Remove(); }
    void OnItems();
    void OnSelection();
    void TakeSelection();
    void UpdateCommands();

    CItemList& m_list;
    CModel* m_model;
    QListView* m_view;
    QAction* m_up;
    QAction* m_down;
    QAction* m_remove;
    bool m_showing = false; // the selection of the list, which need not be taken again
    CClosureConnection m_itemsConnection;
    CClosureConnection m_selectionConnection;
};

} // namespace CommonUI
