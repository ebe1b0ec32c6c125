#pragma once

#include "../export/Export.h"
#include "BackgroundWork.h"
#include "ReportTables.h"

#include <functional>
#include <memory>

namespace CommonUI::Measurement
{

/// Computes the results of surfaces on a thread of its own, one after the other, as CBackgroundWork does.
class COMMONUIMEASUREMENT_API CBackgroundResults
{
public:
    /// What has come of a request.
    struct SAnswer {
        std::shared_ptr<const CReportTables> tables{}; ///< null where there are none
        CStr error{};                                  ///< why, in one sentence
        std::shared_ptr<const SInput> input{};         ///< to which the tables refer
    };
    using FAnswered = std::function<void(const SAnswer&)>;

    explicit CBackgroundResults(FAnswered answered);
    /// Gives up what is computed, without waiting for it.
    ~CBackgroundResults();
    CBackgroundResults(const CBackgroundResults&) = delete;
    CBackgroundResults& operator=(const CBackgroundResults&) = delete;

    /// Asks for the results of a surface, and not for those of its profiles unless it is one.
    void Request(std::shared_ptr<const SInput> input, SChoices choices);
    /// Nobody wants an answer any more.
    void Cancel();
    /// Whether an answer is to come.
    bool IsBusy() const noexcept { return m_work.IsBusy(); }

private:
    FAnswered m_answered;
    CBackgroundWork m_work;
};

} // namespace CommonUI::Measurement
