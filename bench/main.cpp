// SPDX-License-Identifier: MIT
//
// Runs the benchmarks of a program, with what fonts need where there is Qt.

#include <benchmark/benchmark.h>

#ifdef QUANDREL_WITH_QT
#include <QGuiApplication>
#endif

int main(int argc, char** argv) {
#ifdef QUANDREL_WITH_QT
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
#endif
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
