// SPDX-License-Identifier: MIT
//
// Recovery of unsaved plots. While a session runs, copies of its unsaved plots stand in a folder of
// its own below the recovery folder; a session that ends in good order takes the folder away. What
// is found there at a start was left by a session that did not.
//
// A session holds a lock on its folder. The system frees it when the process ends in whatever way,
// so a folder without a lock belongs to nobody. A copy is a binary plot file with the plot's names
// behind its last field: any reader of binary plot files takes it.
//
// Enters: the unsaved plots of the store, and the folders that other sessions left.
// Leaves: copies in this session's folder, and after a crash the plots that the user wants back.

#pragma once

#include "recovery/recovery_copy.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace quandrel {

class SessionFolder;

/// The copies of the plots of this session. The folder is made with the first copy.
class RecoverySession {
public:
    /// @param root  the recovery folder that all sessions share; need not exist
    explicit RecoverySession(std::filesystem::path root);

    /// The end of the session in good order: all copies go.
    ~RecoverySession();

    RecoverySession(const RecoverySession&) = delete;
    RecoverySession& operator=(const RecoverySession&) = delete;

    [[nodiscard]] const std::filesystem::path& Root() const { return root_; }

    /// The slots that hold unsaved data of which there is no copy, or an earlier one. O(rows), some
    /// ten milliseconds for a million rows.
    [[nodiscard]] std::vector<int> PlotsToWrite() const;

    /// Writes the copy of a slot; an earlier one stays until this one is whole.
    /// @return empty on success, else why not
    [[nodiscard]] std::string Write(int slot);

    /// What the user is to know of copies that could not be written since this was asked last,
    /// empty when there is nothing new: a plot is told of once, until a copy of it is written.
    [[nodiscard]] std::string FailuresToTell();

    /// True while an open plot with unsaved data has no copy because it could not be written.
    [[nodiscard]] bool LacksCopies() const;

    /// Takes a copy of an earlier session over as that of a slot that was opened from it.
    void Adopt(const std::filesystem::path& copy, int slot);

    /// Removes the copies of plots that are closed or without unsaved data by now.
    void DropSettled();

private:
    [[nodiscard]] std::string MakeFolder();
    [[nodiscard]] std::string WriteCopy(int slot);
    [[nodiscard]] std::filesystem::path CopyOf(int slot) const;

    std::filesystem::path root_;
    std::unique_ptr<SessionFolder> folder_;
    std::map<int, std::uint64_t> copies_; ///< fingerprints of the plots as they were written
    std::vector<std::string> untold_;     ///< titles of plots without a copy that nobody knows of
    std::string reason_;                  ///< of the last of them
};

/// The copies that sessions left that are no more. While this lives no other start sees them.
class LeftPlots {
public:
    explicit LeftPlots(const std::filesystem::path& root);

    /// Folders without copies go, the others stay for the next start.
    ~LeftPlots();

    LeftPlots(const LeftPlots&) = delete;
    LeftPlots& operator=(const LeftPlots&) = delete;

    /// By session, then by slot.
    [[nodiscard]] std::vector<std::filesystem::path> Files() const;

    void RemoveAll();

private:
    std::vector<std::unique_ptr<SessionFolder>> folders_;
};

/// Opens copies as plots with unsaved data. One that cannot be opened does not keep the others from
/// it.
[[nodiscard]] std::vector<RecoveredPlot>
RecoverPlots(const std::vector<std::filesystem::path>& files);

/// Asks whether plots of earlier sessions are to be opened again, and opens them. A no is followed
/// by the question whether they may be removed; otherwise they are offered again at the next start.
/// @return slots of the plots opened
std::vector<int> OfferRecovery(RecoverySession& session);

} // namespace quandrel
