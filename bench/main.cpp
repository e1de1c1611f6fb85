// SPDX-License-Identifier: MIT
//
// Runs the benchmarks of a program, with an application object for fonts if Qt is used.

#include <benchmark/benchmark.h>

#if defined(QUANDREL_WITH_WINDOWS)
#include <QApplication>
using Application = QApplication;
#elif defined(QUANDREL_WITH_QT)
#include <QGuiApplication>
using Application = QGuiApplication;
#endif

int main(int argc, char** argv) {
#ifdef QUANDREL_WITH_QT
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const Application application(argc, argv);
#endif
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
