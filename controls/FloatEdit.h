#pragma once

#include "ScalarEdit.h"

namespace CommonUI
{

/// An edit field for a real number. At first it holds 0, has the range of `float`, a step of 1 and the format
/// "%f". At first a typed number is read as far as it goes ("1.5 mm" is 1.5), with a decimal point
/// whatever the locale; infinity is clamped, not-a-number refused. See SetScanning for another way.
class COMMONUI_API CFloatEdit : public CScalarEdit<float>
{
public:
    CFloatEdit();
    ~CFloatEdit() override;

    /// The format that was set last, "%f" at first.
    const CStr& GetFormatString() const noexcept { return m_format; }
    /// Sets how the value is shown: one conversion of printf for real numbers (f, e, g or their capitals),
    /// and what text may follow it, such as u"%.2f mm", with "%%" for a percent sign. Text before the number,
    /// which could not be read back, is not accepted, except for blanks.
    /// @return false, with nothing changed and a warning in the diagnostics, for any other text
    bool SetFormatString(const CStr& format);

    bool WindowTextToValue(float& value) const override;
    CStr ValueToText(const float& value) const override;

private:
    CStr m_format = u"%f";
    CStr m_unit; // what the format shows behind the number
};

} // namespace CommonUI
