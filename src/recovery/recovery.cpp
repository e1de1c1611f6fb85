// SPDX-License-Identifier: MIT

#include "recovery/recovery.h"

#include "core/atomic_file.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "persistence/binary_plot_file.h"
#include "platform/platform.h"
#include "recovery/copy_names.h"
#include "session/closing.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <iterator>
#include <optional>
#include <system_error>
#include <utility>

#ifdef _WIN32
#include <process.h>
#include <share.h>

#include <cstdio>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace quandrel {

namespace fs = std::filesystem;

namespace {

/// Attached to a plot whose last copy could not be written.
struct LacksCopy {
    bool isTold = false; ///< reported, or about to be
};

/// Attached to a plot that has a copy.
struct WrittenCopy {
    std::uint64_t fingerprint = 0; ///< hash of the plot as written
};

constexpr const char* kLockName = "lock";
constexpr int kFolderTries = 100;

/// A lock that ends with its process.
class FileLock {
public:
    /// Tries once; a file that is locked elsewhere, or gone since, leaves this object without a
    /// lock.
    explicit FileLock(const fs::path& path) {
#ifdef _WIN32
        file_ = _wfsopen(path.c_str(), L"a", _SH_DENYRW);
#else
        descriptor_ = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
        using Status = struct stat;
        Status status{};
        if (descriptor_ >= 0
            && (flock(descriptor_, LOCK_EX | LOCK_NB) != 0 || fstat(descriptor_, &status) != 0
                || status.st_nlink == 0)) {
            close(descriptor_);
            descriptor_ = -1;
        }
#endif
    }

    ~FileLock() {
#ifdef _WIN32
        if (file_ != nullptr) {
            std::fclose(file_);
        }
#else
        if (descriptor_ >= 0) {
            close(descriptor_);
        }
#endif
    }

    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

#ifdef _WIN32
    [[nodiscard]] bool Holds() const {
        return file_ != nullptr;
    }

private:
    std::FILE* file_ = nullptr;
#else
    [[nodiscard]] bool Holds() const {
        return descriptor_ >= 0;
    }

private:
    int descriptor_ = -1;
#endif
};

int ProcessNumber() {
#ifdef _WIN32
    return _getpid();
#else
    return getpid();
#endif
}

/// The slot of a copy, or nothing for any other file.
std::optional<int> SlotOfCopy(const fs::path& file) {
    return SlotOfCopyName(file.filename().string());
}

/// Makes a private folder. False when it exists already, or for the reason in the error code.
[[nodiscard]] bool MakePrivateFolder(const fs::path& path, std::error_code& failed) {
#ifdef _WIN32
    return fs::create_directory(path, failed);
#else
    const bool isMade = mkdir(path.c_str(), 0700) == 0;
    failed = isMade || errno == EEXIST ? std::error_code()
                                       : std::error_code(errno, std::generic_category());
    return isMade;
#endif
}

[[nodiscard]] bool WantsThemBack(std::size_t count) {
    return AskYes(count == 1 ? "Quandrel was not closed properly. 1 plot was not saved.\n"
                               "Open it again?"
                             : "Quandrel was not closed properly. " + std::to_string(count)
                                   + " plots were not saved.\nOpen them again?");
}

[[nodiscard]] bool MayRemove(std::size_t count) {
    return AskYes(count == 1 ? "Remove the unsaved plot for good?\n"
                               "If you answer No, it is offered again at the next start."
                             : "Remove the unsaved plots for good?\n"
                               "If you answer No, they are offered again at the next start.",
                  AtStake::Work);
}

} // namespace

/// The folder of a session, with its lock.
class SessionFolder {
public:
    explicit SessionFolder(fs::path path)
        : path_(std::move(path))
        , lock_(path_ / kLockName) {}

    [[nodiscard]] bool IsOurs() const { return lock_.Holds(); }

    [[nodiscard]] const fs::path& Path() const { return path_; }

    [[nodiscard]] std::vector<fs::path> Copies() const {
        std::vector<fs::path> copies;
        std::error_code failed;
        for (fs::directory_iterator at(path_, failed), end; !failed && at != end;
             at.increment(failed)) {
            std::error_code unreadable;
            if (SlotOfCopy(at->path()) && at->is_regular_file(unreadable)) {
                copies.push_back(at->path());
            }
        }
        std::ranges::sort(copies, {}, [](const fs::path& file) { return *SlotOfCopy(file); });
        return copies;
    }

    /// The lock is held until everything is removed, so that nobody takes the rest for copies.
    void Remove() const {
        std::error_code failed;
        fs::remove_all(path_, failed);
    }

private:
    fs::path path_;
    FileLock lock_;
};

RecoverySession::RecoverySession(fs::path root)
    : root_(std::move(root)) {}

RecoverySession::~RecoverySession() {
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        PlotOf(slot).attachments.Drop<WrittenCopy>();
    }
    if (folder_ != nullptr) {
        folder_->Remove();
    }
}

std::string RecoverySession::MakeFolder() {
    if (folder_ != nullptr) {
        return {};
    }
    std::error_code failed;
    fs::create_directories(root_.parent_path(), failed);
    if (!failed) {
        (void)MakePrivateFolder(root_, failed);
    }
    for (int i = 1; !failed && i <= kFolderTries; ++i) {
        const fs::path path = root_ / (std::to_string(ProcessNumber()) + "-" + std::to_string(i));
        if (!MakePrivateFolder(path, failed)) {
            continue;
        }
        // Another start may have taken it for an abandoned one before it was locked.
        if (auto folder = std::make_unique<SessionFolder>(path); folder->IsOurs()) {
            folder_ = std::move(folder);
            return {};
        }
        fs::remove_all(path, failed);
    }
    return failed ? failed.message() : "their folder cannot be locked";
}

fs::path RecoverySession::CopyOf(int slot) const {
    return folder_->Path() / CopyName(slot);
}

std::vector<int> RecoverySession::PlotsToWrite() const {
    std::vector<int> slots;
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (!IsOpenSlot(slot) || !HoldsUnsavedData(slot)) {
            continue;
        }
        const auto* const copy = PlotOf(slot).attachments.Find<WrittenCopy>();
        if (copy == nullptr || copy->fingerprint != FingerprintOf(slot)) {
            slots.push_back(slot);
        }
    }
    return slots;
}

std::string RecoverySession::Write(int slot) {
    std::string error = WriteCopy(slot);
    if (error.empty()) {
        PlotOf(slot).attachments.Drop<LacksCopy>();
        return error;
    }
    bool& isTold = PlotOf(slot).attachments.Of<LacksCopy>().isTold;
    if (!std::exchange(isTold, true)) {
        untold_.push_back(RecordOf(slot).PlotTitle);
    }
    reason_ = error;
    return error;
}

std::string RecoverySession::FailuresToTell() {
    constexpr std::size_t kMostNames = 3;
    const std::vector<std::string> titles = std::exchange(untold_, {});
    if (titles.empty()) {
        return {};
    }
    std::string names = titles.front();
    for (std::size_t i = 1; i < titles.size(); ++i) {
        names += ", " + titles[i];
    }
    if (titles.size() > kMostNames) {
        names = std::to_string(titles.size()) + " plots";
    }
    return names + " cannot be kept for recovery: " + reason_;
}

bool RecoverySession::LacksCopies() const {
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (IsOpenSlot(slot) && HoldsUnsavedData(slot)
            && PlotOf(slot).attachments.Find<LacksCopy>() != nullptr) {
            return true;
        }
    }
    return false;
}

std::string RecoverySession::WriteCopy(int slot) {
    if (std::string error = MakeFolder(); !error.empty()) {
        return error;
    }
    const Result<std::string> bytes = RecoveryCopyBytes(slot);
    if (!bytes) {
        return bytes.Error();
    }
    std::string error = WriteFileAtomically(CopyOf(slot).string(), *bytes);
    if (error.empty()) {
        PlotOf(slot).attachments.Of<WrittenCopy>() = {FingerprintOf(slot)};
    }
    return error;
}

void RecoverySession::Adopt(const fs::path& copy, int slot) {
    if (!MakeFolder().empty()) {
        return;
    }
    // Renaming the same bytes: there is no moment without a copy, and no space is needed.
    std::error_code failed;
    fs::rename(copy, CopyOf(slot), failed);
    if (!failed) {
        PlotOf(slot).attachments.Of<WrittenCopy>() = {FingerprintOf(slot)};
    }
}

void RecoverySession::DropSettled() {
    for (const fs::path& copy : folder_ != nullptr ? folder_->Copies() : std::vector<fs::path>()) {
        const int slot = *SlotOfCopy(copy);
        Plot* const plot = PlotSlots::Find(slot);
        if (plot != nullptr && IsOpenSlot(slot) && HoldsUnsavedData(slot)
            && plot->attachments.Find<WrittenCopy>() != nullptr) {
            continue;
        }
        if (plot != nullptr) {
            plot->attachments.Drop<WrittenCopy>();
        }
        std::error_code failed;
        fs::remove(copy, failed);
    }
}

LeftPlots::LeftPlots(const fs::path& root) {
    std::vector<fs::path> paths;
    std::error_code failed;
    for (fs::directory_iterator at(root, failed), end; !failed && at != end; at.increment(failed)) {
        std::error_code unreadable;
        if (at->symlink_status(unreadable).type() == fs::file_type::directory
            && IsSessionName(at->path().filename().string())) {
            paths.push_back(at->path());
        }
    }
    std::ranges::sort(paths);
    for (const fs::path& path : paths) {
        if (auto folder = std::make_unique<SessionFolder>(path); folder->IsOurs()) {
            folders_.push_back(std::move(folder));
        }
    }
}

LeftPlots::~LeftPlots() {
    for (const auto& folder : folders_) {
        if (folder->Copies().empty()) {
            folder->Remove();
        }
    }
}

std::vector<fs::path> LeftPlots::Files() const {
    std::vector<fs::path> files;
    for (const auto& folder : folders_) {
        std::ranges::copy(folder->Copies(), std::back_inserter(files));
    }
    return files;
}

void LeftPlots::RemoveAll() {
    for (const auto& folder : folders_) {
        folder->Remove();
    }
    folders_.clear();
}

std::vector<RecoveredPlot> RecoverPlots(const std::vector<fs::path>& files) {
    std::vector<RecoveredPlot> recovered;
    recovered.reserve(files.size());
    for (const fs::path& file : files) {
        recovered.push_back(OpenRecoveryCopy(file));
    }
    return recovered;
}

std::vector<int> OfferRecovery(RecoverySession& session) {
    LeftPlots left(session.Root());
    const std::vector<fs::path> files = left.Files();
    if (files.empty()) {
        return {};
    }
    if (!WantsThemBack(files.size())) {
        if (MayRemove(files.size())) {
            left.RemoveAll();
        }
        return {};
    }
    std::vector<int> slots;
    for (const RecoveredPlot& plot : RecoverPlots(files)) {
        if (plot.slot == 0) {
            Tell("An unsaved plot cannot be opened again\n" + plot.file.string() + "\n"
                 + plot.problem);
            continue;
        }
        session.Adopt(plot.file, plot.slot);
        slots.push_back(plot.slot);
    }
    return slots;
}

} // namespace quandrel
