#pragma once

#include "../../dialogs/FormatSpecifierDlg.h"
#include "DialogWindow.h"

class QComboBox;

namespace CommonUI
{

class CNumericEditWidget;

/// The window of the format dialog. CQtFormatSpecifierDlg has one of its own. If the window goes first, the
/// dialog is cancelled.
class COMMONUIQT_API CFormatSpecifierWindow : public CDialogViewWindow<CFormatSpecifierView>
{
    Q_OBJECT

public:
    /// @param parent see CDialogWindow
    explicit CFormatSpecifierWindow(QWidget* parent = nullptr);
    ~CFormatSpecifierWindow() override;

    /// Shows a dialog, which is not open, with its edit field. It is not owned; either may go first.
    void Attach(CFormatSpecifierDlg& dialog);

    void SetText(int control, const CStr& text) override;
    void SetItems(const std::vector<SFormatItem>& items) override;
    void SelectItem(std::optional<std::size_t> index) override;
    std::optional<std::size_t> GetSelectedItem() const override;

    /// The list of formats; lives as long as the window.
    QComboBox& GetList() noexcept { return *m_list; }
    /// The field for the number of digits; lives as long as the window.
    CNumericEditWidget& GetCountWidget() noexcept { return *m_count; }

private:
    void LayOut();

    QComboBox* m_list;
    CNumericEditWidget* m_count;
};

} // namespace CommonUI
