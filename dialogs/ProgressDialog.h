#pragma once

#include "ProgressDialogBase.h"

namespace CommonUI
{

/// A progress dialog for work on the user-interface thread. The work opens it by Create, calls Step, pumps
/// the message loop and asks IsCanceled in between, and closes it by EndDialog.
class COMMONUI_API CProgressDialog : public CProgressDialogBase
{
public:
    using CProgressDialogBase::CProgressDialogBase;
    ~CProgressDialog() override;

    /// Shows the dialog and adds to the position.
    void Step(int increment);
};

} // namespace CommonUI
