// SPDX-License-Identifier: MIT
//
// quandrel: the program with its windows.
//
// Only the start is in this folder itself. The windows are in the rooms below it, each a library of
// its own, with controls at the bottom and main at the top (docs/architecture.md).
// Input: the command line.
// Output: an exit code. The ports of the engine are set here, before any other call of the engine.

#include "pdf/pdf_file.h"
#include "persistence/open_plot.h"
#include "platform/platform.h"
#include "qt/qt_clipboard.h"
#include "qt/qt_settings_store.h"
#include "qt/qt_start.h"
#include "session/start.h"
#include "shell/help/help_keys.h"
#include "shell/main/geol_plot_main.h"
#include "shell/main/recovery_timer.h"
#include "shell/main/start_work.h"
#include "shell/print/widget_printers.h"

#include <QApplication>
#include <QDate>

#include <iostream>
#include <optional>
#include <string>
#include <vector>

namespace {

/// Prints what needs no window; true if the program can then exit.
bool IsAnswered(const std::optional<quandrel::AnswerOnTerminal>& answer) {
    if (answer) {
        (answer->exitCode == 0 ? std::cout : std::cerr) << answer->text << std::flush;
    }
    return answer.has_value();
}

/// The output of --help and --version, which need no screen either.
std::optional<quandrel::AnswerOnTerminal> AnswerWithoutScreen(int argc, char** argv) {
    auto answer = quandrel::AnswerToOptions(std::vector<std::string>(argv + 1, argv + argc));
    return answer && answer->exitCode == 0 ? answer : std::nullopt;
}

} // namespace

int main(int argc, char** argv) {
    if (IsAnswered(AnswerWithoutScreen(argc, argv))) {
        return 0;
    }
    const QApplication application(argc, argv); // removes Qt's own options
    std::vector<std::string> arguments;
    for (const QString& argument : QApplication::arguments().mid(1)) {
        arguments.push_back(argument.toStdString());
    }
    if (const auto answer = quandrel::AnswerToOptions(arguments); IsAnswered(answer)) {
        return answer->exitCode;
    }
    quandrel::UseNeutralNumbers();
    QApplication::setDesktopFileName("quandrel");
    new quandrel::HelpKeys(qApp);

    quandrel::QtSettingsStore settings;
    quandrel::QtClipboard clipboard;
    quandrel::WidgetPrinters printers;
    quandrel::gPlatform.settings = &settings;
    quandrel::gPlatform.clipboard = &clipboard;
    quandrel::gPlatform.printers = &printers;
    quandrel::gPlatform.decimalIsComma = quandrel::QtDecimalIsComma();
    quandrel::gPlatform.today = QDate::currentDate().toString(Qt::ISODate).toStdString();
    quandrel::OpenState::now.readPdf = quandrel::AttachmentOfPdf;
    quandrel::UseTablePlugin(QCoreApplication::applicationDirPath().toStdString());
    quandrel::InitialiseApplication();

    quandrel::GeolPlotMain window;
    window.ShowAtLastPlace();
    quandrel::RecoveryTimer recovery(window, quandrel::RecoveryFolder());
    const quandrel::NamedFiles named = quandrel::FilesOfCommandLine(arguments);
    // Questions appear above the window, and plots take their size from it, so both wait for it.
    quandrel::RunOnceExposed(window, [&] {
        quandrel::StartWork(window, recovery, {});
        window.OpenNamedFiles(named);
    });
    return QApplication::exec();
}
