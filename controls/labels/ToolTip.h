#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

#include <vector>

namespace CommonUI
{

/// What a tooltip tells of a quantity or of a control. Whatever is empty is left out.
struct SToolTip {
    CStr symbol{};   ///< "Sq"
    CStr name{};     ///< "Root Mean Square Height"
    CStr text{};     ///< what it is or does; line feeds part paragraphs
    CStr unit{};     ///< "nm"
    CStr standard{}; ///< "ISO 25178-2"
    CStr keys{};     ///< "Ctrl+Up", the keys that do the same

    friend bool operator==(const SToolTip&, const SToolTip&) = default;
};

/// The tooltip as HTML without colours and fonts of its own, so that it looks as the style has tooltips.
/// Texts are escaped. Empty when all is.
COMMONUI_API CStr MakeToolTipHtml(const SToolTip& toolTip);

/// The tooltip as a text of some lines, for screen readers and where there is no HTML.
COMMONUI_API CStr MakeToolTipText(const SToolTip& toolTip);

} // namespace CommonUI
