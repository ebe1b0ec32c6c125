#include "dialogs/ProgressDialog.h"

#include "common/Exceptions.h"
#include "dialogs/MemoryProgressView.h"
#include "dialogs/ProgressThreadDialog.h"
#include "platform/ThreadMessages.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/dialogs/DialogTesting.h"

#include <limits>
#include <memory>
#include <vector>

using namespace CommonUI;
using namespace CommonUI::ProgressTemplate;

namespace
{

class ProgressDialog : public CDialogTest
{
public:
    ProgressDialog() { dialog->SetView(&view); }
    void OnStep(CProgressDialogBase& stepped, const CStr& text)
    {
        stepped.SetText(u"changed");
        dialog.reset();
        lastText = text;
    }

    CMemoryProgressView view;
    std::unique_ptr<CProgressDialog> dialog = std::make_unique<CProgressDialog>(nullptr, CStr(), CStr());
    CStr lastText;
};

} // namespace

TEST_F(ProgressDialog, BarShowsTheIntegerPart)
{
    constexpr float c_infinity = std::numeric_limits<float>::infinity();
    constexpr int c_greatest = std::numeric_limits<int>::max();
    const std::tuple<bool, int, std::vector<float>, std::vector<int>> cases[] = {
        {false, 100, {0.4F, 0.4F, 0.4F, 0.4F, 0.4F, 0.4F}, {0, 0, 1, 1, 2, 2}},
        {false, 10, {8, 3, 1, -5, 1}, {8, 8, 8, 8, 8}},
        {false, 10, {-3, 4, 9}, {0, 1, 10}},
        {true, 10, {10, 1.5F, 0.5F, 3, 1e30F, 2}, {10, 0, 1, 4, 0, 2}},
        {true, -5, {1, 1}, {0, 0}},
        {false, c_greatest, {2147483520.0F, 127, 1}, {c_greatest - 127, c_greatest, c_greatest}},
        {false, 100, {c_infinity, -c_infinity, c_infinity - c_infinity, 7}, {0, 0, 0, 7}},
    };
    const CDiagnosticsCapture quiet;
    for (const auto& [wrap, maximum, steps, expectedPositions] : cases) {
        CProgressThreadDialog stepped(nullptr, {}, {});
        stepped.SetView(&view);
        stepped.SetRange(maximum);
        stepped.SetWrap(wrap);
        std::vector<int> positions;
        for (const float step : steps) {
            stepped.Step(step);
            positions.push_back(view.GetBarPosition());
        }
        EXPECT_EQ(positions, expectedPositions) << maximum;
    }
}

TEST_F(ProgressDialog, OpensUnseenWithItsTexts)
{
    const int icon = 0;
    dialog->SetIcon(&icon);
    dialog->Create();
    EXPECT_THROW(dialog->Create(), EInternal);
    EXPECT_EQ(view.GetCaption(), u"Progress");
    EXPECT_EQ(view.GetText(c_text), u"Processing, please wait...");
    EXPECT_EQ(std::tuple(view.GetText(c_cancel), view.GetIcon()), std::tuple(u"Cancel", &icon));
    EXPECT_EQ(view.GetBarMaximum(), 100);
    EXPECT_FALSE(view.IsVisible() || view.IsModal());
}

TEST_F(ProgressDialog, AppearsAfterTwoSecondsOrWithTheFirstStep)
{
    dialog->Create();
    timers.Advance(1999);
    EXPECT_FALSE(view.IsVisible() || view.Paint());
    EXPECT_EQ(view.GetParentRaises(), 1);
    timers.Advance(1);
    EXPECT_TRUE(view.IsVisible() && view.Paint());
    dialog->SetTimer(CProgressDialog::c_hideTimer, 100);
    timers.Advance(100);
    EXPECT_FALSE(view.IsVisible());
    dialog->Step(1);
    timers.Advance(10000);
    EXPECT_TRUE(view.IsVisible()) << "both timers tick once";

    dialog->EndDialog(1);
    dialog->Create();
    EXPECT_EQ(view.GetBarPosition(), 0);
    EXPECT_FALSE(view.IsVisible());
    dialog->Step(5);
    EXPECT_EQ(view.GetBarPosition(), 5);
    dialog->EndDialog(1);
    timers.Advance(5000);
    EXPECT_FALSE(view.IsVisible());
    EXPECT_EQ(timers.GetTimerCount(), 0U);
}

TEST_F(ProgressDialog, PointerIsBusyWhileAHiddenDialogBlocksTheWindows)
{
    dialog->Create();
    EXPECT_FALSE(view.IsBusy()) << "it blocks nothing";
    dialog->EndDialog(1);
    loop.Post([&] {
        EXPECT_TRUE(view.IsBusy());
        timers.Advance(CProgressDialog::c_showDelay);
        EXPECT_FALSE(view.IsBusy());
        dialog->SetTimer(CProgressDialog::c_hideTimer, 1);
        timers.Advance(1);
        EXPECT_TRUE(view.IsBusy());
        dialog->EndDialog(1);
    });
    dialog->DoModal();
    EXPECT_FALSE(view.IsBusy());
}

TEST_F(ProgressDialog, CancelDisablesAndTellsTheThread)
{
    const auto isToldOnce = [] {
        return TakeThreadMessage(CProgressDialog::c_cancelMessage) &&
               !TakeThreadMessage(CProgressDialog::c_cancelMessage);
    };
    dialog->SetNotifyThread(GetThreadIdentifier());
    dialog->Create();
    dialog->Step(1);
    EXPECT_TRUE(view.PressCancel());
    dialog->OnOK();
    dialog->Step(1);
    EXPECT_TRUE(dialog->IsOpen() && dialog->IsCanceled() && isToldOnce());
    EXPECT_FALSE(view.IsEnabled(c_cancel) || view.IsEnabled(c_bar) || view.IsEnabled(c_text));
    dialog->SetNotifyThread(GetThreadIdentifier());
    EXPECT_TRUE(isToldOnce()) << "it is cancelled already";
    dialog->SetCanceled(false);
    EXPECT_TRUE(view.IsEnabled(c_cancel) && view.IsEnabled(c_bar) && view.IsEnabled(c_text));
    EXPECT_FALSE(isToldOnce());
    dialog->EndDialog(1);
    dialog->SetCanceled(true);
    EXPECT_TRUE(view.IsEnabled(c_bar) && isToldOnce()) << "closed";
    dialog->Create();
    EXPECT_FALSE(view.IsEnabled(c_bar)) << "cancelled before it was opened";
}

TEST_F(ProgressDialog, StepCallbackMayDestroyTheDialog)
{
    const CStr text = u"a text that does not lie in the object itself";
    dialog->SetStepCallback(*this, &ProgressDialog::OnStep);
    dialog->SetText(text);
    dialog->Create();
    dialog->Step(1);
    EXPECT_EQ(dialog, nullptr);
    EXPECT_EQ(lastText, text);
}

TEST_F(ProgressDialog, WindowGrowsWithTheText)
{
    const std::pair<std::size_t, SProgressLayout> cases[] = {
        {20, {{184, 60}, {8, 8, 89, 16}, {9, 20, 177, 34}, {64, 40, 114, 54}}},
        {42, {{184, 60}, {8, 8, 177, 16}, {9, 20, 177, 34}, {64, 40, 114, 54}}},
        {43, {{184, 68}, {8, 8, 177, 24}, {9, 28, 177, 42}, {64, 48, 114, 62}}},
        {20, {{184, 68}, {8, 8, 89, 24}, {9, 28, 177, 42}, {64, 48, 114, 62}}},
    };
    dialog->Create();
    for (const auto& row : cases) {
        dialog->SetText(CStr(row.first, u'x'));
        EXPECT_EQ(view.GetLayout(), row.second) << &row - cases;
    }
    dialog->EndDialog(1);
    dialog->Create();
    EXPECT_EQ(view.GetLayout(), SProgressLayout()) << "the next window starts anew";
}
