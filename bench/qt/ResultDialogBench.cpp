// The result dialog with the 138 parameters of the roughness catalogue as rows, from nothing to its first
// picture; beside it an empty dialog of the same size with one button. Then a column that is hidden and shown
// again, and other results of the same parameters, each with what is drawn of it. The time of the processor
// counts: the other includes that of the display.
#include "model/RoughnessCatalogue.h"
#include "qt/results/ResultPanelWidget.h"
#include "qt/results/ResultWindow.h"

#include <benchmark/benchmark.h>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QVBoxLayout>

#include <memory>

using namespace CommonUI;

namespace
{

std::shared_ptr<const SResultSet> MakeResults(double first)
{
    auto set = std::make_shared<SResultSet>();
    set->name = u"Roughness";
    set->title = u"hills";
    set->summary = {{u"File", u"hills"}, {u"Levelling", u"none"}};
    set->rowHeader = u"Surface parameter";
    set->rowNames = {u"Raw", u"Processed"};
    set->isTransposed = true;
    for (const auto& row : GetRoughnessParametersEnum()) {
        const CParameter parameter =
            MakeRoughnessParameter(static_cast<ERoughnessParameters>(row.GetValue()));
        set->quantities.push_back({.key = parameter.GetIniName(),
                                   .parameter = parameter,
                                   .header = parameter.GetFriendlyString(),
                                   .values = {first, 1.2345678e-6}});
    }
    return set;
}

void Paint(QWidget& window)
{
    QCoreApplication::processEvents();
    benchmark::DoNotOptimize(window.grab());
}

void OpenEmpty(benchmark::State& state)
{
    const QSize size = CQtResultDialog().GetWindow()->sizeHint();
    for (auto _ : state) {
        QDialog dialog;
        auto* const layout = new QVBoxLayout(&dialog);
        layout->addWidget(new QDialogButtonBox(QDialogButtonBox::Close));
        dialog.resize(size);
        dialog.show();
        Paint(dialog);
    }
}

void OpenResults(benchmark::State& state)
{
    const auto results = MakeResults(1e-6);
    for (auto _ : state) {
        CResultLayoutManager layouts;
        CQtResultDialog dialog(nullptr, layouts);
        dialog.SetResults(results);
        dialog.Create();
        Paint(*dialog.GetWindow());
    }
    state.counters["rows"] = static_cast<double>(results->quantities.size());
}

void HideAndShow(benchmark::State& state)
{
    CResultLayoutManager layouts;
    CQtResultDialog dialog(nullptr, layouts);
    dialog.SetResults(MakeResults(1e-6));
    dialog.Create();
    Paint(*dialog.GetWindow());
    bool hide = false;
    for (auto _ : state) {
        constexpr std::size_t c_row[] = {3};
        dialog.GetPanel().Hide(c_row, hide = !hide);
        QCoreApplication::processEvents();
    }
}

void ShowOthers(benchmark::State& state)
{
    CResultLayoutManager layouts;
    CQtResultDialog dialog(nullptr, layouts);
    const std::shared_ptr<const SResultSet> sets[] = {MakeResults(1e-6), MakeResults(2e-6)};
    dialog.SetResults(sets[0]);
    dialog.Create();
    Paint(*dialog.GetWindow());
    std::size_t next = 0;
    for (auto _ : state) {
        dialog.SetResults(sets[++next % std::size(sets)]);
        QCoreApplication::processEvents();
    }
}

// 10^5 rows of 8 quantities as a file, in memory.
void MakeFile(benchmark::State& state)
{
    constexpr std::size_t c_rows = 100'000;
    constexpr std::size_t c_quantities = 8;
    auto set = std::make_shared<SResultSet>(*MakeResults(1e-6));
    set->isTransposed = false;
    set->rowNames.assign(c_rows, u"row");
    set->quantities.resize(c_quantities, set->quantities.front());
    for (SResultQuantity& quantity : set->quantities)
        quantity.values.assign(c_rows, 1.2345678e-6);
    CResultLayoutManager layouts;
    CQtResultDialog dialog(nullptr, layouts);
    dialog.SetResults(set);
    for (auto _ : state)
        benchmark::DoNotOptimize(dialog.GetPanel().MakeFile(static_cast<EResultFile>(state.range(0))));
}

} // namespace

BENCHMARK(OpenEmpty)->Name("ResultDialog/OpenEmpty")->Unit(benchmark::kMillisecond);
BENCHMARK(OpenResults)->Name("ResultDialog/Open138")->Unit(benchmark::kMillisecond);
BENCHMARK(HideAndShow)->Name("ResultDialog/Hide")->Unit(benchmark::kMillisecond);
BENCHMARK(ShowOthers)->Name("ResultDialog/OtherResults")->Unit(benchmark::kMillisecond);
// Of the kinds of files, in their order: text, CSV for spreadsheets and for machines, HTML, PDF.
BENCHMARK(MakeFile)->Name("ResultDialog/File")->DenseRange(0, 4)->Unit(benchmark::kMillisecond);
