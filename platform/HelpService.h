#pragma once

#include "../export/Export.h"
#include "Service.h"

namespace CommonUI
{

/// What an application lends the library to open its help. Used on the user-interface thread.
class COMMONUI_API CHelpService
{
public:
    CHelpService() = default;
    virtual ~CHelpService();
    CHelpService(const CHelpService&) = delete;
    CHelpService& operator=(const CHelpService&) = delete;

    /// Opens a topic by its number in the help system; that of a dialog is the dialog's number.
    /// @return false if there is no such topic
    virtual bool Open(unsigned int topic) = 0;

    /// Which one the process uses: see CServiceScope.
    static CCurrentService<CHelpService> s_current;
};

/// The service that the library opens help with. Unless one was set there is no help, and a line in the
/// diagnostics says which topic was asked for.
COMMONUI_API CHelpService& GetHelpService();

} // namespace CommonUI
