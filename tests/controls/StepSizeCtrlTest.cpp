#include "controls/StepSizeCtrl.h"

#include "controls/MemorySpinView.h"
#include "controls/MemoryStepSizeView.h"
#include "tests/CountedTimers.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using namespace CommonUI;

namespace
{

// A service whose clock can run ahead of its ticks, as that of a busy program.
class CLateService : public CCountedTimers
{
public:
    std::uint64_t GetTime() const override { return CCountedTimers::GetTime() + late; }
    std::uint64_t late = 0;
};

class StepSizeCtrl : public testing::Test
{
public:
    StepSizeCtrl()
    {
        spinView.rect = {100, 50, 118, 50 + 27};
        spin.SetView(&spinView);
        spin.Show(5, true);
        popup->SetView(&view);
        popup->SetCallback(*this, &StepSizeCtrl::OnStepSize);
    }
    void OnStepSize(int delta)
    {
        deltas.push_back(delta);
        if (deltas.size() == 3)
            popup.reset();
    }
    void SlideOut()
    {
        spin.OnPointerEntered();
        service.Advance(240);
        ASSERT_EQ(popup->GetSlideStep(), 9);
    }

    CLateService service;
    CServiceScope<CTimerService> scope{service};
    CUpDown spin;
    CMemorySpinView spinView;
    CMemoryStepSizeView view;
    std::unique_ptr<CStepSizeCtrl> popup = std::make_unique<CStepSizeCtrl>(spin);
    std::vector<int> deltas;
};

} // namespace

TEST_F(StepSizeCtrl, SlidesOutInNineSteps)
{
    EXPECT_TRUE(spinView.shown);
    spin.OnPointerEntered();
    for (int step = 1; step <= 9; ++step) {
        EXPECT_EQ(popup->GetSlideStep(), step);
        EXPECT_EQ(view.rect, (SRect{118, 50, 118 + 3 * step, 77}));
        EXPECT_EQ(service.GetTimerCount(), step < 9 ? 1 : 0);
        service.Advance(30);
    }
    EXPECT_EQ(std::pair(view.upperButton, view.lowerButton),
              std::pair(SRect{0, 0, 27, 13}, SRect{0, 14, 27, 27}));
    EXPECT_TRUE(view.shown);
}

TEST_F(StepSizeCtrl, SlidesBackWhenThePointerHasBeenAway)
{
    SlideOut();
    spin.OnPointerLeft();
    service.Advance(499);
    popup->GetButton(CStepSizeBtn::EType::Larger).OnPointerEntered();
    popup->GetButton(CStepSizeBtn::EType::Larger).OnPointerLeft();
    service.Advance(499);
    EXPECT_EQ(popup->GetSlideStep(), 9) << "the wait starts anew";
    service.Advance(1);
    EXPECT_EQ(popup->GetSlideStep(), 8);
    service.Advance(7 * 30);
    EXPECT_EQ(popup->GetSlideStep(), 1);
    EXPECT_TRUE(view.shown);
    service.Advance(30);
    EXPECT_FALSE(view.shown);
    EXPECT_EQ(service.GetTimerCount(), 0);
}

TEST_F(StepSizeCtrl, PointerLeavesHalfWay)
{
    spin.OnPointerEntered();
    service.Advance(90);
    spin.OnPointerLeft();
    service.Advance(499);
    EXPECT_EQ(popup->GetSlideStep(), 4) << "it waits where it is";
    service.Advance(1);
    EXPECT_EQ(popup->GetSlideStep(), 3) << "and has nothing to catch up with";
    spin.OnPointerEntered();
    EXPECT_EQ(popup->GetSlideStep(), 4) << "back at once";
    service.Advance(30);
    spin.OnPointerLeft();
    service.Advance(400);
    popup->Show(*popup);
    EXPECT_EQ(popup->GetSlideStep(), 5) << "only the spin button slides at once";
    spin.OnPointerEntered();
    EXPECT_EQ(popup->GetSlideStep(), 6);
}

TEST_F(StepSizeCtrl, LateTickCatchesUp)
{
    const std::pair<std::uint64_t, int> cases[] = {{14, 2}, {15, 3}, {45, 4}, {1000000000000, 9}};
    for (const auto& [late, step] : cases) {
        popup->Close();
        EXPECT_FALSE(view.shown);
        service.late = 0;
        spin.OnPointerEntered();
        service.late = late;
        service.Advance(30);
        EXPECT_EQ(popup->GetSlideStep(), step) << late;
    }
    spin.OnPointerLeft();
    service.Advance(500);
    service.late += 1000;
    service.Advance(30);
    EXPECT_EQ(popup->GetSlideStep(), 0);
}

TEST_F(StepSizeCtrl, ButtonsTellTheirDirection)
{
    popup->GetButton(CStepSizeBtn::EType::Larger).OnClicked();
    popup->GetButton(CStepSizeBtn::EType::Smaller).OnClicked();
    SlideOut();
    popup->GetButton(CStepSizeBtn::EType::Smaller).OnClicked();
    EXPECT_EQ(deltas, (std::vector<int>{1, -1, -1}));
    EXPECT_EQ(popup, nullptr);
    EXPECT_FALSE(view.shown);
    spin.OnPointerEntered();
    spin.OnPointerLeft();
    EXPECT_EQ(service.GetTimerCount(), 0);
}

TEST_F(StepSizeCtrl, HidesWithItsSpinButton)
{
    SlideOut();
    spin.Show(5, true), spin.Enable(true);
    EXPECT_TRUE(view.shown);
    spin.OnPointerLeft(), spin.Show(5, false);
    EXPECT_FALSE(view.shown || spinView.shown);
    EXPECT_EQ(std::tuple(popup->GetSlideStep(), service.GetTimerCount()), std::tuple(0, 0));
    SlideOut();
    spin.Enable(false);
    EXPECT_FALSE(view.shown) << "as it cannot be pressed";
}

TEST_F(StepSizeCtrl, ViewThatComesLaterShowsTheState)
{
    popup->SetView(nullptr);
    popup->SetToolTip(u"step");
    SlideOut();
    CMemoryStepSizeView later;
    popup->SetView(&later);
    EXPECT_TRUE(later.shown);
    EXPECT_EQ(std::tuple(later.toolTip, later.rect.right), std::tuple(u"step", 118 + 27));
    CUpDown otherSpin;
    CStepSizeCtrl other(otherSpin);
    other.SetView(&later);
    EXPECT_FALSE(later.shown);
}
