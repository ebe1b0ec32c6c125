#pragma once

#include "../export/Export.h"
#include "Service.h"

namespace CommonUI
{

/// What an application lends the library for its threads beyond what the C++ library offers.
class COMMONUI_API CThreadService
{
public:
    CThreadService() = default;
    virtual ~CThreadService();
    CThreadService(const CThreadService&) = delete;
    CThreadService& operator=(const CThreadService&) = delete;

    /// Asks the operating system to run the calling thread at a priority, from -15 (when there is nothing
    /// else to do) over 0 (as usual) to 15 (time-critical). Called on each new worker thread before its work.
    /// The default does nothing, since C++ knows no priorities.
    /// @return whether the system agreed; the work is done in either case
    virtual bool SetPriority(int priority);

    /// Which one the process uses: see CServiceScope.
    static CCurrentService<CThreadService> s_current;
};

/// The service of the process: one that has the defaults unless another one was set.
COMMONUI_API CThreadService& GetThreadService();

} // namespace CommonUI
