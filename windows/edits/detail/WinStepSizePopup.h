#pragma once

#include "controls/StepSizeCtrl.h"
#include "windows/detail/ControlWindow.h"

#include <array>
#include <memory>
#include <optional>

namespace CommonUI
{

/// Shows a CStepSizeCtrl. It never takes the focus, and closes when the window of the spin button moves,
/// hides or is left. Where the monitor ends beside the spin button, it slides out of the left edge.
class CWinStepSizePopup final : public CControlWindow, public CStepSizeView
{
public:
    explicit CWinStepSizePopup(HWND spin);
    ~CWinStepSizePopup() override;

    void Place(const SRect& screen, const SRect& upper, const SRect& lower) override;
    void Hide() override;
    void SetToolTip(const CStr& text) override;

protected:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override;

private:
    class COwnerWatch;

    bool HasRoom(const SRect& screen) const;
    void Draw(HDC context) const;
    void DrawHalf(HDC context, CStepSizeBtn::EType type) const;
    std::optional<CStepSizeBtn::EType> FindHalf(SPoint point) const;
    void Point(std::optional<CStepSizeBtn::EType> half);
    void Release(SPoint point);

    HWND m_spin;
    std::unique_ptr<COwnerWatch> m_watch;
    HWND m_tip;
    std::array<SRect, 2> m_halves{};
    std::optional<CStepSizeBtn::EType> m_hot; // under the pointer
    std::optional<CStepSizeBtn::EType> m_pressed;
};

} // namespace CommonUI
