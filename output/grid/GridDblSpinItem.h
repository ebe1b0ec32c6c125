#pragma once

#include "../../export/Export.h"
#include "GridItem.h"

namespace CommonUI
{

/// A cell that edits a number, with two arrows where they are wanted.
class COMMONUI_API CGridDblSpinItem : public CGridItem
{
public:
    /// An R8 without arrows.
    explicit CGridDblSpinItem(double value);
    ~CGridDblSpinItem() override;

    /// Gives the item its arrows and their range, or takes the arrows away; ends in the wrong order are
    /// exchanged. Only for a value of type I2, I4, R8, UI1, UI2, Int or UInt; does nothing for any other.
    void EnableSpinControl(bool enable, int minimum, int maximum);
    /// With arrows, what is typed is brought into their range.
    bool OnEndEdit(const CStr& text) override;
};

} // namespace CommonUI
