// SPDX-License-Identifier: MIT
//
// quandrel-batch: plots, pictures and numbers from the command line.

#include "batch/batch_session.h"
#include "batch/script.h"
#include "core/settings.h"
#include "platform/qt/qt_start.h"

#include <CLI/CLI.hpp>
#include <QGuiApplication>

#include <fstream>
#include <iostream>
#include <iterator>
#include <new>
#include <sstream>

namespace {

constexpr int kFailed = 1;
constexpr int kBadUsage = 2;

struct Options {
    std::string data;
    std::string picture;
    int size = 0;
    std::string save;
    std::string json;
    std::string format;
    std::string script;
    std::string commands;
    bool stats = false;
};

/// A word of a script that stands for a path, whatever it holds.
std::string Quoted(const std::string& path) {
    std::string quoted = "\"";
    for (const char c : path) {
        quoted += c == '"' ? std::string("\\\"") : std::string(1, c);
    }
    return quoted + "\"";
}

std::string OneLine(std::string text) {
    for (char& c : text) {
        c = c == '\n' ? ' ' : c;
    }
    return text;
}

/// The short form as a script. The plot takes the name of the file that it is saved to, so that
/// comes behind the picture.
std::string ScriptOfShortForm(const Options& options) {
    std::string script;
    if (!options.format.empty()) {
        script += "format " + OneLine(options.format) + "\n";
    }
    script += "open " + Quoted(options.data) + "\n";
    if (!options.picture.empty()) {
        const std::string size = options.size > 0 ? " size=" + std::to_string(options.size) : "";
        script += "export " + Quoted(options.picture) + size + "\n";
    }
    if (!options.json.empty()) {
        script += "dump " + Quoted(options.json) + "\n";
    }
    if (!options.save.empty()) {
        script += "save " + Quoted(options.save) + "\n";
    }
    return options.stats ? script + "stats\n" : script;
}

/// The text of a script file, or of standard input for "-". False when it cannot be read.
bool ReadScript(const std::string& path, std::string& text) {
    if (path == "-") {
        text.assign(std::istreambuf_iterator<char>(std::cin), {});
        return true;
    }
    const std::ifstream stream(path, std::ios::binary);
    std::ostringstream content;
    content << stream.rdbuf();
    text = content.str();
    return stream.is_open();
}

int RunText(const std::string& text, quandrel::CommandBreak breaks) {
    const auto commands = quandrel::ParseScript(text, breaks);
    if (!commands) {
        std::cerr << "quandrel-batch: " << commands.Error() << '\n';
        return kFailed;
    }
    quandrel::BatchSession session(std::cout, std::cerr);
    const std::string error = session.Run(*commands);
    if (!error.empty()) {
        std::cerr << "quandrel-batch: " << error << '\n';
        return kFailed;
    }
    return 0;
}

int Run(const Options& options) {
    const int sources = (options.data.empty() ? 0 : 1) + (options.script.empty() ? 0 : 1)
                        + (options.commands.empty() ? 0 : 1);
    if (sources != 1) {
        std::cerr << "quandrel-batch: one of DATA, --script, -c is wanted; see --help\n";
        return kBadUsage;
    }
    if (!options.commands.empty()) {
        return RunText(options.commands, quandrel::CommandBreak::SemicolonToo);
    }
    if (options.script.empty()) {
        return RunText(ScriptOfShortForm(options), quandrel::CommandBreak::LineOnly);
    }
    std::string text;
    if (!ReadScript(options.script, text)) {
        std::cerr << "quandrel-batch: the script '" << options.script << "' cannot be read\n";
        return kFailed;
    }
    return RunText(text, quandrel::CommandBreak::LineOnly);
}

/// What Qt has to say of the desktop does not concern a program without one.
void TellSevereFaultsOnly(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        std::cerr << text.toStdString() << '\n';
    }
}

} // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app{"Stereonets from orientation data, without a screen.", "quandrel-batch"};
    app.set_version_flag("--version", quandrel::gCaption);
    app.add_option("DATA", options.data, "a data file to plot");
    app.add_option("-o,--output", options.picture, "picture to draw: .png, .svg or .pdf");
    app.add_option("--size", options.size, "height of a PNG in pixels")
        ->check(CLI::Range(50, 20000));
    app.add_option("--save", options.save, "file to save the plot to: .txt");
    app.add_option("--json", options.json, "file for all data and results of the plot");
    app.add_option("--format", options.format, "format of the data, as for the command 'format'");
    app.add_flag("--stats", options.stats, "print the statistics");
    app.add_option("--script", options.script,
                   "file of commands, one a line; - reads standard input");
    app.add_option("-c", options.commands, "commands, parted by semicolons");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kBadUsage;
    }
    // Fonts need an application object; a screen is never opened.
    qInstallMessageHandler(TellSevereFaultsOnly);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    quandrel::UseNeutralNumbers();
    try {
        return Run(options);
    } catch (const std::bad_alloc&) {
        std::cerr << "quandrel-batch: there is not enough memory\n";
        return kFailed;
    }
}
