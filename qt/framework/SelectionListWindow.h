#pragma once

#include "../../dialogs/lists/SelectionListDlg.h"
#include "../dialogs/DialogWindow.h"

class QLabel;
class QLineEdit;
class QListView;

namespace CommonUI
{

/// The window of a dialog with a list. CQtSelectionListDlg has one of its own. If the window goes first, the
/// dialog is cancelled. The arrow keys move in the list while the filter has the focus, too.
class COMMONUIQT_API CSelectionListWindow : public CDialogViewWindow<CSelectionListView>
{
    Q_OBJECT

public:
    /// @param parent see CDialogWindow
    explicit CSelectionListWindow(QWidget* parent = nullptr);
    ~CSelectionListWindow() override;

    /// Shows a dialog, which is not open. It is not owned; either may go first.
    void Attach(CSelectionListDlg& dialog);

    void SetText(int control, const CStr& text) override;
    void UpdateRows() override;
    void UpdateChoice() override;
    void SelectRow(std::optional<std::size_t> row) override;
    void SetFilterText(const CStr& text) override;

    /// The field for the filter; lives as long as the window.
    QLineEdit& GetFilterField() noexcept { return *m_filter; }
    /// The list; lives as long as the window.
    QListView& GetList() noexcept { return *m_list; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class CModel;

    void LayOut();
    void Connect();
    void TellRow();

    CModel* m_model;
    QLineEdit* m_filter;
    QListView* m_list;
    QLabel* m_count;
    QWidget* m_checkButtons;
    bool m_isUpdating = false; // what is selected is not the user's doing
};

/// The dialog with a list, with its window.
class COMMONUIQT_API CQtSelectionListDlg : public CSelectionListDlg
{
public:
    /// @param parent the dialog lies over the window of this widget, or over the one that the user works in
    ///     when it is null
    /// @param mode, caption, prompt, entries see CSelectionListDlg
    CQtSelectionListDlg(QWidget* parent, EMode mode, const CStr& caption, const CStr& prompt,
                        std::vector<CStr> entries);
    ~CQtSelectionListDlg() override;

    /// Null once the parent has been destroyed, with which the window goes.
    CSelectionListWindow* GetWindow() const { return m_window; }

private:
    QPointer<CSelectionListWindow> m_window;
};

} // namespace CommonUI
