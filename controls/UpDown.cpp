#include "controls/UpDown.h"

#include "controls/StepSizeCtrl.h"

namespace CommonUI
{

CSpinView::~CSpinView() = default;

void CSpinView::SetEnabled(bool)
{
}

void CSpinView::ShowHint(const CStr&)
{
}

CUpDown::CUpDown() = default;

CUpDown::~CUpDown() = default;

void CUpDown::SetView(CSpinView* view)
{
    Link(*this, view);
    if (!view)
        return;
    view->SetVisible(m_visible);
    view->SetEnabled(m_enabled);
}

void CUpDown::Show(unsigned int identifier, bool visible)
{
    m_identifier = identifier;
    m_visible = visible;
    if (GetView())
        GetView()->SetVisible(visible);
    if (m_stepSize && !visible)
        m_stepSize->Close();
}

void CUpDown::Enable(bool enable)
{
    m_enabled = enable;
    if (GetView())
        GetView()->SetEnabled(enable);
    if (m_stepSize && !enable)
        m_stepSize->Close();
}

void CUpDown::ShowHint(const CStr& text)
{
    if (GetView())
        GetView()->ShowHint(text);
}

void CUpDown::OnDeltaPos(int delta)
{
    // The button may be gone afterwards.
    if (const auto closure = m_slot.Share<void, int>())
        closure->Invoke(delta);
}

void CUpDown::OnPointerEntered()
{
    if (m_stepSize && m_enabled)
        m_stepSize->Show(*this);
}

void CUpDown::OnPointerLeft()
{
    if (m_stepSize)
        m_stepSize->Hide(*this);
}

} // namespace CommonUI
