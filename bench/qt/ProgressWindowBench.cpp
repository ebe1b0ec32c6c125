#include "platform/MessageLoop.h"
#include "qt/QtProgressDialog.h"

#include <benchmark/benchmark.h>
#include <QPushButton>

#include <chrono>
#include <functional>

using namespace CommonUI;

namespace
{

/// A dialog on the screen, whose work is any function.
class CRun
{
public:
    CRun()
    {
        dialog.SetWork(*this, &CRun::Work);
        dialog.SetStepCallback(*this, &CRun::OnStep);
    }
    void Work() { work(); }
    void OnStep(CProgressDialogBase&, const CStr&)
    {
        if (onStep)
            onStep();
    }

    CQtProgressThreadDialog dialog{nullptr, u"Batch", {}};
    std::function<void()> work;
    std::function<void()> onStep;
};

const CStr c_text = u"Evaluating surface 17 of 250";

/// The window shows steps and texts, and repaints its bar, as fast as it can.
void ReportToBusyWindow(benchmark::State& state)
{
    CRun run;
    run.dialog.SetWrap(true);
    run.work = [&] {
        for (auto _ : state)
            benchmark::DoNotOptimize(run.dialog.PostThreadProgress(1, state.range(0) ? c_text : CStr()));
        // The steps that are left are not measured.
        GetMessageLoop().Post([&] { run.dialog.EndDialog(CBaseDialog::c_ok); });
    };
    run.dialog.DoModal();
}
BENCHMARK(ReportToBusyWindow)->ArgName("text")->Arg(0)->Arg(1)->UseRealTime();

/// From pressing Cancel to the return of work that reports all the time.
void CancelByButton(benchmark::State& state)
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
            run.dialog.GetWindow()->GetCancelButton().click();
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
BENCHMARK(CancelByButton)->UseManualTime()->Iterations(200)->Unit(benchmark::kMicrosecond);

} // namespace
