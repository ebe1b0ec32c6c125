#include "qt/selection/detail/SelectionTree.h"

#include "qt/controls/detail/Isolate.h"
#include "qt/detail/EventGuard.h"
#include "qt/QtText.h"

#include <QComboBox>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTimer>

#include <array>

namespace CommonUI
{

namespace
{

// Rows with some room between them, and check boxes whose frames are seen on dark ground, too.
class CRowDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, option.fontMetrics.height() / 4);
    }
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        QStyleOptionViewItem item = option;
        initStyleOption(&item, index);
        if (!(item.features & QStyleOptionViewItem::HasCheckIndicator))
            return;
        const QStyle& style = *item.widget->style();
        const QRect box = style.subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &item, item.widget);
        QColor frame = option.palette.color(QPalette::Text);
        frame.setAlphaF(0.55F);
        painter->save();
        painter->setPen(frame);
        painter->drawRect(QRectF(box).adjusted(0.5, 0.5, -1.5, -1.5));
        painter->restore();
    }

protected:
    // A name that ends in "20 %" does so in a window that runs from right to left as well.
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->widget)
            option->text = IsolateIn(*option->widget, option->text);
    }
};

// Lists the units of a row, and draws an arrow where there is such a list.
class CUnitDelegate final : public CRowDelegate
{
public:
    explicit CUnitDelegate(CSelectionTree& tree)
        : CRowDelegate(&tree)
        , m_tree(tree)
    {
    }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                          const QModelIndex& index) const override
    {
        CSelectionItemModel& model = m_tree.GetModel();
        if (!model.GetDialog())
            return nullptr;
        auto* const list = new QComboBox(parent);
        list->setAccessibleName(model.headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString());
        for (const auto& [factor, text] :
             model.GetDialog()->GetUnits(model.GetTab(), CSelectionItemModel::RowOf(index)))
            list->addItem(ToQString(text), static_cast<int>(factor));
        auto* const self = const_cast<CUnitDelegate*>(this);
        connect(list, &QComboBox::activated, self, [self, list] {
            Q_EMIT self->commitData(list);
            Q_EMIT self->closeEditor(list);
        });
        QTimer::singleShot(0, list, [list] { list->showPopup(); });
        return list;
    }
    void setEditorData(QWidget* editor, const QModelIndex& index) const override
    {
        auto* const list = static_cast<QComboBox*>(editor);
        QString text = index.data().toString();
        text.remove(QChar(0x2066)).remove(QChar(0x2069));
        list->setCurrentIndex(list->findText(text));
    }
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override
    {
        const auto* const list = static_cast<const QComboBox*>(editor);
        if (list->currentIndex() >= 0)
            model->setData(index, list->currentData(), Qt::EditRole);
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QSize size = CRowDelegate::sizeHint(option, index);
        if (index.flags() & Qt::ItemIsEditable)
            size.rwidth() += 2 * ArrowSize(option);
        return size;
    }
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        CRowDelegate::paint(painter, option, index);
        if (!(index.flags() & Qt::ItemIsEditable))
            return;
        const int size = ArrowSize(option);
        QStyleOption arrow;
        arrow.rect = QStyle::alignedRect(option.direction, Qt::AlignRight | Qt::AlignVCenter,
                                         QSize(size, size), option.rect.adjusted(size / 2, 0, -size / 2, 0));
        arrow.palette = option.palette;
        const bool selected = option.state & QStyle::State_Selected;
        arrow.palette.setColor(QPalette::ButtonText,
                               option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
        arrow.state = QStyle::State_Enabled;
        m_tree.style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, painter, &m_tree);
    }

private:
    static int ArrowSize(const QStyleOptionViewItem& option) { return option.fontMetrics.height() * 2 / 3; }

    CSelectionTree& m_tree;
};

} // namespace

CSelectionTree::CSelectionTree(const CSelectionView& view, std::size_t tab)
    : m_model(view, tab)
{
    setModel(&m_model);
    setUniformRowHeights(true);
    setSelectionMode(ExtendedSelection);
    setAllColumnsShowFocus(true);
    setTabKeyNavigation(false);
    setEditTriggers(SelectedClicked);
    setAccessibleName(ToQString(GetSelectionTabName(view.GetControl()->GetTabs()[tab].kind)));
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    header()->setSectionResizeMode(0, QHeaderView::Stretch);
    header()->setMinimumSectionSize(4 * fontMetrics().averageCharWidth());
    expandAll();
    setItemDelegate(new CRowDelegate(this));
    if (const int unit = m_model.ColumnOf(ESelectionColumn::Unit); unit >= 0)
        setItemDelegateForColumn(unit, new CUnitDelegate(*this));
    for (int column = 1; column < m_model.columnCount(); ++column)
        resizeColumnToContents(column);
    // Keys begin at the first row, which is not selected yet.
    selectionModel()->setCurrentIndex(m_model.index(0, 0), QItemSelectionModel::NoUpdate);
}

CSelectionTree::~CSelectionTree()
{
    m_resetting = true; // nothing is told any more
    setModel(nullptr);
}

void CSelectionTree::NoteCollapsed(const QModelIndex& parent)
{
    for (int row = 0; row < m_model.rowCount(parent); ++row) {
        const QModelIndex index = m_model.index(row, 0, parent);
        if (m_model.rowCount(index) == 0)
            continue;
        if (!isExpanded(index))
            m_collapsed.insert(index.data().toString());
        NoteCollapsed(index);
    }
}

void CSelectionTree::Collapse(const QModelIndex& parent)
{
    for (int row = 0; row < m_model.rowCount(parent); ++row) {
        const QModelIndex index = m_model.index(row, 0, parent);
        if (m_collapsed.contains(index.data().toString()))
            collapse(index);
        Collapse(index);
    }
}

// What the dialog has for selected; otherwise the first row is where keys begin.
void CSelectionTree::SelectRows()
{
    const CSelectionDlg* const dialog = m_model.GetDialog();
    const bool isCurrent = dialog && dialog->GetCurrentTab() == m_model.GetTab();
    QItemSelection selection;
    QModelIndex current;
    for (const int row : isCurrent ? dialog->GetSelectedRows() : std::vector<int>()) {
        const QModelIndex index = m_model.IndexOf(row);
        selection.select(index, index.siblingAtColumn(m_model.columnCount() - 1));
        if (!current.isValid())
            current = index;
    }
    if (!current.isValid())
        current = m_model.index(0, 0);
    selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void CSelectionTree::ShowRows()
{
    m_resetting = true;
    // A search shows what it finds, opened.
    const bool searches =
        m_model.GetDialog() && !m_model.GetDialog()->GetTabs()[m_model.GetTab()].rows.GetSearch().IsEmpty();
    if (!searches) {
        m_collapsed.clear();
        NoteCollapsed({});
    }
    m_model.Reset();
    expandAll();
    if (!searches)
        Collapse({});
    SelectRows();
    m_resetting = false;
}

void CSelectionTree::GoToRow(int row)
{
    const QModelIndex index = m_model.IndexOf(row);
    for (QModelIndex group = index.parent(); group.isValid(); group = group.parent())
        expand(group);
    setCurrentIndex(index);
    scrollTo(index);
    setFocus(Qt::OtherFocusReason);
}

void CSelectionTree::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTreeView::selectionChanged(selected, deselected);
    CSelectionDlg* const dialog = m_model.GetDialog();
    if (m_resetting || !dialog || dialog->GetCurrentTab() != m_model.GetTab())
        return;
    std::vector<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        rows.push_back(CSelectionItemModel::RowOf(index));
    Guarded([&] { dialog->OnSelect(rows); });
}

void CSelectionTree::Toggle()
{
    const QModelIndex index = currentIndex().siblingAtColumn(0);
    if (index.flags() & Qt::ItemIsUserCheckable)
        m_model.setData(index,
                        index.data(Qt::CheckStateRole).toInt() == Qt::Checked ? Qt::Unchecked : Qt::Checked,
                        Qt::CheckStateRole);
}

bool CSelectionTree::EditUnit()
{
    const int column = m_model.ColumnOf(ESelectionColumn::Unit);
    const QModelIndex index = currentIndex().siblingAtColumn(column);
    const bool can = column >= 0 && (index.flags() & Qt::ItemIsEditable);
    if (can)
        edit(index);
    return can;
}

void CSelectionTree::RunCommand(int command)
{
    if (CSelectionDlg* const dialog = m_model.GetDialog())
        Guarded([&] { dialog->OnCommand(command); });
}

void CSelectionTree::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier && state() != EditingState)
        return Toggle();
    if (event->key() == Qt::Key_F2 && EditUnit())
        return;
    if (event->key() == Qt::Key_Delete)
        return RunCommand(CSelectionDlg::c_remove);
    QTreeView::keyPressEvent(event);
}

void CSelectionTree::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->pos());
    if (!index.isValid() || !m_model.GetDialog() || event->button() != Qt::LeftButton)
        return QTreeView::mouseDoubleClickEvent(event);
    const bool isEntry = m_model.rowCount(index.siblingAtColumn(0)) == 0;
    const ESelectionColumn column = m_model.GetColumn(index.column());
    if (isEntry && column == ESelectionColumn::Unit)
        EditUnit();
    else if (isEntry && column == ESelectionColumn::Format)
        RunCommand(CSelectionDlg::c_format);
    else if (isEntry && column == ESelectionColumn::Setting)
        RunCommand(CSelectionDlg::c_change);
    else
        QTreeView::mouseDoubleClickEvent(event);
}

// The commands for what is selected, as the buttons of the window are called.
void CSelectionTree::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    menu.setAttribute(Qt::WA_DeleteOnClose, false);
    constexpr std::array c_commands = {CSelectionDlg::c_add, CSelectionDlg::c_change, CSelectionDlg::c_remove,
                                       CSelectionDlg::c_format};
    for (const QWidget* const button : window()->findChildren<QWidget*>()) {
        const QVariant command = button->property("command");
        if (!command.isValid() || button->isHidden())
            continue;
        const bool isForRows =
            std::find(c_commands.begin(), c_commands.end(), command.toInt()) != c_commands.end();
        if (!isForRows)
            continue;
        QAction* const action = menu.addAction(button->property("text").toString());
        action->setEnabled(button->isEnabled());
        action->setData(command);
    }
    const QAction* const chosen = menu.isEmpty() ? nullptr : menu.exec(event->globalPos());
    if (chosen)
        RunCommand(chosen->data().toInt());
}

} // namespace CommonUI
