#pragma once

#include "formats/SurfaceWriter.h"

#include <string_view>

/// @file
/// The writers of the formats, and what they share.

namespace CommonUI::Formats
{

/// Appends the shortest text that is read back as the same number.
void AppendNumber(std::string& text, double number);

std::string WriteSdf(const Analysis::SSurface& surface, std::chrono::sys_seconds time);
std::string WriteBinarySdf(const Analysis::SSurface& surface, std::chrono::sys_seconds time);
std::string WriteMatrix(const Analysis::SSurface& surface);
std::string WriteProfile(const Analysis::SSurface& surface);
std::string WriteX3p(const Analysis::SSurface& surface, std::chrono::sys_seconds time);

} // namespace CommonUI::Formats
