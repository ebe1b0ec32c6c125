#pragma once

#include "ExEdit.h"
#include "StepSize.h"
#include "StepSizeCtrl.h"
#include "TypedNumber.h"
#include "UpDown.h"
#include "WheelSteps.h"

namespace CommonUI
{

/// An edit field for a number with a range and a step. The user types the number, or steps it with the spin
/// button, or with the arrow keys or the wheel while Ctrl is held. CIntEdit and CFloatEdit are its forms.
///
/// A value beyond the range is clamped, never refused. A range whose maximum is below its minimum is read
/// reversed: the value lies between them all the same, and steps go the other way round.
///
/// What the user enters is put before the validator and reported if it changes the value. What the program
/// sets is neither checked nor compared, but always reported.
///
/// Callbacks may set the value, throw, or destroy the edit. A change notification that sets the value is
/// called for that, but not for a change made in a notification of that kind. While the validator is asked,
/// nothing else that the user enters is accepted.
template<class T>
class COMMONUI_API CScalarEdit : public CExEdit
{
public:
    /// @param minimum, maximum see SetRange
    /// @param step see SetIncrement
    CScalarEdit(const T& value, const T& minimum, const T& maximum, const T& step);
    ~CScalarEdit() override;

    /// What was accepted last; what is being typed is not in it yet.
    T GetValue() const noexcept { return m_value; }
    /// Not-a-number is ignored, with a warning in the diagnostics.
    void SetValue(const T& value);
    /// The range as it was set, reversed or not.
    void GetRange(T& minimum, T& maximum) const;
    /// Sets the range and, by SetIncrement, a step for it. A value beyond the range is set to its bound. An
    /// infinite bound means the greatest number of the type; not-a-number leaves all as it is, with a
    /// warning.
    /// @param factor the size of the step as a part of the range
    void SetRange(const T& minimum, const T& maximum, double factor);
    /// Sets range and step, and the value as SetValue does.
    void Setup(T value, const T& minimum, const T& maximum, const T& step);

    /// The step. Of an integer the fraction is dropped, but it is never below 1.
    T GetIncrement() const;
    /// Sets the step; its sign does not count, and 0, infinity and not-a-number stand for 1.
    void SetIncrement(T step);
    /// Sets the power of ten at or below max((maximum - minimum) * factor, (minimum + maximum) / 2 * factor);
    /// 1 when that is no positive number.
    void SetIncrement(T minimum, T maximum, double factor);

    /// The step is mantissa * 10^exponent, and the user changes the exponent within these limits. A relative
    /// limit counts from the power of ten of the value; the value 0 counts as 1. At first -5 and 5, both
    /// relative.
    int GetIncrementExponentMin() const noexcept { return m_step.lowest.exponent; }
    /// The upper limit; see GetIncrementExponentMin.
    int GetIncrementExponentMax() const noexcept { return m_step.highest.exponent; }
    /// See GetIncrementExponentMin. The step itself stays.
    void SetIncrementExponentMin(int exponent, bool relative) noexcept
    {
        m_step.lowest = {exponent, relative};
    }
    /// See GetIncrementExponentMin. The step itself stays.
    void SetIncrementExponentMax(int exponent, bool relative) noexcept
    {
        m_step.highest = {exponent, relative};
    }
    /// Whether the lower limit counts from the power of ten of the value.
    bool IsIncrementExponentMinRelative() const noexcept { return m_step.lowest.relative; }
    /// Whether the upper limit counts from the power of ten of the value.
    bool IsIncrementExponentMaxRelative() const noexcept { return m_step.highest.relative; }

    /// @param identifier the number of the button in the dialog
    void ShowSpinButton(unsigned int identifier, bool show) { m_spin.Show(identifier, show); }
    /// Whether arrow keys and wheel step the value, as they do at first. The spin button always does.
    void EnableStepping(bool enable) noexcept { m_stepping = enable; }
    /// Whether arrow keys and wheel step the value; true at first.
    bool IsSteppingEnabled() const noexcept { return m_stepping; }
    /// How typed text is read, at first as far as it goes.
    void SetScanning(EScanning scanning) noexcept { m_scanning = scanning; }
    /// How typed text is read.
    EScanning GetScanning() const noexcept { return m_scanning; }
    /// Whether the callback that asks is called for something the user has typed or stepped.
    bool ValidatingUserInput() const noexcept { return m_validatingUserInput; }

    /// The member function that may refuse what the user enters, by false. The object is not owned.
    template<class TObject>
    void SetValidator(std::type_identity_t<TObject>& object, bool (TObject::*method)(T))
    {
        m_validator.Set(MakeClosure(object, method));
    }
    /// Whatever the user enters is accepted from now on.
    void ResetValidator() noexcept { m_validator.Reset(); }
    /// The member function that is called with each new value. The object is not owned.
    template<class TObject>
    void SetChangeNotification(std::type_identity_t<TObject>& object, void (TObject::*method)(T))
    {
        m_notification.Set(MakeClosure(object, method));
    }
    /// Nobody hears of changes from now on.
    void ResetChangeNotification() noexcept { m_notification.Reset(); }

    /// The button, part of the edit, for the program to give it a view.
    CUpDown& GetSpinButton() noexcept { return m_spin; }
    /// The pop-up of the button, part of the edit, for the program to give it a view.
    CStepSizeCtrl& GetStepSizeCtrl() noexcept { return m_stepSize; }

    void SetReadOnly(bool readOnly) override;
    std::optional<SEditNumber> GetNumber() const override;
    /// Takes what was typed. Text that is no number, or a number that is refused, is answered with a warning
    /// sound. In every case the field shows the value afterwards.
    void Validate() override;
    /// Shows the value in the window, if there is one; what the user has typed is lost.
    virtual void ValueToWindowText();
    /// Reads the text of the window. @return false, with `value` unchanged, if it is no number, or for
    /// EScanning::Prefix, does not start with one
    virtual bool WindowTextToValue(T& value) const = 0;
    /// The text that the field shows for a value.
    virtual CStr ValueToText(const T& value) const = 0;
    /// Takes what was typed and steps from there: from a value between two multiples of the step to a
    /// multiple, from a multiple to another one. 0 steps move a value between two multiples to one of them,
    /// too. Nothing happens in an edit that the user cannot change.
    virtual void OnSpinDeltaPos(int delta);
    /// Makes the step 10^delta times as large, if the limits of the exponent allow it and the user may change
    /// anything, and shows it as a hint.
    virtual void OnStepSizeChanged(int delta);
    bool OnMouseWheel(int delta, bool control) override;

protected:
    /// Gives the edit another value and reports it. @param validate whether to do nothing if the value is the
    /// same, and to ask the validator
    /// @return false if the value was refused, or if the edit is gone
    virtual bool DoValueChange(T value, bool validate);
    bool HandleKey(const SKey& key) override;
    void OnViewSet() override { ValueToWindowText(); }
    /// Shows the value anew unless the user is typing.
    void RefreshDisplay();

private:
    bool StoreRange(T minimum, T maximum);
    T Clamp(T value) const;
    bool IsAccepted(T value);
    bool CanStep() const { return m_stepping && !IsReadOnly(); }
    void Notify();
    void Apply(T value, bool byUser);
    double GetGridPoint(int delta) const;
    void ShowStepHint();

    CUpDown m_spin;
    CStepSizeCtrl m_stepSize{m_spin};
    T m_value{};
    T m_minimum{};
    T m_maximum{};
    CStepSize m_step;
    CWheelSteps m_wheel;
    EScanning m_scanning = EScanning::Prefix;
    bool m_stepping = true;
    int m_depth = 0; // how many changes are going on, each made in a callback of the one before
    bool m_asking = false;
    CCallbackSlot m_validator;
    CCallbackSlot m_notification;
    bool m_validatingUserInput = false;
};

} // namespace CommonUI
