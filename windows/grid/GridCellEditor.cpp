#include "windows/grid/detail/GridCellEditor.h"

#include "controls/WheelSteps.h"
#include "windows/detail/Arrows.h"
#include "windows/detail/WinText.h"

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace CommonUI
{

namespace
{

// Within the frame of the focus.
SRect Within(const SRect& cell)
{
    return cell.Shrunk(2, 2);
}

// As large as the cell: a field that is too narrow for its text scrolls, and stays so when it is made wider.
HWND MakeWindow(const wchar_t* name, DWORD style, HWND grid, HFONT font, const SRect& cell)
{
    const SRect place = Within(cell);
    HWND__* const window =
        CreateWindowExW(0, name, L"", WS_CHILD | style, place.left, place.top, place.GetWidth(),
                        place.GetHeight(), grid, nullptr, GetModule(), nullptr);
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    return window;
}

void MoveTo(HWND window, const SRect& rect)
{
    SetWindowPos(window, HWND_TOP, rect.left, rect.top, rect.GetWidth(), rect.GetHeight(),
                 SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

// A text to type, with two arrows where they are asked for.
class CGridFieldEditor final : public CGridCellEditor
{
public:
    CGridFieldEditor(const SGridEdit& edit, HWND grid, HFONT font, FDone done)
        : CGridCellEditor(MakeWindow(L"EDIT", ES_AUTOHSCROLL | (IsSpin(edit) ? ES_RIGHT : ES_LEFT), grid,
                                     font, edit.rect),
                          std::move(done))
        , m_edit(edit)
    {
        SetText(edit.text);
        if (!edit.typed.IsEmpty())
            SendMessageW(GetHandle(), EM_REPLACESEL, TRUE,
                         reinterpret_cast<LPARAM>(ToWide(edit.typed).c_str()));
        if (IsSpin(edit))
            m_arrows = MakeArrows(grid);
    }
    ~CGridFieldEditor() override
    {
        if (IsWindow(m_arrows))
            DestroyWindow(m_arrows);
    }

    void Place(const SRect& rect) override
    {
        SRect field = Within(rect);
        if (m_arrows) {
            const int width = std::min(GetSystemMetrics(SM_CXVSCROLL), field.GetWidth() / 2);
            MoveTo(m_arrows, {field.right - width, field.top, field.right, field.bottom});
            field.right -= width;
        }
        MoveTo(GetHandle(), field);
    }
    void Hide() override
    {
        CGridCellEditor::Hide();
        if (m_arrows)
            ShowWindow(m_arrows, SW_HIDE);
    }
    bool OnNotify(UINT message, WPARAM, LPARAM longer) override
    {
        if (message == WM_COMMAND)
            return reinterpret_cast<HWND>(longer) == GetHandle();
        const auto* const notice = reinterpret_cast<const NMUPDOWN*>(longer);
        if (message != WM_NOTIFY || notice->hdr.hwndFrom != m_arrows)
            return false;
        if (notice->hdr.code == static_cast<UINT>(UDN_DELTAPOS))
            Step(notice->iDelta > 0 ? 1 : -1);
        return true;
    }

protected:
    bool OnKey(WPARAM code) override
    {
        if (m_arrows && (code == VK_UP || code == VK_DOWN)) {
            Step(code == VK_UP ? 1 : -1);
            return true;
        }
        return CGridCellEditor::OnKey(code);
    }
    bool OnCharacter(wchar_t character) override
    {
        const CStr& valid = m_edit.rules.validCharacters;
        const bool isText = character >= L' ';
        return (isText && !valid.IsEmpty() && valid.Find(static_cast<char16_t>(character)) == CStr::npos) ||
               CGridCellEditor::OnCharacter(character);
    }
    bool OnWheel(WPARAM wide) override
    {
        if (!m_arrows)
            return false;
        const auto steps = m_wheel.Turn(GET_WHEEL_DELTA_WPARAM(wide), (LOWORD(wide) & MK_CONTROL) != 0);
        if (steps && *steps != 0)
            Step(*steps);
        return steps.has_value();
    }

private:
    static bool IsSpin(const SGridEdit& edit) { return edit.kind == SGridEdit::EKind::Spin; }

    void SetText(const CStr& text)
    {
        SetWindowTextW(GetHandle(), ToWide(text).c_str());
        SendMessageW(GetHandle(), EM_SETSEL, 0, -1);
    }
    void Step(int steps) { SetText(StepGridEdit(m_edit, GetText(), steps)); }

    SGridEdit m_edit;
    HWND m_arrows = nullptr;
    CWheelSteps m_wheel;
};

// A list that drops down over the cell. It is done when the list is.
class CGridListEditor final : public CGridCellEditor
{
public:
    CGridListEditor(const SGridEdit& edit, HWND grid, HFONT font, FDone done)
        : CGridCellEditor(MakeWindow(L"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL, grid, font, edit.rect),
                          std::move(done))
    {
        for (const CStr& option : edit.options)
            Send(CB_ADDSTRING, 0, option);
        Widen(edit.options, font);
        const auto current = std::ranges::find(edit.options, edit.text);
        if (current != edit.options.end())
            Choose(current - edit.options.begin());
        const LRESULT typed =
            edit.typed.IsEmpty() ? CB_ERR : Send(CB_FINDSTRING, static_cast<WPARAM>(-1), edit.typed);
        if (typed != CB_ERR)
            Choose(typed);
    }

    void Place(const SRect& rect) override
    {
        const SRect field = Within(rect);
        // Its height is that of its line and a frame; the one that it is given is that of the list, too.
        constexpr int c_frame = 6, c_lines = 12;
        const int line = std::max(field.GetHeight() - c_frame, 1);
        SendMessageW(GetHandle(), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), line);
        MoveTo(GetHandle(),
               {field.left, field.top, field.right, field.bottom + c_lines * (field.GetHeight() + 1)});
    }
    void DropDown() override
    {
        m_end = EGridEditEnd::Cancelled;
        SendMessageW(GetHandle(), CB_SHOWDROPDOWN, TRUE, 0);
    }
    bool OnNotify(UINT message, WPARAM wide, LPARAM longer) override
    {
        if (message != WM_COMMAND || reinterpret_cast<HWND>(longer) != GetHandle())
            return false;
        if (HIWORD(wide) == CBN_SELENDOK)
            m_end = EGridEditEnd::Taken;
        else if (HIWORD(wide) == CBN_CLOSEUP) // the list goes on for a while
            PostMessageW(GetParent(GetHandle()), c_listClosed, static_cast<WPARAM>(m_end), longer);
        return true;
    }

protected:
    bool OnKey(WPARAM code) override
    {
        // Enter and Escape are the list's while it is open.
        return !SendMessageW(GetHandle(), CB_GETDROPPEDSTATE, 0, 0) && CGridCellEditor::OnKey(code);
    }

private:
    LRESULT Send(UINT message, WPARAM wide, const CStr& text) const
    {
        return SendMessageW(GetHandle(), message, wide, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
    }
    // The list is as wide as the widest option, however narrow the cell is.
    void Widen(const std::vector<CStr>& options, HFONT font) const
    {
        HDC__* const context = GetDC(GetHandle());
        void* const before = SelectObject(context, font);
        LONG width = 0;
        for (const CStr& option : options) {
            const std::wstring text = ToWide(option);
            SIZE size{};
            GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(text.size()), &size);
            width = std::max(width, size.cx);
        }
        SelectObject(context, before);
        ReleaseDC(GetHandle(), context);
        const int around = GetSystemMetrics(SM_CXVSCROLL) + 4 * GetSystemMetrics(SM_CXEDGE);
        SendMessageW(GetHandle(), CB_SETDROPPEDWIDTH, static_cast<WPARAM>(width + around), 0);
    }
    void Choose(LRESULT option) { SendMessageW(GetHandle(), CB_SETCURSEL, static_cast<WPARAM>(option), 0); }

    EGridEditEnd m_end = EGridEditEnd::Cancelled; // taken once something has been chosen
};

} // namespace

std::unique_ptr<CGridCellEditor> CGridCellEditor::Make(const SGridEdit& edit, HWND grid, HFONT font,
                                                       FDone done)
{
    if (edit.kind == SGridEdit::EKind::List)
        return std::make_unique<CGridListEditor>(edit, grid, font, std::move(done));
    return std::make_unique<CGridFieldEditor>(edit, grid, font, std::move(done));
}

CGridCellEditor::CGridCellEditor(HWND window, FDone done)
    : CSubclass(window)
    , m_done(std::move(done))
{
}

CGridCellEditor::~CGridCellEditor()
{
    m_done = nullptr;
    if (GetHandle())
        DestroyWindow(GetHandle());
}

CStr CGridCellEditor::GetText() const
{
    return ReadWindowText(GetHandle());
}

void CGridCellEditor::Finish(EGridEditEnd end)
{
    if (const FDone done = std::exchange(m_done, nullptr))
        done(end);
}

bool CGridCellEditor::OnKey(WPARAM code)
{
    switch (code) {
    case VK_RETURN:
        Finish(EGridEditEnd::Taken);
        return true;
    case VK_ESCAPE:
        Finish(EGridEditEnd::Cancelled);
        return true;
    case VK_TAB:
        Finish(IsHeld(VK_SHIFT) ? EGridEditEnd::Previous : EGridEditEnd::Next);
        return true;
    default:
        return false;
    }
}

// For those that end the editor a field of one line would sound a warning.
bool CGridCellEditor::OnCharacter(wchar_t character)
{
    return character == L'\r' || character == L'\t' || character == VK_ESCAPE;
}

LRESULT CGridCellEditor::OnMessage(UINT message, WPARAM wide, LPARAM longer)
{
    const std::weak_ptr<void> life = GetLife();
    switch (message) {
    case WM_GETDLGCODE:
        return PassOn(message, wide, longer) | DLGC_WANTALLKEYS;
    case WM_KEYDOWN:
        if (OnKey(wide))
            return 0;
        break;
    case WM_CHAR:
        if (OnCharacter(static_cast<wchar_t>(wide)))
            return 0;
        break;
    case WM_MOUSEWHEEL:
        if (OnWheel(wide))
            return 0;
        break;
    case WM_KILLFOCUS: {
        const LRESULT answer = PassOn(message, wide, longer);
        if (!life.expired())
            Finish(EGridEditEnd::Taken);
        return answer;
    }
    default:
        break;
    }
    return PassOn(message, wide, longer);
}

} // namespace CommonUI
