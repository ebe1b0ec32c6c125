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

    bool shown = false;
    SRect rect{};
    SRect upperButton{};
    SRect lowerButton{};
    CStr toolTip{};
};

} // namespace CommonUI
