#pragma once

#include "../export/Export.h"
#include "ReportTables.h"

#include <functional>
#include <memory>

namespace CommonUI::Measurement
{

/// Computes the results of surfaces on a thread of its own, one after the other. Of several requests the last
/// one counts: one that waits is replaced, and the results of one that is computed are not told any more.
///
/// Used on the user-interface thread; results come in a message of the loop of the process.
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
    /// Waits for what is computed, which nobody is told of.
    ~CBackgroundResults();
    CBackgroundResults(const CBackgroundResults&) = delete;
    CBackgroundResults& operator=(const CBackgroundResults&) = delete;

    /// Asks for the results of a surface, and not for those of its profiles unless it is one.
    void Request(std::shared_ptr<const SInput> input, SChoices choices);
    /// Nobody wants an answer any more.
    void Cancel();
    /// Whether an answer is to come.
    bool IsBusy() const noexcept { return m_isBusy; }

private:
    class CWorker;

    void Tell(unsigned request, const SAnswer& answer);

    FAnswered m_answered;
    unsigned m_last = 0; // request
    bool m_isBusy = false;
    std::shared_ptr<CBackgroundResults*> m_self; // null in messages that come after the end
    std::unique_ptr<CWorker> m_worker;
};

} // namespace CommonUI::Measurement
