#include "windows/edits/WinNumericEdit.h"

#include "tests/DiagnosticsCapture.h"
#include "tests/windows/ControlTesting.h"

#include <commctrl.h>

#include <memory>
#include <stdexcept>
#include <system_error>

using namespace CommonUI;

namespace
{

class WinNumericEdit : public testing::Test
{
protected:
    WinNumericEdit()
    {
        edit->GetEdit().SetFormatString(u"%.1f mm");
        edit->GetEdit().SetScanning(EScanning::Whole);
        edit->GetEdit().Setup(1.0F, 0.0F, 10.0F, 0.1F);
        edit->GetEdit().SetChangeNotification(*this, &WinNumericEdit::OnChange);
        SetFocus(field);
    }

    void OnChange(float)
    {
        ++changes;
        if (destroys)
            edit.reset();
        if (throws)
            throw std::runtime_error("from a callback");
    }
    CStr Shown() const { return TextOf(field); }
    HWND GetArrows() const { return GetWindow(edit->GetSpinButton(), GW_CHILD); }

    const CWinServices services;
    CTestDialog dialog{2};
    HWND field = dialog.GetItem(100);
    std::unique_ptr<CWinFloatEdit> edit = std::make_unique<CWinFloatEdit>(dialog.Get(), 100);
    int changes = 0;
    bool destroys = false;
    bool throws = false;
};

} // namespace

TEST_F(WinNumericEdit, TakesWhatIsTyped)
{
    const struct {
        const char* description;
        const wchar_t* typed;
        WORD key;
        const char16_t* shown;
        bool leaves;
    } c_cases[] = {
        {"Enter stays in the field", L"2,5", VK_RETURN, u"2.5 mm", false},
        {"Escape, too", L"800 µm", VK_ESCAPE, u"0.8 mm", false},
        {"Tab goes on", L"99", VK_TAB, u"10.0 mm", true},
        {"what is no number is put back", L"abc", VK_RETURN, u"10.0 mm", false},
    };
    for (const auto& row : c_cases) {
        SCOPED_TRACE(row.description);
        SetFocus(field);
        SendMessageW(field, EM_SETSEL, 0, -1);
        dialog.Type(row.typed);
        dialog.Press(row.key);
        EXPECT_EQ(Shown(), row.shown);
        EXPECT_EQ(GetFocus(), row.leaves ? dialog.GetItem(101) : field);
    }
    EXPECT_EQ(changes, 3);
    EXPECT_TRUE(CTestDialog::TakeCommands().empty()) << "the dialog has heard of none";
}

TEST_F(WinNumericEdit, LeavesEnterAndEscapeToTheDialog)
{
    edit->GetEdit().SetWantsEnter(false);
    dialog.Press(VK_RETURN);
    dialog.Press(VK_ESCAPE);
    EXPECT_EQ(CTestDialog::TakeCommands(), (std::vector<int>{IDOK, IDCANCEL}));
}

TEST_F(WinNumericEdit, ControlAndBackspaceTakeAWordAway)
{
    for (const wchar_t* const left : {L"2.5 ", L"", L""}) {
        if (left[0] != 0) {
            SendMessageW(field, EM_SETSEL, 0, -1);
            dialog.Type(L"2.5 mm ");
        }
        dialog.Press(VK_BACK, true);
        dialog.Type(L"\x7F");
        EXPECT_EQ(Shown(), FromWide(left));
        EXPECT_TRUE(edit->GetEdit().IsModified());
    }
}

TEST_F(WinNumericEdit, TakesWhatIsPastedAndNothingThatTheProgramSets)
{
    SendMessageW(field, EM_SETSEL, 0, -1);
    SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"3")); // as pasting does
    EXPECT_TRUE(edit->GetEdit().IsModified());
    dialog.Press(VK_RETURN);
    EXPECT_EQ(edit->GetEdit().GetValue(), 3.0F);
    edit->GetEdit().SetValue(4.0F);
    SetWindowTextW(field, L"5");
    EXPECT_FALSE(edit->GetEdit().IsModified());
}

TEST_F(WinNumericEdit, StepsByKeysAndWheel)
{
    dialog.Press(VK_UP, true);
    EXPECT_EQ(Shown(), u"1.1 mm");
    SendMessageW(field, WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, -WHEEL_DELTA), 0);
    EXPECT_EQ(Shown(), u"1.0 mm");
    SendMessageW(field, WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    EXPECT_EQ(Shown(), u"1.0 mm") << "the wheel alone is the page's";
    dialog.Press(VK_PRIOR, true);
    EXPECT_EQ(edit->GetEdit().GetIncrement(), 1.0F);
}

TEST_F(WinNumericEdit, StepsByTheArrowsWhichGiveTheFieldTheFocus)
{
    SetFocus(dialog.GetItem(101));
    const HWND arrows = GetArrows();
    SendMessageW(arrows, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 4));
    SendMessageW(arrows, WM_LBUTTONUP, 0, MAKELPARAM(4, 4));
    CTestDialog::Pump();
    EXPECT_EQ(Shown(), u"1.1 mm");
    EXPECT_EQ(GetFocus(), field);
}

TEST_F(WinNumericEdit, TheButtonGoesWhereTheFieldGoes)
{
    const HWND spin = edit->GetSpinButton();
    EXPECT_EQ(WidthOf(field) + WidthOf(spin), 120);
    MoveWindow(field, 50, 90, 60, 30, TRUE);
    RECT place{};
    GetWindowRect(spin, &place);
    MapWindowPoints(nullptr, dialog.Get(), reinterpret_cast<POINT*>(&place), 2);
    EXPECT_EQ(place.left, 110);
    EXPECT_EQ(place.top, 90);
    EXPECT_EQ(place.bottom, 120);
    EnableWindow(field, FALSE);
    EXPECT_FALSE(IsWindowEnabled(GetArrows()));
    EnableWindow(field, TRUE);
    EXPECT_TRUE(IsWindowEnabled(GetArrows()));
    ShowWindow(field, SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(spin));
    ShowWindow(field, SW_SHOW);
    EXPECT_TRUE(IsWindowVisible(spin));
    edit->GetEdit().ShowSpinButton(0, false);
    EXPECT_FALSE(IsWindowVisible(spin));
    EXPECT_EQ(WidthOf(field), 60 + WidthOf(spin)) << "the field has its room again";
}

TEST_F(WinNumericEdit, ReadOnlyNothingChanges)
{
    edit->GetEdit().SetReadOnly(true);
    dialog.Type(L"7");
    dialog.Press(VK_UP, true);
    dialog.Press(VK_PRIOR, true);
    EXPECT_EQ(Shown(), u"1.0 mm");
    EXPECT_EQ(edit->GetEdit().GetIncrement(), 0.1F);
    EXPECT_FALSE(IsWindowEnabled(GetArrows()));
}

TEST_F(WinNumericEdit, ThePopupSlidesOutAndMakesStepsLarger)
{
    const HWND popup = edit->GetStepSizePopup();
    SendMessageW(GetArrows(), WM_MOUSEMOVE, 0, MAKELPARAM(4, 4));
    CStepSizeCtrl& control = edit->GetEdit().GetStepSizeCtrl();
    GetMessageLoop().RunUntil([&] { return control.GetSlideStep() == c_MaxSlideStep; });
    EXPECT_TRUE(IsWindowVisible(popup));
    EXPECT_NE(GetFocus(), popup);
    EXPECT_EQ(SendMessageW(popup, WM_MOUSEACTIVATE, 0, 0), MA_NOACTIVATE);
    UpdateWindow(popup);
    EXPECT_GT(CountDrawn(popup), 50);
    SendMessageW(popup, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    SendMessageW(popup, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(edit->GetEdit().GetIncrement(), 1.0F);
    SetWindowPos(dialog.Get(), nullptr, 70, 70, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_FALSE(IsWindowVisible(popup)) << "not beside its button any more";
}

TEST_F(WinNumericEdit, ACallbackMayDestroyTheEdit)
{
    destroys = true;
    dialog.Type(L"2");
    dialog.Press(VK_RETURN);
    EXPECT_FALSE(edit);
    EXPECT_EQ(WidthOf(field), 120) << "as it was before";
    dialog.Type(L"3");
}

TEST_F(WinNumericEdit, WhoLosesTheKeyboardMayDestroyTheEdit)
{
    CWinFloatEdit other(dialog.Get(), 101);
    other.GetEdit().SetChangeNotification(
        *this, &WinNumericEdit_WhoLosesTheKeyboardMayDestroyTheEdit_Test::OnChange);
    other.GetEdit().Setup(1.0F, 0.0F, 10.0F, 0.1F);
    SetFocus(dialog.GetItem(101));
    dialog.Type(L"2");
    destroys = true;
    SendMessageW(GetArrows(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 4));
    EXPECT_FALSE(edit);
}

TEST_F(WinNumericEdit, AnExceptionReachesTheLoop)
{
    throws = true;
    PostMessageW(field, WM_CHAR, L'2', 1);
    PostMessageW(field, WM_KEYDOWN, VK_RETURN, 1);
    bool ended = false;
    GetMessageLoop().Post([&] { ended = true; });
    EXPECT_THROW(GetMessageLoop().RunUntil([&] { return ended; }), std::runtime_error);
    GetMessageLoop().Pump();
    CDiagnosticsCapture lines;
    CreateWindowExW(0, L"BUTTON", L"OK", WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON, 20, 100, 80,
                    24, dialog.Get(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(IDOK)), nullptr, nullptr);
    SendMessageW(dialog.Get(), DM_SETDEFID, IDOK, 0);
    SetFocus(field);
    SendMessageW(field, EM_SETSEL, 0, -1);
    dialog.Type(L"4");
    dialog.Press(VK_RETURN);
    EXPECT_EQ(lines.Take(), std::vector<CStr>{u"Windows: an exception left a callback: from a callback"});
    EXPECT_EQ(GetFocus(), field) << "Enter must not go to the button that closes the dialog";
    EXPECT_TRUE(CTestDialog::TakeCommands().empty());
}

TEST_F(WinNumericEdit, EitherMayGoFirst)
{
    const CWinIntEdit made(dialog.Get(), 200, {20, 100, 140, 124});
    EXPECT_EQ(GetDlgItem(dialog.Get(), 200), made.GetField());
    EXPECT_EQ(TextOf(made.GetField()), u"0");
    dialog.Close();
    EXPECT_FALSE(made.GetField());
    EXPECT_FALSE(made.GetSpinButton());
    edit->GetEdit().SetValue(2.0F);
    edit->GetEdit().SetReadOnly(true);
    edit->GetEdit().ShowSpinButton(0, false);
    EXPECT_THROW(CWinIntEdit(dialog.Get(), 300), std::system_error);
}
