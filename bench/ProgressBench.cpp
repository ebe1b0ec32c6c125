#include "bench/ProgressRun.h"
#include "dialogs/MemoryProgressView.h"
#include "platform/memory/MemoryMessageLoop.h"

#include <latch>

using namespace CommonUI;

namespace
{

// A dialog with what stands for a window.
class CRun : public CProgressRun<CProgressThreadDialog>
{
public:
    CRun() { m_dialog.SetView(&m_view); }

private:
    CMemoryProgressView m_view;
};

// The user interface is at something else all the time, and handles no message.
void ReportToHangingInterface(benchmark::State& state)
{
    CRun run;
    std::latch done(1);
    run.m_work = [&] {
        for (auto _ : state)
            benchmark::DoNotOptimize(
                run.m_dialog.PostThreadProgress(1e-6F, state.range(0) ? c_progressText : CStr()));
        done.count_down();
    };
    GetMessageLoop().Post([&] {
        done.wait();
        run.m_dialog.EndDialog(CBaseDialog::c_ok);
    });
    run.m_dialog.DoModal();
}
BENCHMARK(ReportToHangingInterface)->ArgName("text")->Arg(0)->Arg(1)->UseRealTime();

// The user interface handles reports as fast as it can.
void ReportToBusyInterface(benchmark::State& state)
{
    CRun run;
    run.m_work = [&] {
        for (auto _ : state)
            benchmark::DoNotOptimize(
                run.m_dialog.PostThreadProgress(1e-6F, state.range(0) ? c_progressText : CStr()));
    };
    run.m_dialog.DoModal();
}
BENCHMARK(ReportToBusyInterface)->ArgName("text")->Arg(0)->Arg(1)->UseRealTime();

// What a report would cost if each one were a message with its own text.
void MessageForEachReport(benchmark::State& state)
{
    CRun run;
    run.m_work = [&] {
        for (auto _ : state)
            GetMessageLoop().Post([&run, text = c_progressText] { run.m_dialog.SetText(text); });
    };
    run.m_dialog.DoModal();
}
BENCHMARK(MessageForEachReport)->UseRealTime();

void Cancel(benchmark::State& state)
{
    MeasureCancel<CRun>(state, [](CProgressThreadDialog& dialog) { dialog.OnCancel(); });
}
BENCHMARK(Cancel)->UseManualTime()->Iterations(1000)->Unit(benchmark::kMicrosecond);

} // namespace
