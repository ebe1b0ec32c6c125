#include "controls/ExEdit.h"

namespace CommonUI
{

CEditView::~CEditView() = default;

CExEdit::CExEdit(bool wantsEnter, bool validate)
    : m_validate(validate)
    , m_wantsEnter(wantsEnter)
{
}

CExEdit::~CExEdit() = default;

void CExEdit::SetView(CEditView* view)
{
    Link(*this, view);
    if (!view)
        return;
    view->SetReadOnly(m_readOnly);
    OnViewSet();
}

void CExEdit::SetReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    if (GetView())
        GetView()->SetReadOnly(readOnly);
}

bool CExEdit::OnKey(const SKey& key)
{
    if (const auto filter = m_keyFilter.Share<bool, const SKey&>()) {
        const CWatch watch(*this);
        if (!filter->Invoke(key) || watch.IsGone())
            return true;
    }
    return HandleKey(key);
}

bool CExEdit::OnMouseWheel(int, bool)
{
    return false;
}

void CExEdit::OnFocusLost()
{
    if (m_validate)
        Validate();
}

bool CExEdit::ClaimsAllKeys(bool byDefault) noexcept
{
    m_allKeysByDefault = byDefault;
    return byDefault || (m_wantsEnter && !m_readOnly);
}

void CExEdit::Validate()
{
    ClearModified();
}

std::optional<SEditNumber> CExEdit::GetNumber() const
{
    return std::nullopt;
}

bool CExEdit::HandleKey(const SKey& key)
{
    switch (key.key) {
    case EKey::Tab:
        // With Ctrl or Alt it is a key of the dialog or the desktop.
        if (key.control || key.alt || !GetView())
            return false;
        GetView()->MoveFocus(key.shift);
        return true;
    case EKey::Enter:
    case EKey::Escape:
        return FinishInput(key);
    default:
        return false;
    }
}

bool CExEdit::FinishInput(const SKey& key)
{
    if (!m_wantsEnter || m_readOnly || (key.key == EKey::Enter && m_allKeysByDefault))
        return false;
    const CWatch watch(*this);
    if (m_validate)
        Validate();
    if (!watch.IsGone() && GetView())
        GetView()->SelectAll();
    return true;
}

void CExEdit::OnViewSet()
{
}

} // namespace CommonUI
