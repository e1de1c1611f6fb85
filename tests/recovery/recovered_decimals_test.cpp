// SPDX-License-Identifier: MIT

#include "core/plot_life.h"
#include "input/file_loading.h"
#include "recovery/recovery_copy.h"
#include "stereo/row_positions.h"
#include "support/decimal_lines.h"
#include "support/decimal_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class RecoveredDecimals : public EngineTest {
protected:
    /// A plot of random rows that no file holds.
    int PlotWithDecimals() {
        const int slot = NewPlot();
        FillWithDecimals(ActivePlot(), 2000, 3);
        ActiveRecord().UseDecimals = kTrue;
        RebuildRowTable(slot);
        ActiveRecord().PlotTitle = "scanline 4";
        return slot;
    }

    static std::string CopyOf(int slot) {
        const Result<std::string> bytes = RecoveryCopyBytes(slot);
        EXPECT_TRUE(bytes) << bytes.Error();
        return bytes ? *bytes : std::string();
    }
};

TEST_F(RecoveredDecimals, ComeBackWithTheNamesOfThePlot) {
    const int slot = PlotWithDecimals();
    const RecoveredPlot plot = OpenRecoveryCopy(WriteFile("plot_1.qpx", CopyOf(slot)));
    ASSERT_GT(plot.slot, slot) << plot.problem;
    ExpectSameDecimals(PlotOf(plot.slot), PlotOf(slot));
    EXPECT_EQ(RecordOf(plot.slot).UseDecimals, kTrue);
    EXPECT_EQ(RecordOf(plot.slot).PlotTitle, "scanline 4");
    EXPECT_NE(RecordOf(plot.slot).Modified, 0);
}

TEST_F(RecoveredDecimals, SoDoesTheChoiceOfFormulas) {
    const int slot = PlotWithDecimals();
    const std::string plain = CopyOf(slot);
    RecordOf(slot).PlotFormulas = kTextbookFormulas;
    const std::string copy = CopyOf(slot);
    EXPECT_NE(copy, plain);
    const RecoveredPlot plot = OpenRecoveryCopy(WriteFile("plot_1.qpx", copy));
    ASSERT_GT(plot.slot, slot) << plot.problem;
    EXPECT_EQ(RecordOf(plot.slot).PlotFormulas, kTextbookFormulas);
}

TEST_F(RecoveredDecimals, TheirLossIsReported) {
    const int slot = PlotWithDecimals();
    std::string bytes = CopyOf(slot);
    const std::size_t extension = bytes.find("\x8fQX");
    ASSERT_NE(extension, std::string::npos);
    bytes[extension + 200] = static_cast<char>(bytes[extension + 200] ^ 1);
    Expect("Part of this .qpx file was left out, such as decimals of its angles. It is lost if the "
           "plot is saved under the same name.\nIts extension is damaged.");
    const RecoveredPlot plot = OpenRecoveryCopy(WriteFile("plot_1.qpx", bytes));
    ASSERT_GT(plot.slot, slot) << plot.problem;
    EXPECT_EQ(RecordOf(plot.slot).NumLoadedData, RecordOf(slot).NumLoadedData);
    EXPECT_EQ(CountRowsWithDecimals(PlotOf(plot.slot).rows, 1, 2200), 0);
    EXPECT_EQ(RecordOf(plot.slot).PlotTitle, "scanline 4");
}

TEST_F(RecoveredDecimals, OfEveryNotationComeBackTrial) {
    AcceptFormat({}, 1000);
    for (const RowNotation& notation : RowNotations()) {
        SCOPED_TRACE(notation.Name());
        DecimalRows::Use(notation);
        const int slot = NewPlot();
        const std::string text = TextOf(RandomDecimalRows(notation));
        ASSERT_EQ(ReadTextFile(kNewCommand, WriteFile("in.txt", text)), kNewCommand);
        ASSERT_EQ(RecordOf(slot).NumValidData, notation.rows);
        const RecoveredPlot plot = OpenRecoveryCopy(WriteFile("plot_1.qpx", CopyOf(slot)));
        ASSERT_GT(plot.slot, slot) << plot.problem;
        for (std::int32_t row = 1; row <= notation.rows; ++row) {
            for (const RowAngles which : kRowAngles) {
                ASSERT_EQ(DecimalsOf(PlotOf(plot.slot).rows, which, row),
                          DecimalsOf(PlotOf(slot).rows, which, row))
                    << row;
            }
        }
        ClosePlot(plot.slot);
        ClosePlot(slot);
    }
}

} // namespace
} // namespace quandrel
