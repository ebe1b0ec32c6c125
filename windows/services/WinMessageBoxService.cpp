#include "windows/services/WinMessageBoxService.h"

#include "platform/HelpService.h"
#include "windows/detail/CallGuard.h"
#include "windows/detail/OwnerWindow.h"
#include "windows/detail/ProgramFile.h"
#include "windows/detail/ShownBox.h"
#include "windows/detail/WinText.h"

namespace CommonUI
{

namespace
{

using namespace MessageBoxStyle;

static_assert(c_okCancel == MB_OKCANCEL && c_yesNo == MB_YESNO && c_help == MB_HELP, "as Windows has them");
static_assert(c_error == MB_ICONERROR && c_question == MB_ICONQUESTION && c_warning == MB_ICONWARNING);

DWORD GetStyle(unsigned int style)
{
    const unsigned int buttons = style & c_buttonMask;
    // Who presses Enter without reading a warning shall do no harm.
    const bool isHarmful = (style & c_iconMask) == c_warning && (buttons == c_okCancel || buttons == c_yesNo);
    return (style & (c_buttonMask | c_iconMask | c_help)) | (isHarmful ? MB_DEFBUTTON2 : 0);
}

// F1 in a box with a Help button.
void CALLBACK OnHelp(HELPINFO* info)
{
    GuardedCall([info] { GetHelpService().Open(static_cast<unsigned int>(info->dwContextId)); });
}

EMessageBoxAnswer GetAnswer(int button, unsigned int style)
{
    switch (button) {
    case IDYES:
        return EMessageBoxAnswer::Yes;
    case IDOK:
        return EMessageBoxAnswer::Ok;
    default: // closed, or gone with its owner
        return CMessageBoxService::GetCautiousAnswer(style);
    }
}

} // namespace

CWinMessageBoxService::CWinMessageBoxService(const CStr& title)
    : m_title(title.IsEmpty() ? CStr(GetProgramFile().stem().u16string()) : title)
{
}

CWinMessageBoxService::~CWinMessageBoxService() = default;

EMessageBoxAnswer CWinMessageBoxService::Show(const SMessageBox& box)
{
    bool isChecked = false;
    return ShowWithCheck(box, {}, isChecked);
}

EMessageBoxAnswer CWinMessageBoxService::ShowWithCheck(const SMessageBox& box, const CStr& checkText,
                                                       bool& isChecked)
{
    const std::wstring text = ToWide(box.text);
    const std::wstring title = ToWide(m_title);
    MSGBOXPARAMSW description{};
    description.cbSize = sizeof description;
    description.hwndOwner = GetOwnerWindow();
    description.lpszText = text.c_str();
    description.lpszCaption = title.c_str();
    description.dwStyle = GetStyle(box.style) | (description.hwndOwner ? 0 : MB_TASKMODAL);
    if (box.style & c_help) {
        description.dwContextHelpId = box.helpTopic;
        description.lpfnMsgBoxCallback = OnHelp;
    }
    const CShownBox shown(box, checkText);
    const int button = MessageBoxIndirectW(&description);
    isChecked = shown.WasChecked();
    return GetAnswer(button, box.style);
}

void CWinMessageBoxService::Beep(unsigned int icon)
{
    MessageBeep(icon & c_iconMask);
}

} // namespace CommonUI
