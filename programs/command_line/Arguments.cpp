#include "programs/command_line/Arguments.h"

#if defined(_WIN32)
#include <memory>
#include <windows.h>

#include <shellapi.h> // after windows.h, on which it leans
#endif

namespace CommandLine
{

#if defined(_WIN32)

namespace
{

std::string ToUtf8(const wchar_t* text)
{
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr); // with the NUL
    std::string bytes(static_cast<std::size_t>(length), 0);
    WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes.data(), length, nullptr, nullptr);
    bytes.pop_back();
    return bytes;
}

} // namespace

CArguments::CArguments(int, char**)
{
    SetConsoleOutputCP(CP_UTF8);
    int count = 0;
    const std::unique_ptr<wchar_t*, decltype(&LocalFree)> values(
        CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
    for (int i = 1; i < count; ++i)
        m_texts.push_back(ToUtf8(values.get()[i]));
    for (std::string& text : m_texts)
        m_values.push_back(text.data());
}

#else

CArguments::CArguments(int count, char** values)
    : m_values(values + (count > 0), values + count)
{
}

#endif

} // namespace CommandLine
