#pragma once

#include "../export/Export.h"
#include "Service.h"

#include <cstdint>

namespace CommonUI
{

/// What an application lends the library for its timers: repeated ticks on the user-interface thread.
///
/// All functions are called on that thread, and ticks arrive there, from the message loop or whatever stands
/// for it. A tick may be made while another one is handled, when the handler runs a loop of its own.
class COMMONUI_API CTimerService
{
public:
    /// Names a timer of the service; 0 names none.
    using TIdentifier = std::uintptr_t;
    /// Called for each tick, with the timer that ticks. It may create and kill any timer, and throw; an
    /// exception reaches whoever runs the loop.
    using FProcedure = void (*)(TIdentifier);

    CTimerService() = default;
    virtual ~CTimerService();
    CTimerService(const CTimerService&) = delete;
    CTimerService& operator=(const CTimerService&) = delete;

    /// Starts a timer that ticks for the first time after one interval, and then until it is killed.
    /// @param interval in milliseconds; a service may raise what is too short for it and lower what is too
    ///     long
    /// @return an identifier that no other living timer of the service has; 0 if the timer cannot be created
    virtual TIdentifier Create(unsigned int interval, FProcedure procedure) = 0;
    /// Ends a timer. @return false if there is none of this identifier
    virtual bool Kill(TIdentifier identifier) = 0;
    /// Milliseconds on a clock that never goes back, by which the timers tick. It begins whenever it likes;
    /// only differences mean something. The default is the steady clock of the machine.
    virtual std::uint64_t GetTime() const;

    /// Which one the process uses: see CServiceScope.
    static CCurrentService<CTimerService> s_current;
};

/// The service that the timers of the process use: GetConsoleTimerService() unless another one was set.
COMMONUI_API CTimerService& GetTimerService();

} // namespace CommonUI
