#include "qt/selection/detail/SelectionItemModel.h"

#include "qt/controls/detail/Isolate.h"
#include "qt/detail/EventGuard.h"
#include "qt/QtText.h"

#include <QFont>

#include <algorithm>

namespace CommonUI
{

CSelectionItemModel::CSelectionItemModel(const CSelectionView& view, std::size_t tab)
    : m_view(&view)
    , m_tab(tab)
{
    Fill();
}

void CSelectionItemModel::Fill()
{
    m_shown.assign(1, {});
    m_place.clear();
    if (!GetDialog())
        return;
    const auto count = static_cast<int>(Rows().GetCount());
    m_place.assign(Rows().GetCount(), -1);
    for (int group = -1; group < count; ++group) {
        m_shown.resize(static_cast<std::size_t>(group) + 2);
        std::vector<int>& shown = m_shown.back();
        shown = Rows().GetShown(group);
        for (std::size_t i = 0; i < shown.size(); ++i)
            m_place[static_cast<std::size_t>(shown[i])] = static_cast<int>(i);
    }
}

void CSelectionItemModel::Reset()
{
    beginResetModel();
    Fill();
    endResetModel();
}

void CSelectionItemModel::Update()
{
    for (const std::vector<int>& shown : m_shown)
        if (!shown.empty())
            Q_EMIT dataChanged(IndexOf(shown.front()), IndexOf(shown.back(), columnCount() - 1));
}

void CSelectionItemModel::Forget()
{
    beginResetModel();
    m_view = nullptr;
    Fill();
    endResetModel();
}

int CSelectionItemModel::RowOf(const QModelIndex& index)
{
    return index.isValid() ? static_cast<int>(index.internalId()) : -1;
}

QModelIndex CSelectionItemModel::IndexOf(int row, int column) const
{
    const bool isShown = row >= 0 && static_cast<std::size_t>(row) < m_place.size() &&
                         m_place[static_cast<std::size_t>(row)] >= 0;
    return isShown ? createIndex(m_place[static_cast<std::size_t>(row)], column, static_cast<quintptr>(row))
                   : QModelIndex();
}

int CSelectionItemModel::ColumnOf(ESelectionColumn column) const
{
    if (!GetDialog())
        return -1;
    const auto& columns = GetDialog()->GetTabs()[m_tab].columns;
    const auto found = std::ranges::find(columns, column);
    return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

ESelectionColumn CSelectionItemModel::GetColumn(int column) const
{
    return GetDialog()->GetTabs()[m_tab].columns.at(static_cast<std::size_t>(column));
}

QModelIndex CSelectionItemModel::index(int row, int column, const QModelIndex& parent) const
{
    const std::vector<int>& shown = ShownIn(RowOf(parent));
    const bool exists =
        row >= 0 && static_cast<std::size_t>(row) < shown.size() && column >= 0 && column < columnCount();
    return exists ? createIndex(row, column, static_cast<quintptr>(shown[static_cast<std::size_t>(row)]))
                  : QModelIndex();
}

QModelIndex CSelectionItemModel::parent(const QModelIndex& index) const
{
    return index.isValid() && GetDialog() ? IndexOf(Rows().Get(RowOf(index)).parent) : QModelIndex();
}

int CSelectionItemModel::rowCount(const QModelIndex& parent) const
{
    return parent.column() > 0 ? 0 : static_cast<int>(ShownIn(RowOf(parent)).size());
}

int CSelectionItemModel::columnCount(const QModelIndex& /*parent*/) const
{
    return GetDialog() ? static_cast<int>(GetDialog()->GetTabs()[m_tab].columns.size()) : 0;
}

QString CSelectionItemModel::GetText(int row, ESelectionColumn column) const
{
    const QString text = ToQString(GetDialog()->GetText(m_tab, row, column));
    return column == ESelectionColumn::Name ? text : ShowNumber(text);
}

QVariant CSelectionItemModel::GetFont(int row) const
{
    const bool isGroup = Rows().Get(row).IsGroup();
    const bool isMarked = GetDialog()->GetMark(m_tab, row) != ESelectionMark::None;
    if (!isGroup && !isMarked)
        return {};
    QFont font;
    font.setBold(isGroup);
    font.setItalic(isMarked);
    return font;
}

QVariant CSelectionItemModel::GetCheck(int row) const
{
    switch (Rows().GetCheck(row)) {
    case ESelectionCheck::None:
        return {};
    case ESelectionCheck::Off:
        return Qt::Unchecked;
    case ESelectionCheck::On:
        return Qt::Checked;
    default:
        return Qt::PartiallyChecked;
    }
}

QVariant CSelectionItemModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || !GetDialog())
        return {};
    const int row = RowOf(index);
    switch (role) {
    case Qt::DisplayRole:
        return GetText(row, GetColumn(index.column()));
    case Qt::CheckStateRole:
        return index.column() == 0 ? GetCheck(row) : QVariant();
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
        return ToQString(GetDialog()->GetToolTip(m_tab, row));
    case Qt::FontRole:
        return GetFont(row);
    default:
        return {};
    }
}

bool CSelectionItemModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || !GetDialog())
        return false;
    const int row = RowOf(index);
    if (role == Qt::CheckStateRole)
        Guarded([&] { GetDialog()->OnCheck(row, value.toInt() == Qt::Checked); });
    else if (role == Qt::EditRole)
        Guarded([&] { GetDialog()->OnUnit(row, static_cast<CUnit::EUnitFactor>(value.toInt())); });
    return role == Qt::CheckStateRole || role == Qt::EditRole;
}

QVariant CSelectionItemModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal || !GetDialog() || section >= columnCount())
        return {};
    return ToQString(GetSelectionColumnName(GetColumn(section)));
}

Qt::ItemFlags CSelectionItemModel::flags(const QModelIndex& index) const
{
    if (!index.isValid() || !GetDialog())
        return Qt::NoItemFlags;
    const int row = RowOf(index);
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    const ESelectionColumn column = GetColumn(index.column());
    if (column == ESelectionColumn::Name && Rows().GetCheck(row) != ESelectionCheck::None)
        flags |= Qt::ItemIsUserCheckable;
    if (column == ESelectionColumn::Unit && !GetDialog()->GetUnits(m_tab, row).empty())
        flags |= Qt::ItemIsEditable;
    return flags;
}

} // namespace CommonUI
