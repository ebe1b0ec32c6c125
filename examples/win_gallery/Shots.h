#pragma once

#include <windows.h>

#include <string>

namespace WinGallery
{

/// Writes what a window shows, with its frame, as a PNG file. @return whether it could be written
bool WriteShot(HWND window, const std::wstring& file);

} // namespace WinGallery
