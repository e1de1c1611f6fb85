// SPDX-License-Identifier: MIT

#include "core/atomic_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <sstream>
#include <vector>

namespace {

/// What the system's functions below are to do in addition to their work.
std::vector<bool> syncedFolders; ///< for each fsync, whether it was that of a folder
std::function<void()> beforeRename;
uid_t pretendedUser = 0; ///< 0 is the real one
bool linksFail = false;

} // namespace

// These replace the library's functions in this program.

extern "C" int fsync(int descriptor) {
    struct stat facts {};

    fstat(descriptor, &facts);
    syncedFolders.push_back(S_ISDIR(facts.st_mode));
    return static_cast<int>(syscall(SYS_fsync, descriptor));
}

extern "C" int rename(const char* from, const char* to) noexcept {
    if (beforeRename) {
        beforeRename();
    }
    return static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

extern "C" int linkat(int fromFolder, const char* from, int toFolder, const char* to,
                      int flags) noexcept {
    if (linksFail) {
        errno = ENOENT;
        return -1;
    }
    return static_cast<int>(syscall(SYS_linkat, fromFolder, from, toFolder, to, flags));
}

extern "C" uid_t geteuid() noexcept {
    return pretendedUser != 0 ? pretendedUser : static_cast<uid_t>(syscall(SYS_geteuid));
}

namespace quandrel {
namespace {

class AtomicFile : public ::testing::TestWithParam<UnderWay> {
protected:
    void SetUp() override {
        folder = std::filesystem::temp_directory_path()
                 / ("quandrel_atomic_" + std::to_string(::getpid()));
        std::filesystem::create_directories(folder);
        path = (folder / "file.txt").string();
    }

    void TearDown() override {
        beforeRename = nullptr;
        pretendedUser = 0;
        linksFail = false;
        std::filesystem::remove_all(folder);
    }

    [[nodiscard]] std::string Write(const std::string& file, std::string_view bytes) const {
        return WriteFileAtomically(file, bytes, GetParam());
    }

    [[nodiscard]] std::string Write(const std::string& file, const MakeBytes& make) const {
        return WriteFileAtomically(file, make, GetParam());
    }

    /// An unfinished file as a killed process leaves it.
    std::string LeaveFile(const std::string& name = ".quandrel-saving-abcdef12") const {
        const std::string left = (folder / name).string();
        std::ofstream(left) << "half";
        return left;
    }

    [[nodiscard]] std::string Content() const {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }

    [[nodiscard]] std::size_t FilesInFolder() const {
        std::size_t files = 0;
        for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder)) {
            ++files;
        }
        return files;
    }

    std::filesystem::path folder;
    std::string path;
};

/// Until the end of a block, no file may grow beyond some bytes, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes)
        : formerHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit limit{bytes, former_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }

    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, formerHandler_);
    }

    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit former_{};
    void (*formerHandler_)(int);
};

TEST_P(AtomicFile, WritesAndReplacesWhole) {
    EXPECT_EQ(Write(path, "first"), "");
    EXPECT_EQ(Write(path, std::string(100000, 'x')), "");
    EXPECT_EQ(Content(), std::string(100000, 'x'));
    EXPECT_EQ(Write(path, ""), "");
    EXPECT_EQ(Content(), "");
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_P(AtomicFile, ADiskThatFillsUpLeavesTheOldFile) {
    ASSERT_EQ(Write(path, "old"), "");
    for (const rlim_t room : {0, 1, 1000, 4096, 99999}) {
        std::string error;
        {
            const FullDisk full(room);
            error = Write(path, std::string(100000, 'x'));
        }
        EXPECT_NE(error, "") << room;
        EXPECT_EQ(Content(), "old") << room;
        EXPECT_EQ(FilesInFolder(), 1U) << room;
    }
}

TEST_P(AtomicFile, BytesMayComeInPieces) {
    const auto pieces = [](const PutBytes& put) {
        for (int i = 0; i < 1000; ++i) {
            EXPECT_TRUE(put(std::string(1000, static_cast<char>('a' + i % 26))));
        }
        return std::string();
    };
    EXPECT_EQ(Write(path, pieces), "");
    const std::string content = Content();
    ASSERT_EQ(content.size(), 1000000U);
    EXPECT_EQ(content[0], 'a');
    EXPECT_EQ(content[999999], static_cast<char>('a' + 999 % 26));
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_P(AtomicFile, AReasonAgainstTheFileLeavesTheOldOne) {
    ASSERT_EQ(Write(path, "old"), "");
    EXPECT_EQ(Write(path,
                    [](const PutBytes& put) {
                        put("half of");
                        return std::string("it was stopped");
                    }),
              "it was stopped");
    EXPECT_EQ(Content(), "old");
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_P(AtomicFile, PiecesThatFindNoRoomAreToldAtOnce) {
    ASSERT_EQ(Write(path, "old"), "");
    int taken = 0;
    std::string error;
    {
        const FullDisk full(20000);
        error = Write(path, [&taken](const PutBytes& put) {
            while (taken < 1000 && put(std::string(10000, 'x'))) {
                ++taken;
            }
            return std::string();
        });
    }
    EXPECT_EQ(error, "File too large");
    EXPECT_LT(taken, 10);
    EXPECT_EQ(Content(), "old");
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_P(AtomicFile, FilesOfOtherNamesBesideItAreLeftAlone) {
    std::ofstream(path + ".saving") << "mine";
    EXPECT_EQ(Write(path, "new"), "");
    EXPECT_EQ(FilesInFolder(), 2U);
}

TEST_P(AtomicFile, ALinkStaysALink) {
    const std::string target = (folder / "target.txt").string();
    ASSERT_EQ(Write(target, "old"), "");
    std::filesystem::create_symlink(target, path);
    EXPECT_EQ(Write(path, "new"), "");
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_EQ(Content(), "new");
}

TEST_P(AtomicFile, AccessRightsAreKeptOrTheUsersOwn) {
    const mode_t former = ::umask(027);
    EXPECT_EQ(Write(path, "new"), "");
    ::umask(former);

    struct stat facts {};

    ASSERT_EQ(::stat(path.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777U, 0640U);
    std::filesystem::permissions(path, static_cast<std::filesystem::perms>(0604));
    EXPECT_EQ(Write(path, "again"), "");
    ASSERT_EQ(::stat(path.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777U, 0604U);
}

TEST_P(AtomicFile, WhatIsNoOrdinaryFileIsRefused) {
    EXPECT_NE(Write(folder.string(), "x"), "");
    EXPECT_NE(Write("/dev/full", "x"), "");
    EXPECT_NE(Write((folder / "none" / "file").string(), "x"), "");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_NE(Write(path, "x"), "");
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_P(AtomicFile, ALinkThatLeadsToNothingIsTold) {
    std::filesystem::create_symlink(folder / "gone.txt", path);
    EXPECT_EQ(Write(path, "new"),
              "it is a link to '" + (folder / "gone.txt").string() + "', which is not there");
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_EQ(FilesInFolder(), 1U);
    std::filesystem::remove(path);
    std::filesystem::create_symlink(path, path);
    EXPECT_NE(Write(path, "new"), "") << "a link to itself";
}

TEST_P(AtomicFile, TheLongestNamesCanBeSaved) {
    const std::string longest = (folder / std::string(255, 'n')).string();
    EXPECT_EQ(Write(longest, "first"), "");
    EXPECT_EQ(Write(longest, "second"), "");
    path = longest;
    EXPECT_EQ(Content(), "second");
    EXPECT_NE(Write((folder / std::string(256, 'n')).string(), "x"), "");
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_P(AtomicFile, AFileThatWasLeftGoesAtTheNextSave) {
    const std::string left = LeaveFile();
    EXPECT_EQ(Write(path, "new"), "");
    EXPECT_FALSE(std::filesystem::exists(left));
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_P(AtomicFile, FilesOfOtherNamesAndOtherKindsStay) {
    for (const char* name :
         {".quandrel-saving-abcdef1", ".quandrel-saving-abcdef123", ".quandrel-saving-ABCDEF12",
          "quandrel-saving-abcdef12", ".quandrel-saving-abcde.12", "a.quandrel-saving-abcdef12"}) {
        EXPECT_FALSE(IsNameUnderWay(name)) << name;
        LeaveFile(name);
    }
    std::filesystem::create_directory(folder / ".quandrel-saving-folder01");
    std::filesystem::create_symlink("file.txt", folder / ".quandrel-saving-alink001");
    ASSERT_EQ(::mkfifo((folder / ".quandrel-saving-afifo001").c_str(), 0600), 0);
    std::filesystem::create_hard_link(LeaveFile("notes.txt"), folder / ".quandrel-saving-shared01");
    EXPECT_EQ(Write(path, "new"), "");
    EXPECT_EQ(FilesInFolder(), 12U);
}

TEST_P(AtomicFile, AnotherUsersFileStays) {
    const std::string left = LeaveFile();
    pretendedUser = static_cast<uid_t>(syscall(SYS_geteuid)) + 1;
    EXPECT_EQ(Write(path, "new"), "");
    EXPECT_TRUE(std::filesystem::exists(left));
    pretendedUser = 0;
    EXPECT_EQ(Write(path, "new"), "");
    EXPECT_FALSE(std::filesystem::exists(left));
}

TEST_P(AtomicFile, AFileThatARunningProcessHoldsStays) {
    const std::string held = LeaveFile();
    const int descriptor = ::open(held.c_str(), O_RDONLY);
    ASSERT_EQ(::flock(descriptor, LOCK_EX), 0);
    EXPECT_EQ(Write(path, "new"), "");
    EXPECT_TRUE(std::filesystem::exists(held));
    ::close(descriptor);
    EXPECT_EQ(Write(path, "new"), "");
    EXPECT_FALSE(std::filesystem::exists(held));
}

TEST_P(AtomicFile, ASaveBesideItTakesNothingFromOneThatIsAboutToRename) {
    ASSERT_EQ(Write(path, "old"), "");
    int saves = 0;
    beforeRename = [this, &saves] {
        beforeRename = nullptr;
        ++saves;
        EXPECT_EQ(FilesInFolder(), 2U) << "it has a name by now";
        EXPECT_EQ(Write((folder / "beside.txt").string(), "x"), "");
    };
    EXPECT_EQ(Write(path, "new"), "");
    EXPECT_EQ(saves, 1);
    EXPECT_EQ(Content(), "new");
    EXPECT_EQ(FilesInFolder(), 2U);
}

TEST_P(AtomicFile, ARenameThatFailsLeavesTheOldFileAlone) {
    ASSERT_EQ(Write(path, "old"), "");
    beforeRename = [this] {
        std::filesystem::remove(path);
        std::filesystem::create_directory(path);
    };
    EXPECT_NE(Write(path, "new"), "");
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_P(AtomicFile, TheFolderIsBroughtToTheDiskAfterTheFile) {
    syncedFolders.clear();
    EXPECT_EQ(Write(path, "new"), "");
    EXPECT_EQ(syncedFolders, (std::vector<bool>{false, true}));
    syncedFolders.clear();
    EXPECT_EQ(Write(path, "newer"), "");
    EXPECT_EQ(syncedFolders, (std::vector<bool>{false, true}));
}

TEST_P(AtomicFile, AFileThatCannotBeNamedIsCopied) {
    ASSERT_EQ(Write(path, "old"), "");
    linksFail = true;
    int makes = 0;
    const std::string large(3000000, 'x');
    EXPECT_EQ(Write(path,
                    [&](const PutBytes& put) {
                        ++makes;
                        put(large);
                        return std::string();
                    }),
              "");
    EXPECT_EQ(makes, 1);
    EXPECT_EQ(Content(), large);
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_P(AtomicFile, AFileInTheWorkingFolderIsFound) {
    const std::filesystem::path former = std::filesystem::current_path();
    std::filesystem::current_path(folder);
    EXPECT_EQ(Write("file.txt", "new"), "");
    std::filesystem::current_path(former);
    EXPECT_EQ(Content(), "new");
}

INSTANTIATE_TEST_SUITE_P(, AtomicFile, ::testing::Values(UnderWay::Unnamed, UnderWay::Named),
                         [](const auto& kind) {
                             return kind.param == UnderWay::Unnamed ? "Unnamed" : "Named";
                         });

/// Kills a process at a moment during the saves of `act`.
void KillWithin(const std::function<bool()>& act, suseconds_t moment) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        std::signal(SIGALRM, SIG_DFL);
        const itimerval timer{{0, 0}, {0, moment}};
        setitimer(ITIMER_REAL, &timer, nullptr);
        while (act()) {
        }
        _exit(1);
    }
    int outcome = 0;
    ASSERT_EQ(waitpid(child, &outcome, 0), child);
    ASSERT_TRUE(WIFSIGNALED(outcome)) << "a save failed";
}

constexpr int kKills = 20;

class KilledSaves : public AtomicFile {};

TEST_P(KilledSaves, OfNewFilesLeaveNothingAtAll) {
    const std::string large(9000000, 'x');
    std::mt19937 random(11);
    for (int i = 0; i < kKills; ++i) {
        KillWithin(
            [&] {
                const bool written = Write(path, large).empty();
                std::filesystem::remove(path);
                return written;
            },
            static_cast<suseconds_t>(1 + random() % 30000));
        std::filesystem::remove(path);
        ASSERT_EQ(FilesInFolder(), 0U) << i;
    }
}

TEST_P(KilledSaves, OverAFileLeaveWholeFilesAloneWhichGoAtTheNextSave) {
    const std::string large(9000000, 'x');
    ASSERT_EQ(Write(path, large), "");
    std::mt19937 random(12);
    for (int i = 0; i < kKills; ++i) {
        KillWithin([&] { return Write(path, large).empty(); },
                   static_cast<suseconds_t>(1 + random() % 30000));
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            ASSERT_EQ(entry.file_size(), large.size()) << entry.path();
        }
    }
    ASSERT_EQ(Write(path, large), "");
    EXPECT_EQ(FilesInFolder(), 1U);
}

// Without support for unnamed files, a killed save leaves its file until the next save.
INSTANTIATE_TEST_SUITE_P(, KilledSaves, ::testing::Values(UnderWay::Unnamed));

} // namespace
} // namespace quandrel
