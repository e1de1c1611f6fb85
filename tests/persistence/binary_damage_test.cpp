// SPDX-License-Identifier: MIT

#include "core/replot.h"
#include "input/file_loading.h"
#include "persistence/binary_plot_file.h"
#include "persistence/binary_samples.h"
#include "persistence/open_plot.h"
#include "support/test_heap.h"
#include "support/test_platform.h"
#include "support/trial.h"

namespace quandrel {
namespace {

/// What a file needs whatever its contents: the record, the density grid, the grids of values.
constexpr std::size_t kFixedMemory = 700000;
constexpr std::size_t kMemoryPerByte = 12;

class BinaryDamage : public EngineTest {
protected:
    /// Reads bytes, and requires that it takes little memory.
    static Result<BinaryPlot> Read(std::string_view bytes) {
#ifdef QUANDREL_HAS_TEST_HEAP
        gBytesTaken = 0;
        Result<BinaryPlot> plot = ReadBinaryPlot(bytes);
        EXPECT_LT(gBytesTaken.load(), kFixedMemory + kMemoryPerByte * bytes.size());
        return plot;
#else
        return ReadBinaryPlot(bytes);
#endif
    }

    /// Stores and draws a plot that was read, and releases it.
    static void Use(BinaryPlot plot) {
        const int slot = FindFreePlotSlot();
        ASSERT_GT(slot, 0);
        gActivePlot = slot;
        ResetPlotRecord(slot);
        ASSERT_TRUE(StoreBinaryPlot(std::move(plot), "x.qpx", slot));
        ReplotActivePlot(false);
        gPlotForm[static_cast<std::size_t>(slot)].reset();
        ReleasePlotSlot(slot);
    }

    /// The bits between two positions, inverted one at a time. Some results are still plots.
    static void TurnEveryBit(std::string bytes, std::size_t first, std::size_t last) {
        int plots = 0;
        TrialShare share;
        for (std::size_t i = first; i < last; ++i) {
            for (int bit = 0; bit < 8; ++bit) {
                if (!share.Takes()) {
                    continue;
                }
                const char former = bytes[i];
                bytes[i] = static_cast<char>(static_cast<unsigned char>(former) ^ (1U << bit));
                Result<BinaryPlot> plot = Read(bytes);
                if (plot && ++plots % 4 == 0) {
                    Use(std::move(*plot));
                }
                bytes[i] = former;
            }
        }
        EXPECT_GT(plots, 0);
    }
};

using BinaryDamageTrial = BinaryDamage;

TEST_F(BinaryDamage, ASmallFileCutAnywhereIsRefused) {
    for (const int tenths : {70, 71, 80, 90, 91, 92}) {
        const std::string bytes = OldPlotWriter(SampleOfVersion({tenths, "", ""})).Bytes();
        ASSERT_TRUE(Read(bytes));
        for (std::size_t length = 0; length < bytes.size(); ++length) {
            ASSERT_FALSE(Read(std::string_view(bytes).substr(0, length)))
                << tenths << ' ' << length;
        }
    }
}

TEST_F(BinaryDamage, ALargeFileCutAtAnyFieldIsRefused) {
    OldPlot sample = SampleOfVersion(OldVersions().back());
    sample.rows.resize(5000, sample.rows[0]);
    const OldPlotWriter file(sample);
    const std::string_view bytes = file.Bytes();
    ASSERT_TRUE(Read(bytes));
    for (const std::size_t field : file.Fields()) {
        for (const std::size_t length : {field - 1, field, field + 1}) {
            ASSERT_FALSE(Read(bytes.substr(0, length))) << length;
        }
    }
    for (std::size_t missing = 1; missing < 200; ++missing) {
        ASSERT_FALSE(Read(bytes.substr(0, bytes.size() - missing))) << missing;
    }
}

TEST_F(BinaryDamageTrial, NoBitOfASmallFileMakesHarm) {
    const std::string bytes = OldPlotWriter(SampleOfVersion({92, "", ""})).Bytes();
    TurnEveryBit(bytes, 0, bytes.size());
}

TEST_F(BinaryDamageTrial, NoBitOfTheLaterFieldsMakesHarm) {
    OldPlot sample = SampleOfVersion(OldVersions().back());
    sample.gridCount = -1;
    const OldPlotWriter file(sample);
    const std::size_t fields = file.Fields().size();
    const std::size_t version = file.Fields()[fields - 6];
    TurnEveryBit(file.Bytes(), version, file.Fields()[fields - 4] + 8);
    TurnEveryBit(file.Bytes(), file.Fields()[fields - 3], file.Bytes().size());
}

TEST_F(BinaryDamage, ACountThatTheRestCannotHoldTakesNoMemory) {
    std::string bytes = OldPlotWriter(SampleOfVersion({92, "", ""})).Bytes();
    // Two thousand million rows and table rows.
    for (const std::size_t place : {6U, 10U, 14U}) {
        std::string changed = bytes;
        changed.replace(place, 4, "\xff\xff\xff\x7f");
        EXPECT_FALSE(Read(changed));
    }
}

TEST_F(BinaryDamage, ADamagedFileLeavesTheStoreAsItWas) {
    const std::string good =
        WriteFile("good.qpx", OldPlotWriter(SampleOfVersion({92, "", ""})).Bytes());
    ASSERT_EQ(OpenPlotFile(kNewCommand, good), kBinaryCommand);
    const int slot = gActivePlot;
    const Result<std::string> before = BinaryPlotBytes(slot);
    ASSERT_TRUE(before);
    const std::vector<std::string> recent = gSettings.files.recent;
    const std::string whole = OldPlotWriter(SampleOfVersion(OldVersions().back())).Bytes();
    for (const std::size_t length : {std::size_t{20}, whole.size() / 2, whole.size() - 1}) {
        const std::string path = WriteFile("bad.qpx", whole.substr(0, length));
        Expect("The indicated file cannot be opened\n" + path + "\nIt ends too early.");
        EXPECT_EQ(OpenPlotFile(kNewCommand, path), kLoadError);
        EXPECT_EQ(HighestSlot(), slot) << "no slot was made";
        EXPECT_EQ(gActivePlot, slot);
        EXPECT_EQ(gSettings.files.recent, recent);
        const Result<std::string> after = BinaryPlotBytes(slot);
        ASSERT_TRUE(after);
        EXPECT_TRUE(*after == *before);
    }
}

TEST_F(BinaryDamage, WhenMemoryEndsThePlotIsGivenUp) {
    const std::string path =
        WriteFile("plot.qpx", OldPlotWriter(SampleOfVersion({92, "", ""})).Bytes());
    gPlatform.mostRows = 5;
    Expect("There is not enough memory for it.");
    EXPECT_EQ(OpenPlotFile(kNewCommand, path), kLoadError);
    gPlatform.mostRows = 1000000;
    EXPECT_EQ(CountOpenPlots(), 0);
    EXPECT_EQ(OpenPlotFile(kNewCommand, path), kBinaryCommand);
}

} // namespace
} // namespace quandrel
