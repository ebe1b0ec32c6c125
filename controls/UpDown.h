#pragma once

#include "../common/Rect.h"
#include "../common/Str.h"
#include "Closure.h"
#include "View.h"
#include "Window.h"

namespace CommonUI
{

class CStepSizeCtrl;
class CUpDown;

/// The spin button on the screen, or what stands for it.
class COMMONUI_API CSpinView : public CControlView<CUpDown>
{
public:
    ~CSpinView() override;

    /// Where the button lies, in pixels of the screen.
    virtual SRect GetScreenRect() const = 0;
    /// Shows the button or takes it from the screen.
    virtual void SetVisible(bool visible) = 0;
    /// Shows whether the user can press the button. A view that cannot does nothing.
    virtual void SetEnabled(bool enabled);
    /// Shows a text beside the button for a moment. A view that cannot show one at will does nothing.
    virtual void ShowHint(const CStr& text);
};

/// A spin button: two arrows that step a value, and the place beside which the step-size pop-up appears.
class COMMONUI_API CUpDown : public CWnd, public CViewedControl<CSpinView>
{
public:
    CUpDown();
    virtual ~CUpDown();

    /// Gives the button its window; null takes it away. The view is not owned.
    void SetView(CSpinView* view);
    /// Sets the member function that is called with the steps that the user makes. The object is not owned;
    /// the function may destroy the button.
    template<class TObject>
    void SetCallback(std::type_identity_t<TObject>& object, void (TObject::*method)(int))
    {
        m_slot.Set(MakeClosure(object, method));
    }
    /// The pop-up that the pointer calls up; null for none. It is not owned; a CStepSizeCtrl sets itself.
    void SetStepSizeCtrl(CStepSizeCtrl* control) noexcept { m_stepSize = control; }

    /// Shows or hides the button, which is hidden at first. @param identifier the number of the button in its
    /// dialog
    void Show(unsigned int identifier, bool visible);
    /// Whether the program wants it shown; there need be no view.
    bool IsVisible() const noexcept { return m_visible; }
    /// Whether the view lets the user press the button, as at first, and the pointer calls up the pop-up.
    void Enable(bool enable);
    /// Whether the user can press the button.
    bool IsEnabled() const noexcept { return m_enabled; }
    /// The number that Show was called with last; 0 before.
    unsigned int GetIdentifier() const noexcept { return m_identifier; }
    /// Shows a text beside the button for a moment; does nothing without a view.
    void ShowHint(const CStr& text);

    /// The user has pressed an arrow. @param delta in steps, positive upwards
    void OnDeltaPos(int delta);
    /// Calls up the pop-up, if there is one and the button is enabled.
    void OnPointerEntered();
    /// The pop-up slides back after a while, unless the pointer enters it.
    void OnPointerLeft();

private:
    CCallbackSlot m_slot;
    CStepSizeCtrl* m_stepSize = nullptr;
    unsigned int m_identifier = 0;
    bool m_visible = false;
    bool m_enabled = true;
};

} // namespace CommonUI
