#pragma once

#include <string_view>

namespace CommonUI::Measurement
{

/// How the reason of a value begins whose computation has failed, wherever it is shown or stored; that of a
/// value that is not defined never does.
inline constexpr std::string_view c_failed = "failed: ";

/// Whether a reason says that a computation has failed, rather than that a value is not defined.
inline bool IsFailure(std::string_view reason)
{
    return reason.starts_with(c_failed);
}

} // namespace CommonUI::Measurement
