// SPDX-License-Identifier: MIT
//
// The blocks of a text, the thread that reads them, and what becomes of both when memory is short.

#include "input/block_reader.h"
#include "input/file_loading.h"
#include "input/text_file.h"
#include "support/nasty_texts.h"
#include "support/test_heap.h"
#include "support/test_platform.h"

#include <thread>

namespace quandrel {
namespace {

std::size_t ThreadsOfProcess() {
    // With the first thread of a program a sanitizer may start one of its own.
    [[maybe_unused]] static const bool isWarm = [] {
        std::thread([] {}).join();
        return true;
    }();
    std::size_t threads = 0;
    for ([[maybe_unused]] const auto& entry :
         std::filesystem::directory_iterator("/proc/self/task")) {
        ++threads;
    }
    return threads;
}

/// True once there are that many threads again: for a moment, the system may still list one that
/// was joined.
bool ComesBackTo(std::size_t threads) {
    for (int i = 0; i < 100000 && ThreadsOfProcess() != threads; ++i) {
        std::this_thread::yield();
    }
    return ThreadsOfProcess() == threads;
}

std::string Planes(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += std::to_string(i % 91) + "\t" + std::to_string(i % 361) + "\n";
    }
    return text;
}

LineRules RulesForPlanes() {
    LineRules rules;
    rules.format.neededColumns = 2;
    return rules;
}

TEST(EndOfBlock, IsBehindTheFirstLineEndBeyondTheBytes) {
    EXPECT_EQ(EndOfBlock("ab\ncd\nef", 0, 1), 3U);
    EXPECT_EQ(EndOfBlock("ab\ncd\nef", 0, 2), 3U);
    EXPECT_EQ(EndOfBlock("ab\ncd\nef", 0, 3), 6U) << "a whole line more, for the bytes end a line";
    EXPECT_EQ(EndOfBlock("ab\ncd\nef", 3, 1), 6U);
    EXPECT_EQ(EndOfBlock("ab\ncd\nef", 6, 1), 8U) << "a last line without its end";
    EXPECT_EQ(EndOfBlock("ab\rcd", 0, 1), 3U);
    EXPECT_EQ(EndOfBlock("ab", 0, 100), 2U);
}

TEST(EndOfBlock, NeverPartsAReturnFromItsLineFeed) {
    EXPECT_EQ(EndOfBlock("ab\r\ncd", 0, 1), 4U);
    EXPECT_EQ(EndOfBlock("ab\r\ncd", 0, 2), 4U);
    EXPECT_EQ(EndOfBlock("ab\r\ncd", 0, 3), 4U);
    EXPECT_EQ(EndOfBlock("ab\r\n", 0, 2), 4U);
    EXPECT_EQ(EndOfBlock("ab\r", 0, 2), 3U);
}

TEST(EndOfBlock, BlocksHaveTheLinesOfTheWholeText) {
    std::mt19937 random(5);
    for (int round = 0; round < 200; ++round) {
        const std::string text = NastyTexts(random).Text();
        const std::size_t bytes = 1 + random() % 300;
        std::vector<std::string> lines;
        for (std::size_t start = 0; start < text.size();) {
            const std::size_t end = EndOfBlock(text, start, bytes);
            ASSERT_GT(end, start);
            ASSERT_TRUE(end == text.size() || end - start > bytes);
            const auto part = std::string_view(text).substr(start, end - start);
            for (const std::string& line : FirstLinesOfText(part, part.size())) {
                lines.push_back(line);
            }
            start = end;
        }
        ASSERT_EQ(lines, FirstLinesOfText(text, text.size()));
    }
}

TEST(BlockReader, GivesTheRowsInTheirOrder) {
    const std::string text = Planes(5000);
    for (const std::size_t bytes : {1U, 40U, 1000U, 100000U}) {
        BlockReader reader(text, RulesForPlanes(), bytes, bytes == 40 ? 1 : 2);
        int row = 0;
        while (const LineBlock* block = reader.Next()) {
            for (std::int32_t i = 1; i <= block->rows.Count(); ++i, ++row) {
                ASSERT_EQ(block->rows.Row(i).dip, row % 91);
                ASSERT_EQ(block->rows.Row(i).azimuth, row % 361);
            }
        }
        EXPECT_EQ(row, 5000);
        EXPECT_EQ(reader.Next(), nullptr) << "and stays at the end";
    }
}

TEST(BlockReader, MayBeLeftAtAnyBlock) {
    const std::size_t threads = ThreadsOfProcess();
    const std::string text = Planes(3000);
    for (int blocks = 0; blocks < 100; ++blocks) {
        BlockReader reader(text, RulesForPlanes(), 50, 2);
        for (int i = 0; i < blocks; ++i) {
            ASSERT_NE(reader.Next(), nullptr);
        }
    }
    EXPECT_TRUE(ComesBackTo(threads)) << "no thread is left";
}

TEST(BlockReader, HasNoBlocksOfAnEmptyText) {
    BlockReader reader({}, RulesForPlanes(), 50, 2);
    EXPECT_EQ(reader.Next(), nullptr);
}

#ifdef QUANDREL_HAS_TEST_HEAP

TEST(BlockReader, AFailureComesInThePlaceOfItsBlock) {
    const std::string text = Planes(3000);
    const MemoryForThisThreadAlone memory;
    BlockReader reader(text, RulesForPlanes(), 50, 2);
    MemoryForThisThreadAlone::AwaitFailure();
    std::int32_t next = 0;
    bool failed = false;
    while (!failed) {
        try {
            const LineBlock* block = reader.Next();
            ASSERT_NE(block, nullptr) << "the failure has not come";
            ASSERT_EQ(block->rows.Row(1).dip, next % 91);
            next += block->rows.Count();
        } catch (const std::bad_alloc&) {
            failed = true;
        }
    }
    EXPECT_TRUE(failed);
}

#endif

/// Loads whose first line is asked about; what happens meanwhile happens concurrently with the
/// second thread.
class LoadWithQuestion : public EngineTest {
protected:
    void Load(const std::string& text, const std::string& message,
              const std::function<void()>& meanwhile) {
        gPrimaryDataType = kPrimaryPlane;
        gFileColumnSettings = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
        gPlatform.threads = 2;
        AcceptFormat({}, 1);
        NewPlot();
        prompts.OnBox([meanwhile, asked = false](const ShownBox&) mutable {
            if (!std::exchange(asked, true)) {
                meanwhile();
            }
        });
        Expect("invalid orientation data", Button::Ignore);
        Expect(message);
        EXPECT_EQ(ReadTextFile(kNewCommand, WriteFile("a.txt", "99\t10\n" + text)), kNewCommand);
        prompts.OnBox({});
    }
};

TEST_F(LoadWithQuestion, SmallTextsAreReadByOneThread) {
    const std::size_t threads = ThreadsOfProcess();
    Load(Planes(1000), "1 invalid data", [threads] { EXPECT_TRUE(ComesBackTo(threads)); });
    EXPECT_EQ(ActiveRecord().NumValidData, 1000);
}

TEST_F(LoadWithQuestion, LargeOnesByTwoAndNoneIsLeft) {
    const std::size_t threads = ThreadsOfProcess();
    Load(Planes(100000), "1 invalid data",
         [threads] { EXPECT_EQ(ThreadsOfProcess(), threads + 1); });
    EXPECT_TRUE(ComesBackTo(threads));
    EXPECT_EQ(ActiveRecord().NumValidData, 100000);
}

TEST_F(LoadWithQuestion, AnswersAreAskedForOnTheThreadOfTheCaller) {
    const auto caller = std::this_thread::get_id();
    Load(Planes(100000), "1 invalid data",
         [caller] { EXPECT_EQ(std::this_thread::get_id(), caller); });
}

#ifdef QUANDREL_HAS_TEST_HEAP

TEST_F(LoadWithQuestion, MemoryThatTheSecondThreadLacksEndsTheLoadWithItsRowsSoFar) {
    const std::size_t threads = ThreadsOfProcess();
    const MemoryForThisThreadAlone memory;
    Load(Planes(200000), "The following error has occurred in loading this data",
         MemoryForThisThreadAlone::AwaitFailure);
    EXPECT_TRUE(ComesBackTo(threads));
    EXPECT_GT(ActiveRecord().NumValidData, 0);
    EXPECT_LT(ActiveRecord().NumValidData, 200000);
    EXPECT_EQ(ActivePlot().table.size(), static_cast<std::size_t>(ActiveRecord().NumLoadedData));
}

#endif

} // namespace
} // namespace quandrel
