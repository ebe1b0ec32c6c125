#include "qt/controls/ItemListWidget.h"

#include "qt/controls/BoxDelegate.h"
#include "qt/controls/detail/ControlTexts.h"
#include "qt/detail/EventGuard.h"

#include <QAbstractListModel>
#include <QAction>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QListView>
#include <QToolButton>

#include <algorithm>
#include <utility>

namespace CommonUI
{

// The items as the list has them.
class CItemListWidget::CModel final : public QAbstractListModel
{
public:
    CModel(CItemList& list, bool checkable, QObject* parent)
        : QAbstractListModel(parent)
        , m_list(list)
        , m_checkable(checkable)
        , m_items(list.GetItems())
    {
    }

    void Update()
    {
        const auto& items = m_list.GetItems();
        const bool isSame = std::ranges::equal(items, m_items, {}, &SListItem::key, &SListItem::key);
        if (!isSame)
            beginResetModel();
        m_items = items;
        if (!isSame)
            endResetModel();
        else if (!items.empty())
            Q_EMIT dataChanged(index(0), index(rowCount() - 1));
    }

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_items.size());
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        const SListItem& item = m_items[static_cast<std::size_t>(index.row())];
        if (role == Qt::DisplayRole)
            return ToQString(item.text);
        if (role == Qt::CheckStateRole && m_checkable)
            return item.checked ? Qt::Checked : Qt::Unchecked;
        return {};
    }
    bool setData(const QModelIndex& index, const QVariant& value, int role) override
    {
        if (role != Qt::CheckStateRole)
            return false;
        Guarded([&] { m_list.Check(static_cast<std::size_t>(index.row()), value.toInt() == Qt::Checked); });
        return true;
    }
    Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        if (!index.isValid())
            return Qt::ItemIsDropEnabled; // between the items only
        const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
        return m_checkable ? flags | Qt::ItemIsUserCheckable : flags;
    }
    Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }

private:
    CItemList& m_list;
    bool m_checkable;
    std::vector<SListItem> m_items;
};

namespace
{

// The list moves what is dropped itself.
class CDropView final : public QListView
{
public:
    explicit CDropView(CItemList& list)
        : m_list(list)
    {
        setSelectionMode(ExtendedSelection);
        setDragDropMode(InternalMove);
        setTextElideMode(Qt::ElideMiddle);
    }

protected:
    void dropEvent(QDropEvent* event) override
    {
        if (event->source() != this)
            return;
        const QModelIndex at = indexAt(event->position().toPoint());
        const bool below = dropIndicatorPosition() == BelowItem;
        const int before = at.isValid() ? at.row() + (below ? 1 : 0) : model()->rowCount();
        // Of a move Qt would remove the items that were dragged.
        event->setDropAction(Qt::CopyAction);
        event->accept();
        stopAutoScroll();
        setState(NoState);
        viewport()->update();
        Guarded([&] { m_list.MoveTo(static_cast<std::size_t>(before)); });
    }

private:
    CItemList& m_list;
};

} // namespace

CItemListWidget::CItemListWidget(CItemList& list, bool checkable, QWidget* parent)
    : QWidget(parent)
    , m_list(list)
    , m_model(new CModel(list, checkable, this))
    , m_view(new CDropView(list))
    , m_up(AddCommand(c_moveUp, Qt::ALT | Qt::Key_Up, &CItemListWidget::MoveUp))
    , m_down(AddCommand(c_moveDown, Qt::ALT | Qt::Key_Down, &CItemListWidget::MoveDown))
    , m_remove(AddCommand(c_remove, Qt::Key_Delete, &CItemListWidget::Remove))
{
    m_view->setModel(m_model);
    m_view->setItemDelegate(new CBoxDelegate(m_view));
    setFocusProxy(m_view);
    LayOut();
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { TakeSelection(); });
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { TakeSelection(); });
    m_list.GetItemsChanged().Subscribe(*this, &CItemListWidget::OnItems, m_itemsConnection);
    m_list.GetSelectionChanged().Subscribe(*this, &CItemListWidget::OnSelection, m_selectionConnection);
    OnSelection();
}

CItemListWidget::~CItemListWidget() = default;

QAction* CItemListWidget::AddCommand(int textId, const QKeySequence& keys, void (CItemListWidget::*act)())
{
    auto* const action = new QAction(GetQString(textId), this);
    const QString name = action->text().remove(QLatin1Char('&'));
    action->setToolTip(QStringLiteral("%1 (%2)").arg(name, keys.toString(QKeySequence::NativeText)));
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, [this, act] { Guarded([&] { (this->*act)(); }); });
    addAction(action);
    return action;
}

void CItemListWidget::LayOut()
{
    auto* const buttons = new QVBoxLayout;
    const std::pair<QAction*, Qt::ArrowType> commands[] = {
        {m_up, Qt::UpArrow}, {m_down, Qt::DownArrow}, {m_remove, Qt::NoArrow}};
    for (const auto& [action, arrow] : commands) {
        auto* const button = new QToolButton;
        button->setDefaultAction(action);
        button->setArrowType(arrow);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        button->setFocusPolicy(Qt::StrongFocus);
        buttons->addWidget(button);
    }
    buttons->addStretch();
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view, 1);
    layout->addLayout(buttons);
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_view->addActions({m_up, m_down, m_remove});
}

void CItemListWidget::OnItems()
{
    m_showing = true; // Qt drops the selection with the items; the list keeps its own
    m_model->Update();
    m_showing = false;
    OnSelection();
}

void CItemListWidget::OnSelection()
{
    m_showing = true;
    QItemSelection selection;
    for (const std::size_t index : m_list.GetSelection()) {
        const QModelIndex item = m_model->index(static_cast<int>(index));
        selection.select(item, item);
    }
    QItemSelectionModel& model = *m_view->selectionModel();
    const auto current = m_list.GetCurrent();
    const QModelIndex item = current ? m_model->index(static_cast<int>(*current)) : QModelIndex();
    model.setCurrentIndex(item, QItemSelectionModel::NoUpdate);
    model.select(selection, QItemSelectionModel::ClearAndSelect);
    if (item.isValid())
        m_view->scrollTo(item);
    m_showing = false;
    UpdateCommands();
}

void CItemListWidget::TakeSelection()
{
    if (m_showing)
        return;
    std::vector<std::size_t> selected;
    for (const QModelIndex& index : m_view->selectionModel()->selectedIndexes())
        selected.push_back(static_cast<std::size_t>(index.row()));
    const QModelIndex current = m_view->currentIndex();
    Guarded([&] {
        m_list.Select(selected, current.isValid() ? std::optional(static_cast<std::size_t>(current.row()))
                                                  : std::nullopt);
    });
}

void CItemListWidget::UpdateCommands()
{
    m_up->setEnabled(m_list.CanMove(true));
    m_down->setEnabled(m_list.CanMove(false));
    m_remove->setEnabled(m_list.CanRemove());
}

} // namespace CommonUI
