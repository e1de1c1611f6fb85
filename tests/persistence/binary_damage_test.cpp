// SPDX-License-Identifier: MIT

#include "core/plot_rows.h"
#include "core/replot.h"
#include "input/file_loading.h"
#include "persistence/binary_plot_file.h"
#include "persistence/binary_samples.h"
#include "persistence/extension_by_hand.h"
#include "persistence/open_plot.h"
#include "persistence/plot_file_bytes.h"
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

TEST_F(BinaryDamage, ManySmallBlocksTakeLittleMemory) {
    std::string blocks;
    for (int i = 0; i < 3000; ++i) {
        blocks += BlockByHand("MPRI", 0, "") + BlockByHand("VOID", 1, "");
    }
    const std::string file =
        OldPlotWriter(SampleOfVersion({92, "", ""})).Bytes() + ExtensionByHand(blocks);
    const Result<BinaryPlot> plot = Read(file);
    ASSERT_TRUE(plot);
    EXPECT_EQ(plot->unknownBlocks.size(), 3000U);
    EXPECT_EQ(plot->leftOut.size(), 1U) << "the same damage is named once";
}

#ifdef QUANDREL_HAS_TEST_HEAP
TEST_F(BinaryDamage, DecimalsTakeTheMemoryOfTheirColumns) {
    constexpr std::size_t kRows = 100000;
    constexpr std::size_t kBytesOfDecimals = 12 * kRows;
    constexpr std::size_t kBuffers = 600000; // not more for more rows
    const auto taken = [](const auto& act) {
        gBytesTaken = 0;
        act();
        return gBytesTaken.load();
    };
    NewPlot();
    Plot& plot = ActivePlot();
    for (std::size_t row = 1; row <= kRows; ++row) {
        RowValues values;
        values.isData = true;
        values.dip = static_cast<std::int32_t>(row % 90);
        values.azimuth = static_cast<std::int32_t>(row % 360);
        ASSERT_TRUE(AppendRow(plot, 0, values));
    }
    std::string bytes;
    const auto write = [&] { bytes = std::move(*PlotFileBytes(plot)); };
    const auto read = [&] { ASSERT_TRUE(ReadPlotFile(bytes)); };
    const std::size_t writing = taken(write);
    const std::size_t reading = taken(read);
    for (std::int32_t row = 1; row <= plot.record.NumData; ++row) {
        const Attitude whole = WholeAttitude(plot.rows, RowAngles::Primary, row);
        ASSERT_TRUE(
            SetDecimals(plot.rows, RowAngles::Primary, row, {whole.dip + 0.25, whole.azimuth}));
    }
    EXPECT_LT(taken(read), reading + kBuffers) << "the same file again";
    // The block, and the columns that are read as a check.
    EXPECT_LT(taken(write), writing + 2 * kBytesOfDecimals + kBuffers);
    EXPECT_LT(taken(read), reading + kBytesOfDecimals + kBuffers) << "columns go into the plot";
}
#endif

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
