// SPDX-License-Identifier: MIT

#include "core/atomic_file.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace quandrel {
namespace {

class AtomicFile : public ::testing::Test {
protected:
    void SetUp() override {
        folder = std::filesystem::temp_directory_path()
                 / ("quandrel_atomic_" + std::to_string(::getpid()));
        std::filesystem::create_directories(folder);
        path = (folder / "file.txt").string();
    }

    void TearDown() override { std::filesystem::remove_all(folder); }

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

/// No file may grow beyond some bytes, as on a full disk, for the length of a block.
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

TEST_F(AtomicFile, WritesAndReplacesWhole) {
    EXPECT_EQ(WriteFileAtomically(path, "first"), "");
    EXPECT_EQ(WriteFileAtomically(path, std::string(100000, 'x')), "");
    EXPECT_EQ(Content(), std::string(100000, 'x'));
    EXPECT_EQ(WriteFileAtomically(path, ""), "");
    EXPECT_EQ(Content(), "");
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(AtomicFile, ADiskThatFillsUpLeavesTheOldFile) {
    ASSERT_EQ(WriteFileAtomically(path, "old"), "");
    for (const rlim_t room : {0, 1, 1000, 4096, 99999}) {
        std::string error;
        {
            const FullDisk full(room);
            error = WriteFileAtomically(path, std::string(100000, 'x'));
        }
        EXPECT_NE(error, "") << room;
        EXPECT_EQ(Content(), "old") << room;
        EXPECT_EQ(FilesInFolder(), 1U) << room;
    }
}

TEST_F(AtomicFile, BytesMayComeInPieces) {
    const auto pieces = [](const PutBytes& put) {
        for (int i = 0; i < 1000; ++i) {
            EXPECT_TRUE(put(std::string(1000, static_cast<char>('a' + i % 26))));
        }
        return std::string();
    };
    EXPECT_EQ(WriteFileAtomically(path, pieces), "");
    const std::string content = Content();
    ASSERT_EQ(content.size(), 1000000U);
    EXPECT_EQ(content[0], 'a');
    EXPECT_EQ(content[999999], static_cast<char>('a' + 999 % 26));
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(AtomicFile, AReasonAgainstTheFileLeavesTheOldOne) {
    ASSERT_EQ(WriteFileAtomically(path, "old"), "");
    EXPECT_EQ(WriteFileAtomically(path,
                                  [](const PutBytes& put) {
                                      put("half of");
                                      return std::string("it was stopped");
                                  }),
              "it was stopped");
    EXPECT_EQ(Content(), "old");
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(AtomicFile, PiecesThatFindNoRoomAreToldAtOnce) {
    ASSERT_EQ(WriteFileAtomically(path, "old"), "");
    int taken = 0;
    std::string error;
    {
        const FullDisk full(20000);
        error = WriteFileAtomically(path, [&taken](const PutBytes& put) {
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

TEST_F(AtomicFile, FilesOfOtherNamesBesideItAreLeftAlone) {
    std::ofstream(path + ".saving") << "mine";
    EXPECT_EQ(WriteFileAtomically(path, "new"), "");
    EXPECT_EQ(FilesInFolder(), 2U);
}

TEST_F(AtomicFile, ALinkStaysALink) {
    const std::string target = (folder / "target.txt").string();
    ASSERT_EQ(WriteFileAtomically(target, "old"), "");
    std::filesystem::create_symlink(target, path);
    EXPECT_EQ(WriteFileAtomically(path, "new"), "");
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_EQ(Content(), "new");
}

TEST_F(AtomicFile, AccessRightsAreKeptOrTheUsersOwn) {
    const mode_t former = ::umask(027);
    EXPECT_EQ(WriteFileAtomically(path, "new"), "");
    ::umask(former);

    struct stat facts {};

    ASSERT_EQ(::stat(path.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777U, 0640U);
    std::filesystem::permissions(path, static_cast<std::filesystem::perms>(0604));
    EXPECT_EQ(WriteFileAtomically(path, "again"), "");
    ASSERT_EQ(::stat(path.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777U, 0604U);
}

TEST_F(AtomicFile, WhatIsNoOrdinaryFileIsRefused) {
    EXPECT_NE(WriteFileAtomically(folder.string(), "x"), "");
    EXPECT_NE(WriteFileAtomically("/dev/full", "x"), "");
    EXPECT_NE(WriteFileAtomically((folder / "none" / "file").string(), "x"), "");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_NE(WriteFileAtomically(path, "x"), "");
    EXPECT_EQ(FilesInFolder(), 1U);
}

} // namespace
} // namespace quandrel
