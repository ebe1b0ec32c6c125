#pragma once

#include "../../export/Export.h"
#include "../../platform/MessageBoxService.h"

namespace CommonUI
{

/// Message boxes of the system over the window that the user works in. The Help button and F1 open the topic
/// by GetHelpService() and leave the box open. Escape and the box's cross answer a question, too, which the
/// system would not let them. The end of the window below or of the program counts as closing the box.
class COMMONUIWIN_API CWinMessageBoxService : public CMessageBoxService
{
public:
    /// @param title of all boxes; when empty, the name of the program's file
    explicit CWinMessageBoxService(const CStr& title = {});
    ~CWinMessageBoxService() override;

    EMessageBoxAnswer Show(const SMessageBox& box) override;
    EMessageBoxAnswer ShowWithCheck(const SMessageBox& box, const CStr& checkText, bool& isChecked) override;
    void Beep(unsigned int icon) override;

private:
    CStr m_title;
};

} // namespace CommonUI
