// SPDX-License-Identifier: MIT
//
// Measured angles from text files to the store, to saved texts and back.

#include "core/measured_rows.h"
#include "core/plot_life.h"
#include "input/file_loading.h"
#include "input/load_report.h"
#include "persistence/ascii_plot_file.h"
#include "persistence/open_plot.h"
#include "support/decimal_lines.h"
#include "support/test_platform.h"

#include <sstream>

namespace quandrel {
namespace {

/// Twice the precision of the columns.
constexpr double kColumnPrecision = 6e-8;

class DecimalsInTexts : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        AcceptFormat({}, 1000);
    }

    [[nodiscard]] std::string SavedText(SavedDegrees degrees = SavedDegrees::Measured) const {
        const std::string path = (folder / "saved.txt").string();
        EXPECT_EQ(SavePlotAs(path, SaveKind::SaveAs, {degrees}), SaveOutcome::Saved);
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }

    /// The lines of rows of a saved text.
    [[nodiscard]] static std::vector<std::string> RowsIn(const std::string& text) {
        std::vector<std::string> rows;
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            if (!line.starts_with(";") && !line.starts_with("/")) {
                rows.push_back(line.substr(0, line.size() - 1));
            }
        }
        return rows;
    }

    void Load(const std::string& rows) {
        ASSERT_EQ(OpenPlotFile(kNewCommand, WriteFile("in.txt", rows)), kNewCommand);
    }
};

void ExpectMeasured(const Attitude& attitude, const Attitude& expected, double tolerance) {
    EXPECT_NEAR(attitude.dip, expected.dip, tolerance);
    EXPECT_NEAR(std::remainder(attitude.azimuth - expected.azimuth, 360), 0, tolerance);
}

/// The orientations that a notation fills.
std::vector<RowAngles> AnglesIn(const RowNotation& notation) {
    std::vector<RowAngles> angles = {RowAngles::Primary};
    if (notation.secondary != kNoSecondary) {
        angles.push_back(RowAngles::Secondary);
    }
    if (notation.line) {
        angles.push_back(RowAngles::Line);
    }
    return angles;
}

/// The angle in the plane from an azimuth of its strike down to a line,
/// degrees.
double AngleInPlane(const Attitude& plane, double strikeEnd, const Attitude& line) {
    const Direction l = LineToCosines(DegToRad(line.dip), DegToRad(line.azimuth));
    const double end = DegToRad(strikeEnd);
    const Direction down = LineToCosines(DegToRad(plane.dip), DegToRad(plane.azimuth));
    const double along = l.l * std::cos(end) + l.m * std::sin(end);
    return RadToDeg(std::atan2(l.l * down.l + l.m * down.m + l.n * down.n, along));
}

TEST_F(DecimalsInTexts, EveryNotationKeepsThemThroughFilesAndBackTrial) {
    for (const RowNotation& notation : RowNotations()) {
        SCOPED_TRACE(notation.Name());
        DecimalRows::Use(notation);
        const std::vector<DecimalRow> made = RandomDecimalRows(notation);
        Load(TextOf(made));
        const int original = gActivePlot;
        ASSERT_EQ(ActiveRecord().NumData, notation.rows);
        const std::string saved = SavedText();
        LoadSettings();
        prompts.ExpectAny("non-data");
        ASSERT_EQ(OpenPlotFile(kNewCommand, (folder / "saved.txt").string()), kNewCommand);
        ASSERT_EQ(ActiveRecord().NumValidData, notation.rows);
        const std::int32_t shift = ActiveRecord().NumData - notation.rows;
        const PlotRows& before = PlotOf(original).rows;
        const PlotRows& after = ActivePlot().rows;
        for (std::int32_t row = 1; row <= notation.rows; ++row) {
            const DecimalRow& meant = made[static_cast<std::size_t>(row - 1)];
            SCOPED_TRACE(meant.text);
            ExpectMeasured(MeasuredAttitude(before, RowAngles::Primary, row), meant.primary,
                           kColumnPrecision);
            if (meant.secondary) {
                ExpectMeasured(MeasuredAttitude(before, RowAngles::Secondary, row),
                               *meant.secondary, kColumnPrecision);
            }
            if (meant.line) {
                ExpectMeasured(MeasuredAttitude(before, RowAngles::Line, row), *meant.line,
                               kColumnPrecision);
            }
            for (const RowAngles which : AnglesIn(notation)) {
                const Attitude first = MeasuredAttitude(before, which, row);
                const Attitude second = MeasuredAttitude(after, which, row + shift);
                const Attitude whole = WholeAttitude(before, which, row);
                const Attitude wholeAfter = WholeAttitude(after, which, row + shift);
                if (which == RowAngles::Secondary && IsComputed(notation)) {
                    // The sixth decimal may decide between two whole degrees.
                    ExpectMeasured(whole, wholeAfter, 1);
                    const bool hasDecimals = meant.text.find('.') != std::string::npos;
                    ExpectMeasured(first, second, hasDecimals ? 5.1e-7 : 0);
                } else {
                    EXPECT_EQ(first, second);
                    EXPECT_EQ(whole, wholeAfter);
                }
            }
            if (HasFailure()) {
                return;
            }
        }
        ClosePlot(gActivePlot);
        ClosePlot(original);
    }
}

TEST_F(DecimalsInTexts, ThePitchOfALineCanBeComputedFromItAgain) {
    const RowNotation notation{1, kPrimaryPlane, kPitchInPlane, false};
    DecimalRows::Use(notation);
    const std::vector<DecimalRow> made = RandomDecimalRows(notation);
    Load(TextOf(made));
    const PlotRows& rows = ActivePlot().rows;
    int compared = 0;
    for (std::int32_t row = 1; row <= 2000; ++row) {
        const DecimalRow& meant = made[static_cast<std::size_t>(row - 1)];
        if (!HasDecimals(rows, row)) {
            continue; // of whole degrees the line is in whole degrees
        }
        ++compared;
        const Attitude plane = MeasuredAttitude(rows, RowAngles::Primary, row);
        const Attitude line = MeasuredAttitude(rows, RowAngles::Secondary, row);
        const double pitch = AngleInPlane(plane, meant.strikeEnd, line);
        EXPECT_NEAR(std::remainder(pitch - meant.angleInPlane, 360), 0, 5e-7) << meant.text;
    }
    EXPECT_GT(compared, 1600);
}

TEST_F(DecimalsInTexts, LinesInPlanesOfWholeDegreesHaveNone) {
    DecimalRows::Use({1, kPrimaryPlane, kPitchInPlane, false});
    Load("60\t90\tx\tx\t30\tN\n60.5\t90\tx\tx\t30\tN\n60\t90\tx\tx\t30.5\tN\n");
    const PlotRows& rows = ActivePlot().rows;
    EXPECT_FALSE(HasDecimals(rows, 1));
    EXPECT_TRUE(DecimalsOf(rows, RowAngles::Secondary, 2).has_value());
    EXPECT_FALSE(DecimalsOf(rows, RowAngles::Primary, 3).has_value());
    EXPECT_TRUE(DecimalsOf(rows, RowAngles::Secondary, 3).has_value());
    ClosePlot(gActivePlot);
    Load("60\t90\tx\tx\t30\tN\n");
    EXPECT_EQ(ActivePlot().rows.measured2.RowCount(), 0) << "no columns are made";
}

TEST_F(DecimalsInTexts, AreWrittenWithoutTrailingZerosWhetherTheyAreInUseOrNot) {
    Load("47.30\t218.6\n45\t7\n0.4\t359.7\n12.0000004\t5.1234567\n");
    const std::vector<std::string> expected = {"47.3\t218.6", "45\t7", "0.4\t359.7",
                                               "12\t5.123457"};
    for (const std::int16_t used : {std::int16_t{0}, kTrue}) {
        ActiveRecord().UseDecimals = used;
        EXPECT_EQ(RowsIn(SavedText()), expected);
    }
}

TEST_F(DecimalsInTexts, WholeDegreesAreWrittenWhereTheyAreAskedFor) {
    Load("47.3\t218.6\n45\t7\n0.5\t359.7\n");
    EXPECT_EQ(RowsIn(SavedText(SavedDegrees::Whole)),
              (std::vector<std::string>{"47\t219", "45\t7", "0\t360"}));
    // The bytes are those of the rounded file.
    const auto afterTitle = [](const std::string& text) { return text.substr(text.find("; dip")); };
    const std::string rounded = SavedText(SavedDegrees::Whole);
    Load("47\t219\n45\t7\n0\t360\n");
    EXPECT_EQ(afterTitle(SavedText()), afterTitle(rounded));
}

TEST_F(DecimalsInTexts, TheSaveDialogHasABoxForWholeDegrees) {
    Load("47.3\t218.6\n");
    const auto saved = [this] {
        const std::string path = (folder / "chosen.txt").string();
        prompts.QueueSavePath(path);
        EXPECT_EQ(SaveAsciiPlot(SaveKind::SaveAs), SaveOutcome::Saved);
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return RowsIn(text.str());
    };
    EXPECT_EQ(saved(), std::vector<std::string>{"47.3\t218.6"});
    prompts.CheckWholeDegrees();
    EXPECT_EQ(saved(), std::vector<std::string>{"47\t219"});
    EXPECT_EQ(saved(), std::vector<std::string>{"47.3\t218.6"}) << "for that save alone";
}

TEST_F(DecimalsInTexts, OfALoadAreToldWithItsReportAlone) {
    Load("47.3\t218.6\n45\t7\n");
    EXPECT_EQ(LastLoad().rowsWithDecimals, 1);
    EXPECT_TRUE(prompts.Shown().empty());
    Expect("1 non-data (blank, comments, etc.) lines were found in this file.\n"
           "2 rows have decimals; Plot > Use Decimals shows them.");
    Load("; station 5\n47.3\t218.6\n45.5\t7\n12\t7\n");
    EXPECT_EQ(LastLoad().rowsWithDecimals, 2);
    EXPECT_FALSE(LastLoad().hasMoreDecimals);
}

TEST_F(DecimalsInTexts, OfMergedFilesAreCountedByFile) {
    Load("47.3\t218.6\n45\t7\n");
    ASSERT_EQ(OpenPlotFile(kMergeCommand, WriteFile("more.txt", "1\t2\n3.5\t4\n5.5\t6\n")),
              kMergeCommand);
    EXPECT_EQ(LastLoad().rowsWithDecimals, 2);
    EXPECT_EQ(CountRowsWithDecimals(ActivePlot().rows, 1, ActiveRecord().NumData), 3);
}

TEST(DecimalsText, SaysHowManyRowsHaveSome) {
    LoadCounters counters;
    EXPECT_EQ(DecimalsText(counters, false), "");
    counters.rowsWithDecimals = 47;
    EXPECT_EQ(DecimalsText(counters, false),
              "47 rows have decimals; Plot > Use Decimals shows them.");
    EXPECT_EQ(DecimalsText(counters, true), "47 rows have decimals.");
    counters.rowsWithDecimals = 1;
    EXPECT_EQ(DecimalsText(counters, false), "1 row has decimals; Plot > Use Decimals shows it.");
    counters.hasMoreDecimals = true;
    EXPECT_EQ(DecimalsText(counters, true),
              "1 row has decimals. Angles with more than six decimals were "
              "rounded to six.");
    counters.rowsWithDecimals = 0;
    EXPECT_EQ(DecimalsText(counters, true),
              "Angles with more than six decimals were rounded to six.");
}

} // namespace
} // namespace quandrel
