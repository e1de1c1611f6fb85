// SPDX-License-Identifier: MIT
//
// Every file of the published sample data, read in the format that its own page tells, saved, and
// read back. Counts are those of the page and of the lines of the files.

#include "input/file_loading.h"
#include "orientation/angles.h"
#include "persistence/ascii_plot_file.h"
#include "persistence/open_plot.h"
#include "support/test_platform.h"

#include <cmath>

namespace quandrel {
namespace {

struct SampleFile {
    const char* name;
    std::int16_t primary;
    std::int16_t secondary;
    std::int16_t conventions;
    const char* delimiter;
    ColumnSettings columns;
    bool heading;
    bool number;
    bool text;
    std::int16_t dataKind;
    std::int32_t valid;   ///< rows of data
    std::int32_t blank;   ///< comments, blank lines, parameter lines, titles
    std::int32_t invalid; ///< lines that hold digits and are no data
    std::int32_t badNumbers;
};

const std::vector<SampleFile>& SampleFiles() {
    static const std::vector<SampleFile> files = {
        {"foliation_dipdir_dip.csv",
         kPrimaryPlane,
         0,
         2,
         ",",
         {1, 0, 0, 0, 0, 0, 0, 0, 2, 3},
         true,
         true,
         true,
         kPlanes,
         200,
         0,
         0,
         0},
        {"lineation_trend_plunge.csv",
         kPrimaryLine,
         0,
         11,
         ",",
         {1, 0, 0, 0, 0, 0, 0, 0, 2, 3},
         true,
         true,
         true,
         kLines,
         84,
         0,
         0,
         6},
        {"lineation_quadrant.txt",
         kPrimaryLine,
         0,
         -1,
         " ",
         {0, 1, 0, 0, 0, 0, 0, 0, 0, 2},
         false,
         false,
         true,
         kLines,
         84,
         3,
         0,
         0},
        // Five lines of the heading begin with "#", one of them holds a year; five rows have an
        // azimuth where the others have a pitch with its sense.
        {"crete_normal_faults_1979.txt",
         kPrimaryPlane,
         kPitchInPlane,
         3,
         "\t",
         {1, 0, 1, 0, 2, 2, 0, 0, 0, 0},
         false,
         false,
         false,
         kPlanes,
         33,
         4,
         6,
         0},
        {"lofoten_faults_rhr.txt",
         kPrimaryPlane,
         kSecondaryLine,
         16,
         "\t",
         {1, 0, 0, 3, 2, 0, 0, 0, 0, 0},
         false,
         false,
         false,
         kPlanes,
         198,
         197,
         0,
         0},
        {"lofoten_faults_parameter_line.txt",
         kPrimaryPlane,
         kSecondaryLine,
         16,
         "\t",
         {1, 0, 0, 3, 2, 0, 0, 0, 0, 0},
         false,
         false,
         false,
         kPlanes,
         198,
         3,
         0,
         0},
        // One row has a dip of 4 and a direction of 364.
        {"joints_dip_dipdir.txt",
         kPrimaryPlane,
         0,
         1,
         ",",
         {0, 1, 0, 0, 0, 0, 0, 0, 0, 0},
         false,
         false,
         false,
         kPlanes,
         199,
         0,
         1,
         0},
        {"bedding_cleavage_strike_dip_sense.txt",
         kPrimaryPlane,
         0,
         3,
         "\t",
         {1, 0, 2, 0, 0, 0, 0, 0, 0, 4},
         true,
         false,
         true,
         kPlanes,
         16,
         0,
         0,
         0},
        {"bedding_cleavage_dip_sense_quadrant.txt",
         kPrimaryPlane,
         0,
         -4,
         "",
         {0, 1, 0, 0, 0, 0, 0, 0, 0, 2},
         false,
         false,
         true,
         kPlanes,
         16,
         4,
         0,
         0},
        {"foliation_lineation_pairs.csv",
         kPrimaryPlane,
         kSecondaryLine,
         12,
         ",",
         {2, 1, 0, 4, 3, 0, 0, 0, 5, 7},
         true,
         true,
         true,
         kPlanes,
         323,
         0,
         0,
         71},
        {"stylolites_semicolon.csv",
         kPrimaryPlane,
         0,
         6,
         ";",
         {3, 2, 0, 0, 0, 0, 0, 0, 4, 1},
         true,
         true,
         true,
         kPlanes,
         84,
         0,
         0,
         0},
        {"trace_lengths.txt",
         kDirections,
         0,
         1,
         "\t",
         {0, 0, 0, 0, 0, 0, 0, 0, 1, 0},
         true,
         true,
         false,
         kLines,
         240,
         0,
         0,
         0},
        {"islay_palaeocurrents.txt",
         kDirections,
         0,
         1,
         "",
         {0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
         true,
         false,
         false,
         kPolarLines,
         18,
         0,
         0,
         0},
        {"urban_wind_hourly_1998_01.csv",
         kDirections,
         0,
         1,
         ",",
         {0, 1, 0, 0, 0, 0, 0, 0, 2, 0},
         true,
         true,
         false,
         kPolarLines,
         744,
         0,
         0,
         1},
        {"offshore_wind_rose.txt",
         kDirections,
         0,
         1,
         " ",
         {0, 0, 0, 0, 0, 0, 0, 0, 2, 1},
         true,
         true,
         true,
         kPolarLines,
         72,
         0,
         0,
         0},
        {"offshore_wind_rose_table.txt",
         kDirections,
         0,
         1,
         "\t",
         {0, 0, 0, 0, 0, 0, 0, 0, 2, 1},
         true,
         true,
         true,
         kPolarLines,
         72,
         0,
         0,
         0},
    };
    return files;
}

class SampleData : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlatform.prompts = &anyPrompts;
        anyPrompts.OnFormat([](const FormatQuestion& question) {
            FormatAnswer answer;
            answer.columnHeadings = question.columnHeadings;
            return std::optional(answer);
        });
    }

    static std::string PathOf(const char* name) {
        return std::string(QUANDREL_SAMPLE_DATA "/").append(name);
    }

    static void State(const SampleFile& file) {
        gPrimaryDataType = file.primary;
        gSecondaryDataType = file.secondary;
        gConventions = file.conventions;
        gFileDelimiter = file.delimiter;
        gFileColumnSettings = file.columns;
        gFileHasHeadings = file.heading;
        gFileNumericAppended = file.number;
        gFileNonNumericAppended = file.text;
        gPlotDataKind = file.dataKind;
    }

    /// The rows of a plot that hold data.
    static std::vector<std::int32_t> ValidRows(int slot) {
        std::vector<std::int32_t> rows;
        for (std::int32_t row = 1; row <= RecordOf(slot).NumData; ++row) {
            if (gDataDip(slot, row) != kErrorRow) {
                rows.push_back(row);
            }
        }
        return rows;
    }

    static void ExpectSamePlot(int first, int second) {
        const std::vector<std::int32_t> rows = ValidRows(first);
        const std::vector<std::int32_t> others = ValidRows(second);
        ASSERT_EQ(rows.size(), others.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            ASSERT_EQ(gDataDip(first, rows[i]), gDataDip(second, others[i])) << i;
            ASSERT_EQ(gDataAz(first, rows[i]), gDataAz(second, others[i])) << i;
            ASSERT_EQ(gData2Dip(first, rows[i]), gData2Dip(second, others[i])) << i;
            ASSERT_EQ(gData2Az(first, rows[i]), gData2Az(second, others[i])) << i;
            ASSERT_EQ(gAppNumeric(first, rows[i]), gAppNumeric(second, others[i])) << i;
            ASSERT_EQ(gAppText(first, rows[i]), gAppText(second, others[i])) << i;
            ASSERT_EQ(gDataSymbol(first, rows[i]), gDataSymbol(second, others[i])) << i;
        }
        EXPECT_EQ(RecordOf(first).PrimaryFormat, RecordOf(second).PrimaryFormat);
        EXPECT_EQ(RecordOf(first).DataKind, RecordOf(second).DataKind);
        EXPECT_EQ(RecordOf(first).PlotKind, RecordOf(second).PlotKind);
    }

    ScriptedPrompts anyPrompts{ScriptedPrompts::Mode::Batch};
};

TEST_F(SampleData, EveryFileGivesTheRowsThatItsPageTells) {
    for (const SampleFile& file : SampleFiles()) {
        SCOPED_TRACE(file.name);
        LoadSettings();
        State(file);
        ASSERT_EQ(OpenPlotFile(kNewCommand, PathOf(file.name)), kNewCommand);
        EXPECT_EQ(gLastLoad.rowsValid, file.valid);
        EXPECT_EQ(gLastLoad.blankLines, file.blank);
        EXPECT_EQ(gLastLoad.invalidLines, file.invalid);
        EXPECT_EQ(gLastLoad.badNumeric, file.badNumbers);
        EXPECT_EQ(gLastLoad.rowsRead, file.valid + file.blank + file.invalid);
        EXPECT_EQ(ActiveRecord().PlotKind, file.primary == kDirections ? kRose : kEqualArea);
        ClosePlot(gActivePlot);
    }
}

TEST_F(SampleData, EveryFileComesBackFromItsAsciiForm) {
    for (const SampleFile& file : SampleFiles()) {
        SCOPED_TRACE(file.name);
        LoadSettings();
        State(file);
        ASSERT_EQ(OpenPlotFile(kNewCommand, PathOf(file.name)), kNewCommand);
        const int original = gActivePlot;
        const std::string saved = (folder / "saved.txt").string();
        ASSERT_EQ(SavePlotAs(saved, SaveKind::SaveAs), SaveOutcome::Saved);
        LoadSettings();
        ASSERT_EQ(OpenPlotFile(kNewCommand, saved), kNewCommand);
        ExpectSamePlot(original, gActivePlot);
        ClosePlot(gActivePlot);
        ClosePlot(original);
    }
}

TEST_F(SampleData, ADecimalCommaIsReadInEitherRegion) {
    for (const bool comma : {false, true}) {
        LoadSettings();
        gDecimalIsComma = comma;
        gConvertDecimals = !comma;
        State({"",
               kDirections,
               0,
               1,
               ";",
               {0, 0, 0, 0, 0, 0, 0, 0, 1, 0},
               false,
               true,
               false,
               kLines,
               0,
               0,
               0,
               0});
        ASSERT_EQ(OpenPlotFile(kNewCommand, PathOf("trace_lengths_decimal_comma.txt")),
                  kNewCommand);
        EXPECT_EQ(gLastLoad.rowsValid, 240);
        EXPECT_EQ(gLastLoad.blankLines, 11);
        EXPECT_EQ(gLastLoad.badNumeric, 0);
        const std::int32_t first = ValidRows(gActivePlot).front();
        EXPECT_EQ(gDataAz(gActivePlot, first), 66);
        EXPECT_FLOAT_EQ(gAppNumeric(gActivePlot, first), 3.431F);
        ClosePlot(gActivePlot);
    }
}

TEST_F(SampleData, BothFormsOfTheFoldedBeddingGiveTheSamePlanes) {
    State(SampleFiles()[7]);
    OpenPlotFile(kNewCommand, PathOf("bedding_cleavage_strike_dip_sense.txt"));
    const int azimuths = gActivePlot;
    State(SampleFiles()[8]);
    OpenPlotFile(kNewCommand, PathOf("bedding_cleavage_dip_sense_quadrant.txt"));
    const std::vector<std::int32_t> rows = ValidRows(azimuths);
    const std::vector<std::int32_t> others = ValidRows(gActivePlot);
    ASSERT_EQ(rows.size(), others.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(gDataDip(azimuths, rows[i]), gDataDip(gActivePlot, others[i]));
        EXPECT_EQ(gDataAz(azimuths, rows[i]) % 360, gDataAz(gActivePlot, others[i]) % 360);
    }
}

TEST_F(SampleData, SlipLinesReadAsPitchesLieInTheirFaults) {
    State(SampleFiles()[3]);
    OpenPlotFile(kNewCommand, PathOf("crete_normal_faults_1979.txt"));
    for (const std::int32_t row : ValidRows(gActivePlot)) {
        const double dip = DegToRad(gDataDip(gActivePlot, row));
        const double direction = DegToRad(gDataAz(gActivePlot, row));
        const Direction line = LineToCosines(DegToRad(gData2Dip(gActivePlot, row)),
                                             DegToRad(gData2Az(gActivePlot, row)));
        // The normal of the plane, upward side down: down cos(dip), against the dip sin(dip).
        const double off = -std::sin(dip) * std::cos(direction) * line.l
                           - std::sin(dip) * std::sin(direction) * line.m + std::cos(dip) * line.n;
        EXPECT_LT(std::abs(RadToDeg(std::asin(off))), 1.0) << row;
    }
}

TEST_F(SampleData, OneFileOfSeveralKindsReadsAsOneKindAtATime) {
    State({"",
           kPrimaryPlane,
           0,
           2,
           ",",
           {3, 2, 0, 0, 0, 0, 0, 0, 0, 1},
           true,
           false,
           true,
           kPlanes,
           0,
           0,
           0,
           0});
    ASSERT_EQ(OpenPlotFile(kNewCommand, PathOf("structures_mixed.csv")), kNewCommand);
    EXPECT_EQ(gLastLoad.rowsValid, 253);
    EXPECT_EQ(gAppText(gActivePlot, 1), "L3") << "the quotes of the file are taken off";
}

} // namespace
} // namespace quandrel
