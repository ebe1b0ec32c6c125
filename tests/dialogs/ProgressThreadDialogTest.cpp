#include "dialogs/ProgressThreadDialog.h"

#include "common/Exceptions.h"
#include "dialogs/MemoryProgressView.h"
#include "platform/ThreadMessages.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/dialogs/DialogTesting.h"

#include <algorithm>
#include <atomic>
#include <functional>
#include <latch>
#include <memory>
#include <stdexcept>

using namespace CommonUI;

namespace
{

class ProgressThreadDialog : public CDialogTest
{
public:
    ProgressThreadDialog()
    {
        dialog->SetView(&view);
        dialog->SetWork(*this, &ProgressThreadDialog::Work);
        dialog->SetStepCallback(*this, &ProgressThreadDialog::OnStep);
    }
    void Work() { work(); }
    void OnStep(CProgressDialogBase&, const CStr&)
    {
        ++steps;
        if (onStep)
            onStep();
    }
    void ReportUntilCanceled()
    {
        while (worked->PostThreadProgress(0.5F, {}) == 0)
            ++reports;
        isWorkCanceled = true;
    }

    CMemoryProgressView view;
    std::unique_ptr<CProgressThreadDialog> dialog =
        std::make_unique<CProgressThreadDialog>(nullptr, u"Batch", CStr());
    CProgressThreadDialog* const worked = dialog.get(); // for the worker
    std::function<void()> work = [this] { ReportUntilCanceled(); };
    std::function<void()> onStep;
    int steps = 0;
    std::atomic<int> reports = 0;
    std::atomic<bool> isWorkCanceled = false;
};

} // namespace

TEST_F(ProgressThreadDialog, WorkThatEndsAtOnceIsNeverSeen)
{
    class CService : public CThreadService
    {
    public:
        bool SetPriority(int given) override { return (priority = given) != 0; }
        int priority = 0;
    } service;
    CThreadService* const before = SetThreadService(&service);
    bool isModal = false;
    bool isVisible = false;
    work = [&] {
        loop.Post([&] {
            isModal = view.IsModal();
            isVisible = view.IsVisible();
        });
    };
    EXPECT_EQ(dialog->DoModal(), 1);
    SetThreadService(before);
    EXPECT_EQ(service.priority, 15);
    EXPECT_TRUE(isModal && !isVisible);
    EXPECT_FALSE(view.IsVisible() || view.IsModal() || dialog->IsCanceled());
    EXPECT_EQ(timers.GetTimerCount(), 0U);
}

TEST_F(ProgressThreadDialog, WorkThatNeverReportsIsSeenAfterTwoSeconds)
{
    std::latch seen(1);
    work = [&] { seen.wait(); };
    loop.Post([&] {
        timers.Advance(2000);
        EXPECT_TRUE(view.IsVisible());
        seen.count_down();
    });
    EXPECT_EQ(dialog->DoModal(), 1);
}

TEST_F(ProgressThreadDialog, ReportsMakeStepsAndSetTheText)
{
    work = [&] {
        worked->PostThreadProgress(1, u"First file");
        std::latch handled(1);
        loop.Post([&] {
            EXPECT_TRUE(view.IsVisible());
            EXPECT_EQ(view.GetText(ProgressTemplate::c_text), u"First file");
            handled.count_down();
        });
        handled.wait();
        worked->PostThreadProgress(2.5F, u"Last file");
    };
    for (const int expected : {2, 4}) {
        EXPECT_EQ(dialog->DoModal(), 1) << "the dialog can be used again";
        EXPECT_EQ(view.GetBarPosition(), 3);
        EXPECT_EQ(steps, expected);
        EXPECT_EQ(dialog->GetText(), u"Last file");
    }
}

TEST_F(ProgressThreadDialog, BusyUserInterfaceGetsTheLatestReportOfTheProcess)
{
    CProgressThreadDialog other(nullptr, {}, {});
    CProgressThreadDialog silent(nullptr, {}, u"Its own");
    std::latch reported(1);
    std::latch checked(1);
    work = [&] {
        worked->PostThreadProgress(50, u"First");
        worked->PostThreadProgress(3, u"Second");
        worked->PostThreadProgress(3, {});
        other.PostThreadProgress(2, u"Of another dialog");
        other.PostThreadProgress(2, {});
        silent.PostThreadProgress(2, {});
        reported.count_down();
        checked.wait();
    };
    dialog->Create();
    reported.wait();
    EXPECT_EQ(loop.GetCount(), 3U) << "one message for each dialog";
    checked.count_down();
    EXPECT_TRUE(loop.RunUntil([&] { return !dialog->IsOpen(); }));
    EXPECT_EQ(steps, 3);
    EXPECT_EQ(dialog->GetProgressCtrl().GetPos(), 6);
    EXPECT_EQ(dialog->GetText(), u"") << "that of the last report, which posts no message for it";
    EXPECT_EQ(other.GetProgressCtrl().GetPos(), 4);
    EXPECT_EQ(silent.GetText(), u"Its own");
}

TEST_F(ProgressThreadDialog, LoopWithinAStepMakesTheStepsThatWait)
{
    std::latch reported(1);
    std::latch made(1);
    work = [&] {
        for (int i = 0; i < 100; ++i)
            worked->PostThreadProgress(1, {});
        reported.count_down();
        made.wait();
    };
    onStep = [&] {
        if (steps != 1)
            return;
        loop.RunUntil([&] { return steps == 100; });
        made.count_down();
        loop.RunUntil([&] { return !dialog->IsOpen(); });
    };
    dialog->Create();
    reported.wait();
    EXPECT_TRUE(loop.RunUntil([&] { return !dialog->IsOpen(); }));
    EXPECT_EQ(steps, 100);
}

TEST_F(ProgressThreadDialog, MillionReportsKeepTheQueueShort)
{
    constexpr int count = 1000000;
    std::size_t longest = 0;
    int otherMessages = 0;
    const CMessageLoop::FMessage look = [&] {
        longest = std::max(longest, loop.GetCount());
        ++otherMessages;
        if (dialog->IsOpen())
            loop.Post(look);
    };
    dialog->SetRange(count);
    work = [&] {
        for (int i = 0; i < count; ++i)
            worked->PostThreadProgress(1, u"Working");
    };
    loop.Post(look);
    EXPECT_EQ(dialog->DoModal(), 1);
    loop.Pump();
    EXPECT_EQ(steps, count);
    EXPECT_EQ(view.GetBarPosition(), count);
    EXPECT_LE(longest, 3U);
    EXPECT_GE(otherMessages, count / static_cast<int>(CProgressThreadDialog::c_stepsPerMessage));
}

TEST_F(ProgressThreadDialog, CancelBeforeTheFirstReportIsSeenByIt)
{
    dialog->SetCanceled(true);
    EXPECT_EQ(dialog->DoModal(), 1);
    EXPECT_TRUE(isWorkCanceled && dialog->IsCanceled());

    dialog->SetCanceled(false);
    isWorkCanceled = false;
    std::latch canceled(1);
    work = [&] {
        canceled.wait();
        ReportUntilCanceled();
    };
    loop.Post([&] {
        dialog->OnCancel();
        canceled.count_down();
    });
    EXPECT_EQ(dialog->DoModal(), 1);
    EXPECT_TRUE(isWorkCanceled && dialog->IsCanceled());
    EXPECT_EQ(reports + steps, 0) << "the reports that saw it posted nothing";
}

TEST_F(ProgressThreadDialog, ReportThatSeesTheCancelOnlyLeavesItsIncrement)
{
    std::latch reported(1);
    std::latch canceled(1);
    std::latch seen(1);
    work = [&] {
        worked->PostThreadProgress(1, {});
        reported.count_down();
        canceled.wait();
        EXPECT_EQ(worked->PostThreadProgress(5, u"Late"), 1);
        seen.count_down();
    };
    dialog->Create();
    reported.wait();
    EXPECT_THROW(dialog->RunThread(), EInternal) << "the worker runs";
    dialog->SetNotifyThread(GetThreadIdentifier());
    dialog->SetCanceled(true);
    EXPECT_TRUE(TakeThreadMessage(CProgressThreadDialog::c_cancelMessage));
    canceled.count_down();
    seen.wait();
    EXPECT_TRUE(loop.RunUntil([&] { return !dialog->IsOpen(); }));
    EXPECT_EQ(steps, 1);
    EXPECT_EQ(dialog->GetProgressCtrl().GetPos(), 5) << "of the latest report";
    EXPECT_EQ(dialog->GetText(), u"Processing, please wait...");
}

TEST_F(ProgressThreadDialog, ButtonCancelsTheWorkAndTheDialogStaysForItsEnd)
{
    onStep = [&] {
        view.PressCancel();
        EXPECT_TRUE(dialog->IsOpen());
    };
    EXPECT_EQ(dialog->DoModal(), 1);
    EXPECT_TRUE(isWorkCanceled && dialog->IsCanceled());
    EXPECT_FALSE(view.IsEnabled(ProgressTemplate::c_cancel));
}

TEST_F(ProgressThreadDialog, ExceptionsReachTheCallerWhenTheDialogIsClosed)
{
    onStep = [] { throw std::logic_error("step"); };
    EXPECT_THROW(dialog->DoModal(), std::logic_error);
    EXPECT_TRUE(isWorkCanceled && dialog->IsCanceled()) << "the worker has been waited for";
    EXPECT_FALSE(dialog->IsOpen());

    work = [] { throw std::runtime_error("work"); };
    EXPECT_THROW(dialog->DoModal(), std::runtime_error);
    EXPECT_FALSE(dialog->IsOpen() || view.IsModal());

    const CDiagnosticsCapture lines;
    dialog->Create();
    dialog.reset();
    EXPECT_EQ(lines.GetCount(), 1) << "nobody waits for the exception after Create";
}

TEST_F(ProgressThreadDialog, WorkThatRunsIsCanceledAndWaitedFor)
{
    const struct {
        const char* what;
        std::function<void()> end;
        int result;
    } cases[] = {
        {"closed",
         [&] {
             EXPECT_TRUE(dialog->IsOpen()) << "no step is made after it was closed";
             dialog->EndDialog(7);
         },
         7},
        {"the program ends", [&] { loop.Quit(); }, CBaseDialog::c_cancel},
    };
    for (const auto& row : cases) {
        dialog->SetCanceled(false);
        isWorkCanceled = false;
        std::latch reported(1);
        work = [&] {
            for (int i = 0; i < 3; ++i)
                worked->PostThreadProgress(1, {});
            reported.count_down();
            ReportUntilCanceled();
        };
        onStep = [&] {
            reported.wait();
            row.end();
        };
        EXPECT_EQ(dialog->DoModal(), row.result) << row.what;
        EXPECT_TRUE(isWorkCanceled && dialog->IsCanceled()) << row.what;
    }
}

TEST_F(ProgressThreadDialog, DialogMayBeDestroyedInItsOwnLoop)
{
    onStep = [&] { dialog.reset(); };
    EXPECT_EQ(dialog->DoModal(), CBaseDialog::c_cancel);
    EXPECT_TRUE(isWorkCanceled);
    EXPECT_EQ(steps, 1);
    loop.Pump();
    EXPECT_EQ(timers.GetTimerCount(), 0U);
}
