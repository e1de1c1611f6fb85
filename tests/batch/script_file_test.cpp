// SPDX-License-Identifier: MIT

#include "batch/script_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <thread>

namespace quandrel {
namespace {

class ScriptFile : public ::testing::Test {
protected:
    void SetUp() override {
        folder = std::filesystem::temp_directory_path()
                 / ("quandrel_scripts_" + std::to_string(::getpid()));
        std::filesystem::create_directories(folder);
    }

    void TearDown() override { std::filesystem::remove_all(folder); }

    std::string Write(const std::string& bytes) const {
        std::ofstream(folder / "script", std::ios::binary) << bytes;
        return (folder / "script").string();
    }

    std::string MakePipe() const {
        const std::string path = (folder / "pipe").string();
        EXPECT_EQ(::mkfifo(path.c_str(), 0600), 0);
        return path;
    }

    /// The whole text of a script.
    static Result<std::string> ReadAll(ScriptSource& source) {
        std::string all;
        for (;;) {
            Result<std::string> text = source.Read();
            if (!text || text->empty()) {
                return text ? Result<std::string>(all) : text;
            }
            all += *text;
        }
    }

    static Result<std::string> ReadScriptFile(const std::string& path) {
        Result<ScriptSource> source = ScriptSource::Open(path);
        return source ? ReadAll(*source) : Result<std::string>(Failure{source.Error()});
    }

    static Result<std::string> ReadScript(int descriptor) {
        ScriptSource source(descriptor);
        return ReadAll(source);
    }

    static std::string ErrorOf(const Result<std::string>& text) {
        return text ? std::string() : text.Error();
    }

    std::filesystem::path folder;
};

TEST_F(ScriptFile, MarksOfTheEncodingAreNoPartOfIt) {
    const std::vector<std::pair<std::string, std::string>> files = {
        {"blank\n", "blank\n"},
        {"", ""},
        {"\xef\xbb\xbf"
         "blank\n",
         "blank\n"},
        {std::string("\xff\xfe"
                     "b\0\n\0",
                     6),
         "b\n"},
        {std::string("\xfe\xff\0b\0\n", 6), "b\n"},
        {"open gr\xe8s.txt\n", "open gr\xe8s.txt\n"}, // a path need not be UTF-8
    };
    for (const auto& [bytes, expected] : files) {
        const Result<std::string> text = ReadScriptFile(Write(bytes));
        ASSERT_TRUE(text) << bytes;
        EXPECT_EQ(*text, expected);
    }
}

TEST_F(ScriptFile, WhatIsNoScriptIsRefused) {
    EXPECT_EQ(ErrorOf(ReadScriptFile(folder.string())), "it is a folder");
    EXPECT_EQ(ErrorOf(ReadScriptFile("/dev/zero")), "it is a device, not a file");
    EXPECT_EQ(ErrorOf(ReadScriptFile((folder / "none").string())), "No such file or directory");
}

TEST_F(ScriptFile, ReadingEndsAtTheLargestSize) {
    const int zeros = ::open("/dev/zero", O_RDONLY | O_CLOEXEC);
    ASSERT_GE(zeros, 0);
    EXPECT_EQ(ErrorOf(ReadScript(zeros)), "it holds more than 64 MB");
    ::close(zeros);
    const std::string path = Write("");
    std::filesystem::resize_file(path, kLargestScript + 1);
    EXPECT_EQ(ErrorOf(ReadScriptFile(path)), "it holds more than 64 MB");
    std::filesystem::resize_file(path, kLargestScript);
    EXPECT_TRUE(ReadScriptFile(path));
}

TEST_F(ScriptFile, APipeIsReadToItsEnd) {
    const std::string path = MakePipe();
    // Open for reading as well, so that the pipe has a writer before it is read.
    const int both = ::open(path.c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_GE(both, 0);
    const std::string script(200000, 'x'); // more than a pipe holds at once
    std::thread writer([&] {
        std::size_t done = 0;
        while (done < script.size()) {
            const ssize_t count = ::write(both, script.data() + done, script.size() - done);
            ASSERT_GT(count, 0);
            done += static_cast<std::size_t>(count);
        }
        ::close(both);
    });
    const Result<std::string> text = ReadScriptFile(path);
    writer.join();
    ASSERT_TRUE(text);
    EXPECT_EQ(*text, script);
}

TEST_F(ScriptFile, TextIsGivenAsItComes) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
    ScriptSource source(pipe[0]);
    const auto comes = [&](std::string_view bytes) {
        EXPECT_EQ(::write(pipe[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
        const Result<std::string> text = source.Read();
        return text ? *text : text.Error();
    };
    EXPECT_EQ(comes("blank\n"), "blank\n");
    EXPECT_EQ(comes("get Num"), "get Num");
    ::close(pipe[1]);
    const Result<std::string> end = source.Read();
    EXPECT_TRUE(end && end->empty());
    ::close(pipe[0]);
}

TEST_F(ScriptFile, Utf16IsGivenLineByLine) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
    ScriptSource source(pipe[0]);
    const std::string bytes("\xff\xfe"
                            "b\0\n\0\n\x01",
                            8); // a letter whose low byte is that of a line feed
    ASSERT_EQ(::write(pipe[1], bytes.data(), bytes.size()), 8);
    EXPECT_EQ(*source.Read(), "b\n");
    ASSERT_EQ(::write(pipe[1], "\n", 1), 1);
    ::close(pipe[1]);
    EXPECT_EQ(*source.Read(), "\u010a\ufffd") << "half a unit at the end";
    EXPECT_EQ(*source.Read(), "");
    ::close(pipe[0]);
}

TEST_F(ScriptFile, APipeThatNobodyWritesToDoesNotMakeTheProgramWait) {
    EXPECT_EQ(ErrorOf(ReadScriptFile(MakePipe())), "no data came through the pipe");
}

TEST_F(ScriptFile, ADescriptorThatCannotBeReadIsTold) {
    const int directory = ::open(folder.c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_GE(directory, 0);
    EXPECT_EQ(ErrorOf(ReadScript(directory)), "Is a directory");
    ::close(directory);
}

} // namespace
} // namespace quandrel
