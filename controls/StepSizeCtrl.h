#pragma once

#include "../common/Color.h"
#include "Timer.h"
#include "UpDown.h"

#include <array>
#include <cstdint>

namespace CommonUI
{

/// Milliseconds for a step of the slide.
constexpr unsigned int c_SlideStepTime = 30;
/// How many steps the pop-up slides until it is fully out.
constexpr int c_MaxSlideStep = 9;
/// Milliseconds from the pointer's leaving to the first step back.
constexpr unsigned int c_HideDelayTime = 500;
/// The ground of the pop-up.
constexpr SColor c_StepSizeBackground{220, 220, 220};

class CStepSizeCtrl;

/// The pop-up on the screen, or what stands for it: a borderless window with two buttons, one above the
/// other.
class COMMONUI_API CStepSizeView : public CControlView<CStepSizeCtrl>
{
public:
    ~CStepSizeView() override;

    /// Shows the pop-up on top of all windows, as a child of none, without giving it the focus.
    /// @param screen where, in pixels of the screen
    /// @param upper, lower where the buttons lie in the pop-up
    virtual void Place(const SRect& screen, const SRect& upper, const SRect& lower) = 0;
    /// Takes the pop-up from the screen.
    virtual void Hide() = 0;
    /// The text that explains the buttons.
    virtual void SetToolTip(const CStr& text) = 0;
};

/// A half of the pop-up.
class COMMONUI_API CStepSizeBtn : public CWnd
{
public:
    /// What a button does to the step.
    enum class EType {
        Larger = 0, ///< the upper half
        Smaller = 1 ///< the lower half
    };

    /// @param owner not owned; it must outlive the button
    CStepSizeBtn(CStepSizeCtrl& owner, EType type);
    virtual ~CStepSizeBtn();

    /// Which half this is.
    EType GetType() const noexcept { return m_type; }
    /// The user has pressed the button, which may be gone afterwards.
    void OnClicked();
    /// Keeps the pop-up from sliding back.
    void OnPointerEntered();
    /// The pop-up slides back after a while, unless the pointer enters it elsewhere.
    void OnPointerLeft();

private:
    CStepSizeCtrl& m_owner;
    EType m_type;
};

/// The pop-up that makes the step of a value ten times larger or smaller. It slides out of the right edge of
/// a spin button while the pointer is over either, and back when the pointer has been away for a while.
class COMMONUI_API CStepSizeCtrl : public CWnd, public CViewedControl<CStepSizeView>
{
public:
    /// @param spin where the pop-up appears; it must live as long as the pop-up
    explicit CStepSizeCtrl(CUpDown& spin);
    virtual ~CStepSizeCtrl();

    /// Gives the pop-up its window; null takes it away. The view is not owned.
    void SetView(CStepSizeView* view);
    /// Sets the member function that is called with +1 or -1 by the buttons. The object is not owned; the
    /// function may destroy the pop-up.
    template<class TObject>
    void SetCallback(std::type_identity_t<TObject>& object, void (TObject::*method)(int))
    {
        m_slot.Set(MakeClosure(object, method));
    }
    /// The text that explains the buttons.
    void SetToolTip(const CStr& text);

    /// The pointer has entered the spin button, the pop-up or one of its buttons. Only the spin button makes
    /// the first step at once.
    void Show(const CWnd& entered);
    /// The pointer has left it. The pop-up stays where it is until c_HideDelayTime is over.
    void Hide(const CWnd& left);
    /// Hides the pop-up without a slide.
    void Close();

    /// From 0 when hidden to c_MaxSlideStep when fully out.
    int GetSlideStep() const noexcept { return m_step; }
    /// One of the two buttons, for the view to tell what the user does.
    CStepSizeBtn& GetButton(CStepSizeBtn::EType type) { return m_buttons[static_cast<std::size_t>(type)]; }

private:
    friend class CStepSizeBtn;

    void OnButton(CStepSizeBtn::EType type);
    void OnSlideTimer(CBaseTimer& timer);
    void OnHideTimer(CBaseTimer& timer);
    void BeginSlide();
    bool Slide();
    void Place() const;

    CUpDown& m_spin;
    CCallbackSlot m_slot;
    CStr m_toolTip;
    std::array<CStepSizeBtn, 2> m_buttons;
    int m_step = 0;
    std::uint64_t m_lastTime = 0; // of the last step, on the clock of the timer service
    bool m_showing = false;
    CWinTimer m_slideTimer{c_SlideStepTime};
    CWinTimer m_hideTimer{c_HideDelayTime};
};

} // namespace CommonUI
