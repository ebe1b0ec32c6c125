#include "qt/settings/detail/SettingsListModel.h"

#include "qt/settings/detail/ColorScaleIcon.h"
#include "qt/settings/detail/SettingsTexts.h"

namespace CommonUI
{

CSettingsListModel::CSettingsListModel(CSettingsChooser& chooser, QObject* parent)
    : QAbstractTableModel(parent)
    , m_chooser(chooser)
{
    chooser.GetChanged().Subscribe(*this, &CSettingsListModel::OnChanged, m_changed);
    chooser.GetStateChanged().Subscribe(*this, &CSettingsListModel::OnStateChanged, m_stateChanged);
}

int CSettingsListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_chooser.GetCount());
}

int CSettingsListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

const SSettingsEntry& CSettingsListModel::GetEntry(const QModelIndex& index) const
{
    return m_chooser.GetRow(static_cast<std::size_t>(index.row())).entry;
}

QVariant CSettingsListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) // as views ask for when the one to be copied is none
        return {};
    const CSettingsChooser::SRow& row = m_chooser.GetRow(static_cast<std::size_t>(index.row()));
    if (role == Qt::DisplayRole)
        return ToQString(index.column() == Name ? row.entry.m_Name : row.place);
    if (role == Qt::ToolTipRole)
        return ToQString(row.entry.m_IsFile ? row.entry.m_File : row.place);
    if (role != Qt::DecorationRole || index.column() != Name)
        return {};
    const auto* const colors = m_chooser.GetMenu().FindColors(row.entry);
    return colors ? MakeColorScaleIcon(*colors) : QVariant();
}

QVariant CSettingsListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    return GetText(section == Name ? c_name : c_place);
}

void CSettingsListModel::OnChanged(const CSettingsChooser::SChange& change)
{
    const int first = static_cast<int>(change.first);
    const int count = static_cast<int>(change.count);
    if (!change.isDone)
        return change.isReset ? beginResetModel() : beginInsertRows({}, first, first + count - 1);
    if (change.isReset)
        endResetModel();
    else
        endInsertRows();
}

void CSettingsListModel::OnStateChanged()
{
    // Colours come in behind the names.
    if (rowCount() > 0 && m_chooser.GetMenu().GetType() == ESettingType::ColorScale)
        Q_EMIT dataChanged(index(0, Name), index(rowCount() - 1, Name), {Qt::DecorationRole});
}

} // namespace CommonUI
