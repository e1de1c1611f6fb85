// SPDX-License-Identifier: MIT
//
// Dumps are streams: the memory that they use does not grow with the number of rows.

#include "batch/dump.h"
#include "core/plot_store.h"
#include "stereo/row_positions.h"
#include "support/allocated_memory.h"
#include "support/test_platform.h"

#include <algorithm>
#include <string_view>

namespace quandrel {
namespace {

class DumpMemory : public EngineTest {
protected:
    /// A plot of lines, each with a number and a text.
    void MakePlot(std::int32_t rows) {
        const int slot = NewPlot();
        PlotRecord& record = ActiveRecord();
        record.PrimaryFormat = kPrimaryLine;
        record.DataKind = kLines;
        record.HasAppendedNumeric = kTrue;
        record.HasAppendedText = kTrue;
        int secondary = 0;
        GrowDataColumns(secondary, rows);
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Text));
        for (std::int32_t row = 1; row <= rows; ++row) {
            gDataDip.At(slot, row) = row % 91;
            gDataAz.At(slot, row) = row % 360;
            gAppNumeric.At(slot, row) = static_cast<float>(row) / 7;
            gAppText.Set(slot, row, "sandstone");
        }
        record.NumData = record.NumLoadedData = record.NumValidData = rows;
        RebuildRowTable(slot);
    }

    /// The most memory that a dump of so many rows uses in addition to the plot, in bytes.
    std::size_t PeakOfDump(std::int32_t rows) {
        MakePlot(rows);
        const std::size_t before = AllocatedBytes();
        std::size_t peak = before;
        bytes = 0;
        EXPECT_TRUE(DumpActivePlot(prompts, RecordingSurface(1000, 1000), JsonLayout::Lines,
                                   [this, &peak](std::string_view part) {
                                       bytes += part.size();
                                       peak = std::max(peak, AllocatedBytes());
                                       return true;
                                   }));
        return peak - before;
    }

    std::size_t bytes = 0; ///< of the last dump
};

TEST_F(DumpMemory, StaysWhereItIsHoweverManyTheRows) {
    constexpr std::size_t kMegabyte = 1U << 20U;
    // A tenth of the three million rows that are to be dumped within 300 MB.
    constexpr std::int32_t kRows = 300000;
    const std::size_t few = PeakOfDump(kRows / 100);
    EXPECT_LT(few, 2 * kMegabyte);
    const std::size_t many = PeakOfDump(kRows);
    EXPECT_GT(bytes, 15 * kMegabyte) << "the dump itself is many times as long";
    EXPECT_LT(many, 2 * kMegabyte);
}

} // namespace
} // namespace quandrel
