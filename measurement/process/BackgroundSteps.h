#pragma once

#include "../../export/Export.h"
#include "../BackgroundWork.h"
#include "StepProcessor.h"

#include <cstddef>
#include <functional>
#include <memory>

namespace CommonUI::Measurement
{

/// Does the steps of a surface on a thread of its own, as CBackgroundWork does: of several requests the last
/// one counts. What is computed for an earlier one ends with the step that it is at.
class COMMONUIMEASUREMENT_API CBackgroundSteps
{
public:
    /// Shows something; runs on the user-interface thread.
    using FShow = std::function<void()>;
    /// Makes on the thread what shall be shown of a result, and answers what shows it, which is called on the
    /// user-interface thread. It outlives this object, so it refers to nothing that goes with it.
    using FPrepare = std::function<FShow(const SProcessed&)>;
    /// @param seconds that steps, preparation and what shows the result took; those that it took once to have
    ///     fewer points do not count
    using FAnswered = std::function<void(const SProcessed&, double seconds)>;
    /// @param reason a clause
    using FFailed = std::function<void(const CStr& reason)>;

    /// @param answered called behind what shows a result; with `failed` it says what has come of a request
    CBackgroundSteps(FPrepare prepare, FAnswered answered, FFailed failed);
    /// Waits for nothing.
    ~CBackgroundSteps();
    CBackgroundSteps(const CBackgroundSteps&) = delete;
    CBackgroundSteps& operator=(const CBackgroundSteps&) = delete;

    /// @param size the most points along a side; a larger surface is done with fewer points than it has, and
    ///     with steps that make it look the same. 0 for all points
    void Request(std::shared_ptr<const SInput> original, CProcessSteps steps, std::size_t size = 0);
    /// Nobody wants an answer any more.
    void Cancel() { m_work.Cancel(); }
    /// Whether an answer is to come.
    bool IsBusy() const noexcept { return m_work.IsBusy(); }

private:
    struct SShared;

    FAnswered m_answered;
    FFailed m_failed;
    std::shared_ptr<SShared> m_shared;
    CBackgroundWork m_work;
};

} // namespace CommonUI::Measurement
