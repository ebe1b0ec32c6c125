#include "controls/ScalarEdit.h"

#include "common/Diagnostics.h"
#include "common/NumberText.h"
#include "controls/detail/Held.h"
#include "controls/detail/Scalar.h"
#include "platform/MessageBoxService.h"

namespace CommonUI
{

namespace
{

// A notification is called for changes up to this depth.
constexpr int c_deepestNotification = 2;

// The quotient without the error of its division: 1.2 / 0.1 is 12.
double RoundQuotient(double quotient)
{
    const double whole = std::round(quotient);
    return std::fabs(quotient - whole) <= 1e-9 * std::max(1.0, std::fabs(quotient)) ? whole : quotient;
}

void WarnOfNoNumber(std::u16string_view what)
{
    CStr text = what;
    text += u" of a numeric edit was not a number";
    GetDiagnostics().Write(u"NumericEdit", EDiagnosticLevel::Warning, text);
}

} // namespace

template<class T>
CScalarEdit<T>::CScalarEdit(const T& value, const T& minimum, const T& maximum, const T& step)
    : CExEdit(true, true)
    , m_step(GetStepExponents<T>())
{
    StoreRange(minimum, maximum);
    m_value = Clamp(IsNumber(value) ? value : T());
    m_step.Set(ToDouble(step));
    m_spin.SetCallback(*this, &CScalarEdit::OnSpinDeltaPos);
    m_stepSize.SetCallback(*this, &CScalarEdit::OnStepSizeChanged);
}

template<class T>
CScalarEdit<T>::~CScalarEdit() = default;

template<class T>
void CScalarEdit<T>::SetValue(const T& value)
{
    Apply(value, false);
}

template<class T>
void CScalarEdit<T>::GetRange(T& minimum, T& maximum) const
{
    minimum = m_minimum;
    maximum = m_maximum;
}

template<class T>
void CScalarEdit<T>::SetRange(const T& minimum, const T& maximum, double factor)
{
    if (!StoreRange(minimum, maximum))
        return;
    SetIncrement(m_minimum, m_maximum, factor);
    if (Clamp(m_value) != m_value)
        Apply(m_value, false);
}

template<class T>
void CScalarEdit<T>::Setup(T value, const T& minimum, const T& maximum, const T& step)
{
    if (!StoreRange(minimum, maximum))
        return;
    m_step.Set(ToDouble(step));
    if (!IsNumber(value)) {
        WarnOfNoNumber(u"a value");
        value = m_value;
    }
    Apply(value, false);
}

template<class T>
bool CScalarEdit<T>::StoreRange(T minimum, T maximum)
{
    if (!IsNumber(minimum) || !IsNumber(maximum)) {
        WarnOfNoNumber(u"a bound");
        return false;
    }
    m_minimum = FromDouble<T>(minimum);
    m_maximum = FromDouble<T>(maximum);
    return true;
}

template<class T>
T CScalarEdit<T>::Clamp(T value) const
{
    return std::clamp(value, std::min(m_minimum, m_maximum), std::max(m_minimum, m_maximum));
}

template<class T>
T CScalarEdit<T>::GetIncrement() const
{
    const double step = m_step.GetStep();
    // 115 is kept as 1.15 * 100, which lies a bit below it.
    if constexpr (std::numeric_limits<T>::is_integer)
        return std::max(T(1), FromDouble<T>(step + step * 1e-12));
    else
        return FromDouble<T>(step);
}

template<class T>
void CScalarEdit<T>::SetIncrement(T step)
{
    m_step.Set(ToDouble(step));
    RefreshDisplay();
}

template<class T>
void CScalarEdit<T>::SetIncrement(T minimum, T maximum, double factor)
{
    m_step.SetForRange(ToDouble(minimum), ToDouble(maximum), factor);
    RefreshDisplay();
}

template<class T>
void CScalarEdit<T>::SetReadOnly(bool readOnly)
{
    CExEdit::SetReadOnly(readOnly);
    m_spin.Enable(!readOnly);
    if (readOnly && IsModified())
        ValueToWindowText();
}

template<class T>
std::optional<SEditNumber> CScalarEdit<T>::GetNumber() const
{
    const auto [least, greatest] = std::minmax(m_minimum, m_maximum);
    return SEditNumber{ToDouble(m_value), ToDouble(least), ToDouble(greatest), ToDouble(GetIncrement())};
}

template<class T>
void CScalarEdit<T>::Validate()
{
    if (!IsModified())
        return ValueToWindowText();
    // A validator that asks the user something takes the focus away, and this function is called again.
    ClearModified();
    T typed{};
    if (WindowTextToValue(typed))
        return Apply(typed, true);
    GetMessageBoxService().Beep(MessageBoxStyle::c_warning);
    ValueToWindowText();
}

template<class T>
void CScalarEdit<T>::ValueToWindowText()
{
    if (GetView())
        GetView()->SetText(ValueToText(m_value));
    ClearModified();
}

template<class T>
void CScalarEdit<T>::RefreshDisplay()
{
    if (!IsModified())
        ValueToWindowText();
}

// Changes the value and shows it, also if that ends with an exception.
template<class T>
void CScalarEdit<T>::Apply(T value, bool byUser)
{
    const CWatch watch(*this);
    const CHeld<bool> userInput(*this, m_validatingUserInput, byUser || m_validatingUserInput);
    try {
        const bool accepted = DoValueChange(value, byUser);
        if (byUser && !accepted && !watch.IsGone())
            GetMessageBoxService().Beep(MessageBoxStyle::c_warning);
    } catch (...) {
        if (!watch.IsGone())
            ValueToWindowText();
        throw;
    }
    if (!watch.IsGone())
        ValueToWindowText();
}

template<class T>
bool CScalarEdit<T>::DoValueChange(T value, bool validate)
{
    if (!IsNumber(value)) {
        WarnOfNoNumber(u"a value");
        return false;
    }
    const T clamped = Clamp(value);
    const CWatch watch(*this);
    const CHeld<int> depth(*this, m_depth, m_depth + 1);
    if (validate) {
        if (clamped == m_value)
            return true;
        if (!IsAccepted(clamped) || watch.IsGone())
            return false;
    }
    m_value = Clamp(clamped); // the validator may have set another range
    if (m_depth <= c_deepestNotification)
        Notify();
    return !watch.IsGone();
}

template<class T>
bool CScalarEdit<T>::IsAccepted(T value)
{
    if (m_asking)
        return false;
    const auto validator = m_validator.Share<bool, T>();
    if (!validator)
        return true;
    const CHeld<bool> asking(*this, m_asking, true);
    return validator->Invoke(value);
}

template<class T>
void CScalarEdit<T>::Notify()
{
    if (const auto notification = m_notification.Share<void, T>())
        notification->Invoke(m_value);
}

template<class T>
void CScalarEdit<T>::OnSpinDeltaPos(int delta)
{
    if (IsReadOnly())
        return;
    const CWatch watch(*this);
    Validate();
    if (watch.IsGone())
        return;
    Apply(FromDouble<T>(GetGridPoint(delta)), true);
    // What is typed next replaces the number instead of going in front of it.
    if (!watch.IsGone() && GetView() && GetView()->HasFocus())
        GetView()->SelectAll();
}

template<class T>
double CScalarEdit<T>::GetGridPoint(int delta) const
{
    const double steps = m_maximum < m_minimum ? -static_cast<double>(delta) : delta;
    const double value = ToDouble(m_value);
    double increment = m_step.GetStep();
    double quotient = RoundQuotient(value / increment);
    if constexpr (std::numeric_limits<T>::is_integer) {
        increment = GetIncrement();
        const T whole = m_value / GetIncrement();
        quotient = whole;
    }
    quotient += steps;
    using CLimits = std::numeric_limits<int>;
    const double multiple = std::clamp<double>(steps < 0 ? std::ceil(quotient) : std::floor(quotient),
                                               CLimits::min(), CLimits::max());
    double target = multiple * increment;
    // The value was a multiple but for its rounding.
    if (std::fabs(target - value) < increment * 0.01)
        target += increment * ((steps > 0) - (steps < 0));
    return target;
}

template<class T>
void CScalarEdit<T>::OnStepSizeChanged(int delta)
{
    if (IsReadOnly())
        return;
    m_step.Change(delta, ToDouble(m_value));
    RefreshDisplay();
    ShowStepHint();
}

template<class T>
bool CScalarEdit<T>::OnMouseWheel(int delta, bool control)
{
    // A field without the focus leaves the wheel to the page it lies on.
    if (!CanStep() || !GetView() || !GetView()->HasFocus())
        return false;
    const std::optional<int> steps = m_wheel.Turn(delta, control);
    if (!steps)
        return false;
    const CWatch watch(*this);
    OnSpinDeltaPos(*steps);
    if (!watch.IsGone())
        ShowStepHint();
    return true;
}

template<class T>
void CScalarEdit<T>::ShowStepHint()
{
    CStr hint = u"\u00B1 ";
    hint += ShortestText(ToDouble(GetIncrement()));
    m_spin.ShowHint(hint);
}

template<class T>
bool CScalarEdit<T>::HandleKey(const SKey& key)
{
    if (CanStep() && key.control && (key.key == EKey::Up || key.key == EKey::Down)) {
        OnSpinDeltaPos(key.key == EKey::Up ? 1 : -1);
        return true;
    }
    return CExEdit::HandleKey(key);
}

template class CScalarEdit<int>;
template class CScalarEdit<float>;

} // namespace CommonUI
