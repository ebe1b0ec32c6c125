#pragma once

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
