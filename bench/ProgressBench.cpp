#include "dialogs/ProgressThreadDialog.h"
#include "platform/MessageLoop.h"

#include <benchmark/benchmark.h>

#include <atomic>

using namespace CommonUI;

namespace
{

class CWaiting
{
public:
    void Work()
    {
        while (!end)
            std::this_thread::yield();
    }
    std::atomic<bool> end = false;
};

/// A report while the user interface is busy and handles nothing.
void Report(benchmark::State& state)
{
    CConsoleMessageLoop loop;
    CMessageLoop* const before = SetMessageLoop(&loop);
    {
        CWaiting waiting;
        CProgressThreadDialog dialog(u"Batch");
        dialog.SetWork(waiting, &CWaiting::Work);
        dialog.RunThread();
        const CStr text = u"Evaluating surface 17 of 250";
        for (auto _ : state)
            benchmark::DoNotOptimize(dialog.PostThreadProgress(0.01F, state.range(0) ? text : CStr()));
        waiting.end = true;
    }
    SetMessageLoop(before);
}
BENCHMARK(Report)->ArgName("text")->Arg(0)->Arg(1);

/// Work that reports all the time.
class CEager
{
public:
    void Work()
    {
        while (dialog->PostThreadProgress(0.01F, CStr()) == 0) {
        }
    }
    CProgressThreadDialog* dialog = nullptr;
};

/// From the cancel of the user to the end of the work.
void Cancel(benchmark::State& state)
{
    CConsoleMessageLoop loop;
    CMessageLoop* const before = SetMessageLoop(&loop);
    for (auto _ : state) {
        state.PauseTiming();
        CEager eager;
        CProgressThreadDialog dialog(u"Batch");
        eager.dialog = &dialog;
        dialog.SetWork(eager, &CEager::Work);
        dialog.RunThread();
        loop.RunUntil([&] { return !dialog.IsDelayed(); });
        state.ResumeTiming();
        dialog.OnCancel();
        loop.RunUntil([&] { return !dialog.IsWorking(); });
    }
    SetMessageLoop(before);
}
BENCHMARK(Cancel)->Iterations(300)->UseRealTime()->Unit(benchmark::kMicrosecond);

} // namespace
