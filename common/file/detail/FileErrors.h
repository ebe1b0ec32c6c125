#pragma once

#include "common/file/DeviceName.h"
#include "common/PathText.h"
#include "common/Str.h"

#include <cerrno>
#include <exception>
#include <filesystem>
#include <fstream>
#include <ios>
#include <new>
#include <system_error>

namespace CommonUI
{

[[noreturn]] inline void Refuse(const char* what, std::errc reason)
{
    throw std::system_error(std::make_error_code(reason), what);
}

/// Throws the reason why a stream failed, as far as the system left it.
[[noreturn]] inline void ThrowStreamError(const char* what)
{
    const std::error_code left(errno, std::generic_category());
    throw std::system_error(left ? left : std::make_error_code(std::errc::io_error), what);
}

/// Opens a file, however often a signal comes between.
inline void OpenStream(std::filebuf& file, const std::filesystem::path& path, std::ios::openmode mode,
                       const char* failure)
{
    do {
        errno = 0;
        if (file.open(path, mode | std::ios::binary))
            return;
    } while (errno == EINTR);
    ThrowStreamError(failure);
}

inline std::filesystem::path ToFilePath(const CStr& fileName)
{
    // To the system the name would end there: that of another file.
    if (fileName.Find(u'\0') != CStr::npos)
        Refuse("the name has a character U+0000", std::errc::invalid_argument);
    std::filesystem::path path = ToPath(fileName);
#if defined(_WIN32)
    // What stands behind a colon would be a part of a file, which nothing but this system knows; the system
    // would leave out dots and blanks at the end, and so take another file.
    const std::wstring name = path.filename().native();
    if (name.find(L':') != std::wstring::npos)
        Refuse("the name has a colon", std::errc::invalid_argument);
    if (name != L"." && name != L".." && (name.ends_with(L'.') || name.ends_with(L' ')))
        Refuse("the name ends in a dot or a blank", std::errc::invalid_argument);
    if (IsDeviceName(path.filename().u16string()))
        Refuse("the name is that of a device", std::errc::invalid_argument);
#endif
    return path;
}

/// Why something was thrown, also where there is no memory for more.
inline void TellReason(CStr& reason, const std::exception& thrown)
{
    try {
        // what() of such an error has the path too, which the caller knows.
        const auto* const error = dynamic_cast<const std::filesystem::filesystem_error*>(&thrown);
        reason = CStr::FromUtf8(error ? error->code().message() : thrown.what());
    } catch (const std::bad_alloc&) {
        reason = u"out of memory"; // which has room in the object
    }
}

/// Runs `work` and returns whether it came to its end; else why not.
template<class FWork>
bool TryFile(CStr& reason, FWork&& work)
{
    try {
        work();
        return true;
    } catch (const std::exception& error) {
        TellReason(reason, error);
    }
    return false;
}

} // namespace CommonUI
