#pragma once

#include "../../export/Export.h"

#include <span>
#include <string_view>

namespace CommonUI
{

/// What help opens for a number: a page of the documentation, and the chapter of it.
struct SHelpTopic {
    unsigned int topic = 0;      ///< that of a dialog is the dialog's number
    std::u16string_view page;    ///< a file of docs/, such as u"dialogs.md"
    std::u16string_view chapter; ///< the heading in small letters with hyphens; empty for the whole page
};

/// The topics of windows without a CBaseDialog.
namespace HelpTopic
{

constexpr unsigned int c_chooser = 11241; ///< the list of all settings of a type
constexpr unsigned int c_manage = 11246;  ///< the user's own settings
constexpr unsigned int c_compare = 11253; ///< two settings side by side
constexpr unsigned int c_import = 11260;  ///< a set that is taken over from a file

} // namespace HelpTopic

/// The topics of the library's own dialogs, by their numbers.
COMMONUI_API std::span<const SHelpTopic> GetHelpTopics();

} // namespace CommonUI
