// The selection dialog with all 138 parameters of the roughness catalogue, from nothing to its first picture;
// beside it an empty dialog of the same size with two buttons. Then a key in the search field and the tick of
// a group, each with what is drawn of it. The time of the processor counts: the other includes that of the
// display.
#include "qt/selection/QtSelectionDlg.h"

#include <benchmark/benchmark.h>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

using namespace CommonUI;

namespace
{

// The analysis of images with the parameters of profiles as well.
CAnalysisPreferencesManager& AllParameters()
{
    static CAnalysisPreferencesManager manager;
    static const bool filled = [] {
        std::vector<CParameter> list = manager.GetData(EAnalysis::Roughness).GetParameters();
        for (const CParameter& parameter : manager.GetData(EAnalysis::RoughnessProfile).GetParameters())
            if (std::find(list.begin(), list.end(), parameter.GetValue()) == list.end())
                list.push_back(parameter);
        return manager.SetDataParameters(EAnalysis::Roughness, list);
    }();
    benchmark::DoNotOptimize(filled);
    return manager;
}

void Paint(QWidget& window)
{
    QCoreApplication::processEvents();
    benchmark::DoNotOptimize(window.grab());
}

void OpenEmpty(benchmark::State& state)
{
    for (auto _ : state) {
        QDialog dialog;
        auto* const layout = new QVBoxLayout(&dialog);
        layout->addWidget(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel));
        dialog.resize(840, 540);
        dialog.show();
        Paint(dialog);
    }
}

void OpenSelection(benchmark::State& state)
{
    for (auto _ : state) {
        CQtSelectionDlg dialog(AllParameters(), EAnalysis::Roughness);
        dialog.Create();
        Paint(*dialog.GetWindow());
    }
}

void PressSearchKey(benchmark::State& state)
{
    CQtSelectionDlg dialog(AllParameters(), EAnalysis::Roughness);
    dialog.Create();
    Paint(*dialog.GetWindow());
    QLineEdit& field = dialog.GetWindow()->GetSearchField();
    const QString texts[] = {QStringLiteral("r"), QStringLiteral("ra"), QStringLiteral("r"), QString()};
    std::size_t next = 0;
    for (auto _ : state) {
        field.setText(texts[next++ % std::size(texts)]);
        QCoreApplication::processEvents();
    }
}

void PressCheckBox(benchmark::State& state)
{
    CQtSelectionDlg dialog(AllParameters(), EAnalysis::Roughness);
    dialog.Create();
    Paint(*dialog.GetWindow());
    bool on = false;
    for (auto _ : state) {
        dialog.OnCheck(0, on = !on);
        QCoreApplication::processEvents();
    }
}

} // namespace

BENCHMARK(OpenEmpty)->Name("SelectionDialog/OpenEmpty")->Unit(benchmark::kMillisecond);
BENCHMARK(OpenSelection)->Name("SelectionDialog/Open138")->Unit(benchmark::kMillisecond);
BENCHMARK(PressSearchKey)->Name("SelectionDialog/SearchKey")->Unit(benchmark::kMillisecond);
BENCHMARK(PressCheckBox)->Name("SelectionDialog/Check")->Unit(benchmark::kMillisecond);
