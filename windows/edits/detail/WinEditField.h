#pragma once

#include "controls/ExEdit.h"
#include "windows/detail/ControlWindow.h"
#include "windows/edits/detail/EditProvider.h"

#include <functional>

namespace CommonUI
{

/// Shows a CExEdit in an edit field of the system, of which it hears all messages.
class CWinEditField final : public CSubclass, public CEditView
{
public:
    explicit CWinEditField(HWND field);
    ~CWinEditField() override;

    CStr GetText() const override;
    void SetText(const CStr& text) override;
    void SelectAll() override;
    bool HasFocus() const override { return GetHandle() && GetFocus() == GetHandle(); }
    void SetReadOnly(bool readOnly) override;
    void MoveFocus(bool backward) override;

    /// What a user enters by other means than keys.
    void EnterText(const CStr& text);
    /// Calls `moved` when the field has another place, is shown or hidden, enabled or disabled.
    void SetMoved(std::function<void()> moved) { m_moved = std::move(moved); }
    /// Calls `step` with +1 or -1 for Ctrl+Page Up and Ctrl+Page Down, which make steps larger and smaller.
    void SetStepKeys(std::function<void(int)> step) { m_stepKeys = std::move(step); }

protected:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override;

private:
    bool TakeMessage(UINT message, WPARAM wide);
    bool TakeKey(WPARAM key);
    bool TakeCharacter(WPARAM character);
    bool Offer(const SKey& key);
    void SelectWordBefore();
    bool TakeWheel(WPARAM wide);
    void AfterMessage(UINT message);

    CEditAutomation m_automation{*this};
    std::function<void()> m_moved;
    std::function<void(int)> m_stepKeys;
    bool m_keyUsed = false; // of the last key, of which a control character may be on its way
};

} // namespace CommonUI
