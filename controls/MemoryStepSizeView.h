#pragma once

#include "StepSizeCtrl.h"

namespace CommonUI
{

/// A pop-up without a display.
class COMMONUI_API CMemoryStepSizeView : public CStepSizeView
{
public:
    ~CMemoryStepSizeView() override;

    void Place(const SRect& screen, const SRect& upper, const SRect& lower) override;
    void Hide() override { shown = false; }
    void SetToolTip(const CStr& text) override { toolTip = text; }

    bool shown = false;  ///< as the control wants it
    SRect rect{};        ///< where it was placed last, in pixels of the screen
    SRect upperButton{}; ///< in pixels of the pop-up
    SRect lowerButton{}; ///< in pixels of the pop-up
    CStr toolTip{};      ///< the one set last
};

} // namespace CommonUI
