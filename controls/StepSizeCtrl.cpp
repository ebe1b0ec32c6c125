#include "controls/StepSizeCtrl.h"

#include <algorithm>

namespace CommonUI
{

CStepSizeView::~CStepSizeView() = default;

CStepSizeBtn::CStepSizeBtn(CStepSizeCtrl& owner, EType type)
    : m_owner(owner)
    , m_type(type)
{
}

CStepSizeBtn::~CStepSizeBtn() = default;

void CStepSizeBtn::OnClicked()
{
    m_owner.OnButton(m_type);
}

void CStepSizeBtn::OnPointerEntered()
{
    m_owner.Show(*this);
}

void CStepSizeBtn::OnPointerLeft()
{
    m_owner.Hide(*this);
}

CStepSizeCtrl::CStepSizeCtrl(CUpDown& spin)
    : m_spin(spin)
    , m_buttons{CStepSizeBtn(*this, CStepSizeBtn::EType::Larger),
                CStepSizeBtn(*this, CStepSizeBtn::EType::Smaller)}
{
    m_spin.SetStepSizeCtrl(this);
    m_slideTimer.SetCallback(*this, &CStepSizeCtrl::OnSlideTimer);
    m_hideTimer.SetCallback(*this, &CStepSizeCtrl::OnHideTimer);
}

CStepSizeCtrl::~CStepSizeCtrl()
{
    Close();
    m_spin.SetStepSizeCtrl(nullptr);
}

void CStepSizeCtrl::SetView(CStepSizeView* view)
{
    Link(*this, view);
    if (!view)
        return;
    view->SetToolTip(m_toolTip);
    if (m_step > 0)
        Place();
    else
        view->Hide(); // it may come from a pop-up that was out
}

void CStepSizeCtrl::SetToolTip(const CStr& text)
{
    m_toolTip = text;
    if (GetView())
        GetView()->SetToolTip(text);
}

void CStepSizeCtrl::Show(const CWnd& entered)
{
    m_showing = true;
    m_hideTimer.SetRunning(false);
    BeginSlide();
    const bool finished = &entered == &m_spin ? Slide() : m_step == c_MaxSlideStep;
    if (!finished)
        m_slideTimer.SetRunning(true);
}

void CStepSizeCtrl::Hide(const CWnd&)
{
    m_showing = false;
    m_slideTimer.SetRunning(false);
    m_hideTimer.SetRunning(true);
}

void CStepSizeCtrl::Close()
{
    m_slideTimer.SetRunning(false);
    m_hideTimer.SetRunning(false);
    m_step = 0;
    if (GetView())
        GetView()->Hide();
}

void CStepSizeCtrl::OnButton(CStepSizeBtn::EType type)
{
    // The pop-up may be gone afterwards.
    if (const auto closure = m_slot.Share<void, int>())
        closure->Invoke(type == CStepSizeBtn::EType::Larger ? 1 : -1);
}

void CStepSizeCtrl::OnSlideTimer(CBaseTimer& timer)
{
    if (Slide())
        timer.SetRunning(false);
}

void CStepSizeCtrl::OnHideTimer(CBaseTimer& timer)
{
    timer.SetRunning(false);
    BeginSlide();
    if (!Slide())
        m_slideTimer.SetRunning(true);
}

// A pop-up that has rested half way has no steps to catch up with.
void CStepSizeCtrl::BeginSlide()
{
    if (!m_slideTimer.IsRunning())
        m_lastTime = GetTimerService().GetTime();
}

// Slides to where the pop-up should be by now. @return whether it is fully out or hidden
bool CStepSizeCtrl::Slide()
{
    const std::uint64_t now = GetTimerService().GetTime();
    int steps = 1;
    if (m_step > 0 && m_step < c_MaxSlideStep) {
        // A late tick catches up.
        const std::uint64_t elapsed = (now - m_lastTime + c_SlideStepTime / 2) / c_SlideStepTime;
        steps = static_cast<int>(std::clamp<std::uint64_t>(elapsed, 1, c_MaxSlideStep));
    }
    m_step = m_showing ? std::min(m_step + steps, c_MaxSlideStep) : std::max(m_step - steps, 0);
    m_lastTime = now;
    if (m_step > 0)
        Place();
    else if (GetView())
        GetView()->Hide();
    return m_step == 0 || m_step == c_MaxSlideStep;
}

void CStepSizeCtrl::Place() const
{
    if (!GetView() || !m_spin.GetView())
        return;
    const SRect spin = m_spin.GetView()->GetScreenRect();
    const int height = spin.bottom - spin.top;
    const int width = height * m_step / c_MaxSlideStep;
    const int half = height / 2;
    GetView()->Place({spin.right, spin.top, spin.right + width, spin.bottom}, {0, 0, width, half},
                     {0, height - half, width, height});
}

} // namespace CommonUI
