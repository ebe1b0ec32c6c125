#include "controls/StepSizeCtrl.h"

#include "controls/MemorySpinView.h"
#include "controls/MemoryStepSizeView.h"
#include "tests/CountedTimers.h"
#include "tests/Script.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <utility>

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

// A pop-up beside its spin button, which plays lines of a script. Its third click destroys it.
class CStage
{
public:
    CStage()
    {
        m_spinView.rect = {100, 50, 118, 50 + 27};
        m_spin.SetView(&m_spinView);
        m_spin.Show(5, true);
        m_popup->SetView(m_view.get());
        m_popup->SetToolTip(u"step");
        m_popup->SetCallback(*this, &CStage::OnStepSize);
    }
    void OnStepSize(int delta)
    {
        m_events += delta > 0 ? " larger" : " smaller";
        if (++m_clicks == 3)
            m_popup.reset();
    }
    void Act(const SCommand& command) { m_verbs.at(command.verb)(command); }
    std::string Tell()
    {
        std::string told = m_popup ? std::to_string(m_popup->GetSlideStep()) : "gone";
        told += m_view->shown ? " shown" : " hidden";
        if (const SRect before = std::exchange(m_rect, m_view->rect); before != m_rect)
            told += ' ' + ToText(m_rect) + ToText(m_view->upperButton) + ToText(m_view->lowerButton);
        for (int timers = m_service.GetTimerCount(); timers > 0; --timers)
            told += " timer";
        told += m_view->toolTip == u"step" ? "" : " without tool tip";
        told += m_spinView.shown ? "" : " without spin button";
        return told + std::exchange(m_events, {});
    }

private:
    CStepSizeBtn& GetButton(const SCommand& command)
    {
        return m_popup->GetButton(command.text == "larger" ? CStepSizeBtn::EType::Larger
                                                           : CStepSizeBtn::EType::Smaller);
    }

    void MakeView()
    {
        m_view = std::make_unique<CMemoryStepSizeView>();
        m_popup->SetView(m_view.get());
    }
    void LendView()
    {
        CUpDown spin;
        CStepSizeCtrl(spin).SetView(m_view.get());
    }

    using CCommand = const SCommand&;
    const std::map<std::string, std::function<void(CCommand)>> m_verbs = {
        {"wait", [this](CCommand c) { m_service.Advance(c.Get<unsigned int>()); }},
        {"late", [this](CCommand c) { m_service.late += c.Get<std::uint64_t>(); }},
        {"enter", [this](CCommand) { m_spin.OnPointerEntered(); }},
        {"leave", [this](CCommand) { m_spin.OnPointerLeft(); }},
        {"enterbutton", [this](CCommand c) { GetButton(c).OnPointerEntered(); }},
        {"leavebutton", [this](CCommand c) { GetButton(c).OnPointerLeft(); }},
        {"click", [this](CCommand c) { GetButton(c).OnClicked(); }},
        {"window", [this](CCommand) { MakeView(); }},
        {"lend", [this](CCommand) { LendView(); }},
        {"close", [this](CCommand) { m_popup->Close(); }},
        {"show", [this](CCommand c) { m_spin.Show(5, c.IsYes()); }},
        {"enable", [this](CCommand c) { m_spin.Enable(c.IsYes()); }},
    };
    CLateService m_service;
    CServiceScope<CTimerService> m_scope{m_service};
    CUpDown m_spin;
    CMemorySpinView m_spinView;
    std::unique_ptr<CMemoryStepSizeView> m_view = std::make_unique<CMemoryStepSizeView>();
    std::unique_ptr<CStepSizeCtrl> m_popup = std::make_unique<CStepSizeCtrl>(m_spin);
    SRect m_rect{};
    std::string m_events;
    int m_clicks = 0;
};

} // namespace

TEST(StepSizeCtrl, SlidesAsTheScriptSays)
{
    ExpectScriptOf<CStage>("step-size.txt");
}
