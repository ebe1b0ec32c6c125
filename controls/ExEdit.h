#pragma once

#include "../common/Str.h"
#include "Closure.h"
#include "View.h"
#include "Window.h"

#include <optional>

namespace CommonUI
{

class CExEdit;

/// The keys that edits tell apart; a toolkit translates its own to them.
enum class EKey {
    Character, ///< a key that writes SKey::character
    Tab,
    Enter,
    Escape,
    Up,
    Down,
    Left,
    Right,
    Home,
    End,
    Backspace,
    Delete,
    Other
};

/// A key that is pressed, or repeats itself, with the modifier keys that are held.
struct SKey {
    EKey key = EKey::Other; ///< which one
    char16_t character = 0; ///< what the key writes; only for EKey::Character
    bool shift = false;     ///< held down
    bool control = false;   ///< held down
    bool alt = false;       ///< held down
};

/// The number in a field, for a screen reader.
struct SEditNumber {
    double value = 0;   ///< in the unit of the field
    double minimum = 0; ///< also of a range that is read reversed the lesser bound
    double maximum = 0; ///< the other bound
    double step = 0;    ///< what an arrow key with Ctrl adds
};

/// The edit field on the screen, or what stands for it. It offers every key and wheel movement to its control
/// before it acts itself, and tells it when the user has changed the text and when the focus has left.
class COMMONUI_API CEditView : public CControlView<CExEdit>
{
public:
    ~CEditView() override;

    /// What stands in the field now, be it typed or set.
    virtual CStr GetText() const = 0;
    /// Replaces the text, without telling the control.
    virtual void SetText(const CStr& text) = 0;
    /// Selects the text and scrolls the caret into view.
    virtual void SelectAll() = 0;
    /// Whether keys go to the field.
    virtual bool HasFocus() const = 0;
    /// Whether the user may select and copy the text, but not change it.
    virtual void SetReadOnly(bool readOnly) = 0;
    /// Moves the focus to the next or previous tab stop of the dialog: out of a container into the one around
    /// it where the field is the last or first.
    virtual void MoveFocus(bool backward) = 0;
};

/// An edit field that may keep Enter and Escape for itself, and can check what was typed.
class COMMONUI_API CExEdit : public CWnd, public CViewedControl<CEditView>
{
public:
    /// @param wantsEnter see SetWantsEnter
    /// @param validate see SetValidate
    CExEdit(bool wantsEnter, bool validate);
    virtual ~CExEdit();

    /// Gives the field its window; null takes it away. The view is not owned.
    void SetView(CEditView* view);
    /// Whether Enter, Escape and the loss of the focus call Validate.
    void SetValidate(bool validate) noexcept { m_validate = validate; }
    /// Whether Enter and Escape finish the input and stay in the field; otherwise they go on to the dialog.
    void SetWantsEnter(bool wants) noexcept { m_wantsEnter = wants; }
    /// Whether the user cannot change anything, but select and copy the text. Enter and Escape go on to the
    /// dialog then. What has been typed and not been taken is lost; the program may change all there is.
    virtual void SetReadOnly(bool readOnly);
    /// Whether the user cannot change anything; false at first.
    bool IsReadOnly() const noexcept { return m_readOnly; }
    /// Whether the user has typed something that Validate has not seen yet.
    bool IsModified() const noexcept { return m_modified; }

    /// Sets the member function that every key is offered to first, in place of the one before; a key for
    /// which it returns false is swallowed. The object is not owned. It may destroy the field.
    template<class TObject>
    void SetKeyFilter(std::type_identity_t<TObject>& object, bool (TObject::*method)(const SKey&))
    {
        m_keyFilter.Set(MakeClosure(object, method));
    }
    /// Keys are no longer offered to anybody first.
    void ResetKeyFilter() noexcept { m_keyFilter.Reset(); }

    /// A key was pressed. @return whether it is dealt with; otherwise the view treats it as it would without
    /// control. The field may be gone afterwards.
    bool OnKey(const SKey& key);
    /// The wheel was turned. @param delta as for CWheelSteps
    /// @return as OnKey
    virtual bool OnMouseWheel(int delta, bool control);
    /// The user has changed the text.
    void OnTextEdited() noexcept { m_modified = !m_readOnly; }
    /// Calls Validate if that is asked for; the field may be gone afterwards.
    void OnFocusLost();
    /// The view asks whether the field gets all keys, also those by which a dialog is closed.
    /// @param byDefault whether it does without control, as a field of several lines
    bool ClaimsAllKeys(bool byDefault) noexcept;

    /// Takes what was typed, or restores the text. A plain field takes anything.
    virtual void Validate();
    /// The number that the field stands for; a plain field stands for none.
    virtual std::optional<SEditNumber> GetNumber() const;

protected:
    /// A key that the filter has let pass; see OnKey.
    virtual bool HandleKey(const SKey& key);
    /// The field has got a view that still has to show its value.
    virtual void OnViewSet();
    /// What has been typed is dealt with: IsModified is false until the user types again.
    void ClearModified() noexcept { m_modified = false; }

private:
    bool FinishInput(const SKey& key);

    bool m_validate;
    bool m_wantsEnter;
    bool m_readOnly = false;
    bool m_allKeysByDefault = false;
    bool m_modified = false;
    CCallbackSlot m_keyFilter;
};

} // namespace CommonUI
