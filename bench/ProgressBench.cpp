#include "dialogs/MemoryProgressView.h"
#include "dialogs/ProgressThreadDialog.h"
#include "platform/MemoryMessageLoop.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <latch>

using namespace CommonUI;

namespace
{

/// A dialog with a window, whose work is any function.
class CRun
{
public:
    CRun()
    {
        dialog.SetView(&view);
        dialog.SetWork(*this, &CRun::Work);
        dialog.SetStepCallback(*this, &CRun::OnStep);
    }
    void Work() { work(); }
    void OnStep(CProgressDialogBase&, const CStr&)
    {
        if (onStep)
            onStep();
    }

    CMemoryProgressView view;
    CProgressThreadDialog dialog{nullptr, u"Batch", {}};
    std::function<void()> work;
    std::function<void()> onStep;
};

const CStr c_text = u"Evaluating surface 17 of 250";

/// The user interface is at something else all the time, and handles no message.
void ReportToHangingInterface(benchmark::State& state)
{
    CRun run;
    std::latch done(1);
    run.work = [&] {
        for (auto _ : state)
            benchmark::DoNotOptimize(run.dialog.PostThreadProgress(1e-6F, state.range(0) ? c_text : CStr()));
        done.count_down();
    };
    GetMessageLoop().Post([&] {
        done.wait();
        run.dialog.EndDialog(CBaseDialog::c_ok);
    });
    run.dialog.DoModal();
}
BENCHMARK(ReportToHangingInterface)->ArgName("text")->Arg(0)->Arg(1)->UseRealTime();

/// The user interface handles reports as fast as it can.
void ReportToBusyInterface(benchmark::State& state)
{
    CRun run;
    run.work = [&] {
        for (auto _ : state)
            benchmark::DoNotOptimize(run.dialog.PostThreadProgress(1e-6F, state.range(0) ? c_text : CStr()));
    };
    run.dialog.DoModal();
}
BENCHMARK(ReportToBusyInterface)->ArgName("text")->Arg(0)->Arg(1)->UseRealTime();

/// What a report would cost if each one were a message with its own text.
void MessageForEachReport(benchmark::State& state)
{
    CRun run;
    run.work = [&] {
        for (auto _ : state)
            GetMessageLoop().Post([&run, text = c_text] { run.dialog.SetText(text); });
    };
    run.dialog.DoModal();
}
BENCHMARK(MessageForEachReport)->UseRealTime();

/// From the user's cancel to the return of work that reports all the time.
void Cancel(benchmark::State& state)
{
    using CClock = std::chrono::steady_clock;
    for (auto _ : state) {
        CRun run;
        CClock::time_point canceled;
        CClock::time_point returned;
        run.onStep = [&] {
            if (run.dialog.IsCanceled())
                return;
            canceled = CClock::now();
            run.dialog.OnCancel();
        };
        run.work = [&] {
            while (run.dialog.PostThreadProgress(1e-6F, c_text) == 0) {
            }
            returned = CClock::now();
        };
        run.dialog.DoModal();
        state.SetIterationTime(std::chrono::duration<double>(returned - canceled).count());
    }
}
BENCHMARK(Cancel)->UseManualTime()->Iterations(1000)->Unit(benchmark::kMicrosecond);

} // namespace
