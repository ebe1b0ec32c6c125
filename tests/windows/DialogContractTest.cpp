#include "tests/contract/FileDialogContract.h"
#include "tests/contract/MessageBoxContract.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/windows/WindowTesting.h"
#include "windows/detail/ShownBox.h"
#include "windows/detail/WinText.h"
#include "windows/services/WinFileDialogService.h"
#include "windows/services/WinMessageBoxService.h"

#include <optional>
#include <stdexcept>

using namespace CommonUI;

namespace
{

void Press(HWND box, int button)
{
    const HWND control = GetDlgItem(box, button);
    ASSERT_TRUE(control) << "no button " << button;
    PostMessageW(control, BM_CLICK, 0, 0);
}

void Type(HWND box, WPARAM key)
{
    const HWND focus = GetFocus();
    PostMessageW(focus && IsChild(box, focus) ? focus : box, WM_KEYDOWN, key, 1);
}

struct SWinBoxes {
    static constexpr bool c_opensHelp = true;

    void Expect(EBoxAct act)
    {
        awaited.reset();
        awaited.emplace([act](HWND box) { Do(box, act); });
    }
    static void Do(HWND box, EBoxAct act)
    {
        switch (act) {
        case EBoxAct::PressOk:
            return Press(box, IDOK);
        case EBoxAct::PressCancel:
            return Press(box, IDCANCEL);
        case EBoxAct::PressNo:
            return Press(box, IDNO);
        case EBoxAct::Close:
            return Type(box, VK_ESCAPE);
        case EBoxAct::Enter:
            return Type(box, VK_RETURN);
        case EBoxAct::HelpAndYes:
            Press(box, IDHELP);
            break;
        case EBoxAct::CheckAndYes:
            Press(box, CShownBox::c_check);
            break;
        case EBoxAct::PressYes:
            break;
        }
        Press(box, IDYES);
    }

    CWinMessageBoxService service;
    std::optional<CWhenShown> awaited;
};

// The field for the name of the file.
HWND FindName(HWND dialog)
{
    for (const int number : {0x480, 0x47C})
        if (const HWND field = GetDlgItem(dialog, number))
            return field;
    return nullptr;
}

struct SWinFileDialogs {
    static constexpr int c_patience = 3; // the dialog shows itself before its folder

    void Expect(const CStr& path)
    {
        awaited.reset();
        awaited.emplace(
            [name = ToWide(path)](HWND dialog) {
                if (!name.empty())
                    SendMessageW(FindName(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
                PostMessageW(dialog, WM_COMMAND, name.empty() ? IDCANCEL : IDOK, 0);
            },
            c_patience);
    }
    void Accept()
    {
        awaited.reset();
        awaited.emplace([](HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDOK, 0); }, c_patience);
    }

    CWinFileDialogService service;
    std::optional<CWhenShown> awaited;
};

} // namespace

namespace CommonUI
{

INSTANTIATE_TYPED_TEST_SUITE_P(Windows, MessageBoxContract, SWinBoxes);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, FileDialogContract, SWinFileDialogs);

} // namespace CommonUI

TEST(WinMessageBoxService, TheEndOfTheWindowBelowClosesABox)
{
    const HWND parent = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100,
                                        nullptr, nullptr, nullptr, nullptr);
    CWinMessageBoxService service;
    const CWhenShown end([parent](HWND box) {
        EXPECT_EQ(GetWindow(box, GW_OWNER), parent);
        DestroyWindow(parent);
    });
    EXPECT_EQ(service.Show({u"Remove?", MessageBoxStyle::c_yesNo}), EMessageBoxAnswer::No);
}

TEST(WinMessageBoxService, FailingHelpIsTheCallersBusiness)
{
    class CHelp : public CHelpService
    {
    public:
        bool Open(unsigned int) override { throw std::runtime_error("help"); }
    } help;
    const CServiceScope<CHelpService> scope(help);
    CDiagnosticsCapture lines;
    CWinMessageBoxService service;
    const CWhenShown ask([](HWND box) {
        Press(box, IDHELP);
        HELPINFO info{sizeof info, HELPINFO_WINDOW, 1, box, 5, {0, 0}}; // as F1 does
        SendMessageW(box, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
        Press(box, IDOK);
    });
    EXPECT_EQ(service.Show({u"Done.", MessageBoxStyle::c_ok | MessageBoxStyle::c_help, 5}),
              EMessageBoxAnswer::Ok);
    EXPECT_EQ(lines.Take(), std::vector<CStr>(2, u"Windows: an exception left a callback: help"));
}
