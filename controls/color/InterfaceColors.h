#pragma once

#include "../../common/Enum.h"
#include "../../platform/SystemColors.h"
#include "../MultiClosure.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>

namespace CommonUI
{

/// What a colour of the interface is for.
enum class EInterfaceColor {
    Window, ///< the ground of dialogs
    WindowText,
    Field,          ///< the ground of what is edited, and of lists
    AlternateField, ///< every other row of a list
    Text,           ///< on Field
    DimText,        ///< hints in empty fields, and what is of less weight; still to be read
    Disabled,       ///< texts of what cannot be used
    Button,
    ButtonText,
    Selection, ///< the ground of what is selected
    SelectedText,
    Link,
    ToolTip, ///< the ground of tooltips
    ToolTipText,
    Outline, ///< the edges of fields and boxes
    Focus,   ///< the frame around what has the keyboard
    Error,   ///< texts on Window; so are the next two
    Warning,
    Success
};
/// How many colours there are; their numbers begin at 0.
constexpr std::size_t c_interfaceColorCount = static_cast<std::size_t>(EInterfaceColor::Success) + 1;

/// What the user has chosen: as the desktop, or one of the schemes.
enum class EInterfaceScheme { System = 0, Light = 1, Dark = 2, HighContrast = 3 };
/// The choices in the order of selection lists, with the keys under which files store them; an unknown key is
/// System.
COMMONUI_API const CEnum<EInterfaceScheme>& GetInterfaceSchemeEnum();

/// A colour for each EInterfaceColor, by its number.
using CInterfaceColorTable = std::array<SColor, c_interfaceColorCount>;

/// A text or mark, a ground on which it is shown, and the contrast that the two have in every scheme.
struct SInterfaceContrast {
    EInterfaceColor mark;   ///< of the text or line
    EInterfaceColor ground; ///< of what is behind it
    double contrast;        ///< the least, as WCAG 2 defines it, from 1 to 21
};
/// Every pair that a scheme has to keep apart.
COMMONUI_API std::span<const SInterfaceContrast> GetInterfaceContrasts();

/// The colours of a scheme. Those of texts, links, frames and messages are computed so that they have the
/// contrasts of GetInterfaceContrasts, whatever the accent; in high contrast they are those of the system
/// only, as they are.
/// @param accent of selections, links and frames; that of the scheme when empty. High contrast has none.
COMMONUI_API CInterfaceColorTable MakeInterfaceColors(EColorScheme scheme,
                                                      const std::optional<SColor>& accent,
                                                      const SHighContrastColors& highContrast = {});

/// The colours of the interface: those of the user's choice, and of the desktop as long as it is that, also
/// after the desktop changes. One object for a process; it is told by the service of the moment of its
/// making, which outlives it.
class COMMONUI_API CInterfaceColors
{
public:
    CInterfaceColors();
    ~CInterfaceColors();
    CInterfaceColors(const CInterfaceColors&) = delete;
    CInterfaceColors& operator=(const CInterfaceColors&) = delete;

    /// What the user has chosen; at first System.
    EInterfaceScheme GetChoice() const noexcept { return m_choice; }
    /// Changes the colours at once, and tells it where any has become another one.
    void SetChoice(EInterfaceScheme choice);
    /// A colour of the application's own for selections, links and frames; empty for that of the desktop.
    void SetAccent(const std::optional<SColor>& accent);

    /// The scheme that is shown.
    EColorScheme GetScheme() const noexcept { return m_scheme; }
    /// A colour of the scheme that is shown.
    const SColor& Get(EInterfaceColor role) const { return m_table[static_cast<std::size_t>(role)]; }
    /// Called after colours have changed.
    CMultiClosure0<void>& GetChanged() noexcept { return m_changed; }

private:
    void Update();

    CSystemColors& m_system;
    EInterfaceScheme m_choice = EInterfaceScheme::System;
    std::optional<SColor> m_accent;
    EColorScheme m_scheme = EColorScheme::Light;
    CInterfaceColorTable m_table{};
    CMultiClosure0<void> m_changed;
};

} // namespace CommonUI
