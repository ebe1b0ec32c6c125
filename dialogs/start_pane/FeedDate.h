#pragma once

#include "../../export/Export.h"

#include <chrono>
#include <optional>
#include <string_view>

namespace CommonUI
{

/// The time that a feed states as RFC 3339 has it ("2026-03-01T12:00:00+01:00", or the day alone) or as RFC
/// 822 does ("Sun, 01 Mar 2026 12:00:00 +0100"); empty for anything else.
COMMONUI_API std::optional<std::chrono::sys_seconds> ReadFeedDate(std::u16string_view text);

} // namespace CommonUI
