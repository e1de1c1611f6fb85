// SPDX-License-Identifier: MIT

#include "batch/command_line.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <sstream>
#include <thread>
#include <utility>

namespace quandrel {
namespace {

class CommandLine : public ::testing::Test {
protected:
    void SetUp() override {
        folder = std::filesystem::temp_directory_path()
                 / ("quandrel_lines_" + std::to_string(::getpid()));
        std::filesystem::create_directories(folder);
    }

    void TearDown() override { std::filesystem::remove_all(folder); }

    [[nodiscard]] std::string In(const std::string& name) const { return (folder / name).string(); }

    std::string Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(folder / name, std::ios::binary) << bytes;
        return In(name);
    }

    /// The exit code of the program for these arguments.
    int Run(std::vector<std::string> words) {
        words.insert(words.begin(), "quandrel-batch");
        std::vector<const char*> pointers;
        for (const std::string& word : words) {
            pointers.push_back(word.c_str());
        }
        out.str("");
        log.str("");
        BatchOptions options;
        ::testing::internal::CaptureStdout();
        ::testing::internal::CaptureStderr();
        const std::optional<int> early =
            ReadCommandLine(static_cast<int>(pointers.size()), pointers.data(), options);
        usage = ::testing::internal::GetCapturedStdout() + ::testing::internal::GetCapturedStderr();
        return early ? *early : RunBatch(options, out, log);
    }

    [[nodiscard]] bool Logged(const std::string& part) const {
        return log.str().find(part) != std::string::npos;
    }

    std::filesystem::path folder;
    std::ostringstream out;
    std::ostringstream log;
    std::string usage; ///< what the parser of the command line printed
};

TEST_F(CommandLine, ExitCodesTellWhatHappened) {
    EXPECT_EQ(Run({"-c", "blank; get NumData"}), kBatchDone);
    EXPECT_EQ(out.str(), "0\n");
    EXPECT_EQ(Run({"-c", "blank; nonsense"}), kBatchFailed);
    EXPECT_EQ(log.str(), "quandrel-batch: line 1: nonsense: there is no such command\n");
    EXPECT_EQ(Run({}), kBatchBadUsage);
    EXPECT_EQ(Run({"--nonsense"}), kBatchBadUsage);
    EXPECT_EQ(Run({"data.txt", "-c", "blank"}), kBatchBadUsage);
    EXPECT_EQ(Run({"--help"}), kBatchDone);
    EXPECT_NE(usage.find("--script"), std::string::npos);
}

TEST_F(CommandLine, OptionsOfTheShortFormGoWithADataFile) {
    const std::string script = Write("script", "blank\n");
    for (const char* const option : {"-o", "--save", "--json", "--format", "--size"}) {
        EXPECT_EQ(Run({"--script", script, option, "100"}), kBatchBadUsage) << option;
        EXPECT_NE(usage.find("requires"), std::string::npos) << usage;
    }
    EXPECT_EQ(Run({"-c", "blank", "--stats"}), kBatchBadUsage);
    EXPECT_EQ(Run({Write("a.txt", "30\t120\n"), "--size", "100"}), kBatchBadUsage);
}

TEST_F(CommandLine, AScriptThatCannotBeReadIsBadUsage) {
    EXPECT_EQ(Run({"--script", folder.string()}), kBatchBadUsage);
    EXPECT_EQ(log.str(), "quandrel-batch: the script '" + folder.string()
                             + "' cannot be read: it is a folder\n");
    EXPECT_EQ(Run({"--script", "/dev/zero"}), kBatchBadUsage);
    EXPECT_TRUE(Logged("a device"));
    EXPECT_EQ(Run({"--script", In("none")}), kBatchBadUsage);
    EXPECT_TRUE(Logged("No such file"));
}

TEST_F(CommandLine, AScriptMayBeginWithAMark) {
    EXPECT_EQ(Run({"--script", Write("script", "\xef\xbb\xbf"
                                               "blank\nget NumData\n")}),
              kBatchDone)
        << log.str();
    EXPECT_EQ(out.str(), "0\n");
}

TEST_F(CommandLine, TheShortFormTakesAnyPath) {
    for (const std::string name : {"line\nfeed", "a \"quote\" and a \\", "semi;colon # x=y", "="}) {
        SCOPED_TRACE(name);
        const std::string data = Write(name + ".txt", "30\t120\n45\t270\n");
        ASSERT_EQ(Run({data, "-o", In(name + ".png"), "--size", "100", "--json", In(name + ".json"),
                       "--save", In(name + " saved.txt"), "--stats"}),
                  kBatchDone)
            << log.str();
        EXPECT_GT(std::filesystem::file_size(In(name + ".png")), 100U);
        EXPECT_TRUE(std::filesystem::exists(In(name + " saved.txt")));
        EXPECT_TRUE(out.str().starts_with("2 rows read, 2 of them data")) << out.str();
        std::ifstream stream(In(name + ".json"));
        EXPECT_EQ(nlohmann::json::parse(stream)["record"]["FileNames"][1], data);
        EXPECT_EQ(Run({In(name + " saved.txt")}), kBatchDone) << log.str();
        EXPECT_EQ(log.str(), "") << "the head of a file of our own is not reported";
    }
}

TEST_F(CommandLine, TheShortFormTellsWhichCommandFailed) {
    EXPECT_EQ(Run({In("none.txt")}), kBatchFailed);
    EXPECT_TRUE(Logged("quandrel-batch: open: '" + In("none.txt") + "' was not loaded\n"));
    const std::string data = Write("a.txt", "30\t120\n");
    EXPECT_EQ(Run({data, "--json", In("no/such.json")}), kBatchFailed);
    EXPECT_TRUE(
        Logged("quandrel-batch: dump: '" + In("no/such.json") + "' could not be written: "));
    EXPECT_EQ(Run({data, "--format", "header"}), kBatchFailed);
    EXPECT_TRUE(Logged("quandrel-batch: format: 'header' lacks a value"));
    EXPECT_EQ(Run({data, "--format", "textname=\"x"}), kBatchFailed);
    EXPECT_TRUE(Logged("--format: a quote is not closed"));
    EXPECT_EQ(Run({data, "--format", "header=no\n  data=lines"}), kBatchDone) << log.str();
}

/// Accepts some bytes and then fails, as a device or a pipe may.
class FailingBuffer : public std::stringbuf {
public:
    explicit FailingBuffer(std::streamsize room)
        : room_(room) {}

protected:
    std::streamsize xsputn(const char* text, std::streamsize count) override {
        const std::streamsize taken = std::min(count, room_);
        room_ -= taken;
        return std::stringbuf::xsputn(text, taken);
    }

    int_type overflow(int_type c) override {
        return room_-- > 0 ? std::stringbuf::overflow(c) : traits_type::eof();
    }

    int sync() override { return room_ > 0 ? 0 : -1; }

private:
    std::streamsize room_;
};

TEST_F(CommandLine, OutputThatCannotBeWrittenIsAFailure) {
    BatchOptions options;
    options.commands = "blank; get PlotKind; get DataKind";
    for (const std::streamsize room : {0, 1, 3}) {
        FailingBuffer buffer(room);
        std::ostream full(&buffer);
        log.str("");
        EXPECT_EQ(RunBatch(options, full, log), kBatchFailed) << room;
        EXPECT_TRUE(Logged("standard output could not be written")) << room;
    }
    FailingBuffer buffer(1000);
    std::ostream large(&buffer);
    EXPECT_EQ(RunBatch(options, large, log), kBatchDone);
}

TEST_F(CommandLine, FilesOutsideTheFolderAreReadWithLeaveAlone) {
    std::filesystem::create_directories(folder / "data");
    Write("secret.txt", "40\t130\n");
    const std::string data = Write("data/main.txt", "/X../secret.txt\n30\t120\n");
    EXPECT_EQ(Run({data, "--stats"}), kBatchFailed);
    EXPECT_TRUE(Logged(In("secret.txt")));
    EXPECT_TRUE(Logged("--allow-outside"));
    EXPECT_EQ(Run({data, "--stats", "--allow-outside"}), kBatchDone);
    EXPECT_NE(out.str().find("3 rows read, 2 of them data"), std::string::npos) << out.str();
    EXPECT_EQ(Run({"-c", "open \"" + data + "\""}), kBatchFailed);
    EXPECT_EQ(Run({"--allow-outside", "-c", "open \"" + data + "\"; get NumValidData"}),
              kBatchDone);
    EXPECT_EQ(out.str(), "2\n");
}

/// A pipe as standard input until the end of a block.
class PipedInput {
public:
    PipedInput() {
        EXPECT_EQ(::pipe2(ends_.data(), O_CLOEXEC), 0);
        former_ = ::dup(STDIN_FILENO);
        ::dup2(ends_[0], STDIN_FILENO);
        ::close(ends_[0]);
    }

    ~PipedInput() {
        End();
        ::dup2(former_, STDIN_FILENO);
        ::close(former_);
    }

    PipedInput(const PipedInput&) = delete;
    PipedInput& operator=(const PipedInput&) = delete;

    void Put(std::string_view bytes) const {
        EXPECT_EQ(::write(ends_[1], bytes.data(), bytes.size()),
                  static_cast<ssize_t>(bytes.size()));
    }

    void End() {
        if (ends_[1] >= 0) {
            ::close(std::exchange(ends_[1], -1));
        }
    }

private:
    std::array<int, 2> ends_{};
    int former_ = -1;
};

TEST_F(CommandLine, DataMayComeFromStandardInput) {
    PipedInput input;
    input.Put("30\t120\n45\t270\n");
    input.End();
    ASSERT_EQ(Run({"-", "--json", In("a.json"), "--stats"}), kBatchDone) << log.str();
    EXPECT_TRUE(out.str().starts_with("2 rows read, 2 of them data")) << out.str();
    std::ifstream stream(In("a.json"));
    const auto json = nlohmann::json::parse(stream);
    EXPECT_EQ(json["title"], "standard input: 1   [Planes]     ");
    EXPECT_EQ(json["record"]["FileNames"][1], "standard input");
    EXPECT_EQ(json["legend"][0], "Data: standard input");
    EXPECT_EQ(json["rows"]["gDataAz"], (std::vector<int>{120, 270}));
}

TEST_F(CommandLine, APlotFileMayComeFromStandardInputToo) {
    const std::string data = Write("a.txt", "30\t120\n45\t270\n");
    ASSERT_EQ(Run({data, "--save", In("a.qpx")}), kBatchDone) << log.str();
    std::ostringstream bytes;
    bytes << std::ifstream(In("a.qpx"), std::ios::binary).rdbuf();
    PipedInput input;
    std::thread writer([&] {
        input.Put(bytes.str());
        input.End();
    });
    EXPECT_EQ(Run({"-c", "open -; get NumValidData; get SaveFileName"}), kBatchDone) << log.str();
    writer.join();
    EXPECT_EQ(out.str(), "2\n\n");
}

TEST_F(CommandLine, StandardInputIsReadOnceAndNotAsTwoThings) {
    {
        PipedInput input;
        input.End();
        EXPECT_EQ(Run({"-"}), kBatchFailed);
        EXPECT_TRUE(Logged("open: standard input was not loaded")) << log.str();
        EXPECT_TRUE(Logged("cannot be opened standard input It is empty.")) << log.str();
    }
    PipedInput input;
    input.Put("30\t120\n");
    input.End();
    EXPECT_EQ(Run({"-c", "open -; merge -"}), kBatchFailed);
    EXPECT_TRUE(Logged("merge: standard input has already been read")) << log.str();
    PipedInput script;
    script.Put("blank\nopen -\n");
    script.End();
    EXPECT_EQ(Run({"--script", "-"}), kBatchFailed);
    EXPECT_TRUE(Logged("line 2: open: the script comes from standard input, so data cannot"));
}

TEST_F(CommandLine, JsonOnStandardOutputIsAlone) {
    const std::string data = Write("a.txt", "30\t120\n45\t270\n");
    ASSERT_EQ(Run({data, "--json", "-", "--stats"}), kBatchDone) << log.str();
    const auto json = nlohmann::json::parse(out.str()); // throws if there is anything else
    EXPECT_EQ(json["record"]["NumValidData"], 2);
    EXPECT_TRUE(Logged("2 rows read, 2 of them data")) << "printed where it does not disturb";
    EXPECT_EQ(Run({"-c", "open \"" + data + "\"; get NumData; dump -; get NumData"}), kBatchDone);
    const std::string answers = out.str();
    EXPECT_EQ(std::count(answers.begin(), answers.end(), '\n'), 3) << "a line for each";
}

/// What is printed, with a mark at each flush.
class AnswerBuffer : public std::stringbuf {
public:
    int sync() override {
        const std::lock_guard guard(lock_);
        put_ = str();
        hasPut_.notify_all();
        return 0;
    }

    /// Waits until that much was written; returns false after ten seconds.
    bool WaitFor(const std::string& text) {
        std::unique_lock guard(lock_);
        return hasPut_.wait_for(guard, std::chrono::seconds(10), [&] { return put_ == text; });
    }

private:
    std::mutex lock_;
    std::condition_variable hasPut_;
    std::string put_;
};

TEST_F(CommandLine, AScriptIsAnsweredLineByLine) {
    PipedInput input;
    AnswerBuffer answers;
    std::ostream stream(&answers);
    BatchOptions options;
    options.script = "-";
    int exitCode = -1;
    std::thread program([&] { exitCode = RunBatch(options, stream, log); });
    input.Put("blank\nget NumData\n");
    EXPECT_TRUE(answers.WaitFor("0\n"));
    input.Put("set DescriptionText \"two words\"\nget Descri");
    input.Put("ptionText\n");
    EXPECT_TRUE(answers.WaitFor("0\ntwo words\n"));
    input.Put("get PlotKind"); // the last line needs no end
    input.End();
    program.join();
    EXPECT_EQ(exitCode, kBatchDone) << log.str();
    EXPECT_EQ(answers.str(), "0\ntwo words\n1\n");
}

TEST_F(CommandLine, AScriptRunsUpToTheLineThatIsWrong) {
    EXPECT_EQ(Run({"--script", Write("script", "blank\nget NumData\nset PlotTitle \"x\n")}),
              kBatchFailed);
    EXPECT_EQ(out.str(), "0\n");
    EXPECT_TRUE(Logged("line 3: a quote is not closed")) << log.str();
}

} // namespace
} // namespace quandrel
