#pragma once

#include "windows/detail/Api.h"
#include "windows/detail/WinText.h"

#include <gtest/gtest.h>

#include <string>

namespace CommonUI
{

/// What the clipboard has in a format, with the zero at its end and what may lie behind; empty for nothing.
inline std::string ReadClipboard(UINT format)
{
    EXPECT_TRUE(OpenClipboard(nullptr));
    std::string bytes;
    if (const HANDLE data = GetClipboardData(format)) {
        bytes.assign(static_cast<const char*>(GlobalLock(data)), GlobalSize(data));
        GlobalUnlock(data);
    }
    CloseClipboard();
    return bytes;
}

inline CStr ReadClipboardText()
{
    const std::string bytes = ReadClipboard(CF_UNICODETEXT);
    return bytes.empty() ? CStr() : FromWide(reinterpret_cast<const wchar_t*>(bytes.data()));
}

/// The copied part of the HTML, by the places in its header.
inline CStr ReadClipboardHtml()
{
    const std::string bytes = ReadClipboard(RegisterClipboardFormatW(L"HTML Format"));
    const auto placeOf = [&bytes](const std::string& key) {
        const std::size_t at = bytes.find("\r\n" + key + ":");
        return at == std::string::npos ? 0U : std::stoul(bytes.substr(at + key.size() + 3, 10));
    };
    const std::size_t start = placeOf("StartFragment");
    return CStr::FromUtf8(bytes.substr(start, placeOf("EndFragment") - start));
}

} // namespace CommonUI
