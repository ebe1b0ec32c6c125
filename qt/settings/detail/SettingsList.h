#pragma once

#include "qt/settings/detail/SettingsListModel.h"

#include <QLineEdit>
#include <QTreeView>

#include <functional>
#include <optional>

namespace CommonUI
{

/// The list of a chooser with its search field, which keeps the focus: keys that move in a list move in this
/// one from there, too.
class CSettingsList final : public QTreeView
{
public:
    /// @param chooser outlives the list
    CSettingsList(CSettingsChooser& chooser, QLineEdit& search);

    /// The set that is selected.
    std::optional<SSettingsEntry> GetSelected() const;
    /// Selects a set, as soon as it is in the list.
    void Select(const SSettingsEntry& entry);

    /// Told when another set, or none, is selected.
    void SetOnSelection(std::function<void()> onSelection) { m_onSelection = std::move(onSelection); }

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void SetFilter(const QString& text);
    void SelectAgain();

    void TellSelection() const;

    CSettingsChooser& m_chooser;
    CSettingsListModel m_model;
    // What the user or the program selected last, and where it was. It may be yet to come in.
    SSettingsEntry m_last;
    int m_lastRow = 0;
    bool m_isSelecting = false;
    std::function<void()> m_onSelection;
};

} // namespace CommonUI
