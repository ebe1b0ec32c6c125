#include "windows/dialogs/WinFormatSpecifierWindow.h"

#include "windows/detail/CallGuard.h"
#include "windows/detail/WinText.h"
#include "windows/dialogs/detail/WinDialogWindow.h"
#include "windows/edits/WinNumericEdit.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

using CDlg = CFormatSpecifierDlg;

// A list that takes the wheel only while it has the focus.
class CFormatList final : public CSubclass
{
public:
    using CSubclass::CSubclass;

protected:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override
    {
        if (message == WM_MOUSEWHEEL && GetFocus() != GetHandle())
            return SendMessageW(GetParent(GetHandle()), message, wide, longer);
        return PassOn(message, wide, longer);
    }
};

int WidthOf(HWND window)
{
    return GetScreenRect(window).GetWidth();
}

int HeightOf(HWND window)
{
    return GetScreenRect(window).GetHeight();
}

} // namespace

class CWinFormatSpecifierWindow::CWindow final : public CWinDialogWindow
{
public:
    CWindow(CWinFormatSpecifierWindow& view, HWND parent)
        : CWinDialogWindow(parent)
        , m_view(view)
        , m_listLabel(AddLabel(CDlg::c_format))
        , m_list(AddControl(L"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, CDlg::c_format))
        , m_countLabel(AddLabel(CDlg::c_count))
        , m_count(GetHandle(), CDlg::c_count, SRect{})
    {
        for (const int number : {CDlg::c_exampleCaption, CDlg::c_largeExample, CDlg::c_smallExample})
            AddControl(L"STATIC", SS_NOPREFIX, number);
        AddControl(L"BUTTON", BS_DEFPUSHBUTTON | WS_TABSTOP, CDlg::c_ok);
        AddControl(L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, CDlg::c_cancel);
    }

    CWinNumericEdit& GetCount() noexcept { return m_count; }

    void SetItems(const std::vector<SFormatItem>& items)
    {
        SendMessageW(m_list.GetHandle(), CB_RESETCONTENT, 0, 0);
        for (const SFormatItem& item : items) {
            const std::wstring text = ToWide(item.text);
            SendMessageW(m_list.GetHandle(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        }
        m_items = items;
    }
    void SelectItem(std::optional<std::size_t> index)
    {
        SendMessageW(m_list.GetHandle(), CB_SETCURSEL,
                     index ? static_cast<WPARAM>(*index) : static_cast<WPARAM>(-1), 0);
    }
    std::optional<std::size_t> GetSelectedItem() const
    {
        const LRESULT index = SendMessageW(m_list.GetHandle(), CB_GETCURSEL, 0, 0);
        return m_list.GetHandle() && index >= 0 ? std::optional(static_cast<std::size_t>(index))
                                                : std::nullopt;
    }

protected:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override
    {
        if (CDlg* const dialog = m_view.GetControl(); message == WM_DESTROY && dialog && dialog->IsOpen())
            GuardedCall([dialog] { dialog->OnCancel(); });
        return CWinDialogWindow::OnMessage(message, wide, longer);
    }
    CBaseDialog* GetDialog() const override { return m_view.GetControl(); }
    void OnControl(int control, int notification) override
    {
        if (control == CDlg::c_format && notification == CBN_SELCHANGE)
            m_view.GetControl()->OnCbnSelchangeFormatCombo();
    }
    void Arrange() override
    {
        const int margin = ToX(7), gap = ToY(4);
        const int fields =
            margin + std::max(Measure(GetText(m_listLabel)).cx, Measure(GetText(m_countLabel)).cx) + ToX(6);
        const int right = margin + GetContentWidth(fields - margin);
        int top = ToY(7);

        Place(m_list.GetHandle(), {fields, top, right, top + ToY(14 * 8)}); // with what it drops down
        const int height = HeightOf(m_list.GetHandle());
        Place(m_listLabel, {margin, top, fields, top + height});
        top += height + gap;
        Place(m_countLabel, {margin, top, fields, top + height});
        PlaceCount({fields, top, fields + ToX(56), top + height});
        top += height + 2 * gap;

        for (const int number : {CDlg::c_exampleCaption, CDlg::c_largeExample, CDlg::c_smallExample}) {
            Place(GetControl(number), {margin, top, right, top + ToY(9)});
            top += ToY(11);
        }
        top += 2 * gap;
        const int width = GetButtonsWidth();
        Place(GetControl(CDlg::c_cancel), {right - width, top, right, top + ToY(14)});
        Place(GetControl(CDlg::c_ok), {right - 2 * width - gap, top, right - width - gap, top + ToY(14)});
        Resize({right + margin, top + ToY(14 + 7)});
    }

private:
    static std::wstring GetText(HWND window)
    {
        wchar_t text[200] = {};
        GetWindowTextW(window, text, 200);
        return text;
    }
    int GetButtonsWidth() const
    {
        return std::max({GetButtonWidth(CDlg::c_ok), GetButtonWidth(CDlg::c_cancel), ToX(50)});
    }
    // As wide as the widest of what may come to stand in it.
    int GetContentWidth(int labels) const
    {
        LONG items = 0;
        for (const SFormatItem& item : m_items)
            items = std::max(items, Measure(ToWide(item.text)).cx);
        const LONG list = labels + items + GetSystemMetrics(SM_CXVSCROLL) + ToX(8);
        const LONG example = Measure(L"3.141592653590 -> 3.141592653590e-06 ").cx;
        return std::max<int>(
            {static_cast<int>(list), static_cast<int>(example), 2 * GetButtonsWidth() + ToY(4), ToX(150)});
    }
    // With the button, which takes its room from the field while it is shown.
    void PlaceCount(SRect place)
    {
        if (GetWindowLongW(m_count.GetSpinButton(), GWL_STYLE) & WS_VISIBLE)
            place.right -= WidthOf(m_count.GetSpinButton());
        Place(m_count.GetField(), place);
    }

    CWinFormatSpecifierWindow& m_view;
    HWND m_listLabel;
    CFormatList m_list;
    HWND m_countLabel;
    CWinNumericEdit m_count;
    std::vector<SFormatItem> m_items;
};

CWinFormatSpecifierWindow::CWinFormatSpecifierWindow(HWND__* parent)
    : m_window(std::make_unique<CWindow>(*this, parent))
{
}

CWinFormatSpecifierWindow::~CWinFormatSpecifierWindow()
{
    if (GetControl() && GetControl()->IsOpen())
        GetControl()->OnCancel();
}

void CWinFormatSpecifierWindow::Attach(CFormatSpecifierDlg& dialog)
{
    dialog.SetView(this);
    m_window->GetCount().Attach(dialog.GetCountEdit());
}

void CWinFormatSpecifierWindow::Show(bool visible)
{
    m_window->Show(visible);
}

void CWinFormatSpecifierWindow::SetModal(bool modal)
{
    m_window->SetModal(modal);
}

void CWinFormatSpecifierWindow::SetBusy(bool busy)
{
    m_window->SetBusy(busy);
}

void CWinFormatSpecifierWindow::SetCaption(const CStr& caption)
{
    SetWindowTextW(GetWindow(), ToWide(caption).c_str());
}

void CWinFormatSpecifierWindow::SetText(int control, const CStr& text)
{
    m_window->SetText(control, text);
}

void CWinFormatSpecifierWindow::Enable(int control, bool enable)
{
    m_window->Enable(control, enable);
}

void CWinFormatSpecifierWindow::SetItems(const std::vector<SFormatItem>& items)
{
    m_window->SetItems(items);
}

void CWinFormatSpecifierWindow::SelectItem(std::optional<std::size_t> index)
{
    m_window->SelectItem(index);
}

std::optional<std::size_t> CWinFormatSpecifierWindow::GetSelectedItem() const
{
    return m_window->GetSelectedItem();
}

HWND__* CWinFormatSpecifierWindow::GetWindow() const noexcept
{
    return m_window->GetHandle();
}

CWinFormatSpecifierDlg::CWinFormatSpecifierDlg(const CParameter& parameter, HWND__* parent)
    : CFormatSpecifierDlg(parameter)
    , m_window(parent)
{
    m_window.Attach(*this);
}

CWinFormatSpecifierDlg::~CWinFormatSpecifierDlg()
{
    EndDialog(c_cancel);
}

} // namespace CommonUI
