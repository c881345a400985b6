#include "benchmarks/dicomio/ScanBenchmark.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <cstring>

int main(int argc, char *argv[])
{
    if (argc == 4 && std::strcmp(argv[1], "--scan-once") == 0) {
        return scanOnce(argv[2], argv[3]);
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
