#include "windows/edits/WinNumericEdit.h"

#include "windows/detail/ControlWindow.h"
#include "windows/edits/detail/WinEditField.h"
#include "windows/edits/detail/WinSpinButton.h"
#include "windows/edits/detail/WinStepSizePopup.h"

namespace CommonUI
{

namespace
{

HWND MakeField(HWND parent, int identifier, const SRect& place)
{
    HWND__* const field =
        CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL,
                        place.left, place.top, place.GetWidth(), place.GetHeight(), parent,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(identifier)), GetModule(), nullptr);
    const LRESULT font = SendMessageW(parent, WM_GETFONT, 0, 0);
    const auto shown =
        font ? static_cast<WPARAM>(font) : reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT));
    SendMessageW(field, WM_SETFONT, shown, FALSE);
    return field;
}

} // namespace

CWinNumericEdit::CWinNumericEdit(HWND__* dialog, int identifier)
    : CWinNumericEdit(GetDlgItem(dialog, identifier), false)
{
}

CWinNumericEdit::CWinNumericEdit(HWND__* parent, int identifier, const SRect& place)
    : CWinNumericEdit(MakeField(parent, identifier, place), true)
{
}

CWinNumericEdit::CWinNumericEdit(HWND__* field, bool isOwned)
    : m_owned(isOwned ? field : nullptr)
    , m_field(std::make_unique<CWinEditField>(field))
    , m_spin(std::make_unique<CWinSpinButton>(field))
    , m_popup(std::make_unique<CWinStepSizePopup>(m_spin->GetHandle()))
{
    m_field->SetMoved([this] { m_spin->Follow(); });
    m_field->SetStepKeys([this](int by) { OnStepKey(by); });
}

CWinNumericEdit::~CWinNumericEdit()
{
    m_popup.reset();
    m_field->SetMoved({});
    m_spin.reset();
    const bool lives = m_field->GetHandle() != nullptr;
    m_field.reset();
    if (lives && m_owned)
        DestroyWindow(m_owned);
}

void CWinNumericEdit::Attach(CExEdit& edit, CUpDown& spin, CStepSizeCtrl& stepSize)
{
    edit.SetView(m_field.get());
    spin.SetView(m_spin.get());
    stepSize.SetView(m_popup.get());
}

void CWinNumericEdit::OnStepKey(int by) const
{
    const bool isReadOnly = !m_field->GetControl() || m_field->GetControl()->IsReadOnly();
    if (CStepSizeCtrl* const control = m_popup->GetControl(); control && !isReadOnly)
        control->GetButton(by > 0 ? CStepSizeBtn::EType::Larger : CStepSizeBtn::EType::Smaller).OnClicked();
}

HWND__* CWinNumericEdit::GetField() const noexcept
{
    return m_field->GetHandle();
}

HWND__* CWinNumericEdit::GetSpinButton() const noexcept
{
    return m_spin->GetHandle();
}

HWND__* CWinNumericEdit::GetStepSizePopup() const noexcept
{
    return m_popup->GetHandle();
}

CWinFloatEdit::CWinFloatEdit(HWND__* dialog, int identifier)
    : CWinNumericEdit(dialog, identifier)
{
    Attach(m_edit);
    m_edit.ShowSpinButton(0, true);
}

CWinFloatEdit::CWinFloatEdit(HWND__* parent, int identifier, const SRect& place)
    : CWinNumericEdit(parent, identifier, place)
{
    Attach(m_edit);
    m_edit.ShowSpinButton(0, true);
}

CWinFloatEdit::~CWinFloatEdit() = default;

CWinIntEdit::CWinIntEdit(HWND__* dialog, int identifier)
    : CWinNumericEdit(dialog, identifier)
{
    Attach(m_edit);
    m_edit.ShowSpinButton(0, true);
}

CWinIntEdit::CWinIntEdit(HWND__* parent, int identifier, const SRect& place)
    : CWinNumericEdit(parent, identifier, place)
{
    Attach(m_edit);
    m_edit.ShowSpinButton(0, true);
}

CWinIntEdit::~CWinIntEdit() = default;

} // namespace CommonUI
