#include "dialogs/ProgressThreadDialog.h"

#include "common/Exceptions.h"
#include "dialogs/MemoryProgressView.h"
#include "platform/ThreadMessages.h"
#include "platform/ThreadService.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/dialogs/DialogTesting.h"

#include <atomic>
#include <functional>
#include <future>
#include <memory>
#include <stdexcept>
#include <thread>

using namespace CommonUI;

namespace
{

class ProgressThreadDialog : public CDialogTest
{
public:
    using FAct = std::function<void()>;

    ProgressThreadDialog() { MakeDialog(); }
    void MakeDialog()
    {
        dialog = std::make_unique<CProgressThreadDialog>(nullptr, u"Batch", CStr());
        dialog->SetView(&view);
        dialog->SetWork(*this, &ProgressThreadDialog::Work);
        dialog->SetStepCallback(*this, &ProgressThreadDialog::OnStep);
        worked = dialog.get();
    }
    void Work() { work(); }
    void OnStep(CProgressDialogBase&, const CStr&)
    {
        ++steps;
        if (onStep)
            onStep();
    }
    void Report(int count, const CStr& text)
    {
        for (int i = 0; i < count; ++i)
            EXPECT_EQ(worked->PostThreadProgress(1, text), 0);
    }
    void ReportUntilCanceled()
    {
        while (worked->PostThreadProgress(0.5F, {}) == 0) {
        }
        isWorkCanceled = true;
    }
    // The user interface is busy while the work does the first, waits for what that does and does the rest.
    void RunBusy(const FAct& first, const FAct& act, const FAct& rest)
    {
        // Barriers and latches of some standard libraries lose calls to wake up.
        std::promise<void> hasStarted;
        std::promise<void> hasActed;
        unsigned long worker = 0;
        work = [&] {
            worker = GetThreadIdentifier();
            first();
            hasStarted.set_value();
            hasActed.get_future().wait();
            rest();
        };
        dialog->Create();
        hasStarted.get_future().wait();
        act();
        hasActed.set_value();
        while (PostToThread(worker, 0))
            std::this_thread::yield();
        EXPECT_TRUE(loop.RunUntil([&] { return !dialog->IsOpen(); }));
    }

    CMemoryProgressView view;
    std::unique_ptr<CProgressThreadDialog> dialog;
    CProgressThreadDialog* worked = nullptr; // for the worker
    FAct work = [this] { ReportUntilCanceled(); };
    FAct onStep;
    int steps = 0;
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
    const CServiceScope<CThreadService> scope(service);
    bool isUnseen = false;
    work = [&] { loop.Post([&] { isUnseen = view.IsModal() && !view.IsVisible(); }); };
    EXPECT_EQ(dialog->DoModal(), 1);
    EXPECT_EQ(service.priority, 15);
    EXPECT_TRUE(isUnseen);
    EXPECT_FALSE(view.IsVisible() || view.IsModal() || dialog->IsCanceled());
    EXPECT_EQ(timers.GetTimerCount(), 0);
}

TEST_F(ProgressThreadDialog, BusyUserInterfaceGetsTheLatestReportOfTheProcess)
{
    CProgressThreadDialog other(nullptr, {}, {});
    CProgressThreadDialog silent(nullptr, {}, u"Its own");
    const auto report = [&] {
        worked->PostThreadProgress(50, u"First");
        worked->PostThreadProgress(3, {});
        other.PostThreadProgress(2, u"Of another dialog");
        silent.PostThreadProgress(2, {});
    };
    RunBusy(
        report, [&] { EXPECT_EQ(loop.GetCount(), 3U) << "one message for each dialog"; }, [] {});
    loop.Pump();
    EXPECT_EQ(std::tuple(steps, dialog->GetProgressCtrl().GetPos()), std::tuple(2, 4));
    EXPECT_EQ(dialog->GetText(), u"") << "that of the last report";
    EXPECT_EQ(std::tuple(other.GetProgressCtrl().GetPos(), silent.GetText()), std::tuple(2, u"Its own"));
}

TEST_F(ProgressThreadDialog, LoopWithinAStepTakesWhatWaits)
{
    onStep = [&] {
        if (steps == 1) {
            EXPECT_TRUE(view.IsVisible());
            EXPECT_EQ(dialog->GetText(), u"Processing, please wait...") << "the step comes first";
            loop.Pump();
            loop.Pump();
            EXPECT_EQ(std::tuple(steps, dialog->GetText()), std::tuple(100, u"Working"));
        } else if (steps == 101) {
            EXPECT_TRUE(loop.RunUntil([&] { return !dialog->IsOpen(); }));
            work = [&] { ReportUntilCanceled(); };
            dialog->Create();
        } else if (steps == 102) {
            dialog->EndDialog(7);
        }
    };
    RunBusy([&] { Report(100, u"Working"); }, [&] { loop.Pump(); }, [&] { Report(1, {}); });
    EXPECT_EQ(steps, 102) << "a dialog that was opened again is left open";
}

TEST_F(ProgressThreadDialog, MillionReportsAreAMillionSteps)
{
    constexpr int c_count = 1000000;
    dialog->SetRange(c_count);
    work = [&] { Report(c_count, u"Working"); };
    EXPECT_EQ(dialog->DoModal(), 1);
    EXPECT_EQ(std::tuple(steps, view.GetBarPosition()), std::tuple(c_count, c_count));
}

TEST_F(ProgressThreadDialog, CancelBeforeTheFirstReportIsSeenByIt)
{
    for (const bool isOpen : {false, true}) {
        dialog->SetCanceled(!isOpen);
        const auto cancel = [&] {
            if (isOpen)
                dialog->OnCancel();
        };
        RunBusy([] {}, cancel, [&] { EXPECT_EQ(worked->PostThreadProgress(1, u"Late"), 1); });
        EXPECT_TRUE(dialog->IsCanceled());
        EXPECT_EQ(steps, 0);
    }
}

TEST_F(ProgressThreadDialog, CancelledWorkClosesTheDialogBeforeAllItsSteps)
{
    constexpr int c_made = CProgressThreadDialog::c_stepsPerMessage;
    const auto cancel = [&] {
        EXPECT_THROW(dialog->RunThread(), EInternal) << "the worker runs";
        dialog->SetNotifyThread(GetThreadIdentifier());
        dialog->SetCanceled(true);
        EXPECT_TRUE(TakeThreadMessage(CProgressThreadDialog::c_cancelMessage));
    };
    dialog->SetRange(1000);
    RunBusy([&] { Report(c_made + 1, {}); }, cancel,
            [&] { EXPECT_EQ(worked->PostThreadProgress(2, u"Late"), 1); });
    EXPECT_EQ(steps, c_made) << "those of the message that waited";
    EXPECT_EQ(dialog->GetProgressCtrl().GetPos(), 2 * c_made) << "of the latest report";
    EXPECT_EQ(dialog->GetText(), u"Processing, please wait...");
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
    const std::tuple<const char*, FAct, int> cases[] = {
        {"cancelled", [&] { view.PressCancel(); }, CBaseDialog::c_ok},
        {"closed", [&] { dialog->EndDialog(7); }, 7},
        {"destroyed", [&] { dialog.reset(); }, CBaseDialog::c_cancel},
        {"the program ends", [&] { loop.Quit(); }, CBaseDialog::c_cancel},
    };
    for (const auto& [what, end, result] : cases) {
        MakeDialog();
        isWorkCanceled = false;
        std::promise<void> reported;
        const auto hasReported = reported.get_future().share();
        work = [&] {
            Report(3, u"Working");
            reported.set_value();
            ReportUntilCanceled();
        };
        onStep = [&, &act = end] {
            hasReported.wait();
            EXPECT_TRUE(dialog && dialog->IsOpen()) << "a step after the end";
            act();
        };
        EXPECT_EQ(dialog->DoModal(), result) << what;
        loop.Pump();
        EXPECT_TRUE(isWorkCanceled && (!dialog || dialog->IsCanceled()) && !view.IsVisible()) << what;
    }
    EXPECT_EQ(timers.GetTimerCount(), 0U);
    EXPECT_FALSE(loop.RunUntil([] { return false; })) << "the end of the program outlives the dialog";
}
