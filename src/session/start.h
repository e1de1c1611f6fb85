// SPDX-License-Identifier: MIT
//
// Bringing the program up: the engine's folders are connected here, and nowhere else.
//
// Inside the folder: how a session starts and closes, what its menus offer, where its windows
// stand.
// Enters: the arguments of a command line, the settings, the state of the store.
// Leaves: an engine that is ready, plots that are closed after the questions they call for, and the
// state of each command as a value that window and scripts read.

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// Makes the engine ready: decimal delimiter, style tables, settings, printers, an empty store, and
/// who draws plots. gPlatform must be set.
void InitialiseApplication();

/// The path of an existing file among the arguments of the command line (without the program's
/// name), which may have been cut at its blanks, or an empty text.
[[nodiscard]] std::string GetCommandLineFile(const std::vector<std::string>& arguments);

/// What a command line comes to that opens no window.
struct AnswerOnTerminal {
    std::string text;
    int exitCode = 0; ///< 0: the text was asked for; 2: it is a complaint, for standard error
};

/// The answer to --help (-h), --version (-v) and options that there are none of; nothing when the
/// program is to start. Arguments that are files, or after "--", are no options.
///
/// @param arguments  without the program's name and the options of Qt
[[nodiscard]] std::optional<AnswerOnTerminal>
AnswerToOptions(const std::vector<std::string>& arguments);

/// What the command line names.
struct NamedFiles {
    std::vector<std::string> files;   ///< that are there, in their order
    std::vector<std::string> missing; ///< the other arguments
};

/// The files that the arguments of the command line name: one whose path was cut at its blanks, as
/// GetCommandLineFile has it, or one for each argument.
[[nodiscard]] NamedFiles FilesOfCommandLine(const std::vector<std::string>& arguments);

/// What to tell of the missing ones; empty where none is.
[[nodiscard]] std::string TextOfMissing(const NamedFiles& named);

/// The start command of the first recent file; the others follow it.
inline constexpr int kFirstRecentFile = 91;

/// The start commands of the intro screen and the file menu: 1 a rose diagram, 2 a blank plot, 6 a
/// workspace, 91 and above recent file number `index` modulo 10, any other a stereographic plot of
/// a file. False when nothing was opened.
bool IntroStart(int index);

} // namespace quandrel
