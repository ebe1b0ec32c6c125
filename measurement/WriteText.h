#pragma once

#include <functional>
#include <string_view>

namespace CommonUI::Measurement
{

/// Receives a text piece by piece, UTF-8.
using FWriteText = std::function<void(std::string_view)>;

} // namespace CommonUI::Measurement
