#pragma once

#include <string>
#include <string_view>

namespace CommonUI::Formats
{

/// The date of an SDF, "310520241430" for day, month, year, hour and minute, as "2024-05-31T14:30"; empty for
/// what is no date.
std::string DateOfSdf(std::string_view text);

/// A date as XML has it, "2024-05-31T14:30:00.5+02:00", if it is one; empty otherwise.
std::string DateOfXml(std::string_view text);

} // namespace CommonUI::Formats
