#pragma once

#include "controls/UpDown.h"
#include "windows/detail/ControlWindow.h"

#include <memory>

namespace CommonUI
{

/// Shows a CUpDown by the two arrows of the system, to the right of an edit field that it takes their room
/// from. It goes where the field goes.
class CWinSpinButton final : public CControlWindow, public CSpinView
{
public:
    explicit CWinSpinButton(HWND field);
    ~CWinSpinButton() override;

    SRect GetScreenRect() const override { return CommonUI::GetScreenRect(GetHandle()); }
    void SetVisible(bool visible) override;
    void SetEnabled(bool enabled) override;

    /// Puts the button beside its field, shown and enabled as that is.
    void Follow();

protected:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override;

private:
    class CArrows;

    int GetWidth() const;
    void Widen(int by);
    void OnPointer(bool entered);

    HWND m_field;
    std::unique_ptr<CArrows> m_arrows;
    int m_taken = 0; // the width that it has from the field
    bool m_visible = false;
    bool m_enabled = true;
};

} // namespace CommonUI
