#include "dialogs/ProgressDialog.h"

#include "platform/ManualTimerService.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <thread>
#include <vector>

using namespace CommonUI;

namespace
{

class ProgressDialog : public testing::Test
{
public:
    ProgressDialog()
    {
        dialog->SetView(&view);
        dialog->SetStepCallback(*this, &ProgressDialog::OnStep);
    }
    ~ProgressDialog() override
    {
        dialog.reset();
        SetTimerService(m_previous);
    }
    void OnStep(CProgressDialog& stepped, const CStr& text)
    {
        ++steps;
        if (stepped.GetProgressCtrl().GetPosition() == 99)
            dialog.reset();
        lastText = text;
    }

    CManualTimerService service;

private:
    CTimerService* m_previous = SetTimerService(&service);

public:
    CMemoryProgressView view;
    std::unique_ptr<CProgressDialog> dialog = std::make_unique<CProgressDialog>(u"Loading");
    int steps = 0;
    CStr lastText;
};

} // namespace

TEST(ProgressCtrl, AddsUpSteps)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const struct {
        bool wrap;
        int maximum;
        std::vector<double> steps;
        std::vector<int> positions;
    } cases[] = {
        {false, 100, {0.4F, 0.4F, 0.4F, 0.4F, 0.4F, 0.4F}, {0, 0, 1, 1, 2, 2}},
        {false, 10, {8, 2, 1, 1}, {8, 10, 10, 10}},
        {false, 10, {8, 3, -1, 1}, {8, 8, 10, 10}},
        {true, 10, {8, 3, 1, 11, 1e12}, {8, 0, 1, 1, 2}},
        {true, 0, {1, 1}, {0, 0}},
        {true, -5, {1, 1}, {0, 0}},
        {false, 100, {infinity, -infinity, infinity - infinity, 7, -3, 3, 1}, {0, 0, 0, 7, 7, 7, 8}},
    };
    for (const auto& row : cases) {
        CProgressCtrl bar;
        bar.SetWrap(row.wrap);
        bar.SetRange(0, row.maximum);
        std::vector<int> positions;
        for (const double step : row.steps) {
            bar.Step(step);
            positions.push_back(bar.GetPosition());
        }
        EXPECT_EQ(positions, row.positions) << row.maximum;
    }
}

TEST_F(ProgressDialog, AppearsAfterTwoSecondsOrWithTheFirstStep)
{
    EXPECT_EQ(view.text, u"Processing, please wait...");
    dialog->Open();
    service.Advance(1999);
    EXPECT_FALSE(view.visible || dialog->OnPaint());
    EXPECT_EQ(view.raised, 1);
    service.Advance(1);
    EXPECT_TRUE(view.visible && dialog->OnPaint());
    dialog->HideAfter(100);
    service.Advance(100);
    EXPECT_FALSE(view.visible);

    dialog->Open();
    service.Advance(1000);
    dialog->Step(5);
    EXPECT_TRUE(view.visible);
    EXPECT_EQ(view.progress.GetPosition(), 5);
    dialog->Close();
    dialog->Open();
    service.Advance(1999);
    dialog->Close();
    service.Advance(5000);
    EXPECT_FALSE(view.visible) << "short work flashes no window";
    EXPECT_EQ(service.GetTimerCount(), 0U);
}

TEST_F(ProgressDialog, CancelReachesTheThreadOnce)
{
    CCancelQueue queue;
    CCancelQueue late;
    dialog->SetNotifyThread(queue.GetIdentifier());
    EXPECT_FALSE(queue.Take());
    std::thread([&] { EXPECT_FALSE(queue.Take()); }).join();
    dialog->OnCancel();
    EXPECT_TRUE(dialog->IsCanceled());
    EXPECT_FALSE(view.enabled);
    dialog->Step(1);
    EXPECT_FALSE(view.enabled);
    std::thread([&] { EXPECT_TRUE(queue.Take()); }).join();
    EXPECT_FALSE(queue.Take());
    dialog->SetNotifyThread(late.GetIdentifier());
    EXPECT_TRUE(late.Take());
    dialog->SetCanceled(false);
    EXPECT_TRUE(view.enabled);
    EXPECT_FALSE(late.Take());
    EXPECT_FALSE(CCancelQueue::Post(0));
}

TEST_F(ProgressDialog, StepCallbackMayDestroyTheDialog)
{
    dialog->SetText(u"a text that does not lie in the object itself");
    dialog->Step(98);
    EXPECT_EQ(steps, 1);
    dialog->Step(1);
    EXPECT_EQ(dialog, nullptr);
    EXPECT_FALSE(view.visible);
    EXPECT_EQ(lastText, u"a text that does not lie in the object itself");
}

TEST_F(ProgressDialog, ViewThatComesLaterShowsTheState)
{
    dialog->SetView(nullptr);
    dialog->SetRange(7);
    dialog->Step(3);
    dialog->OnCancel();
    dialog->SetView(&view);
    EXPECT_EQ(view.caption, u"Loading");
    EXPECT_EQ(view.progress.GetMaximum(), 7);
    EXPECT_EQ(view.progress.GetPosition(), 3);
    EXPECT_TRUE(view.visible);
    EXPECT_FALSE(view.enabled);
}
