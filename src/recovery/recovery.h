// SPDX-License-Identifier: MIT
//
// Recovery of unsaved plots. While a session runs, copies of its unsaved plots are in a folder of
// its own below the recovery folder; a session that ends properly removes the folder. Copies found
// at a start were left by a session that did not.
//
// A session holds a lock on its folder. The system frees it when the process ends, however it ends,
// so a folder without a lock belongs to nobody. A copy is a binary plot file with the plot's names
// at its end: any reader of binary plot files accepts it.
//
// Input: the unsaved plots of the store, and the folders that other sessions left.
// Output: copies in this session's folder, and after a crash the plots that the user wants back.

#pragma once

#include "recovery/recovery_copy.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace quandrel {

class SessionFolder;

/// The copies of the plots of this session. The folder is made with the first copy.
class RecoverySession {
public:
    /// @param root  the recovery folder that all sessions share; it may not exist yet
    explicit RecoverySession(std::filesystem::path root);

    /// Ends the session properly: removes all copies.
    ~RecoverySession();

    RecoverySession(const RecoverySession&) = delete;
    RecoverySession& operator=(const RecoverySession&) = delete;

    [[nodiscard]] const std::filesystem::path& Root() const { return root_; }

    /// The slots with unsaved data of which there is no copy, or an outdated one. O(rows), about
    /// ten milliseconds for a million rows.
    [[nodiscard]] std::vector<int> PlotsToWrite() const;

    /// Writes the copy of a slot; an earlier one stays until this one is complete.
    /// @return empty on success, else the reason
    [[nodiscard]] std::string Write(int slot);

    /// The message about copies that could not be written since the last call, empty when there is
    /// nothing new: a plot is reported once, until a copy of it is written.
    [[nodiscard]] std::string FailuresToTell();

    /// True while an open plot with unsaved data has no copy because it could not be written.
    [[nodiscard]] bool LacksCopies() const;

    /// Takes over a copy of an earlier session as the copy of a slot that was opened from it.
    void Adopt(const std::filesystem::path& copy, int slot);

    /// Removes the copies of plots that are closed or no longer have unsaved data.
    void DropSettled();

private:
    [[nodiscard]] std::string MakeFolder();
    [[nodiscard]] std::string WriteCopy(int slot);
    [[nodiscard]] std::filesystem::path CopyOf(int slot) const;

    std::filesystem::path root_;
    std::unique_ptr<SessionFolder> folder_;
    std::vector<std::string> untold_; ///< titles of plots without a copy, not yet reported
    std::string reason_;              ///< for the last of them
};

/// The copies left by sessions that no longer run. While this object lives, no other start sees
/// them.
class LeftPlots {
public:
    explicit LeftPlots(const std::filesystem::path& root);

    /// Removes folders without copies; the others stay for the next start.
    ~LeftPlots();

    LeftPlots(const LeftPlots&) = delete;
    LeftPlots& operator=(const LeftPlots&) = delete;

    /// Sorted by session, then by slot.
    [[nodiscard]] std::vector<std::filesystem::path> Files() const;

    void RemoveAll();

private:
    std::vector<std::unique_ptr<SessionFolder>> folders_;
};

/// Opens copies as plots with unsaved data. When one cannot be opened, the others still are.
[[nodiscard]] std::vector<RecoveredPlot>
RecoverPlots(const std::vector<std::filesystem::path>& files);

/// Asks whether to open plots of earlier sessions again, and opens them. After a no, asks whether
/// they may be removed; otherwise they are offered again at the next start.
/// @return slots of the plots opened
std::vector<int> OfferRecovery(RecoverySession& session);

} // namespace quandrel
