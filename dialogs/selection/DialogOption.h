#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

#include <optional>
#include <string_view>
#include <vector>

namespace CommonUI
{

/// One line of a form of options: a check box, a choice of a list, or a number in a field. What it stands for
/// is told by its id.
struct SDialogOption {
    /// What the user changes an option by.
    enum class EKind { Check, Choice, Number };

    int id = 0;                    ///< different for each option of a form
    EKind kind = EKind::Check;     ///< decides which of the other members mean something
    CStr label{};                  ///< without mnemonic and colon, with the unit of a number
    bool enabled = true;           ///< what is not means nothing at present
    std::vector<CStr> choices{};   ///< of a Choice
    std::vector<double> numbers{}; ///< what the choices stand for; their indices where there are none
    int value = 0;                 ///< the index of the choice; of a Check 1 or 0
    CStr text{};                   ///< of a Number, as typed
    CStr unit{};                   ///< in which a number is shown; empty for none
    double factor = 1;             ///< by which a number is divided to be shown
    double lower = 0;              ///< the range of a number, undivided
    double upper = 100;            ///< likewise
    bool whole = false;            ///< a number without decimals
    CStr fault{};                  ///< what is wrong with the text of a number; empty if nothing is
    CStr remark{};                 ///< what a tooltip says besides

    bool operator==(const SDialogOption& other) const = default;
};

/// A number as the field of an option shows it.
COMMONUI_API CStr ShowOptionNumber(const SDialogOption& option, double number);

/// Takes what has been typed into the field of a number, and notes what is wrong with it. Understands what
/// ReadTypedReal does.
/// @return the number, undivided; nothing for a text that is none, or is out of range
COMMONUI_API std::optional<double> TypeOption(SDialogOption& option, std::u16string_view text);

/// What a choice, or the state of a check box, stands for.
COMMONUI_API double GetOptionNumber(const SDialogOption& option, int value);

/// The option of that id; null if there is none.
COMMONUI_API SDialogOption* FindOption(std::vector<SDialogOption>& options, int id);

} // namespace CommonUI
