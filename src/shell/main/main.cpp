// SPDX-License-Identifier: MIT
//
// quandrel: the program with its windows.

#include "platform/platform.h"
#include "platform/qt/qt_clipboard.h"
#include "platform/qt/qt_settings_store.h"
#include "platform/qt/qt_start.h"
#include "program/start.h"
#include "shell/geol_plot_main.h"
#include "shell/help_keys.h"
#include "shell/recovery_timer.h"
#include "shell/start_work.h"
#include "shell/widget_printers.h"

#include <QApplication>
#include <QDate>

#include <string>
#include <vector>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
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
    quandrel::InitialiseApplication();

    quandrel::GeolPlotMain window;
    window.ShowAtLastPlace();
    quandrel::RecoveryTimer recovery(window, quandrel::RecoveryFolder());
    std::vector<std::string> arguments;
    for (const QString& argument : QApplication::arguments().mid(1)) {
        arguments.push_back(argument.toStdString());
    }
    const quandrel::NamedFiles named = quandrel::FilesOfCommandLine(arguments);
    // What is asked comes over the window, and plots take their size from it: both wait for it.
    quandrel::RunOnceExposed(window, [&] {
        quandrel::StartWork(window, recovery, {});
        window.OpenNamedFiles(named);
    });
    return QApplication::exec();
}
