#pragma once

#include <string>

namespace CommonUI
{

/// Has the shell open a file, a folder or an address with the program for it, or start a program.
/// @param parameters of the program
/// @return false if it cannot
bool OpenByShell(const std::wstring& target, const std::wstring& parameters);

} // namespace CommonUI
