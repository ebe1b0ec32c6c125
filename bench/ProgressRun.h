#pragma once

#include "dialogs/ProgressThreadDialog.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <utility>

namespace CommonUI
{

inline const CStr c_progressText = u"Evaluating surface 17 of 250";

/// A dialog whose work is any function.
template<class TDialog>
class CProgressRun
{
public:
    CProgressRun()
    {
        m_dialog.SetWork(*this, &CProgressRun::Work);
        m_dialog.SetStepCallback(*this, &CProgressRun::OnStep);
    }
    void Work() { m_work(); }
    void OnStep(CProgressDialogBase&, const CStr&)
    {
        if (m_onStep)
            m_onStep();
    }

    TDialog m_dialog{nullptr, u"Batch", {}};
    std::function<void()> m_work{};
    std::function<void()> m_onStep{};
};

/// From the user's cancel to the return of work that reports all the time.
/// @tparam TRun a CProgressRun
/// @param cancel does what the user does
template<class TRun, class FCancel>
void MeasureCancel(benchmark::State& state, FCancel cancel)
{
    using CClock = std::chrono::steady_clock;
    for (auto _ : state) {
        TRun run;
        CClock::time_point canceled;
        CClock::time_point returned;
        run.m_onStep = [&] {
            if (run.m_dialog.IsCanceled())
                return;
            canceled = CClock::now();
            cancel(run.m_dialog);
        };
        run.m_work = [&] {
            while (run.m_dialog.PostThreadProgress(1e-6F, c_progressText) == 0) {
            }
            returned = CClock::now();
        };
        run.m_dialog.DoModal();
        state.SetIterationTime(std::chrono::duration<double>(returned - canceled).count());
    }
}

} // namespace CommonUI
