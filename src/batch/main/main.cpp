// SPDX-License-Identifier: MIT
//
// quandrel-batch: plots, pictures and numbers from the command line.

#include "batch/command_line.h"
#include "qt/qt_start.h"
#include "session/start.h"

#include <QGuiApplication>

#include <iostream>

namespace {

/// Qt's messages about the desktop do not concern a program without a window.
void TellSevereFaultsOnly(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        std::cerr << text.toStdString() << '\n';
    }
}

} // namespace

int main(int argc, char** argv) {
    quandrel::BatchOptions options;
    if (const auto exitCode = quandrel::ReadCommandLine(argc, argv, options)) {
        return *exitCode;
    }
    // Fonts need an application object; no screen is opened.
    qInstallMessageHandler(TellSevereFaultsOnly);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    quandrel::UseNeutralNumbers();
    quandrel::UseTablePlugin(QCoreApplication::applicationDirPath().toStdString());
    return quandrel::RunBatch(options, std::cout, std::cerr);
}
