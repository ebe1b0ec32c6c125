#include "controls/FloatEdit.h"
#include "controls/IntEdit.h"
#include "controls/MemoryEditView.h"

#include <benchmark/benchmark.h>

using namespace CommonUI;

namespace
{

class CListener
{
public:
    void OnChange(int value) { sum += value; }
    void OnFloatChange(float value) { sum += static_cast<long long>(value); }
    bool OnValidate(int) { return true; }

    long long sum = 0;
};

// The value is set by the program: the edit's own cost without a window.
void SetValue(benchmark::State& state)
{
    CListener listener;
    CIntEdit edit;
    if (state.range(0))
        edit.SetChangeNotification(listener, &CListener::OnChange);
    int value = 0;
    for (auto _ : state)
        edit.SetValue(++value & 0xFFFF);
    benchmark::DoNotOptimize(listener.sum);
}
BENCHMARK(SetValue)->ArgName("listener")->Arg(0)->Arg(1);

// The user steps a value that a window shows.
void StepInWindow(benchmark::State& state)
{
    CListener listener;
    CMemoryEditView view;
    CIntEdit edit;
    edit.SetView(&view);
    edit.SetRange(0, 1000000, 1e-6);
    if (state.range(0)) {
        edit.SetValidator(listener, &CListener::OnValidate);
        edit.SetChangeNotification(listener, &CListener::OnChange);
    }
    for (auto _ : state)
        edit.OnSpinDeltaPos(edit.GetValue() < 1000000 ? 1 : -1000000);
    benchmark::DoNotOptimize(listener.sum);
}
BENCHMARK(StepInWindow)->ArgName("listener")->Arg(0)->Arg(1);

void StepRealInWindow(benchmark::State& state)
{
    CListener listener;
    CMemoryEditView view;
    CFloatEdit edit;
    edit.SetView(&view);
    edit.SetRange(0, 1000, 1e-4);
    if (state.range(0))
        edit.SetChangeNotification(listener, &CListener::OnFloatChange);
    for (auto _ : state)
        edit.OnSpinDeltaPos(edit.GetValue() < 1000 ? 1 : -10000);
    benchmark::DoNotOptimize(listener.sum);
}
BENCHMARK(StepRealInWindow)->ArgName("listener")->Arg(0)->Arg(1);

} // namespace
