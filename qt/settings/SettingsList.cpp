#include "qt/settings/detail/SettingsList.h"

#include "qt/settings/detail/SettingsTexts.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

namespace CommonUI
{

CSettingsList::CSettingsList(CSettingsChooser& chooser, QLineEdit& search)
    : m_chooser(chooser)
    , m_model(chooser, nullptr)
{
    setModel(&m_model);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAccessibleName(GetText(c_sets));
    if (chooser.GetMenu().GetType() == ESettingType::ColorScale)
        setIconSize({4 * fontMetrics().height(), fontMetrics().height()});
    search.setClearButtonEnabled(true);
    search.installEventFilter(this);
    connect(&search, &QLineEdit::textChanged, this, &CSettingsList::SetFilter);
    connect(&m_model, &QAbstractItemModel::modelReset, this, &CSettingsList::SelectAgain);
    connect(&m_model, &QAbstractItemModel::rowsInserted, this, &CSettingsList::SelectAgain);
}

std::optional<SSettingsEntry> CSettingsList::GetSelected() const
{
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? std::nullopt : std::optional(m_model.GetEntry(rows.constFirst()));
}

void CSettingsList::Select(const SSettingsEntry& entry)
{
    m_last = entry;
    SelectAgain();
}

// The set that is wanted, or the row where it was as long as it is not in the list.
void CSettingsList::SelectAgain()
{
    const std::size_t found = m_chooser.Find(m_last);
    const int row =
        found < m_chooser.GetCount() ? static_cast<int>(found) : std::min(m_lastRow, m_model.rowCount() - 1);
    m_isSelecting = true;
    setCurrentIndex(m_model.index(row, CSettingsListModel::Name));
    m_isSelecting = false;
    m_lastRow = std::max(0, row);
    TellSelection();
}

void CSettingsList::TellSelection() const
{
    if (m_onSelection)
        m_onSelection();
}

void CSettingsList::SetFilter(const QString& text)
{
    m_lastRow = 0;
    m_chooser.SetFilter(FromQString(text));
}

void CSettingsList::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (m_isSelecting || !current.isValid())
        return;
    m_last = m_model.GetEntry(current);
    m_lastRow = current.row();
}

void CSettingsList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTreeView::selectionChanged(selected, deselected);
    TellSelection();
}

void CSettingsList::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    header()->resizeSection(CSettingsListModel::Name, viewport()->width() * 3 / 5);
}

bool CSettingsList::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QTreeView::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    default:
        return false;
    }
}

} // namespace CommonUI
