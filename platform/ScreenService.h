#pragma once

#include "../common/Rect.h"
#include "../export/Export.h"
#include "Service.h"

#include <vector>

namespace CommonUI
{

/// A monitor of the desktop, in the pixels that windows are placed in: a toolkit that scales counts larger
/// ones on a fine monitor.
struct SScreen {
    SRect area{};     ///< all of it
    SRect workArea{}; ///< without task bars and docks
    int scale = 100;  ///< the pixels of the device per pixel of windows, in percent

    friend bool operator==(const SScreen&, const SScreen&) = default;
};

/// What an application lends the library to know the monitors of its desktop. Used on the user-interface
/// thread.
class COMMONUI_API CScreenService
{
public:
    CScreenService() = default;
    virtual ~CScreenService();
    CScreenService(const CScreenService&) = delete;
    CScreenService& operator=(const CScreenService&) = delete;

    /// The monitors as they are now, the main one first.
    virtual std::vector<SScreen> GetScreens() const = 0;

    /// Which one the process uses: see CServiceScope.
    static CCurrentService<CScreenService> s_current;
};

/// The service that the library asks for monitors. Unless one was set there are none.
COMMONUI_API CScreenService& GetScreenService();

} // namespace CommonUI
