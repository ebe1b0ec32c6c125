#include "windows/edits/detail/WinEditField.h"

#include "windows/detail/CallGuard.h"
#include "windows/detail/WinText.h"

#include <optional>

namespace CommonUI
{

namespace
{

constexpr struct {
    WPARAM code;
    EKey key;
} c_keys[] = {
    {VK_TAB, EKey::Tab},   {VK_RETURN, EKey::Enter},   {VK_ESCAPE, EKey::Escape}, {VK_UP, EKey::Up},
    {VK_DOWN, EKey::Down}, {VK_LEFT, EKey::Left},      {VK_RIGHT, EKey::Right},   {VK_HOME, EKey::Home},
    {VK_END, EKey::End},   {VK_BACK, EKey::Backspace}, {VK_DELETE, EKey::Delete},
};

constexpr WPARAM c_controlBackspace = 127; // the character that comes with the key

// None for a key that writes a character, which comes as one.
std::optional<EKey> ToNamedKey(WPARAM code)
{
    for (const auto& row : c_keys)
        if (row.code == code)
            return row.key;
    const bool writes = MapVirtualKeyW(static_cast<UINT>(code), MAPVK_VK_TO_CHAR) != 0 || code == VK_PACKET;
    return writes ? std::nullopt : std::optional(EKey::Other);
}

SKey WithModifiers(SKey key)
{
    key.shift = IsHeld(VK_SHIFT);
    key.control = IsHeld(VK_CONTROL);
    key.alt = IsHeld(VK_MENU);
    return key;
}

// The outermost window whose tab stops are one order.
HWND FindDialog(HWND field)
{
    HWND__* dialog = GetParent(field);
    while ((GetWindowLongW(dialog, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) &&
           (GetWindowLongW(dialog, GWL_STYLE) & WS_CHILD))
        dialog = GetParent(dialog);
    return dialog;
}

bool IsDialog(HWND window)
{
    constexpr ULONG_PTR c_dialog = 32770; // the class of all dialogs
    return GetClassLongPtrW(window, GCW_ATOM) == c_dialog;
}

} // namespace

CWinEditField::CWinEditField(HWND field)
    : CSubclass(field)
{
}

CWinEditField::~CWinEditField() = default;

CStr CWinEditField::GetText() const
{
    return ReadWindowText(GetHandle());
}

void CWinEditField::SetText(const CStr& text)
{
    SetWindowTextW(GetHandle(), ToWide(text).c_str());
}

void CWinEditField::EnterText(const CStr& text)
{
    CExEdit* const control = GetControl();
    SetText(text);
    if (!control)
        return;
    control->OnTextEdited();
    GuardedCall([control] { control->Validate(); });
}

void CWinEditField::SelectAll()
{
    SendMessageW(GetHandle(), EM_SETSEL, 0, -1);
}

void CWinEditField::SetReadOnly(bool readOnly)
{
    SendMessageW(GetHandle(), EM_SETREADONLY, readOnly, 0);
}

void CWinEditField::MoveFocus(bool backward)
{
    HWND__* const dialog = FindDialog(GetHandle());
    HWND__* const next = GetNextDlgTabItem(dialog, GetHandle(), backward);
    if (!next)
        return;
    if (IsDialog(dialog)) {
        // Which selects the text there, and moves the mark of the default button.
        SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
        return;
    }
    SetFocus(next);
    if (SendMessageW(next, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL)
        SendMessageW(next, EM_SETSEL, 0, -1);
}

// @return whether the control has dealt with it; the object may be gone then
bool CWinEditField::Offer(const SKey& key)
{
    CExEdit* const control = GetControl();
    // A callback that throws has used the key: Enter must not close the dialog then.
    bool used = true;
    GuardedCall([&] { used = control->OnKey(WithModifiers(key)); });
    return used;
}

bool CWinEditField::TakeKey(WPARAM code)
{
    if ((code == VK_PRIOR || code == VK_NEXT) && IsHeld(VK_CONTROL) && m_stepKeys) {
        GuardedCall([step = m_stepKeys, by = code == VK_PRIOR ? 1 : -1] { step(by); });
        return true;
    }
    const std::optional<EKey> key = ToNamedKey(code);
    m_keyUsed = false;
    if (!key)
        return false;
    const std::weak_ptr<void> life = GetLife();
    const bool used = Offer({.key = *key});
    if (!life.expired())
        m_keyUsed = used;
    return used;
}

bool CWinEditField::TakeCharacter(WPARAM character)
{
    constexpr WPARAM c_controlA = 1;
    const bool isControl = character < L' ' || character == c_controlBackspace;
    if (!isControl)
        return Offer({.key = EKey::Character, .character = static_cast<char16_t>(character)});
    if (character == c_controlA)
        SelectAll();
    // For which a field of one line would sound a warning.
    const bool ends =
        character == L'\r' || character == L'\n' || character == L'\t' || character == VK_ESCAPE;
    return m_keyUsed || ends || character == c_controlA;
}

bool CWinEditField::TakeWheel(WPARAM wide)
{
    bool used = true;
    GuardedCall([&] {
        used = GetControl()->OnMouseWheel(GET_WHEEL_DELTA_WPARAM(wide), (LOWORD(wide) & MK_CONTROL) != 0);
    });
    return used;
}

bool CWinEditField::TakeMessage(UINT message, WPARAM wide)
{
    if (!GetControl())
        return false;
    switch (message) {
    case WM_KEYDOWN:
        return TakeKey(wide);
    case WM_CHAR:
        return TakeCharacter(wide);
    case WM_MOUSEWHEEL:
        return TakeWheel(wide);
    default:
        return false;
    }
}

void CWinEditField::AfterMessage(UINT message)
{
    // The system marks what the user has changed, and nothing that a program sets.
    if (PassOn(EM_GETMODIFY, 0, 0)) {
        PassOn(EM_SETMODIFY, FALSE, 0);
        if (GetControl())
            GetControl()->OnTextEdited();
    }
    if (m_moved && (message == WM_ENABLE || message == WM_WINDOWPOSCHANGED))
        m_moved();
    if (message == WM_KILLFOCUS && GetControl())
        GuardedCall([control = GetControl()] { control->OnFocusLost(); });
}

// What is selected already stays so.
void CWinEditField::SelectWordBefore()
{
    DWORD start = 0, end = 0;
    PassOn(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    if (start != end)
        return;
    const CStr text = GetText();
    const auto skip = [&](bool blanks) {
        while (start > 0 && (text[start - 1] == u' ') == blanks)
            --start;
    };
    skip(true);
    skip(false);
    PassOn(EM_SETSEL, start, static_cast<LPARAM>(end));
}

LRESULT CWinEditField::OnMessage(UINT message, WPARAM wide, LPARAM longer)
{
    if (TakeMessage(message, wide))
        return 0;
    if (message == WM_CHAR && wide == c_controlBackspace) { // the system would write the character
        SelectWordBefore();
        message = WM_CLEAR;
        wide = 0;
    }
    if (message == WM_DESTROY)
        m_automation.End();
    const LRESULT provider = message == WM_GETOBJECT ? m_automation.Answer(wide, longer) : 0;
    if (provider != 0)
        return provider;
    const std::weak_ptr<void> life = GetLife();
    LRESULT result = PassOn(message, wide, longer);
    if (life.expired() || !GetHandle())
        return result;
    if (message == WM_GETDLGCODE && GetControl()) {
        const bool all = GetControl()->ClaimsAllKeys((result & DLGC_WANTALLKEYS) != 0);
        result = all ? result | DLGC_WANTALLKEYS : result & ~static_cast<LRESULT>(DLGC_WANTALLKEYS);
    }
    AfterMessage(message);
    return result;
}

} // namespace CommonUI
