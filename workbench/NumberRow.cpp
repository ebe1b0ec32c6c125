#include "workbench/NumberRow.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace Workbench
{

using CommonUI::Measurement::EStepNumber;
using CommonUI::Measurement::SStepNumber;

namespace
{

constexpr double c_micrometre = 1e-6;
constexpr double c_stepShare = 0.1; // of the value

float StepOf(double value)
{
    return static_cast<float>(std::pow(10, std::floor(std::log10(std::max(value, 1e-9) * c_stepShare))));
}

} // namespace

double ToDouble(float value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.6e", static_cast<double>(value));
    return std::atof(text);
}

COddEdit::~COddEdit() = default;

// Nobody destroys the edit meanwhile: its step stays the chosen one.
void COddEdit::OnSpinDeltaPos(int delta)
{
    if (IsReadOnly())
        return;
    Validate();
    DoValueChange(GetValue() + 2 * delta, true);
    ValueToWindowText();
}

bool COddEdit::DoValueChange(int value, bool validate)
{
    const bool isBetween = validate && value % 2 == 0;
    return CIntEdit::DoValueChange(isBetween ? value + (value > GetValue() ? 1 : -1) : value, validate);
}

CNumberRow::CNumberRow(QWidget& parent, const SStepNumber& number, FEdited edited)
    : QObject(&parent)
    , m_number(number)
    , m_edited(std::move(edited))
    , m_field(new CommonUI::CNumericEditWidget(&parent))
{
    m_isSetting = true;
    if (number.step > 0) {
        m_integer = number.step == 2 ? std::make_unique<COddEdit>() : std::make_unique<CommonUI::CIntEdit>();
        m_integer->Setup(static_cast<int>(number.value), static_cast<int>(number.lowest),
                         static_cast<int>(number.highest), static_cast<int>(number.step));
        m_integer->ShowSpinButton(0, true);
        m_integer->SetChangeNotification(*this, &CNumberRow::OnInteger);
        m_field->Attach(*m_integer);
    } else {
        m_real = std::make_unique<CommonUI::CFloatEdit>();
        m_real->SetFormatString(number.number == EStepNumber::Cutoff ? u"%.5g µm" : u"%.5g");
        m_real->Setup(static_cast<float>(number.value / GetUnit()),
                      static_cast<float>(number.lowest / GetUnit()),
                      static_cast<float>(number.highest / GetUnit()), StepOf(number.value / GetUnit()));
        m_real->ShowSpinButton(0, true);
        m_real->SetChangeNotification(*this, &CNumberRow::OnReal);
        m_field->Attach(*m_real);
    }
    m_isSetting = false;
}

CNumberRow::~CNumberRow() = default;

double CNumberRow::GetUnit() const
{
    return m_number.number == EStepNumber::Cutoff ? c_micrometre : 1;
}

void CNumberRow::SetValue(double value)
{
    m_number.value = value;
    m_isSetting = true;
    if (m_integer)
        m_integer->SetValue(static_cast<int>(value));
    else if (const auto shown = static_cast<float>(value / GetUnit()); m_real->GetValue() != shown)
        m_real->SetValue(shown);
    m_isSetting = false;
}

void CNumberRow::OnInteger(int value)
{
    if (!m_isSetting)
        m_edited(m_number.number, value);
}

void CNumberRow::OnReal(float value)
{
    if (!m_isSetting)
        m_edited(m_number.number, ToDouble(value) * GetUnit());
}

} // namespace Workbench
