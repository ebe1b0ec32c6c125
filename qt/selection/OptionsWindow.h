#pragma once

#include "../../dialogs/selection/OptionsDlg.h"
#include "../dialogs/DialogWindow.h"

namespace CommonUI
{

class COptionForm;

/// The window of a dialog of options. If the window goes first, the dialog is cancelled.
class COMMONUIQT_API COptionsWindow : public CDialogViewWindow<COptionsView>
{
    Q_OBJECT

public:
    /// @param parent see CDialogWindow
    explicit COptionsWindow(QWidget* parent = nullptr);
    ~COptionsWindow() override;

    void ShowOptions(const std::vector<SDialogOption>& options) override;
    void FocusOption(int id) override;

private:
    COptionForm* m_form;
};

} // namespace CommonUI
