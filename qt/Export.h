#pragma once

/// @file
/// COMMONUIQT_API marks what CommonUIQt exports. The build of the library defines COMMONUIQT_BUILD; a static
/// build defines COMMONUI_STATIC for the library and its users.

#if defined(COMMONUI_STATIC)
#define COMMONUIQT_API
#elif defined(_WIN32)
#if defined(COMMONUIQT_BUILD)
#define COMMONUIQT_API __declspec(dllexport)
#else
#define COMMONUIQT_API __declspec(dllimport)
#endif
#else
#define COMMONUIQT_API __attribute__((visibility("default")))
#endif
