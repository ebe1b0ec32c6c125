#pragma once

#include "../../common/ini/Inifile.h"
#include "../Closure.h"
#include "../lists/RecentList.h"
#include "../MultiClosure.h"
#include "../Window.h"
#include "Paint.h"

namespace CommonUI
{

/// The colours that the user chose last, the same for all pickers that share it.
class COMMONUI_API CRecentColors : public CRecentList<SPaint>
{
public:
    /// How many colours are kept.
    COMMONUI_CONSTANT std::size_t c_limit = 8;

    CRecentColors();

    /// @param key that of a list of texts in the current section; what is no colour is left out
    void Load(const CInifile& file, std::u16string_view key);
    /// Writes the colours as a list of texts, the latest first, to the current section.
    void Save(CInifile& file, std::u16string_view key) const;
};

/// The logic of a colour picker: the colour, whether its ground may show through, and what the user has
/// chosen recently.
class COMMONUI_API CColorPicker : public CWnd
{
public:
    /// @param recent not owned; it must outlive the picker. Null for a list of the picker's own.
    explicit CColorPicker(CRecentColors* recent = nullptr);
    ~CColorPicker();

    /// The colour, be it chosen or set.
    const SPaint& GetPaint() const noexcept { return m_paint; }
    /// Sets the colour for the program: the callback is not called, and it does not count as recent. Without
    /// opacity it covers its ground.
    void SetPaint(const SPaint& paint);
    /// Whether the user can choose how much the colour covers; at first not.
    void AllowOpacity(bool allow);
    /// Whether the user can choose how much the colour covers.
    bool IsOpacityAllowed() const noexcept { return m_opacityAllowed; }
    /// The colours chosen last: those of the list given, or of the picker's own.
    const CRecentColors& GetRecent() const noexcept { return *m_recent; }

    /// The user has chosen a colour. One that is there already is only noted as recent.
    void Choose(const SPaint& paint);
    /// The user has chosen one of the colours offered, which keeps how much the present one covers.
    void PickColor(const SColor& color);
    /// The user has moved a slider: nothing is noted as recent before Choose.
    void ChooseOpacity(int percent);
    /// The user has typed a colour. @return false, and nothing changes, when the text is none
    bool Enter(std::u16string_view text);

    /// Sets the member function that is called when the user has changed the colour. The object is not owned;
    /// the function may destroy the picker.
    template<class TObject>
    void SetCallback(std::type_identity_t<TObject>& object, void (TObject::*method)(const SPaint&))
    {
        m_slot.Set(MakeClosure(object, method));
    }
    /// For views: the colour is another one, whoever has changed it.
    CMultiClosure0<void>& GetChanged() noexcept { return m_changed; }

private:
    SPaint Restrict(const SPaint& paint) const;
    bool Change(const SPaint& paint);

    SPaint m_paint;
    bool m_opacityAllowed = false;
    CRecentColors m_own;
    CRecentColors* m_recent;
    CCallbackSlot m_slot;
    CMultiClosure0<void> m_changed;
};

} // namespace CommonUI
