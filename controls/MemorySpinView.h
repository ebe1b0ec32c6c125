#pragma once

#include "UpDown.h"

namespace CommonUI
{

/// A spin button without a display.
class COMMONUI_API CMemorySpinView : public CSpinView
{
public:
    ~CMemorySpinView() override;

    SRect GetScreenRect() const override { return rect; }
    void SetVisible(bool visible) override { shown = visible; }
    void ShowHint(const CStr& text) override { hint = text; }

    SRect rect{};       ///< where the test puts the button, in pixels of the screen
    bool shown = false; ///< as the control wants it
    CStr hint{};        ///< the last one
};

} // namespace CommonUI
