#pragma once

#include "dialogs/selection/SelectionDlg.h"

#include <QAbstractItemModel>

#include <vector>

namespace CommonUI
{

/// The rows of a tab of a selection dialog that are shown, for a tree.
class CSelectionItemModel final : public QAbstractItemModel
{
public:
    /// @param view that of the dialog, which may go at any time; must outlive the model, or be taken away by
    ///     Forget
    CSelectionItemModel(const CSelectionView& view, std::size_t tab);

    /// Rows have come or gone, or are shown or hidden.
    void Reset();
    /// What rows say has changed.
    void Update();
    void Forget();

    /// The number of a row of the dialog; -1 for no index.
    static int RowOf(const QModelIndex& index);
    /// The index of a row that is shown; none for any other.
    QModelIndex IndexOf(int row, int column = 0) const;
    /// The column of the tree that shows a column of the dialog; -1 if none does.
    int ColumnOf(ESelectionColumn column) const;
    /// The column of the dialog that a column of the tree shows.
    ESelectionColumn GetColumn(int column) const;
    /// Null where it has gone.
    CSelectionDlg* GetDialog() const noexcept { return m_view ? m_view->GetControl() : nullptr; }
    std::size_t GetTab() const noexcept { return m_tab; }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    const CSelectionRows& Rows() const { return GetDialog()->GetTabs()[m_tab].rows; }
    const std::vector<int>& ShownIn(int group) const
    {
        return group < 0 ? m_shown.front() : m_shown[static_cast<std::size_t>(group) + 1];
    }
    void Fill();
    QString GetText(int row, ESelectionColumn column) const;
    QVariant GetFont(int row) const;
    QVariant GetCheck(int row) const;

    const CSelectionView* m_view;
    std::size_t m_tab;
    std::vector<std::vector<int>> m_shown; // of each group the rows that are shown, those of the top first
    std::vector<int> m_place;              // of each row, among those of its group
};

} // namespace CommonUI
