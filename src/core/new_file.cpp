// SPDX-License-Identifier: MIT

#include "core/new_file.h"

#include <cerrno>
#include <cstring>
#include <random>
#include <system_error>
#include <utility>

#ifdef _WIN32
#include <io.h>

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

constexpr std::string_view kNameBegin = ".quandrel-saving-";
constexpr std::string_view kNameLetters = "abcdefghijklmnopqrstuvwxyz0123456789";
constexpr std::size_t kRandomLetters = 8;
constexpr int kNameTries = 100;

std::string LastError() {
    return std::strerror(errno);
}

fs::path FolderOf(const fs::path& file) {
    const fs::path folder = file.parent_path();
    return folder.empty() ? fs::path(".") : folder;
}

/// A name that IsNameUnderWay recognises.
std::string RandomName() {
    static std::mt19937 random{std::random_device{}()};
    std::uniform_int_distribution<std::size_t> letter(0, kNameLetters.size() - 1);
    std::string name(kNameBegin);
    for (std::size_t i = 0; i < kRandomLetters; ++i) {
        name += kNameLetters[letter(random)];
    }
    return name;
}

#ifdef _WIN32

/// Writes, flushes and closes a file. Empty on success.
std::string WriteAll(std::FILE* file, const MakeBytes& make) {
    std::string failure; // of the first failed write
    std::string error = make([file, &failure](std::string_view bytes) {
        if (failure.empty() && std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size()) {
            failure = LastError();
        }
        return failure.empty();
    });
    error = failure.empty() ? error : failure;
    if (error.empty() && (std::fflush(file) != 0 || _commit(_fileno(file)) != 0)) {
        error = LastError();
    }
    if (std::fclose(file) != 0 && error.empty()) {
        error = LastError();
    }
    return error;
}

std::FILE* OpenNamed(const fs::path& folder, fs::path& name) {
    std::FILE* file = nullptr;
    for (int i = 0; i < kNameTries && file == nullptr; ++i) {
        name = folder / RandomName();
        file = _wfopen(name.c_str(), L"wbx");
        if (file == nullptr && errno != EEXIST) {
            break;
        }
    }
    return file;
}

#else

using FileFacts = struct stat;

constexpr std::size_t kPiece = 65536;

/// An open file, closed by its owner's destructor.
class Descriptor {
public:
    explicit Descriptor(int number)
        : number_(number) {}

    ~Descriptor() {
        if (IsOpen()) {
            close(number_);
        }
    }

    Descriptor(Descriptor&& other) noexcept
        : number_(std::exchange(other.number_, -1)) {}

    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor& operator=(Descriptor&&) = delete;

    [[nodiscard]] bool IsOpen() const { return number_ >= 0; }

    [[nodiscard]] int Number() const { return number_; }

private:
    int number_;
};

/// Until a file has its final rights only its owner can read it, unless the user's mask decides.
mode_t FirstRights(const std::optional<fs::perms>& rights) {
    return rights ? 0600 : 0666;
}

/// Buffers writes to a descriptor, so that each system call writes a large piece.
class PieceWriter {
public:
    explicit PieceWriter(const Descriptor& file)
        : file_(file) {}

    [[nodiscard]] bool Put(std::string_view bytes) {
        if (waiting_.size() + bytes.size() < kPiece) {
            waiting_ += bytes;
            return error_.empty();
        }
        Flush();
        Write(bytes);
        return error_.empty();
    }

    void Flush() {
        Write(waiting_);
        waiting_.clear();
    }

    /// The reason for the first failed write.
    [[nodiscard]] const std::string& Error() const { return error_; }

private:
    void Write(std::string_view bytes) {
        while (error_.empty() && !bytes.empty()) {
            const ssize_t written = write(file_.Number(), bytes.data(), bytes.size());
            if (written < 0 && errno != EINTR) {
                error_ = LastError();
            }
            bytes.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
        }
    }

    const Descriptor& file_;
    std::string waiting_;
    std::string error_;
};

/// Writes everything, sets the file's rights and flushes it to disk. Empty on success.
std::string Fill(const Descriptor& file, const MakeBytes& make,
                 const std::optional<fs::perms>& rights) {
    PieceWriter writer(file);
    std::string error = make([&writer](std::string_view bytes) { return writer.Put(bytes); });
    writer.Flush();
    error = writer.Error().empty() ? error : writer.Error();
    const bool isDone =
        error.empty()
        && (!rights || fchmod(file.Number(), static_cast<mode_t>(*rights & fs::perms::mask)) == 0)
        && fsync(file.Number()) == 0;
    return isDone || !error.empty() ? error : LastError();
}

/// A locked file with a unique name. On failure the reason is in errno.
Descriptor OpenNamed(const fs::path& folder, mode_t rights, fs::path& name) {
    for (int i = 0; i < kNameTries; ++i) {
        name = folder / RandomName();
        Descriptor file(
            open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, rights));
        if (!file.IsOpen() && errno != EEXIST) {
            return file;
        }
        // Before the lock another save may have removed the file as abandoned.
        FileFacts facts{};
        if (file.IsOpen() && (flock(file.Number(), LOCK_EX), true)
            && fstat(file.Number(), &facts) == 0 && facts.st_nlink > 0) {
            return file;
        }
    }
    errno = EEXIST;
    return Descriptor(-1);
}

std::string RenameOrRemove(const fs::path& name, const fs::path& target) {
    if (std::rename(name.c_str(), target.c_str()) == 0) {
        return {};
    }
    std::string error = LastError();
    unlink(name.c_str());
    return error;
}

std::string ReplaceByNamed(const fs::path& target, const MakeBytes& make,
                           const std::optional<fs::perms>& rights) {
    fs::path name;
    const Descriptor file = OpenNamed(FolderOf(target), FirstRights(rights), name);
    if (!file.IsOpen()) {
        return LastError();
    }
    std::string error = Fill(file, make, rights);
    if (!error.empty()) {
        unlink(name.c_str());
        return error;
    }
    return RenameOrRemove(name, target);
}

#ifdef O_TMPFILE

[[nodiscard]] bool NameIt(const Descriptor& file, const fs::path& name) {
    const std::string open = "/proc/self/fd/" + std::to_string(file.Number());
    return linkat(AT_FDCWD, open.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

/// Gives a complete file the name of the target. A name cannot replace that of another file; in
/// that case the file first takes a short name. Empty when files cannot be named here.
std::optional<std::string> PutInPlace(const Descriptor& file, const fs::path& target) {
    if (NameIt(file, target)) {
        return std::string();
    }
    for (int i = 0; errno == EEXIST && i < kNameTries; ++i) {
        const fs::path name = FolderOf(target) / RandomName();
        if (NameIt(file, name)) {
            return RenameOrRemove(name, target);
        }
    }
    return std::nullopt;
}

/// The bytes of an open file.
std::string CopyBytes(const Descriptor& file, const PutBytes& put) {
    std::string piece(kPiece, '\0');
    for (off_t at = 0;;) {
        const ssize_t count = pread(file.Number(), piece.data(), piece.size(), at);
        if (count < 0 && errno != EINTR) {
            return LastError();
        }
        if (count == 0 || (count > 0 && !put({piece.data(), static_cast<std::size_t>(count)}))) {
            return {};
        }
        at += count < 0 ? 0 : count;
    }
}

/// Empty where the system has no unnamed files.
std::optional<std::string> ReplaceByUnnamed(const fs::path& target, const MakeBytes& make,
                                            const std::optional<fs::perms>& rights) {
    const Descriptor file(
        open(FolderOf(target).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, FirstRights(rights)));
    if (!file.IsOpen()) {
        return std::nullopt;
    }
    std::string error = Fill(file, make, rights);
    if (!error.empty()) {
        return error;
    }
    // Locked before it has a name, so that no other save takes it for an abandoned file.
    (void)flock(file.Number(), LOCK_EX);
    const std::optional<std::string> placed = PutInPlace(file, target);
    const auto copy = [&file](const PutBytes& put) { return CopyBytes(file, put); };
    return placed ? *placed : ReplaceByNamed(target, copy, rights);
}

#else

std::optional<std::string> ReplaceByUnnamed(const fs::path&, const MakeBytes&,
                                            const std::optional<fs::perms>&) {
    return std::nullopt;
}

#endif

/// Flushes the names in a folder to disk. A system that cannot do so, or a folder that the user may
/// not read, is not a failure.
std::string SyncFolder(const fs::path& folder) {
    const Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const bool failed = opened.IsOpen() && fsync(opened.Number()) != 0 && errno == EIO;
    return failed ? LastError() : std::string();
}

/// Whether a file belongs to this user and no process holds it.
bool IsLeft(const fs::path& file) {
    const Descriptor opened(open(file.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    FileFacts facts{};
    return opened.IsOpen() && fstat(opened.Number(), &facts) == 0 && S_ISREG(facts.st_mode)
           && facts.st_uid == geteuid() && facts.st_nlink == 1
           && flock(opened.Number(), LOCK_EX | LOCK_NB) == 0;
}

#endif

} // namespace

bool IsNameUnderWay(std::string_view name) {
    return name.size() == kNameBegin.size() + kRandomLetters && name.starts_with(kNameBegin)
           && name.find_first_not_of(kNameLetters, kNameBegin.size()) == std::string_view::npos;
}

#ifdef _WIN32

// On this system a file has neither an owner nor a lock that would show whose it is.
void RemoveLeftUnderWay(const fs::path&) {}

std::string ReplaceByNewFile(const fs::path& target, const MakeBytes& make,
                             std::optional<fs::perms> rights, UnderWay) {
    fs::path name;
    std::FILE* const file = OpenNamed(FolderOf(target), name);
    if (file == nullptr) {
        return LastError();
    }
    std::string error = WriteAll(file, make);
    std::error_code failed;
    if (error.empty()) {
        fs::permissions(name, rights.value_or(fs::perms::all), failed);
        fs::rename(name, target, failed);
        error = failed ? failed.message() : std::string();
    }
    if (!error.empty()) {
        fs::remove(name, failed);
    }
    return error;
}

#else

void RemoveLeftUnderWay(const fs::path& folder) {
    std::error_code failed;
    for (fs::directory_iterator at(folder, failed), end; !failed && at != end;
         at.increment(failed)) {
        if (IsNameUnderWay(at->path().filename().string()) && IsLeft(at->path())) {
            unlink(at->path().c_str());
        }
    }
}

std::string ReplaceByNewFile(const fs::path& target, const MakeBytes& make,
                             std::optional<fs::perms> rights, UnderWay underWay) {
    RemoveLeftUnderWay(FolderOf(target));
    std::optional<std::string> error;
    if (underWay == UnderWay::Unnamed) {
        error = ReplaceByUnnamed(target, make, rights);
    }
    if (!error) {
        error = ReplaceByNamed(target, make, rights);
    }
    return error->empty() ? SyncFolder(FolderOf(target)) : *error;
}

#endif

} // namespace quandrel
