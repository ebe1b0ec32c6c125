#pragma once

#include "../export/Export.h"
#include "Str.h"

/// @file
/// The version, once for the compiler and once for the library that a program runs with: they differ where a
/// newer library has been installed since the program was compiled.

// The build takes the version from these three lines.
/// From 1.0 on it rises when something has gone or changed.
#define COMMONUI_VERSION_MAJOR 0
/// Before 1.0 it rises when something has gone or changed, from then on when there are additions.
#define COMMONUI_VERSION_MINOR 2
/// Rises when nothing has gone or changed; additions are possible.
#define COMMONUI_VERSION_PATCH 0

/// A version as a number that compares as versions do: 0.1.0 is 100, 1.2.3 is 10203. Each part is below 100.
#define COMMONUI_MAKE_VERSION(major, minor, patch) ((major)*10000 + (minor)*100 + (patch))

/// The version of the headers, for `#if COMMONUI_VERSION >= COMMONUI_MAKE_VERSION(0, 2, 0)`.
#define COMMONUI_VERSION                                                                                     \
    COMMONUI_MAKE_VERSION(COMMONUI_VERSION_MAJOR, COMMONUI_VERSION_MINOR, COMMONUI_VERSION_PATCH)

namespace CommonUI
{

/// The version of the libraries that the program runs with, such as "0.2.0".
COMMONDLL_API CStr GetVersion();

/// The same as a number, to compare with COMMONUI_VERSION, that of the headers it was compiled with.
COMMONDLL_API int GetVersionNumber();

} // namespace CommonUI
