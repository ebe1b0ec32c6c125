#include "dialogs/ProgressThreadDialog.h"

#include "platform/ManualTimerService.h"
#include "platform/MessageLoop.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <stdexcept>

using namespace CommonUI;

namespace
{

class ProgressThreadDialog : public testing::Test
{
public:
    ProgressThreadDialog()
    {
        MakeDialog();
        dialog->SetView(&view);
    }
    ~ProgressThreadDialog() override
    {
        dialog.reset();
        SetMessageLoop(m_previousLoop);
        SetTimerService(m_previousTimers);
    }
    void MakeDialog()
    {
        dialog = std::make_unique<CProgressThreadDialog>(u"Batch", u"Begin");
        m_worked = dialog.get();
        dialog->SetWork(*this, &ProgressThreadDialog::Work);
        dialog->SetStepCallback(*this, &ProgressThreadDialog::OnStep);
    }
    void Work() { work(*m_worked); }
    void OnStep(CProgressDialog&, const CStr&)
    {
        if (onStep)
            onStep();
    }
    /// Work that ends when it is cancelled only.
    void WorkUntilCancelled()
    {
        work = [this](CProgressThreadDialog& progress) {
            while (progress.PostThreadProgress(0.25F, u"") == 0)
                std::this_thread::yield();
            ended = true;
        };
    }

    CConsoleTimerService loopTimers;
    CConsoleMessageLoop loop{loopTimers};
    CManualTimerService timers;

private:
    CProgressThreadDialog* m_worked = nullptr; ///< for the worker, while `dialog` is reset
    CMessageLoop* m_previousLoop = SetMessageLoop(&loop);
    CTimerService* m_previousTimers = SetTimerService(&timers);

public:
    CMemoryProgressView view;
    std::function<void(CProgressThreadDialog&)> work;
    std::function<void()> onStep;
    std::atomic<bool> ended = false;
    std::unique_ptr<CProgressThreadDialog> dialog;
};

} // namespace

TEST_F(ProgressThreadDialog, WorkWithoutReportShowsNothing)
{
    bool shown = false;
    work = [&](CProgressThreadDialog& progress) { shown = progress.GetView() == nullptr; };
    EXPECT_EQ(dialog->DoModal(), 1);
    EXPECT_FALSE(shown || view.visible || dialog->IsWorking() || dialog->IsDelayed());
    CProgressThreadDialog idle(u"no work");
    EXPECT_EQ(idle.DoModal(), 0);
}

TEST_F(ProgressThreadDialog, ReportsReachTheDialog)
{
    std::atomic<int> seen = 0;
    bool visible = false;
    onStep = [&] {
        visible = view.visible;
        seen = dialog->GetProgressCtrl().GetPosition();
    };
    work = [&](CProgressThreadDialog& progress) {
        for (int i = 1; i <= 3; ++i) {
            progress.PostThreadProgress(1, CStr::Format(u"part %d", i));
            progress.PostThreadProgress(1, u"");
            while (seen < 2 * i)
                std::this_thread::yield();
        }
    };
    EXPECT_EQ(dialog->DoModal(), 1);
    EXPECT_EQ(view.progress.GetPosition(), 6);
    EXPECT_EQ(view.text, u"part 3");
    EXPECT_TRUE(visible);
    EXPECT_FALSE(view.visible);
}

TEST_F(ProgressThreadDialog, ManyReportsAreOneMessage)
{
    work = [&](CProgressThreadDialog& progress) {
        for (int i = 0; i < 100000; ++i)
            progress.PostThreadProgress(0.0005F, u"still working on it, and this text is long");
        ended = true;
    };
    EXPECT_TRUE(dialog->RunThread());
    EXPECT_FALSE(dialog->RunThread());
    while (!ended)
        std::this_thread::yield();
    EXPECT_LE(loop.GetCount(), 2U) << "the reports and the end";
    loop.RunUntil([&] { return !dialog->IsWorking(); });
    EXPECT_EQ(view.progress.GetPosition(), 50);
}

TEST_F(ProgressThreadDialog, CancelEndsTheWork)
{
    WorkUntilCancelled();
    onStep = [&] { dialog->OnCancel(); };
    EXPECT_EQ(dialog->DoModal(), 1);
    EXPECT_TRUE(ended && dialog->IsCanceled());
    EXPECT_FALSE(view.enabled);
}

TEST_F(ProgressThreadDialog, CancelBeforeTheFirstReport)
{
    dialog->OnCancel();
    int reported = 0;
    work = [&](CProgressThreadDialog& progress) {
        reported = progress.PostThreadProgress(50, u"never seen");
    };
    EXPECT_EQ(dialog->DoModal(), 1);
    EXPECT_NE(reported, 0);
    EXPECT_EQ(view.text, u"Begin");
    EXPECT_EQ(view.progress.GetPosition(), 0);
}

TEST_F(ProgressThreadDialog, ExceptionOfTheWorkReachesTheCaller)
{
    work = [](CProgressThreadDialog& progress) {
        progress.PostThreadProgress(1, u"");
        throw std::runtime_error("no disk");
    };
    EXPECT_THROW(dialog->DoModal(), std::runtime_error);
    EXPECT_FALSE(view.visible || dialog->IsWorking());
    work = [](CProgressThreadDialog&) {};
    EXPECT_EQ(dialog->DoModal(), 1);
}

TEST_F(ProgressThreadDialog, DestructionCancelsAndWaits)
{
    WorkUntilCancelled();
    ASSERT_TRUE(dialog->RunThread());
    dialog.reset();
    EXPECT_TRUE(ended);
    // What was on its way reaches nobody.
    loop.RunUntil([&] { return loop.GetCount() == 0; });

    MakeDialog();
    ended = false;
    onStep = [&] { dialog.reset(); };
    EXPECT_EQ(dialog->DoModal(), 0);
    EXPECT_TRUE(ended);
}
