#include "qt/QtServices.h"

#include <benchmark/benchmark.h>
#include <QApplication>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const CommonUI::CQtServices services;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
