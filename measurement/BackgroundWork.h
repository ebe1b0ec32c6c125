#pragma once

#include "../export/Export.h"

#include <functional>
#include <memory>

namespace CommonUI::Measurement
{

/// Does work on a thread of its own, one piece after the other. Of several requests the last one counts: one
/// that waits is replaced, and what comes of one that is done already is not shown any more. Whoever goes
/// waits for nothing: the thread ends by itself when its work is done.
///
/// Used on the user-interface thread; what comes of the work is shown in a message of the loop of the
/// process.
class COMMONUIMEASUREMENT_API CBackgroundWork
{
public:
    using FShow = std::function<void()>;     ///< on the user-interface thread
    using FIsWanted = std::function<bool()>; ///< whether somebody still waits for the work
    /// On the thread. It holds all that it needs, must not throw, and says how to show what has come of it.
    using FWork = std::function<FShow(const FIsWanted&)>;

    CBackgroundWork();
    ~CBackgroundWork();
    CBackgroundWork(const CBackgroundWork&) = delete;
    CBackgroundWork& operator=(const CBackgroundWork&) = delete;

    /// Asks for work, in place of what was asked for before.
    void Request(FWork work);
    /// Nobody wants what was asked for any more.
    void Cancel();
    /// Whether something is to be shown.
    bool IsBusy() const noexcept;

    /// Runs what nobody waits for on a thread of its own. It holds all that it needs, and must not throw.
    static void Run(std::function<void()> work);
    /// Waits for all threads; their owners have to be gone. To be called before the process ends, which takes
    /// away what they use.
    static void WaitForAll();

private:
    struct SShared;

    std::shared_ptr<SShared> m_shared;
};

} // namespace CommonUI::Measurement
