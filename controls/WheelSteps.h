#pragma once

#include "../export/Export.h"

#include <optional>

namespace CommonUI
{

/// The rule of the mouse wheel in fields that hold a number: with Ctrl held it steps, one step for each
/// notch; without, the wheel is not the field's and scrolls the page. A finer wheel gathers its turns until
/// they make a notch.
class COMMONUI_API CWheelSteps
{
public:
    /// What a wheel sends for a notch.
    COMMONUI_CONSTANT int c_notch = 120;

    /// @param delta positive away from the user
    /// @return the steps to make, 0 included; empty when the turn is not the field's
    std::optional<int> Turn(int delta, bool control);

private:
    int m_rest = 0; // what was turned since the last full notch
};

} // namespace CommonUI
