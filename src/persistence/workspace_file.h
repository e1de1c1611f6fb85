// SPDX-License-Identifier: MIT
//
// Workspaces: a text file that lists the plots of a session, so that they open in one step.

#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

inline constexpr const char* kWorkspaceEnding = ".qwo";

/// The text of a workspace. Lines end in CR LF; paths have "/" between their parts, and are
/// relative in or below the folder. If a line cannot hold one of them, all are escaped.
///
/// @param paths   absolute, in the order of the plots
/// @param folder  of the new workspace, absolute
/// @param sheet   absolute path of the figure sheet; empty for none
[[nodiscard]] std::string WorkspaceText(std::span<const std::string> paths,
                                        const std::filesystem::path& folder,
                                        const std::string& sheet = {});

/// The paths that a workspace lists, made absolute, including those of files that do not exist.
/// Both kinds of separator are read.
///
/// @param folder  of the workspace, absolute
[[nodiscard]] std::vector<std::string> PathsOfWorkspace(std::string_view text,
                                                        const std::filesystem::path& folder);

/// The path of the figure sheet of a workspace, made absolute; empty for none. It is after the list
/// of files, where earlier versions do not read.
[[nodiscard]] std::string SheetOfWorkspace(std::string_view text,
                                           const std::filesystem::path& folder);

/// Whether a text is a list of files: the test for a workspace besides its extension or first line.
[[nodiscard]] bool HasFilesList(std::string_view text);

enum class WorkspaceDialog { Open, Save };

/// Asks for a workspace's path and stores it in the settings.
[[nodiscard]] std::optional<std::string> WorkspaceFileDialog(WorkspaceDialog mode);

enum class WorkspaceOutcome { Saved, Cancelled, Failed };

/// Saves the list of the open plots, after a dialog for its path and a question for each plot with
/// unsaved data: it is saved or left out. Cancelled when such a save fails or is cancelled: then no
/// workspace is written. An empty workspace is not written either, with a message.
WorkspaceOutcome SaveWorkspace();

/// The treatment of plots whose rows are in one of the program's own text files.
enum class PlotsSavedAsText {
    Ask,  ///< as for plots without a file
    List, ///< the workspace lists that file
};

/// As SaveWorkspace, with a known path.
///
/// @param reason  receives why it was not saved
WorkspaceOutcome SaveWorkspaceAs(const std::string& path,
                                 PlotsSavedAsText texts = PlotsSavedAsText::Ask,
                                 std::string* reason = nullptr);

/// Opens the plots of a workspace, and its figure sheet. Files that do not exist are skipped. The
/// status line reports how many were opened.
///
/// @return files opened; empty, with a message, when the workspace cannot be read
std::optional<int> OpenWorkspace(const std::string& path);

/// The outcome for the files that a workspace lists, in its order, the sheet last.
struct OpenedWorkspace {
    std::string path;
    std::vector<std::string> opened;
    std::vector<std::string> missing; ///< do not exist, or could not be opened

    static OpenedWorkspace now; ///< the last one of this session
};

/// The last workspace opened in this session; without a path before that.
[[nodiscard]] const OpenedWorkspace& LastOpenedWorkspace();

/// "3 of 4 files opened".
[[nodiscard]] std::string TextOfOpening(const OpenedWorkspace& workspace);

} // namespace quandrel
