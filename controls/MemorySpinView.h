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

    SRect rect{};
    bool shown = false;
    CStr hint{}; ///< the last one
};

} // namespace CommonUI
