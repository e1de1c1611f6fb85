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
/// relative in or below the folder. Where a line cannot hold one of them, all are escaped.
///
/// @param paths   absolute, in the order of the plots
/// @param folder  where the workspace will be, absolute
[[nodiscard]] std::string WorkspaceText(std::span<const std::string> paths,
                                        const std::filesystem::path& folder);

/// The paths that a workspace lists, made absolute; those of files that do not exist too. Both
/// kinds of separator are read.
///
/// @param folder  where the workspace is, absolute
[[nodiscard]] std::vector<std::string> PathsOfWorkspace(std::string_view text,
                                                        const std::filesystem::path& folder);

/// True for a text with a list of files, which a workspace is beside its ending or first line.
[[nodiscard]] bool HasFilesList(std::string_view text);

enum class WorkspaceDialog { Open, Save };

/// Asks for a workspace's path and remembers it in the settings.
[[nodiscard]] std::optional<std::string> WorkspaceFileDialog(WorkspaceDialog mode);

enum class WorkspaceOutcome { Saved, Cancelled, Failed };

/// Saves the list of the open plots, after a dialog for its path and a question for each plot that
/// has unsaved data: it is saved or left out. Cancelled when such a save comes to nothing: then no
/// workspace is written. Nor is one that would list nothing, which is told.
WorkspaceOutcome SaveWorkspace();

/// What becomes of plots whose rows a text file of the program's own holds.
enum class PlotsSavedAsText {
    Ask,  ///< as of plots without a file
    List, ///< they are listed by it
};

/// As SaveWorkspace, to a path that is known.
///
/// @param reason  takes why it was not saved
WorkspaceOutcome SaveWorkspaceAs(const std::string& path,
                                 PlotsSavedAsText texts = PlotsSavedAsText::Ask,
                                 std::string* reason = nullptr);

/// Opens the plots of a workspace. Files that do not exist are passed over. The status line says
/// how many were opened.
///
/// @return plots opened; nothing, with a message, when the workspace cannot be read
std::optional<int> OpenWorkspace(const std::string& path);

/// What came of the files that a workspace lists, in its order.
struct OpenedWorkspace {
    std::string path;
    std::vector<std::string> opened;
    std::vector<std::string> missing; ///< do not exist, or did not open
};

/// The workspace that was opened last in this session; without a path before that.
[[nodiscard]] const OpenedWorkspace& LastOpenedWorkspace();

/// "3 of 4 files opened".
[[nodiscard]] std::string TextOfOpening(const OpenedWorkspace& workspace);

} // namespace quandrel
