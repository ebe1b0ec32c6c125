#pragma once

/// @file
/// COMMONUI_API marks what CommonUIDLL exports. The build of the library defines COMMONUIDLL_BUILD; a static
/// build defines COMMONUI_STATIC for the library and its users.

#if defined(COMMONUI_STATIC)
#define COMMONUI_API
#elif defined(_WIN32)
#if defined(COMMONUIDLL_BUILD)
#define COMMONUI_API __declspec(dllexport)
#else
#define COMMONUI_API __declspec(dllimport)
#endif
#else
#define COMMONUI_API __attribute__((visibility("default")))
#endif
