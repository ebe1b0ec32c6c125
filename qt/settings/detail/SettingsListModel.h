#pragma once

#include "dialogs/settings/SettingsChooser.h"

#include <QAbstractTableModel>

namespace CommonUI
{

/// The sets that a chooser shows: names, with the colours of colour scales, and places.
class CSettingsListModel final : public QAbstractTableModel
{
public:
    enum EColumn { Name, Place, ColumnCount };

    /// @param chooser outlives the model
    CSettingsListModel(CSettingsChooser& chooser, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    const SSettingsEntry& GetEntry(const QModelIndex& index) const;

private:
    void OnChanged(const CSettingsChooser::SChange& change);
    void OnStateChanged();

    CSettingsChooser& m_chooser;
    CClosureConnection m_changed;
    CClosureConnection m_stateChanged;
};

} // namespace CommonUI
