#include "windows/dialogs/WinProgressWindow.h"

#include "windows/detail/CallGuard.h"
#include "windows/detail/WinText.h"
#include "windows/dialogs/detail/WinDialogWindow.h"

#include <commctrl.h>

#include <algorithm>

namespace CommonUI
{

class CWinProgressWindow::CWindow final : public CWinDialogWindow
{
public:
    CWindow(CWinProgressWindow& view, HWND parent)
        : CWinDialogWindow(parent)
        , m_view(view)
    {
        const INITCOMMONCONTROLSEX used{sizeof used, ICC_PROGRESS_CLASS};
        InitCommonControlsEx(&used);
        AddControl(L"STATIC", SS_NOPREFIX, ProgressTemplate::c_text);
        AddControl(PROGRESS_CLASSW, 0, ProgressTemplate::c_bar);
        m_cancel = std::make_unique<CCancel>(
            *this, AddControl(L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, ProgressTemplate::c_cancel));
    }

    void SetLayout(const SProgressLayout& layout)
    {
        m_layout = layout;
        Arrange();
    }

protected:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override
    {
        if (CProgressDialogBase* const dialog = m_view.GetControl();
            message != WM_PAINT || !dialog || MayPaint(*dialog))
            return CWinDialogWindow::OnMessage(message, wide, longer);
        ValidateRect(GetHandle(), nullptr);
        return 0;
    }
    CBaseDialog* GetDialog() const override { return m_view.GetControl(); }
    void Arrange() override
    {
        Resize({ToX(m_layout.dialog.cx), ToY(m_layout.dialog.cy)});
        const auto place = [this](int number, const SRect& rect, int more) {
            const SPoint corner{ToX(rect.left) - more / 2, ToY(rect.top)};
            Place(GetControl(number), {corner.x, corner.y, corner.x + ToX(rect.GetWidth()) + more,
                                       corner.y + ToY(rect.GetHeight())});
        };
        place(ProgressTemplate::c_text, m_layout.text, 0);
        place(ProgressTemplate::c_bar, m_layout.bar, 0);
        // What the text of the button needs more than the layout has.
        place(ProgressTemplate::c_cancel, m_layout.cancel,
              std::max(GetButtonWidth(ProgressTemplate::c_cancel) - ToX(m_layout.cancel.GetWidth()), 0));
    }

private:
    // The button, where Escape is to cancel in whatever loop runs.
    class CCancel final : public CSubclass
    {
    public:
        CCancel(CWindow& owner, HWND button)
            : CSubclass(button)
            , m_owner(owner)
        {
        }

    protected:
        LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override
        {
            if (message == WM_KEYDOWN && wide == VK_ESCAPE)
                return SendMessageW(m_owner.GetHandle(), message, wide, longer);
            return PassOn(message, wide, longer);
        }

    private:
        CWindow& m_owner;
    };

    static bool MayPaint(CProgressDialogBase& dialog)
    {
        bool may = true;
        GuardedCall([&] { may = dialog.OnPaint(); });
        return may;
    }

    CWinProgressWindow& m_view;
    SProgressLayout m_layout;
    std::unique_ptr<CCancel> m_cancel;
};

CWinProgressWindow::CWinProgressWindow(HWND__* parent)
    : m_window(std::make_unique<CWindow>(*this, parent))
{
    SetLayout({});
}

CWinProgressWindow::~CWinProgressWindow() = default;

void CWinProgressWindow::Show(bool visible)
{
    m_window->Show(visible);
}

void CWinProgressWindow::SetModal(bool modal)
{
    m_window->SetModal(modal);
}

void CWinProgressWindow::SetBusy(bool busy)
{
    m_window->SetBusy(busy);
}

void CWinProgressWindow::SetCaption(const CStr& caption)
{
    SetWindowTextW(GetWindow(), ToWide(caption).c_str());
}

void CWinProgressWindow::SetText(int control, const CStr& text)
{
    m_window->SetText(control, text);
}

void CWinProgressWindow::Enable(int control, bool enable)
{
    m_window->Enable(control, enable);
}

void CWinProgressWindow::SetBarRange(int minimum, int maximum)
{
    SendMessageW(m_window->GetControl(ProgressTemplate::c_bar), PBM_SETRANGE32, static_cast<WPARAM>(minimum),
                 std::max(maximum, minimum + 1));
}

void CWinProgressWindow::SetBarPosition(int position)
{
    SendMessageW(m_window->GetControl(ProgressTemplate::c_bar), PBM_SETPOS, static_cast<WPARAM>(position), 0);
}

SSize CWinProgressWindow::MeasureText(const CStr& text, int width) const
{
    const SIZE units = m_window->GetUnits();
    SIZE size = m_window->Measure(ToWide(text), MulDiv(width, units.cx, 4));
    // The Cancel button below must stay on the screen.
    size.cy = std::min<LONG>(size.cy, GetSystemMetrics(SM_CYSCREEN) / 2);
    return {static_cast<int>((size.cx * 4 + units.cx - 1) / units.cx),
            static_cast<int>((size.cy * 8 + units.cy - 1) / units.cy)};
}

void CWinProgressWindow::SetLayout(const SProgressLayout& layout)
{
    m_window->SetLayout(layout);
}

void CWinProgressWindow::SetIcon(const void* icon)
{
    SendMessageW(GetWindow(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
}

void CWinProgressWindow::BringParentToTop()
{
    if (HWND__* const below = ::GetWindow(GetWindow(), GW_OWNER))
        BringWindowToTop(below);
}

HWND__* CWinProgressWindow::GetWindow() const noexcept
{
    return m_window->GetHandle();
}

} // namespace CommonUI
