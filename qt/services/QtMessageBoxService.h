#pragma once

#include "../../export/Export.h"
#include "../../platform/MessageBoxService.h"

namespace CommonUI
{

/// Message boxes of Qt, under the name of the application, over the window that the user works in. The text
/// is shown as it is, never as markup. A Help button opens the topic by GetHelpService() and leaves the box
/// open.
class COMMONUIQT_API CQtMessageBoxService : public CMessageBoxService
{
public:
    ~CQtMessageBoxService() override;

    EMessageBoxAnswer Show(const SMessageBox& box) override;
    EMessageBoxAnswer ShowWithCheck(const SMessageBox& box, const CStr& checkText, bool& isChecked) override;
    void Beep(unsigned int icon) override;
};

} // namespace CommonUI
