#include "qt/services/QtServices.h"

#include <benchmark/benchmark.h>
#include <QApplication>

int main(int argc, char** argv)
{
    // Pictures are drawn in memory; nothing is shown.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setStyle(QStringLiteral("Fusion"));
    const QApplication application(argc, argv);
    const CommonUI::CQtServices services;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
