// SPDX-License-Identifier: MIT
//
// Starting the program: the folders of the engine are connected here, and nowhere else.
//
// This folder holds the start and the closing of a session, the state of its menus, and the
// positions of its windows.
// Input: the arguments of a command line, the settings, the state of the store.
// Output: an engine that is ready, plots that are closed after the necessary questions, and the
// state of each command as a value for window and scripts.

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// Initialises the engine: decimal delimiter, style tables, settings, printers, an empty store, and
/// the procedure that draws plots. gPlatform must be set.
void InitialiseApplication();

/// The path of an existing file among the arguments of the command line (without the program's
/// name), whose path may have been split at its blanks; or an empty text.
[[nodiscard]] std::string GetCommandLineFile(const std::vector<std::string>& arguments);

/// The answer to a command line that opens no window.
struct AnswerOnTerminal {
    std::string text;
    int exitCode = 0; ///< 0: the text was requested; 2: it is an error, for standard error
};

/// The answer to --help (-h), --version (-v) and invalid options; nothing when the program is to
/// start. Arguments that are files, or come after "--", are not options.
///
/// @param arguments  without the program's name and the options of Qt
[[nodiscard]] std::optional<AnswerOnTerminal>
AnswerToOptions(const std::vector<std::string>& arguments);

/// What the command line names.
struct NamedFiles {
    std::vector<std::string> files;   ///< those that exist, in order
    std::vector<std::string> missing; ///< the other arguments
};

/// The files named on the command line: one whose path was split at its blanks, as for
/// GetCommandLineFile, or one for each argument.
[[nodiscard]] NamedFiles FilesOfCommandLine(const std::vector<std::string>& arguments);

/// The message about missing files; empty when there are none.
[[nodiscard]] std::string TextOfMissing(const NamedFiles& named);

/// The start command of the first recent file; those of the others follow.
inline constexpr int kFirstRecentFile = 91;

/// The start commands of the intro screen and the file menu: 1 a rose diagram, 2 a blank plot, 6 a
/// workspace, 91 and above recent file number `index` modulo 10, any other a stereographic plot of
/// a file. False when no plot was opened, as for a figure sheet.
bool IntroStart(int index);

/// Lets the program open spreadsheets and tables of map data, by the plug-in near its own folder.
void UseTablePlugin(const std::filesystem::path& programFolder);

} // namespace quandrel
