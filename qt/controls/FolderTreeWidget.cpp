#include "qt/controls/FolderTreeWidget.h"

#include "qt/controls/detail/ControlTexts.h"
#include "qt/detail/EventGuard.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QFileIconProvider>
#include <QHeaderView>

#include <utility>

namespace CommonUI
{

// The nodes of the tree as Qt asks for them.
class CFolderTreeWidget::CModel final : public QAbstractItemModel
{
public:
    explicit CModel(CFolderTreeWidget& widget)
        : QAbstractItemModel(&widget)
        , m_widget(widget)
        , m_folder(QFileIconProvider().icon(QFileIconProvider::Folder))
        , m_failed(widget.style()->standardIcon(QStyle::SP_MessageBoxWarning))
    {
    }

    const CFolderNode* GetNode(const QModelIndex& index) const
    {
        if (index.isValid())
            return static_cast<const CFolderNode*>(index.constInternalPointer());
        const CFolderTree* const tree = m_widget.GetControl();
        return tree ? &tree->GetTop() : nullptr;
    }
    QModelIndex GetIndex(const CFolderNode& node) const
    {
        return node.GetParent() ? createIndex(static_cast<int>(node.GetIndexInParent()), 0, &node)
                                : QModelIndex();
    }
    void Reset()
    {
        beginResetModel();
        m_hidden = nullptr;
        endResetModel();
    }
    void Leave(const CFolderNode& node)
    {
        beginRemoveRows(GetIndex(node), 0, static_cast<int>(node.GetChildCount()) - 1);
        m_hidden = &node;
        endRemoveRows();
    }
    void Arrive(const CFolderNode& node)
    {
        m_hidden = &node;
        beginInsertRows(GetIndex(node), 0, static_cast<int>(node.GetChildCount()) - 1);
        m_hidden = nullptr;
        endInsertRows();
    }
    void Change(const CFolderNode& node)
    {
        m_hidden = nullptr;
        Q_EMIT dataChanged(GetIndex(node), GetIndex(node));
    }

    QModelIndex index(int row, int column, const QModelIndex& parent) const override
    {
        const bool isThere = column == 0 && row >= 0 && row < rowCount(parent);
        return isThere ? createIndex(row, 0, &GetNode(parent)->GetChild(static_cast<std::size_t>(row)))
                       : QModelIndex();
    }
    QModelIndex parent(const QModelIndex& index) const override
    {
        const CFolderNode* const node = index.isValid() ? GetNode(index) : nullptr;
        return node && node->GetParent() ? GetIndex(*node->GetParent()) : QModelIndex();
    }
    int rowCount(const QModelIndex& parent = {}) const override
    {
        const CFolderNode* const node = GetNode(parent);
        return node && node != m_hidden ? static_cast<int>(node->GetChildCount()) : 0;
    }
    int columnCount(const QModelIndex&) const override { return 1; }
    bool hasChildren(const QModelIndex& parent) const override
    {
        const CFolderNode* const node = GetNode(parent);
        return node && node->CanExpand();
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        const CFolderNode& node = *GetNode(index);
        const bool isSlow = node.GetState() == CFolderNode::EState::Slow;
        const bool hasFailed = node.GetState() == CFolderNode::EState::Failed;
        switch (role) {
        case Qt::DisplayRole:
            return ToQString(isSlow ? CStr::Format(GetString(c_reading), node.GetName()) : node.GetName());
        case Qt::DecorationRole:
            return hasFailed ? m_failed : m_folder;
        case Qt::ToolTipRole:
        case Qt::AccessibleDescriptionRole:
            return hasFailed ? ToQString(node.GetError()) : QString();
        default:
            return {};
        }
    }

private:
    CFolderTreeWidget& m_widget;
    QIcon m_folder;
    QIcon m_failed;
    const CFolderNode* m_hidden = nullptr; // whose children are there, but not for Qt
};

CFolderTreeWidget::CFolderTreeWidget(QWidget* parent)
    : QTreeView(parent)
    , m_model(new CModel(*this))
{
    setModel(m_model);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setAccessibleName(GetQString(11487));
    // Long names can be scrolled to instead of being cut.
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    AddActions();
    connect(this, &QTreeView::expanded, this, [this](const QModelIndex& index) {
        Tell([&](CFolderTree& tree) { tree.Expand(*m_model->GetNode(index)); });
    });
    connect(this, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
        Tell([&](CFolderTree& tree) { tree.Collapse(*m_model->GetNode(index)); });
    });
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& index) {
        Tell([&](CFolderTree& tree) {
            tree.OnUserSelected(index.isValid() ? m_model->GetNode(index) : nullptr);
        });
    });
}

CFolderTreeWidget::~CFolderTreeWidget() = default;

template<class FAct>
void CFolderTreeWidget::Tell(FAct act)
{
    if (GetControl() && !m_showing)
        Guarded([&] { act(*GetControl()); });
}

void CFolderTreeWidget::AddActions()
{
    auto* const refresh = new QAction(GetQString(c_refresh), this);
    refresh->setShortcut(Qt::Key_F5);
    refresh->setShortcutContext(Qt::WidgetShortcut);
    connect(refresh, &QAction::triggered, this, [this] {
        if (currentIndex().isValid())
            Tell([&](CFolderTree& tree) { tree.Refresh(*m_model->GetNode(currentIndex())); });
    });
    auto* const hidden = new QAction(GetQString(c_showHidden), this);
    hidden->setCheckable(true);
    connect(hidden, &QAction::toggled, this,
            [this](bool show) { Tell([&](CFolderTree& tree) { tree.ShowHidden(show); }); });
    addActions({refresh, hidden});
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

QSize CFolderTreeWidget::sizeHint() const
{
    return {40 * fontMetrics().averageCharWidth(), 15 * fontMetrics().height()};
}

// The only column is at least as wide as the tree, so that a selection is seen as such.
void CFolderTreeWidget::resizeEvent(QResizeEvent* event)
{
    header()->setMinimumSectionSize(viewport()->width());
    QTreeView::resizeEvent(event);
}

void CFolderTreeWidget::Attach(CFolderTree& tree)
{
    m_showing = true;
    tree.SetView(this);
    m_showing = false;
}

void CFolderTreeWidget::OnChildrenLeaving(const CFolderNode& node)
{
    // Qt would make something else the current one; the tree says what.
    m_showing = true;
    m_model->Leave(node);
    m_showing = false;
}

void CFolderTreeWidget::OnChildrenArrived(const CFolderNode& node)
{
    m_showing = true;
    if (node.GetParent())
        m_model->Arrive(node);
    else
        m_model->Reset();
    ShowExpanded(node);
    m_showing = false;
    if (GetControl())
        OnSelected(GetControl()->GetSelected());
}

void CFolderTreeWidget::ShowExpanded(const CFolderNode& node)
{
    if (node.GetParent())
        setExpanded(m_model->GetIndex(node), node.IsExpanded());
    for (std::size_t i = 0; i < node.GetChildCount(); ++i)
        if (node.GetChild(i).IsExpanded())
            ShowExpanded(node.GetChild(i));
}

void CFolderTreeWidget::OnNodeChanged(const CFolderNode& node)
{
    const bool before = std::exchange(m_showing, true);
    m_model->Change(node);
    setExpanded(m_model->GetIndex(node), node.IsExpanded());
    m_showing = before;
}

void CFolderTreeWidget::OnSelected(const CFolderNode* node)
{
    const bool before = std::exchange(m_showing, true);
    setCurrentIndex(node ? m_model->GetIndex(*node) : QModelIndex());
    m_showing = before;
}

} // namespace CommonUI
