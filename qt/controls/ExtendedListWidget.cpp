#include "qt/controls/ExtendedListWidget.h"

#include "qt/controls/BoxDelegate.h"
#include "qt/controls/detail/ControlTexts.h"
#include "qt/detail/EventGuard.h"

#include <QAbstractItemModel>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace CommonUI
{

// The lines of the list as a tree: rows, or groups with their rows. The rows of a folded group are told when
// it is opened.
class CExtendedListWidget::CModel final : public QAbstractItemModel
{
public:
    CModel(CExtendedListWidget& widget, bool checkable)
        : QAbstractItemModel(&widget)
        , m_list(widget.m_list)
        , m_connection(widget.m_linesConnection)
        , m_checkable(checkable)
    {
        FindTops();
    }

    void Reset()
    {
        beginResetModel();
        FindTops();
        endResetModel();
    }
    // The texts stay: only boxes are drawn anew.
    void ChangeChecks()
    {
        if (rowCount() > 0)
            Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, 0), {Qt::CheckStateRole});
    }
    const SExtendedLine& GetLine(const QModelIndex& index) const
    {
        const std::size_t top = index.internalId() == 0 ? static_cast<std::size_t>(index.row())
                                                        : static_cast<std::size_t>(index.internalId() - 1);
        const std::size_t below = index.internalId() == 0 ? 0 : static_cast<std::size_t>(index.row()) + 1;
        return m_list.GetLines()[m_tops[top] + below];
    }
    QModelIndex FindRow(std::size_t row) const
    {
        const auto& lines = m_list.GetLines();
        const auto found = std::ranges::find(lines, SExtendedLine{row});
        if (found == lines.end())
            return {};
        const auto line = static_cast<std::size_t>(found - lines.begin());
        const auto top =
            static_cast<std::size_t>(std::ranges::upper_bound(m_tops, line) - m_tops.begin()) - 1;
        return m_list.IsGrouped() ? createIndex(static_cast<int>(line - m_tops[top]) - 1, 0, top + 1)
                                  : createIndex(static_cast<int>(line), 0);
    }

    QModelIndex FindGroup(const CStr& group) const
    {
        for (int top = 0; top < rowCount(); ++top)
            if (const QModelIndex place = index(top, 0); IsGroup(place) && GetGroup(place) == group)
                return place;
        return {};
    }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override
    {
        if (row < 0 || row >= rowCount(parent) || column < 0 || column >= columnCount(parent))
            return {};
        return createIndex(row, column, parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : 0);
    }
    QModelIndex parent(const QModelIndex& index) const override
    {
        const bool isBelow = index.isValid() && index.internalId() != 0;
        return isBelow ? createIndex(static_cast<int>(index.internalId() - 1), 0) : QModelIndex();
    }
    int rowCount(const QModelIndex& parent = {}) const override
    {
        if (!IsListThere())
            return 0;
        if (!parent.isValid())
            return static_cast<int>(m_tops.size());
        const bool isOpen = IsGroup(parent) && !m_list.IsFolded(GetGroup(parent));
        return isOpen ? static_cast<int>(GetLine(parent).groupSize) : 0;
    }
    int columnCount(const QModelIndex& = {}) const override
    {
        return IsListThere() ? static_cast<int>(m_list.GetColumns().size()) : 0;
    }
    bool hasChildren(const QModelIndex& parent) const override
    {
        return parent.isValid() && IsListThere() ? IsGroup(parent) : rowCount(parent) > 0;
    }
    Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        const Qt::ItemFlags flags = QAbstractItemModel::flags(index);
        return m_checkable && index.column() == 0 ? flags | Qt::ItemIsUserCheckable : flags;
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal || section >= columnCount())
            return {};
        const SExtendedColumn& column = m_list.GetColumns()[static_cast<std::size_t>(section)];
        if (role == Qt::DisplayRole)
            return ToQString(column.title);
        if (role == Qt::TextAlignmentRole)
            return GetAlignment(column);
        return {};
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (!IsListThere())
            return {};
        const SExtendedLine& line = GetLine(index);
        const auto column = static_cast<std::size_t>(index.column());
        switch (role) {
        case Qt::DisplayRole:
            return line.IsGroup() ? GetGroupText(index) : ToQString(m_list.GetText(line.row, column));
        case Qt::TextAlignmentRole:
            return GetAlignment(m_list.GetColumns()[column]);
        case Qt::CheckStateRole:
            return m_checkable && column == 0 ? QVariant(GetCheckState(line)) : QVariant();
        default:
            return {};
        }
    }
    bool setData(const QModelIndex& index, const QVariant& value, int role) override
    {
        if (role != Qt::CheckStateRole)
            return false;
        const SExtendedLine line = GetLine(index);
        const bool checked = value.toInt() == Qt::Checked;
        Guarded([&] {
            if (line.IsGroup())
                m_list.CheckShown(checked, &m_list.GetRows()[line.row].group);
            else
                m_list.Check(line.row, checked);
        });
        return true;
    }
    bool IsGroup(const QModelIndex& index) const { return GetLine(index).IsGroup(); }
    const CStr& GetGroup(const QModelIndex& index) const
    {
        return m_list.GetRows()[GetLine(index).row].group;
    }

private:
    // A list that is a member of the page goes before the widgets of the page, which Qt then hides.
    bool IsListThere() const { return m_connection.IsConnected(); }
    // A list with numbers runs from left to right: left is left there, also in the heads that painters would
    // mirror.
    int GetAlignment(const SExtendedColumn& column) const
    {
        const bool hasNumbers = std::ranges::any_of(m_list.GetColumns(), &SExtendedColumn::isNumber);
        const int side = column.isNumber ? Qt::AlignRight : Qt::AlignLeft;
        return Qt::AlignVCenter | side | (hasNumbers ? Qt::AlignAbsolute : 0);
    }
    void FindTops()
    {
        m_tops.clear();
        const auto& lines = m_list.GetLines();
        for (std::size_t i = 0; i < lines.size(); ++i)
            if (!m_list.IsGrouped() || lines[i].IsGroup())
                m_tops.push_back(i);
    }
    QVariant GetGroupText(const QModelIndex& index) const
    {
        const QString name = ToQString(GetGroup(index));
        return index.column() == 0 ? QStringLiteral("%1 (%2)").arg(name).arg(GetLine(index).groupSize)
                                   : QString();
    }
    Qt::CheckState GetCheckState(const SExtendedLine& line) const
    {
        const SExtendedRow& row = m_list.GetRows()[line.row];
        const std::optional<bool> checked = line.IsGroup() ? m_list.IsGroupChecked(row.group) : row.checked;
        return !checked ? Qt::PartiallyChecked : *checked ? Qt::Checked : Qt::Unchecked;
    }

    CExtendedList& m_list;
    const CClosureConnection& m_connection;
    bool m_checkable;
    std::vector<std::size_t> m_tops; // the lines at the top: groups, or all
};

CExtendedListWidget::CExtendedListWidget(CExtendedList& list, bool checkable, QWidget* parent)
    : QWidget(parent)
    , m_list(list)
    , m_model(new CModel(*this, checkable))
    , m_filter(new QLineEdit)
    , m_found(new QLabel)
    , m_view(new QTreeView)
{
    m_list.GetLinesChanged().Subscribe(*this, &CExtendedListWidget::OnLines, m_linesConnection);
    LayOut();
    connect(m_filter, &QLineEdit::textChanged, this,
            [this](const QString& text) { Guarded([&] { m_list.SetFilter(FromQString(text)); }); });
    connect(m_view->header(), &QHeaderView::sectionClicked, this,
            [this](int column) { Guarded([&] { m_list.CycleOrder(static_cast<std::size_t>(column)); }); });
    const auto fold = [this](const QModelIndex& index, bool folded) {
        if (!m_showing)
            Guarded([&] { m_list.FoldGroup(CStr(m_model->GetGroup(index)), folded); });
    };
    connect(m_view, &QTreeView::expanded, this, [fold](const QModelIndex& index) { fold(index, false); });
    connect(m_view, &QTreeView::collapsed, this, [fold](const QModelIndex& index) { fold(index, true); });
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &CExtendedListWidget::TakeCurrent);
    connect(m_view, &QTreeView::customContextMenuRequested, this, &CExtendedListWidget::ShowMenu);
    m_list.GetChecksChanged().Subscribe(*this, &CExtendedListWidget::OnChecks, m_checksConnection);
    OnLines();
}

CExtendedListWidget::~CExtendedListWidget()
{
    m_view->setModel(nullptr);
}

void CExtendedListWidget::LayOut()
{
    m_filter->setPlaceholderText(GetQString(c_filter));
    m_filter->setAccessibleName(GetQString(c_filter));
    m_filter->setClearButtonEnabled(true);
    m_view->setModel(m_model);
    m_view->setItemDelegate(new CBoxDelegate(m_view));
    m_view->setUniformRowHeights(true);
    m_view->setAlternatingRowColors(true);
    m_view->setAllColumnsShowFocus(true);
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    m_view->header()->setSectionsClickable(true);
    m_view->header()->setMinimumSectionSize(4 * fontMetrics().averageCharWidth());
    auto* const top = new QHBoxLayout;
    top->addWidget(m_filter, 1);
    top->addWidget(m_found);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(top);
    layout->addWidget(m_view, 1);
    setFocusProxy(m_view);
}

void CExtendedListWidget::TakeCurrent(const QModelIndex& index)
{
    if (m_showing)
        return;
    m_current.reset();
    m_currentGroup.reset();
    if (!index.isValid())
        return;
    if (m_model->IsGroup(index))
        m_currentGroup = m_model->GetGroup(index);
    else
        m_current = m_model->GetLine(index).row;
}

QModelIndex CExtendedListWidget::FindCurrent() const
{
    if (m_currentGroup)
        return m_model->FindGroup(*m_currentGroup);
    return m_current ? m_model->FindRow(*m_current) : QModelIndex();
}

void CExtendedListWidget::OnLines()
{
    const bool before = std::exchange(m_showing, true);
    m_model->Reset();
    m_view->setRootIsDecorated(m_list.IsGrouped());
    for (int group = 0; m_list.IsGrouped() && group < m_model->rowCount(); ++group) {
        const QModelIndex index = m_model->index(group, 0);
        m_view->setFirstColumnSpanned(group, {}, true);
        m_view->setExpanded(index, !m_list.IsFolded(m_model->GetGroup(index)));
    }
    if (const QModelIndex index = FindCurrent(); index.isValid())
        m_view->setCurrentIndex(index);
    ShowOrder();
    m_found->setText(
        ToQString(CStr::Format(GetString(c_found), m_list.GetFoundCount(), m_list.GetRows().size())));
    m_showing = before;
}

void CExtendedListWidget::ShowOrder()
{
    const auto& columns = m_list.GetColumns();
    const bool hasNumbers = std::ranges::any_of(columns, &SExtendedColumn::isNumber);
    for (QWidget* const part : {static_cast<QWidget*>(m_view), static_cast<QWidget*>(m_view->header())})
        part->setLayoutDirection(hasNumbers ? Qt::LeftToRight : layoutDirection());
    QHeaderView& header = *m_view->header();
    const auto& order = m_list.GetOrder();
    header.setSortIndicatorShown(order.has_value());
    if (order)
        header.setSortIndicator(static_cast<int>(order->column),
                                order->descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void CExtendedListWidget::OnChecks()
{
    m_model->ChangeChecks();
    m_view->viewport()->update();
}

void CExtendedListWidget::ShowMenu(const QPoint& place)
{
    QMenu menu;
    for (std::size_t column = 0; column < m_list.GetColumns().size(); ++column) {
        const CStr title = CStr::Format(GetString(c_sortBy), m_list.GetColumns()[column].title);
        menu.addAction(ToQString(title), this, [this, column] { m_list.CycleOrder(column); });
    }
    if (m_model->flags(m_model->index(0, 0)) & Qt::ItemIsUserCheckable) {
        menu.addSeparator();
        menu.addAction(GetQString(c_checkShown), this, [this] { m_list.CheckShown(true); });
        menu.addAction(GetQString(c_uncheckShown), this, [this] { m_list.CheckShown(false); });
    }
    menu.exec(m_view->viewport()->mapToGlobal(place));
}

} // namespace CommonUI
