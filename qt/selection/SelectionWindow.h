#pragma once

#include "../../dialogs/selection/SelectionDlg.h"
#include "../dialogs/DialogWindow.h"

#include <map>
#include <vector>

class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
class QTreeView;

namespace CommonUI
{

class COptionForm;
class CSelectionTree;

/// The window of a selection dialog. CQtSelectionDlg has one of its own. If the window goes first, the dialog
/// is cancelled.
///
/// Ctrl+F leads to the search field, and the arrow down from there to the rows; Ctrl+Tab to the next tab. In
/// the rows Space ticks, F2 lists the units and Delete removes. The context menu has the commands for rows.
class COMMONUIQT_API CSelectionWindow : public CDialogViewWindow<CSelectionView>
{
    Q_OBJECT

public:
    /// @param parent see CDialogWindow
    explicit CSelectionWindow(QWidget* parent = nullptr);
    ~CSelectionWindow() override;

    void MakeTabs() override;
    void ResetRows(std::size_t tab) override;
    void UpdateRows(std::size_t tab) override;
    void UpdateOptions(std::size_t tab) override;
    void GoToRow(std::size_t tab, int row) override;
    void GoToOption(std::size_t tab, int option) override;
    int Run(CFormatSpecifierDlg& dialog) override;
    int Run(COptionsDlg& dialog) override;
    void SetText(int control, const CStr& text) override;

    /// The pages; lives as long as the window.
    QTabWidget& GetTabWidget() noexcept { return *m_tabs; }
    /// The field for the search; lives as long as the window.
    QLineEdit& GetSearchField() noexcept { return *m_search; }
    /// The rows of a tab; null for one of options only.
    QTreeView* GetTree(std::size_t tab) const;

    QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct SPage {
        CSelectionTree* tree = nullptr;
        COptionForm* form = nullptr;
    };

    void LayOut();
    QWidget* MakeCommands();
    void AddCommand(QWidget& column, int command);
    QWidget* MakePage(std::size_t tab);
    void ForgetPages();
    void OrderTabStops();
    void OnTabChanged(int tab);
    void ShowTabState();

    QTabWidget* m_tabs;
    QWidget* m_searchLine; // the field with its label
    QLineEdit* m_search;
    QLabel* m_remark;
    std::map<int, QPushButton*> m_commands;
    std::vector<QWidget*> m_lastStops; // in the order of Tab
    std::vector<SPage> m_pages;
    bool m_making = false; // the tabs, whose changes are not the user's
};

} // namespace CommonUI
