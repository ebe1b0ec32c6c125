#pragma once

#include "../export/Export.h"
#include "BackgroundWork.h"
#include "ComputeAnalysis.h"

#include <functional>
#include <memory>

namespace CommonUI::Measurement
{

/// Computes analyses of surfaces on a thread of its own, one after the other, as CBackgroundWork does.
class COMMONUIMEASUREMENT_API CBackgroundResults
{
public:
    /// What has come of a request.
    struct SAnswer {
        std::shared_ptr<SResultSet> set{};            ///< the receiver's own; null where there are no results
        CStr error{};                                 ///< why, in one sentence
        std::shared_ptr<const SInput> input{};        ///< the surface that was asked about
        std::shared_ptr<const SFoundGrains> grains{}; ///< of EAnalysis::Measure
    };
    /// Told what has come of a request, on the user-interface thread.
    using FAnswered = std::function<void(const SAnswer&)>;

    /// @param answered called for each request that is neither replaced nor cancelled
    explicit CBackgroundResults(FAnswered answered);
    /// Gives up what is computed, without waiting for it.
    ~CBackgroundResults();
    CBackgroundResults(const CBackgroundResults&) = delete;
    CBackgroundResults& operator=(const CBackgroundResults&) = delete;

    /// Asks for the results of an analysis, as ComputeAnalysis has them.
    /// @param choices of ChooseAnalysis for the analysis
    void Request(std::shared_ptr<const SInput> input, EAnalysis analysis, SChoices choices);
    /// Nobody wants an answer any more.
    void Cancel();
    /// Whether an answer is to come.
    bool IsBusy() const noexcept { return m_work.IsBusy(); }

private:
    FAnswered m_answered;
    CBackgroundWork m_work;
};

} // namespace CommonUI::Measurement
