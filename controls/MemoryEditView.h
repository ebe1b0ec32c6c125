#pragma once

#include "ExEdit.h"

#include <cstddef>

namespace CommonUI
{

/// An edit field without a display: a text with a caret and a selection, which takes keys as a field on the
/// screen does. Fields that are linked with SetNext pass the focus on. For tests, and for programs that play
/// input back.
class COMMONUI_API CMemoryEditView : public CEditView
{
public:
    ~CMemoryEditView() override;

    CStr GetText() const override { return m_text; }
    /// Puts the caret before the text.
    void SetText(const CStr& text) override;
    void SelectAll() override;
    bool HasFocus() const override { return m_focus; }
    void SetReadOnly(bool readOnly) override { m_readOnly = readOnly; }
    /// Whether keys leave the text as it is.
    bool IsReadOnly() const noexcept { return m_readOnly; }
    void MoveFocus(bool backward) override;

    /// Makes `next` the tab stop after this one. Neither is owned; both forget each other when one goes.
    void SetNext(CMemoryEditView& next);
    /// Gives the focus or takes it; the control hears of a loss. The other fields keep theirs.
    void SetFocus(bool focus);
    /// Presses a key, without asking for the focus. @return false if neither the control nor the field uses
    /// it, so that a dialog would get it
    bool Press(const SKey& key);
    /// Presses a key without modifiers. See above.
    bool Press(EKey key) { return Press(SKey{.key = key}); }
    /// Writes the characters one after the other.
    void Type(std::u16string_view text);

    /// Where the caret is: how many code units are in front of it.
    std::size_t GetCaret() const noexcept { return m_caret; }
    /// Empty where nothing is selected.
    CStr GetSelectedText() const;

private:
    bool Edit(const SKey& key);
    void MoveCaret(std::size_t position, bool select);
    bool Replace(std::size_t from, std::size_t to, std::u16string_view text);

    CStr m_text;
    std::size_t m_anchor = 0; // the end of the selection where the caret is not
    std::size_t m_caret = 0;
    bool m_focus = false;
    bool m_readOnly = false;
    CMemoryEditView* m_next = nullptr;
    CMemoryEditView* m_previous = nullptr;
};

} // namespace CommonUI
