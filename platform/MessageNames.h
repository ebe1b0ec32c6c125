#pragma once

#include "../common/Str.h"
#include "../export/Export.h"

#include <string_view>

namespace CommonUI
{

/// The category of the diagnostics in which messages to threads are traced by their names: enable it to see
/// who posts what to whom and when it is taken. Off, it costs a look at a variable.
constexpr std::u16string_view c_messageCategory = u"Messages";

/// The name of a message to a thread, such as u"ProgressCancel"; "message 0x0123" for one without. Any thread
/// may call.
COMMONUI_API CStr GetMessageName(unsigned int message);
/// Names a message of the application's own, or anew, for as long as the process runs. Any thread may call.
COMMONUI_API void SetMessageName(unsigned int message, const CStr& name);

} // namespace CommonUI
