#pragma once

#include "../../controls/folders/FolderTree.h"
#include "../../export/Export.h"

#include <QTreeView>

namespace CommonUI
{

/// A tree of folders. F5 asks the drive again; the context menu has that and the hidden folders, too.
class COMMONUIQT_API CFolderTreeWidget : public QTreeView, public CFolderTreeView
{
    Q_OBJECT

public:
    /// @param parent owns the widget
    explicit CFolderTreeWidget(QWidget* parent = nullptr);
    ~CFolderTreeWidget() override;

    /// Shows a tree. It is not owned; either may go first.
    void Attach(CFolderTree& tree);

    void OnChildrenLeaving(const CFolderNode& node) override;
    void OnChildrenArrived(const CFolderNode& node) override;
    void OnNodeChanged(const CFolderNode& node) override;
    void OnSelected(const CFolderNode* node) override;
    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    class CModel;

    void AddActions();
    void ShowExpanded(const CFolderNode& node);
    template<class FAct>
    void Tell(FAct act);

    CModel* m_model;
    bool m_showing = false; // what the tree says, which need not be told again
};

} // namespace CommonUI
