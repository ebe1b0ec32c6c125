#pragma once

/// @file
/// What each library of the project exports is marked with a macro of its own: COMMONDLL_API, COMMONUI_API,
/// COMMONUIQT_API, COMMONUIWIN_API, COMMONUIANALYSIS_API, COMMONUIFORMATS_API, COMMONUIMEASUREMENT_API. The
/// build of a library defines its name with _BUILD behind it, such as COMMONUIDLL_BUILD; a static build
/// defines COMMONUI_STATIC for the libraries and their users.
///
/// A constant of an exported class is a COMMONUI_CONSTANT: `COMMONUI_CONSTANT int c_ok = 1;`. GCC for Windows
/// leaves a `static constexpr` out of the DLL where the library itself only takes its value, and a user who
/// takes its address, as a reference does, would not link.

#if defined(COMMONUI_STATIC)
#define COMMONUI_EXPORT
#define COMMONUI_IMPORT
#elif defined(_WIN32)
#define COMMONUI_EXPORT __declspec(dllexport)
#define COMMONUI_IMPORT __declspec(dllimport)
#else
#define COMMONUI_EXPORT __attribute__((visibility("default"))) ///< in the build of a library
#define COMMONUI_IMPORT COMMONUI_EXPORT                        ///< in that of its users
#endif

#if defined(_WIN32) && defined(__GNUC__)
#define COMMONUI_CONSTANT [[gnu::used]] static constexpr
#else
#define COMMONUI_CONSTANT static constexpr ///< a constant of an exported class
#endif

#if defined(COMMONDLL_BUILD)
#define COMMONDLL_API COMMONUI_EXPORT
#else
#define COMMONDLL_API COMMONUI_IMPORT ///< marks what CommonDLL exports
#endif

#if defined(COMMONUIDLL_BUILD)
#define COMMONUI_API COMMONUI_EXPORT
#else
#define COMMONUI_API COMMONUI_IMPORT ///< marks what CommonUIDLL exports
#endif

#if defined(COMMONUIANALYSIS_BUILD)
#define COMMONUIANALYSIS_API COMMONUI_EXPORT
#else
#define COMMONUIANALYSIS_API COMMONUI_IMPORT ///< marks what CommonUIAnalysis exports
#endif

#if defined(COMMONUIFORMATS_BUILD)
#define COMMONUIFORMATS_API COMMONUI_EXPORT
#else
#define COMMONUIFORMATS_API COMMONUI_IMPORT ///< marks what CommonUIFormats exports
#endif

#if defined(COMMONUIMEASUREMENT_BUILD)
#define COMMONUIMEASUREMENT_API COMMONUI_EXPORT
#else
#define COMMONUIMEASUREMENT_API COMMONUI_IMPORT ///< marks what CommonUIMeasurement exports
#endif

#if defined(COMMONUIQT_BUILD)
#define COMMONUIQT_API COMMONUI_EXPORT
#else
#define COMMONUIQT_API COMMONUI_IMPORT ///< marks what CommonUIQt exports
#endif

#if defined(COMMONUIWIN_BUILD)
#define COMMONUIWIN_API COMMONUI_EXPORT
#else
#define COMMONUIWIN_API COMMONUI_IMPORT ///< marks what CommonUIWin exports
#endif
