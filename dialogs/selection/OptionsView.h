#pragma once

#include "../../controls/View.h"
#include "../DialogView.h"
#include "DialogOption.h"

#include <vector>

namespace CommonUI
{

class COptionsDlg;

/// The window of a dialog of options: a form with a line for each, a line of text below it, OK, Cancel and
/// help. It tells its dialog what is pressed, chosen and typed.
class COMMONUI_API COptionsView : public CDialogView, public CControlView<COptionsDlg>
{
public:
    ~COptionsView() override;

    /// Shows other options in place of those before, or other contents of the same ones.
    virtual void ShowOptions(const std::vector<SDialogOption>& options) = 0;
    /// Leads the user to an option.
    virtual void FocusOption(int id) = 0;
};

} // namespace CommonUI
