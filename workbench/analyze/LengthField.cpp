#include "workbench/analyze/LengthField.h"

#include "workbench/NumberRow.h"

namespace Workbench
{

using CommonUI::CStr;
using CommonUI::CUnit;

CLengthField::CLengthField()
{
    Attach(m_edit);
    m_edit.ShowSpinButton(0, true);
    m_edit.SetChangeNotification(*this, &CLengthField::OnValue);
}

CLengthField::~CLengthField() = default;

void CLengthField::SetUnit(CUnit::EUnitFactor unit, const CommonUI::CRange<double>& range, double step)
{
    const double length = GetLength();
    const CUnit shown(unit);
    m_factor = shown.GetFactorValue();
    m_isSetting = true;
    m_edit.SetFormatString(CStr(u"%.5g ") + shown.GetText());
    const auto scale = [this](double value) { return static_cast<float>(value / m_factor); };
    m_edit.Setup(scale(range.Clamp(length)), scale(range.GetLower()), scale(range.GetUpper()), scale(step));
    m_isSetting = false;
}

void CLengthField::SetLength(double length)
{
    m_isSetting = true;
    if (const auto shown = static_cast<float>(length / m_factor); m_edit.GetValue() != shown)
        m_edit.SetValue(shown);
    m_isSetting = false;
}

double CLengthField::GetLength() const
{
    return ToDouble(m_edit.GetValue()) * m_factor;
}

void CLengthField::OnValue(float)
{
    if (!m_isSetting)
        Q_EMIT Edited(GetLength());
}

} // namespace Workbench
