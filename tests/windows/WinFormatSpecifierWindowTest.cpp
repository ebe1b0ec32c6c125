#include "windows/dialogs/WinFormatSpecifierWindow.h"

#include "platform/memory/MemoryHelpService.h"
#include "tests/windows/ControlTesting.h"

#include <functional>
#include <memory>

using namespace CommonUI;

namespace
{

using CDlg = CFormatSpecifierDlg;
using EFormat = CParameter::EFormatSpecifier;
using FAct = std::function<void()>;

// The dialog over a window of the application.
class WinFormatSpecifierWindow : public testing::Test
{
protected:
    HWND Window() { return dialog->GetWindow().GetWindow(); }
    HWND Part(int number) { return GetDlgItem(Window(), number); }
    // A key or a character, by the loop that the dialog runs in.
    static void Press(UINT message, WPARAM key)
    {
        PostMessageW(GetFocus(), message, key, message == WM_SYSCHAR ? 1 | KF_ALTDOWN << 16 : 1);
        GetMessageLoop().Pump();
    }
    // Selects the last format and seven digits.
    void Choose()
    {
        Press(WM_SYSCHAR, L'f');
        Press(WM_KEYDOWN, VK_END);
        Press(WM_SYSCHAR, L'c');
        Press(WM_CHAR, L'7');
    }
    // Opens the dialog for a format of three decimals, and does something with it when it is shown.
    int Run(const FAct& act)
    {
        CParameter parameter(1, u"Sa", u"Sa", u"Sa", 0, true);
        parameter.SetFloatFormat({EFormat::FormatDecimals, 3});
        dialog = std::make_unique<CWinFormatSpecifierDlg>(parameter, parent.Get());
        GetMessageLoop().Post(act);
        return dialog->DoModal();
    }

    const CWinServices services;
    CTestDialog parent{1};
    std::unique_ptr<CWinFormatSpecifierDlg> dialog;
};

} // namespace

TEST_F(WinFormatSpecifierWindow, TakesWhatIsSelectedAndTypedWithOkOnly)
{
    const struct {
        const char* description;
        FAct end;
        bool isTaken;
    } c_ends[] = {
        {"Enter in the field", [] { Press(WM_KEYDOWN, VK_RETURN); }, true},
        {"Enter in the list",
         [] {
             Press(WM_SYSCHAR, L'f');
             Press(WM_KEYDOWN, VK_RETURN);
         },
         true},
        {"OK", [this] { SendMessageW(Part(CDlg::c_ok), BM_CLICK, 0, 0); }, true},
        {"Escape in the field", [] { Press(WM_KEYDOWN, VK_ESCAPE); }, false},
        {"Enter on Cancel",
         [] {
             Press(WM_KEYDOWN, VK_TAB);
             Press(WM_KEYDOWN, VK_TAB);
             Press(WM_KEYDOWN, VK_RETURN);
         },
         false},
        {"Cancel", [this] { SendMessageW(Part(CDlg::c_cancel), BM_CLICK, 0, 0); }, false},
        {"the title's cross", [this] { SendMessageW(Window(), WM_CLOSE, 0, 0); }, false},
    };
    for (const auto& row : c_ends) {
        SCOPED_TRACE(row.description);
        const int result = Run([&] {
            EXPECT_FALSE(IsWindowEnabled(parent.Get()));
            Choose();
            row.end();
        });
        EXPECT_EQ(result, row.isTaken ? CDlg::c_ok : CDlg::c_cancel);
        EXPECT_FALSE(IsWindowVisible(Window()));
        EXPECT_TRUE(IsWindowEnabled(parent.Get()));
        EXPECT_EQ(dialog->GetParameter().GetFloatFormat(),
                  row.isTaken ? CParameter::SFormatSpecifier(EFormat::FormatDigits, 7)
                              : CParameter::SFormatSpecifier(EFormat::FormatDecimals, 3));
    }
}

TEST_F(WinFormatSpecifierWindow, LeadsThroughItsControlsAndComesBackToTheOneThatWasLeft)
{
    Run([&] {
        std::vector<int> order;
        for (int i = 0; i < 5; ++i) {
            order.push_back(GetDlgCtrlID(GetFocus()));
            Press(WM_KEYDOWN, VK_TAB);
        }
        EXPECT_EQ(order,
                  (std::vector{CDlg::c_format, CDlg::c_count, CDlg::c_ok, CDlg::c_cancel, CDlg::c_format}));
        SendMessageW(Window(), WM_ACTIVATE, WA_INACTIVE, 0);
        SetFocus(Part(CDlg::c_ok));
        SetFocus(Window());
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), CDlg::c_count);
        EXPECT_EQ(TextOf(Window()), u"Specify Format");
        EXPECT_EQ(TextOf(Part(CDlg::c_largeExample)), u"3.141592653590 -> 3.142");
        SendMessageW(Window(), WM_CLOSE, 0, 0);
    });
}

TEST_F(WinFormatSpecifierWindow, OnlyTheListThatHasTheKeyboardTurnsByTheWheel)
{
    Run([&] {
        const auto turn = [&] {
            SendMessageW(Part(CDlg::c_format), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
            return dialog->GetWindow().GetSelectedItem();
        };
        SetFocus(Part(CDlg::c_ok));
        const auto before = dialog->GetWindow().GetSelectedItem();
        EXPECT_EQ(turn(), before);
        SetFocus(Part(CDlg::c_format));
        EXPECT_NE(turn(), before);
        SendMessageW(Window(), WM_CLOSE, 0, 0);
    });
}

TEST_F(WinFormatSpecifierWindow, GivesItsTextsRoomOnEveryMonitor)
{
    Run([&] {
        const LONG_PTR font = SendMessageW(Window(), WM_GETFONT, 0, 0);
        EXPECT_EQ(SendMessageW(Part(CDlg::c_ok), WM_GETFONT, 0, 0), font);
        RECT place{30, 40, 700, 600};
        SendMessageW(Window(), WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&place));
        EXPECT_EQ(SendMessageW(Part(CDlg::c_ok), WM_GETFONT, 0, 0), SendMessageW(Window(), WM_GETFONT, 0, 0));
        RECT window{};
        GetWindowRect(Window(), &window);
        EXPECT_EQ(window.left, 30);
        RECT last{};
        GetWindowRect(Part(CDlg::c_cancel), &last);
        EXPECT_LT(last.right, window.right);
        EXPECT_LT(last.bottom, window.bottom);
        for (HWND part = GetWindow(Window(), GW_CHILD); part; part = GetWindow(part, GW_HWNDNEXT)) {
            HDC__* const context = GetDC(part);
            SelectObject(context, reinterpret_cast<HGDIOBJ>(SendMessageW(part, WM_GETFONT, 0, 0)));
            const std::wstring text = ToWide(TextOf(part));
            SIZE needed{};
            GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(text.size()), &needed);
            ReleaseDC(part, context);
            EXPECT_GE(WidthOf(part), needed.cx) << TextOf(part).ToUtf8();
        }
        SendMessageW(Window(), WM_CLOSE, 0, 0);
    });
}

TEST_F(WinFormatSpecifierWindow, OpensHelpAndIsCancelledWithItsParent)
{
    CMemoryHelpService help;
    const CServiceScope<CHelpService> scope(help);
    const auto act = [&] {
        HELPINFO info{sizeof info, HELPINFO_WINDOW, 0, GetFocus(), 0, {}}; // as F1 does
        SendMessageW(GetFocus(), WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
        parent.Close();
    };
    EXPECT_EQ(Run(act), CDlg::c_cancel);
    EXPECT_EQ(Window(), nullptr);
    EXPECT_EQ(help.GetOpened(), std::vector<unsigned int>{7804});
}
