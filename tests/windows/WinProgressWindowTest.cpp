#include "windows/dialogs/WinProgressWindow.h"

#include "tests/windows/ControlTesting.h"

#include <commctrl.h>

#include <memory>
#include <stdexcept>
#include <utility>

using namespace CommonUI;

namespace
{

class WinProgressWindow : public testing::Test
{
protected:
    WinProgressWindow()
    {
        dialog.SetRange(200);
        dialog.SetWork(*this, &WinProgressWindow::Work);
    }

    HWND GetPart(int number) const { return GetDlgItem(window, number); }
    // On a thread of its own.
    void Work()
    {
        dialog.Step(7);
        GetMessageLoop().Post([this] { OnShown(); });
        while (!dialog.IsCanceled())
            Sleep(1);
        if (fails)
            throw std::runtime_error("the work");
    }
    void OnShown()
    {
        sawVisible = IsWindowVisible(window) != FALSE;
        if (!sawVisible) {
            // In place of its delay, and once: a timer that is set anew begins anew.
            if (!std::exchange(isHurried, true))
                dialog.SetTimer(CProgressDialogBase::c_showTimer, 1);
            return GetMessageLoop().Post([this] { OnShown(); });
        }
        isHurried = false;
        sawParentEnabled = IsWindowEnabled(parent.Get()) != FALSE;
        position = static_cast<int>(SendMessageW(GetPart(ProgressTemplate::c_bar), PBM_GETPOS, 0, 0));
        SendMessageW(cancelBy == WM_KEYDOWN ? GetPart(ProgressTemplate::c_cancel) : window, cancelBy,
                     cancelBy == WM_KEYDOWN   ? VK_ESCAPE
                     : cancelBy == WM_COMMAND ? ProgressTemplate::c_cancel
                                              : 0,
                     0);
        sawCancelEnabled = IsWindowEnabled(GetPart(ProgressTemplate::c_cancel)) != FALSE;
    }

    const CWinServices services;
    CTestDialog parent{1};
    CWinProgressThreadDialog dialog{parent.Get(), u"Batch", u"Reading"};
    HWND window = dialog.GetWindow().GetWindow();
    UINT cancelBy = WM_CLOSE;
    bool fails = false;
    bool isHurried = false;
    bool sawVisible = false;
    bool sawParentEnabled = true;
    bool sawCancelEnabled = true;
    int position = 0;
};

} // namespace

TEST_F(WinProgressWindow, IsModalWhileTheWorkRunsAndCancels)
{
    for (const UINT by : {WM_CLOSE, WM_KEYDOWN, WM_COMMAND}) {
        SCOPED_TRACE(by);
        cancelBy = by;
        dialog.DoModal();
        EXPECT_TRUE(dialog.IsCanceled());
        EXPECT_TRUE(sawVisible);
        EXPECT_FALSE(sawParentEnabled);
        EXPECT_FALSE(sawCancelEnabled) << "has been heard";
        EXPECT_EQ(position, 7);
        EXPECT_TRUE(IsWindowEnabled(parent.Get()));
        EXPECT_FALSE(IsWindowVisible(window));
        dialog.SetCanceled(false);
    }
    EXPECT_EQ(TextOf(window), u"Batch");
    EXPECT_EQ(TextOf(GetPart(ProgressTemplate::c_text)), u"Reading");
}

TEST_F(WinProgressWindow, AnExceptionOfTheWorkReachesTheCaller)
{
    fails = true;
    EXPECT_THROW(dialog.DoModal(), std::runtime_error);
    EXPECT_TRUE(IsWindowEnabled(parent.Get()));
    EXPECT_FALSE(IsWindowVisible(window));
}

TEST_F(WinProgressWindow, WithoutParentItLiesOverTheApplication)
{
    CWinProgressThreadDialog alone(nullptr, u"Batch", u"Reading");
    alone.GetWindow().SetModal(true);
    alone.GetWindow().Show(true);
    EXPECT_EQ(GetWindow(alone.GetWindow().GetWindow(), GW_OWNER), parent.Get());
    alone.GetWindow().SetModal(false);
}

TEST_F(WinProgressWindow, GrowsWithItsText)
{
    RECT before{};
    GetWindowRect(window, &before);
    CStr text = u"A line that is longer than the window is wide, and is wrapped therefore";
    text += text;
    const int width = GetProgressTextWidth();
    const SSize measured = dialog.GetWindow().MeasureText(text, width);
    EXPECT_LE(measured.cx, width);
    EXPECT_GE(measured.cy, 3 * 8);
    dialog.GetWindow().SetLayout(GetProgressLayout(measured));
    RECT after{};
    GetWindowRect(window, &after);
    EXPECT_GT(after.bottom - after.top, before.bottom - before.top);
}

TEST_F(WinProgressWindow, MayGoWithItsParent)
{
    parent.Close();
    EXPECT_FALSE(dialog.GetWindow().GetWindow());
    dialog.SetText(u"Nobody sees it");
    dialog.SetCaption(u"Nor this");
}
