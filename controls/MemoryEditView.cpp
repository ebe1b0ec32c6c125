#include "controls/MemoryEditView.h"

#include <algorithm>

namespace CommonUI
{

CMemoryEditView::~CMemoryEditView()
{
    if (m_next)
        m_next->m_previous = nullptr;
    if (m_previous)
        m_previous->m_next = nullptr;
}

void CMemoryEditView::SetText(const CStr& text)
{
    m_text = text;
    MoveCaret(0, false);
}

void CMemoryEditView::SelectAll()
{
    m_anchor = 0;
    m_caret = m_text.GetLength();
}

void CMemoryEditView::MoveFocus(bool backward)
{
    CMemoryEditView* const target = backward ? m_previous : m_next;
    SetFocus(false);
    if (target)
        target->SetFocus(true);
}

void CMemoryEditView::SetNext(CMemoryEditView& next)
{
    if (m_next)
        m_next->m_previous = nullptr;
    if (next.m_previous)
        next.m_previous->m_next = nullptr;
    m_next = &next;
    next.m_previous = this;
}

void CMemoryEditView::SetFocus(bool focus)
{
    const bool lost = m_focus && !focus;
    m_focus = focus;
    if (lost && GetControl())
        GetControl()->OnFocusLost();
}

bool CMemoryEditView::Press(const SKey& key)
{
    if (GetControl() && GetControl()->OnKey(key))
        return true;
    return Edit(key);
}

void CMemoryEditView::Type(std::u16string_view text)
{
    for (const char16_t unit : text)
        Press(SKey{.key = EKey::Character, .character = unit});
}

CStr CMemoryEditView::GetSelectedText() const
{
    const auto [from, to] = std::minmax(m_anchor, m_caret);
    return m_text.Mid(from, to - from);
}

bool CMemoryEditView::Edit(const SKey& key)
{
    const auto [from, to] = std::minmax({m_anchor, m_caret});
    const std::size_t before = m_caret - (m_caret > 0 ? 1 : 0);
    const std::size_t after = std::min(m_caret + 1, m_text.GetLength());
    switch (key.key) {
    case EKey::Character:
        return Replace(from, to, {&key.character, 1});
    case EKey::Backspace:
        return Replace(from == to ? before : from, to, {});
    case EKey::Delete:
        return Replace(from, from == to ? after : to, {});
    case EKey::Left:
        MoveCaret(before, key.shift);
        return true;
    case EKey::Right:
        MoveCaret(after, key.shift);
        return true;
    case EKey::Home:
        MoveCaret(0, key.shift);
        return true;
    case EKey::End:
        MoveCaret(m_text.GetLength(), key.shift);
        return true;
    default:
        return false;
    }
}

void CMemoryEditView::MoveCaret(std::size_t position, bool select)
{
    m_caret = position;
    if (!select)
        m_anchor = position;
}

// Lets the user replace a part of the text, if that is possible.
bool CMemoryEditView::Replace(std::size_t from, std::size_t to, std::u16string_view text)
{
    if (m_readOnly)
        return false;
    CStr changed = m_text.Left(from);
    changed += text;
    changed += m_text.Mid(to);
    m_text = changed;
    MoveCaret(from + text.size(), false);
    if (GetControl())
        GetControl()->OnTextEdited();
    return true;
}

} // namespace CommonUI
