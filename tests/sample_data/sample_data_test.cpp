// SPDX-License-Identifier: MIT
//
// Every file of the published sample data, read in the format that its own page states, saved, and
// read back; and their converted rows against vector algebra.

#include "core/plot_life.h"
#include "input/file_loading.h"
#include "orientation/angles.h"
#include "persistence/ascii_plot_file.h"
#include "persistence/open_plot.h"
#include "sample_data/sample_files.h"
#include "support/test_platform.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <sstream>

namespace quandrel {
namespace {

double Sine(double degrees) {
    return std::sin(degrees * std::numbers::pi / 180);
}

double Cosine(double degrees) {
    return std::cos(degrees * std::numbers::pi / 180);
}

double Degrees(double radians) {
    return radians * 180 / std::numbers::pi;
}

/// The angle between two azimuths, 0 to 180.
double AzimuthsApart(double first, double second) {
    return std::abs(std::remainder(first - second, 360));
}

class SampleData : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        AcceptFormat({}, 1000);
    }

    /// The settings of a first run, in the same region.
    static void Defaults() {
        const bool comma = gDecimalIsComma;
        LoadSettings();
        gDecimalIsComma = comma;
        gConvertDecimals = false;
    }

    static void State(const Format& format) {
        gPrimaryDataType = format.primary;
        gSecondaryDataType = format.secondary;
        gConventions = format.conventions;
        gFileDelimiter = format.delimiter;
        gFileColumnSettings = format.columns;
        gSettings.format.hasHeadings = format.heading;
        gFileNumericAppended = format.number;
        gFileNonNumericAppended = format.text;
        gPlotDataKind = format.dataKind;
    }

    /// The button that continues the load.
    static Button GoingOn(const std::string& box) {
        if (box.find("delimiter") != std::string::npos) {
            return Button::Retry;
        }
        const bool isLine = box.find("line of invalid") == 0 || box.find("does not appear") == 0;
        return isLine ? Button::Ignore : Button::Ok;
    }

    /// Opens a file in its format and returns the slot; the boxes that it requires must appear.
    int Load(const SampleFile& file, const std::string& path) {
        Defaults();
        State(file.format);
        for (const char* box : file.boxes) {
            Expect(box, GoingOn(box));
        }
        EXPECT_EQ(OpenPlotFile(kNewCommand, path), kNewCommand);
        EXPECT_EQ(prompts.Problems(), "");
        return gActivePlot;
    }

    int Load(const SampleFile& file) { return Load(file, PathOf(file.name)); }

    /// Opens a saved plot. Only numbers that were invalid from the start are reported: the lines
    /// before the rows are the program's own.
    void OpenSaved(const std::string& path, const Counts& counts) {
        if (counts.badNumbers > 0) {
            Expect(kBadNumbers);
        }
        EXPECT_EQ(OpenPlotFile(kNewCommand, path), kNewCommand);
        EXPECT_EQ(prompts.Problems(), "");
    }

    /// Saves the active plot as text and reads it with the settings of a first run. Returns the
    /// slot.
    int SaveAndReadBack(const Counts& counts) {
        const std::string saved = (folder / "saved.txt").string();
        EXPECT_EQ(SavePlotAs(saved, SaveKind::SaveAs), SaveOutcome::Saved);
        Defaults();
        OpenSaved(saved, counts);
        return gActivePlot;
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

    static Sums SumsOf(int slot) {
        const PlotRecord& record = RecordOf(slot);
        Sums sums;
        for (const std::int32_t row : ValidRows(slot)) {
            sums.dip += gDataDip(slot, row);
            sums.az += gDataAz(slot, row) % 360;
            if (record.SecondaryFormat != kNoSecondary) {
                sums.dip2 += gData2Dip(slot, row);
                sums.az2 += gData2Az(slot, row) % 360;
            }
            if (record.HasAppendedNumeric != 0 && gAppNumeric(slot, row) != kInvalidNumber) {
                sums.number += static_cast<double>(gAppNumeric(slot, row));
            }
            if (record.HasAppendedText != 0 && gAppText(slot, row).empty()) {
                ++sums.emptyTexts;
            }
        }
        return sums;
    }

    static void ExpectRows(int slot, const SampleFile& file) {
        const std::vector<std::int32_t> rows = ValidRows(slot);
        ASSERT_EQ(static_cast<std::int32_t>(rows.size()), file.counts.valid);
        EXPECT_EQ(RecordOf(slot).HasAppendedNumeric != 0, file.sums.number != 0);
        const Sums sums = SumsOf(slot);
        EXPECT_EQ(sums.dip, file.sums.dip);
        EXPECT_EQ(sums.az, file.sums.az);
        EXPECT_EQ(sums.dip2, file.sums.dip2);
        EXPECT_EQ(sums.az2, file.sums.az2);
        EXPECT_NEAR(sums.number, file.sums.number, 1e-6 * file.sums.number);
        EXPECT_EQ(sums.emptyTexts, file.sums.emptyTexts);
    }

    static void ExpectCounts(const Counts& counts) {
        EXPECT_EQ(LastLoad().rowsRead, counts.read);
        EXPECT_EQ(LastLoad().rowsValid, counts.valid);
        EXPECT_EQ(LastLoad().blankLines, counts.blank);
        EXPECT_EQ(LastLoad().invalidLines, counts.invalid);
        EXPECT_EQ(LastLoad().badNumeric, counts.badNumbers);
        EXPECT_EQ(LastLoad().badText, 0) << "a missing text is an empty one";
        EXPECT_EQ(LastLoad().badLine, 0);
        EXPECT_EQ(LastLoad().stoppedAtLine, 0);
        EXPECT_EQ(ActiveRecord().NumData, counts.read);
        EXPECT_EQ(ActiveRecord().NumValidData, counts.valid);
    }

    /// Both plots hold the same orientations, north as 0 or as 360.
    static void ExpectSameOrientations(int first, int second) {
        const std::vector<std::int32_t> rows = ValidRows(first);
        const std::vector<std::int32_t> others = ValidRows(second);
        ASSERT_EQ(rows.size(), others.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            ASSERT_EQ(gDataDip(first, rows[i]), gDataDip(second, others[i])) << i;
            ASSERT_EQ(gDataAz(first, rows[i]) % 360, gDataAz(second, others[i]) % 360) << i;
            ASSERT_EQ(gData2Dip(first, rows[i]), gData2Dip(second, others[i])) << i;
            ASSERT_EQ(gData2Az(first, rows[i]) % 360, gData2Az(second, others[i]) % 360) << i;
        }
    }

    static void ExpectSamePlot(int first, int second) {
        ASSERT_NO_FATAL_FAILURE(ExpectSameOrientations(first, second));
        const std::vector<std::int32_t> rows = ValidRows(first);
        const std::vector<std::int32_t> others = ValidRows(second);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            ASSERT_EQ(gDataAz(first, rows[i]), gDataAz(second, others[i])) << i;
            ASSERT_EQ(gAppNumeric(first, rows[i]), gAppNumeric(second, others[i])) << i;
            ASSERT_EQ(gAppText(first, rows[i]), gAppText(second, others[i])) << i;
            ASSERT_EQ(gDataSymbol(first, rows[i]), gDataSymbol(second, others[i])) << i;
            ASSERT_EQ(gDataSymbolBase(first, rows[i]), gDataSymbolBase(second, others[i])) << i;
        }
        ExpectSameFormat(RecordOf(first), RecordOf(second));
    }

    static void ExpectSameFormat(const PlotRecord& first, const PlotRecord& second) {
        const bool computed =
            first.SecondaryFormat == kPitchInPlane || first.SecondaryFormat == kTrendInPlane;
        EXPECT_EQ(first.PrimaryFormat, second.PrimaryFormat);
        EXPECT_EQ(computed ? std::int16_t{kSecondaryLine} : first.SecondaryFormat,
                  second.SecondaryFormat)
            << "a line that was worked out is saved as a line";
        EXPECT_EQ(first.DataKind, second.DataKind);
        EXPECT_EQ(first.PlotKind, second.PlotKind);
        EXPECT_EQ(first.ShowSecondary, second.ShowSecondary);
        EXPECT_EQ(first.HasAppendedLine, second.HasAppendedLine);
        EXPECT_EQ(first.HasAppendedNumeric, second.HasAppendedNumeric);
        EXPECT_EQ(first.HasAppendedText, second.HasAppendedText);
        EXPECT_EQ(first.AppNumName, second.AppNumName);
        EXPECT_EQ(first.AppNonNumName, second.AppNonNumName);
        EXPECT_EQ(first.AppendedMin, second.AppendedMin);
        EXPECT_EQ(first.AppendedMax, second.AppendedMax);
        EXPECT_EQ(first.RoseType, second.RoseType);
    }

    /// The positions of the rows of data on the net, in the order of the rows.
    static std::vector<std::pair<double, double>> Positions(int slot) {
        const RowTable& table = TableOf(slot);
        std::vector<std::size_t> places(table.size());
        for (std::size_t place = 0; place < places.size(); ++place) {
            places[place] = place;
        }
        std::sort(places.begin(), places.end(), [&](std::size_t first, std::size_t second) {
            return table.index[first] < table.index[second];
        });
        std::vector<std::pair<double, double>> positions;
        for (const std::size_t place : places) {
            if (gDataDip(slot, table.index[place]) != kErrorRow) {
                positions.emplace_back(table[place].x, table[place].y);
            }
        }
        return positions;
    }

    static void CloseAll() {
        while (gActivePlot > 0) {
            ClosePlot(gActivePlot);
        }
    }
};

TEST_F(SampleData, EveryFileGivesTheRowsThatItsPageTells) {
    for (const SampleFile& file : AllFiles()) {
        SCOPED_TRACE(file.name);
        const int slot = Load(file);
        ExpectCounts(file.counts);
        ExpectRows(slot, file);
        EXPECT_EQ(ActiveRecord().PlotKind, file.format.primary == kDirections ? kRose : kEqualArea);
        CloseAll();
    }
}

TEST_F(SampleData, EveryFileComesBackFromItsAsciiForm) {
    for (const SampleFile& file : AllFiles()) {
        SCOPED_TRACE(file.name);
        const int original = Load(file);
        const int copy = SaveAndReadBack(file.counts);
        ExpectSamePlot(original, copy);
        EXPECT_EQ(Positions(original), Positions(copy));
        EXPECT_EQ(LastLoad().rowsValid, file.counts.valid);
        EXPECT_EQ(LastLoad().invalidLines, 0);
        EXPECT_EQ(LastLoad().badNumeric, file.counts.badNumbers);
        EXPECT_EQ(LastLoad().badText, 0);
        CloseAll();
    }
}

TEST_F(SampleData, ASecondSavingGivesTheSameRows) {
    for (const SampleFile& file : AllFiles()) {
        SCOPED_TRACE(file.name);
        const auto rowsOf = [](const std::string& text) { return text.substr(text.find("\n/")); };
        Load(file);
        SaveAndReadBack(file.counts);
        const std::string once = rowsOf(AsciiPlotText());
        SaveAndReadBack(file.counts);
        EXPECT_EQ(rowsOf(AsciiPlotText()), once);
        CloseAll();
    }
}

TEST_F(SampleData, TheSavedFormDoesNotDependOnTheFormatInForce) {
    const Format other = {
        kPrimaryLine, kSecondaryPlane, -14, ";", {7, 6, 5, 4, 3, 2, 1, 0, 9, 8}, true, true,
        true,         kPolarLines};
    for (const SampleFile& file : AllFiles()) {
        SCOPED_TRACE(file.name);
        const int original = Load(file);
        const std::string saved = (folder / "saved.txt").string();
        ASSERT_EQ(SavePlotAs(saved, SaveKind::SaveAs), SaveOutcome::Saved);
        State(other);
        OpenSaved(saved, file.counts);
        ExpectSamePlot(original, gActivePlot);
        CloseAll();
    }
}

TEST_F(SampleData, ADecimalCommaIsReadInEitherRegion) {
    for (const bool comma : {false, true}) {
        SCOPED_TRACE(comma ? "comma" : "point");
        gDecimalIsComma = comma;
        SampleFile file = TracesWithComma();
        if (!comma) { // the point's region asks before it converts
            file.boxes.insert(file.boxes.begin(), "incorrect decimal delimiter");
        }
        const int original = Load(file);
        ExpectCounts(file.counts);
        ExpectRows(original, file);
        ExpectSamePlot(original, SaveAndReadBack(file.counts));
        CloseAll();
    }
}

TEST_F(SampleData, TwoFormsOfOneFileGiveTheSameRows) {
    const std::vector<std::pair<const char*, const char*>> pairs = {
        {kBeddingSense, kBeddingQuadrant},
        {kLineations, kLineationsQuadrant},
        {kLofotenFaults, kLofotenParameters}};
    for (const auto& [one, other] : pairs) {
        SCOPED_TRACE(one);
        const int first = Load(FileNamed(one));
        ExpectSameOrientations(first, Load(FileNamed(other)));
        CloseAll();
    }
}

TEST_F(SampleData, TracesHaveTheSameLengthsWithPointAndComma) {
    const int points = Load(FileNamed(kTraces));
    gDecimalIsComma = true;
    const int commas = Load(TracesWithComma());
    ExpectSameOrientations(points, commas);
    const std::vector<std::int32_t> rows = ValidRows(points);
    const std::vector<std::int32_t> others = ValidRows(commas);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(gAppNumeric(points, rows[i]), gAppNumeric(commas, others[i]));
    }
}

TEST_F(SampleData, StrikesWithSenseDipTowardsTheSense) {
    const int slot = Load(FileNamed(kBeddingSense));
    const std::vector<std::string> lines = LinesOf(kBeddingSense);
    const std::vector<std::int32_t> rows = ValidRows(slot);
    ASSERT_EQ(rows.size() + 1, lines.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        std::istringstream line(lines[i + 1]);
        double strike = 0;
        double dip = 0;
        std::string sense;
        line >> strike >> dip >> sense;
        const double direction = gDataAz(slot, rows[i]);
        EXPECT_NEAR(Cosine(direction) * Cosine(strike) + Sine(direction) * Sine(strike), 0, 1e-12);
        EXPECT_GT(Sine(direction) * (sense == "E" ? 1 : -1), 0) << lines[i + 1];
        EXPECT_EQ(gDataDip(slot, rows[i]), dip);
    }
}

TEST_F(SampleData, StrikesByTheRightHandRuleDipToTheirRight) {
    const int slot = Load(FileNamed(kLofotenFaults));
    const std::vector<std::int32_t> rows = ValidRows(slot);
    std::size_t next = 0;
    for (const std::string& text : LinesOf(kLofotenFaults)) {
        std::istringstream line(text);
        double strike = 0;
        double dip = 0;
        if (!(line >> strike >> dip)) {
            continue;
        }
        ASSERT_LT(next, rows.size());
        const std::int32_t row = rows[next++];
        // Down (0, 0, 1) cross the strike (cos, sin, 0), with north, east and down as the axes.
        const double direction = Degrees(std::atan2(Cosine(strike), -Sine(strike)));
        EXPECT_LE(AzimuthsApart(gDataAz(slot, row), direction), 0.5 + 1e-9) << text;
        EXPECT_LE(std::abs(gDataDip(slot, row) - dip), 0.5 + 1e-9) << text;
    }
    EXPECT_EQ(next, rows.size());
}

/// The azimuth of a sense.
double SenseAzimuth(const std::string& sense) {
    static const std::vector<std::string> names = {"N", "NE", "E", "SE", "S", "SW", "W", "NW"};
    const auto found = std::find(names.begin(), names.end(), sense);
    EXPECT_NE(found, names.end()) << sense;
    return 45.0 * static_cast<double>(found - names.begin());
}

/// An azimuth or its opposite, whichever is nearer to a sense.
double EndTowards(double one, const std::string& sense) {
    return AzimuthsApart(one, SenseAzimuth(sense)) < 90 ? one : one + 180;
}

struct FaultLine {
    double strike = 0;
    int dip = 0;
    std::string dipSense;
    int pitch = 0;
    std::string pitchSense;
};

/// The faults whose third number is a pitch with its sense.
std::vector<FaultLine> CreteFaults() {
    std::vector<FaultLine> faults;
    for (const std::string& text : LinesOf(kCreteFaults)) {
        std::istringstream line(text);
        double strike = 0;
        std::string dip;
        std::string pitch;
        if (!(line >> strike >> dip >> pitch)) {
            continue;
        }
        std::size_t dipEnd = 0;
        std::size_t pitchEnd = 0;
        FaultLine fault{strike, std::stoi(dip, &dipEnd), "", std::stoi(pitch, &pitchEnd), ""};
        fault.dipSense = dip.substr(dipEnd);
        fault.pitchSense = pitch.substr(pitchEnd);
        if (!fault.pitchSense.empty()) {
            faults.push_back(fault);
        }
    }
    return faults;
}

TEST_F(SampleData, PitchesWithSenseGiveTheLinesOfVectorAlgebra) {
    const int slot = Load(FileNamed(kCreteFaults));
    const std::vector<std::int32_t> rows = ValidRows(slot);
    const std::vector<FaultLine> faults = CreteFaults();
    ASSERT_EQ(rows.size(), faults.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::int32_t row = rows[i];
        const FaultLine& fault = faults[i];
        SCOPED_TRACE(row);
        const double direction = EndTowards(fault.strike + 90, fault.dipSense);
        EXPECT_EQ(AzimuthsApart(gDataAz(slot, row), direction), 0);
        EXPECT_EQ(gDataDip(slot, row), fault.dip);
        // From the strike's end on the side of the sense towards the line of dip.
        const double end = EndTowards(fault.strike, fault.pitchSense);
        const double across = Sine(fault.pitch) * Cosine(fault.dip);
        const double north = Cosine(fault.pitch) * Cosine(end) + across * Cosine(direction);
        const double east = Cosine(fault.pitch) * Sine(end) + across * Sine(direction);
        const double down = Sine(fault.pitch) * Sine(fault.dip);
        EXPECT_LE(std::abs(gData2Dip(slot, row) - Degrees(std::asin(down))), 0.5 + 1e-9);
        EXPECT_LE(AzimuthsApart(gData2Az(slot, row), Degrees(std::atan2(east, north))), 0.5 + 1e-9);
    }
}

TEST_F(SampleData, AFileOfSeveralKindsIsPlottedOneKindAtATime) {
    const std::vector<std::pair<std::string, std::int32_t>> kinds = {
        {"S0", 10}, {"S1", 108}, {"S2", 10}, {"S3", 14}, {"L1", 7}, {"L2", 7}, {"L3", 97}};
    for (const auto& [name, count] : kinds) {
        SCOPED_TRACE(name);
        std::string text;
        for (const std::string& line : LinesOf(kMixed)) {
            if (text.empty() || line.find('"' + name + '"') != std::string::npos) {
                text += line + "\n";
            }
        }
        SampleFile file = FileNamed(kMixed);
        if (name.front() == 'L') {
            file.format.primary = kPrimaryLine;
            file.format.conventions = 11;
            file.format.dataKind = kLines;
        }
        file.counts = {count, count, 0, 0, 0};
        const int slot = Load(file, WriteFile(name + ".csv", text));
        ExpectCounts(file.counts);
        EXPECT_EQ(gAppText(slot, count), name);
        ExpectSamePlot(slot, SaveAndReadBack(file.counts));
        CloseAll();
    }
}

TEST_F(SampleData, TheNamesOfAWindTableMakeAWindRose) {
    const SampleFile file = FileNamed("offshore_wind_rose_table.txt");
    Defaults();
    State(file.format);
    gFileAppNumName = "Mean wind frequency";
    gFileAppNonNumName = "Mean wind speed";
    ASSERT_EQ(OpenPlotFile(kNewCommand, PathOf(file.name)), kNewCommand);
    const int original = gActivePlot;
    EXPECT_EQ(ActiveRecord().RoseType, 1);
    ExpectSamePlot(original, SaveAndReadBack(file.counts));
}

} // namespace
} // namespace quandrel
