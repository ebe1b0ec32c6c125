#pragma once

#include "../../controls/lists/ExtendedList.h"
#include "../../export/Export.h"

#include <QModelIndex>
#include <QWidget>

class QLabel;
class QLineEdit;
class QTreeView;

namespace CommonUI
{

/// An extended list in a dialog, below a field that filters it. A click on the head of a column sorts; the
/// context menu does, too. Lists with a column of numbers run from left to right in every language.
class COMMONUIQT_API CExtendedListWidget : public QWidget
{
    Q_OBJECT

public:
    /// @param list not owned; it lives as long as the widget is used, and may go first when both go
    /// @param checkable whether rows and groups have boxes
    CExtendedListWidget(CExtendedList& list, bool checkable, QWidget* parent = nullptr);
    ~CExtendedListWidget() override;

    /// The list itself; lives as long as the widget.
    QTreeView& GetView() noexcept { return *m_view; }
    /// The field for the filter; lives as long as the widget.
    QLineEdit& GetFilterField() noexcept { return *m_filter; }

    /// The index in the list of the row that the keyboard is at; empty for none, or a group.
    const std::optional<std::size_t>& GetCurrentRow() const noexcept { return m_current; }

private:
    class CModel;

    void LayOut();
    void TakeCurrent(const QModelIndex& index);
    QModelIndex FindCurrent() const;
    void OnLines();
    void OnChecks();
    void ShowOrder();
    void ShowMenu(const QPoint& place);

    CExtendedList& m_list;
    CModel* m_model;
    QLineEdit* m_filter;
    QLabel* m_found;
    QTreeView* m_view;
    std::optional<std::size_t> m_current; // the row that the keyboard is at
    std::optional<CStr> m_currentGroup;   // or the group
    bool m_showing = false;               // what the list says, which need not be told again
    CClosureConnection m_linesConnection;
    CClosureConnection m_checksConnection;
};

} // namespace CommonUI
