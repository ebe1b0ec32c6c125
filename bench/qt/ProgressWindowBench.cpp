#include "bench/ProgressRun.h"
#include "platform/MessageLoop.h"
#include "qt/dialogs/QtProgressDialog.h"

#include <QPushButton>

using namespace CommonUI;

namespace
{

using CRun = CProgressRun<CQtProgressThreadDialog>;

// The window shows steps and texts, and repaints its bar, as fast as it can.
void ReportToBusyWindow(benchmark::State& state)
{
    CRun run;
    run.m_dialog.SetWrap(true);
    run.m_work = [&] {
        for (auto _ : state)
            benchmark::DoNotOptimize(
                run.m_dialog.PostThreadProgress(1, state.range(0) ? c_progressText : CStr()));
        // The steps that are left are not measured.
        GetMessageLoop().Post([&] { run.m_dialog.EndDialog(CBaseDialog::c_ok); });
    };
    run.m_dialog.DoModal();
}
BENCHMARK(ReportToBusyWindow)->ArgName("text")->Arg(0)->Arg(1)->UseRealTime();

void CancelByButton(benchmark::State& state)
{
    MeasureCancel<CRun>(
        state, [](CQtProgressThreadDialog& dialog) { dialog.GetWindow()->GetCancelButton().click(); });
}
BENCHMARK(CancelByButton)->UseManualTime()->Iterations(200)->Unit(benchmark::kMicrosecond);

} // namespace
