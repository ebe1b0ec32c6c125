#include "windows/edits/detail/WinSpinButton.h"

#include "windows/detail/Arrows.h"
#include "windows/detail/CallGuard.h"
#include "windows/detail/ControlWindow.h"
#include "windows/detail/MonitorScale.h"

#include <commctrl.h>

#include <utility>

namespace CommonUI
{

namespace
{

constexpr UINT c_step = WM_APP;

} // namespace

class CWinSpinButton::CArrows final : public CSubclass
{
public:
    explicit CArrows(CWinSpinButton& owner)
        : CSubclass(MakeArrows(owner.GetHandle()))
        , m_owner(owner)
    {
    }

protected:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override
    {
        const std::weak_ptr<void> life = GetLife();
        if (message == WM_LBUTTONDOWN)
            SetFocus(m_owner.m_field); // who had the keyboard may end the dialog over it
        if (life.expired())
            return 0;
        if (message == WM_MOUSEMOVE && !std::exchange(m_isInside, true)) {
            AwaitPointerLeft(GetHandle());
            m_owner.OnPointer(true);
        }
        if (message == WM_MOUSELEAVE && std::exchange(m_isInside, false))
            m_owner.OnPointer(false);
        return PassOn(message, wide, longer);
    }

private:
    CWinSpinButton& m_owner;
    bool m_isInside = false;
};

CWinSpinButton::CWinSpinButton(HWND field)
    : CControlWindow(GetParent(field), 0, {}, WS_CHILD | WS_CLIPCHILDREN)
    , m_field(field)
    , m_arrows(std::make_unique<CArrows>(*this))
{
    // Behind the field in the order of the dialog.
    SetWindowPos(GetHandle(), field, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

CWinSpinButton::~CWinSpinButton()
{
    Widen(m_taken);
}

int CWinSpinButton::GetWidth() const
{
    return ScaleFor(m_field, 17);
}

// The field.
void CWinSpinButton::Widen(int by)
{
    if (!IsWindow(m_field) || by == 0)
        return;
    m_taken -= by;
    const SRect place = CommonUI::GetScreenRect(m_field);
    SetWindowPos(m_field, nullptr, 0, 0, place.GetWidth() + by, place.GetHeight(),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CWinSpinButton::SetVisible(bool visible)
{
    if (std::exchange(m_visible, visible) != visible)
        Widen(visible ? -GetWidth() : m_taken);
    Follow();
}

void CWinSpinButton::SetEnabled(bool enabled)
{
    m_enabled = enabled;
    Follow();
}

void CWinSpinButton::Follow()
{
    if (!GetHandle() || !IsWindow(m_field))
        return;
    const SRect field = CommonUI::GetScreenRect(m_field);
    POINT corner{field.right, field.top};
    ScreenToClient(GetParent(m_field), &corner);
    const bool isShown = m_visible && (GetWindowLongW(m_field, GWL_STYLE) & WS_VISIBLE);
    SetWindowPos(GetHandle(), nullptr, corner.x, corner.y, GetWidth(), field.GetHeight(),
                 SWP_NOZORDER | SWP_NOACTIVATE | (isShown ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
    SetWindowPos(m_arrows->GetHandle(), nullptr, 0, 0, GetWidth(), field.GetHeight(),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    EnableWindow(m_arrows->GetHandle(), m_enabled && IsWindowEnabled(m_field));
}

void CWinSpinButton::OnPointer(bool entered)
{
    GuardedCall([control = GetControl(), entered] {
        if (control && entered)
            control->OnPointerEntered();
        else if (control)
            control->OnPointerLeft();
    });
}

LRESULT CWinSpinButton::OnMessage(UINT message, WPARAM wide, LPARAM longer)
{
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(longer)->code == UDN_DELTAPOS) {
        // A callback may destroy the button, which the system is not done with now.
        PostMessageW(GetHandle(), c_step,
                     static_cast<WPARAM>(reinterpret_cast<const NMUPDOWN*>(longer)->iDelta), 0);
        return TRUE;
    }
    if (message != c_step)
        return CControlWindow::OnMessage(message, wide, longer);
    if (CUpDown* const control = GetControl())
        GuardedCall([control, wide] { control->OnDeltaPos(static_cast<int>(wide)); });
    return 0;
}

} // namespace CommonUI
