#pragma once

/// @file
/// COMMONDLL_API marks what CommonDLL exports. The build of the library defines COMMONDLL_BUILD; a static
/// build defines COMMONUI_STATIC for the library and its users.

#if defined(COMMONUI_STATIC)
#define COMMONDLL_API
#elif defined(_WIN32)
#if defined(COMMONDLL_BUILD)
#define COMMONDLL_API __declspec(dllexport)
#else
#define COMMONDLL_API __declspec(dllimport)
#endif
#else
#define COMMONDLL_API __attribute__((visibility("default")))
#endif
