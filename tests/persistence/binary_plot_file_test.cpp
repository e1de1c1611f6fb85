// SPDX-License-Identifier: MIT

#include "core/class_stats.h"
#include "core/replot.h"
#include "core/row_table.h"
#include "core/settings_value.h"
#include "orientation/angles.h"
#include "persistence/binary_plot_file.h"
#include "persistence/binary_samples.h"
#include "stereo/row_positions.h"
#include "support/test_platform.h"

#include <iterator>
#include <random>

namespace quandrel {
namespace {

class BinaryPlotFile : public EngineTest {
protected:
    static std::string Bytes(int slot) {
        const Result<std::string> bytes = BinaryPlotBytes(slot);
        EXPECT_TRUE(bytes) << bytes.Error();
        return bytes ? *bytes : std::string();
    }

    /// Stores bytes in a new slot and returns it.
    int StoreAnew(const std::string& bytes) {
        Result<BinaryPlot> plot = ReadBinaryPlot(bytes);
        EXPECT_TRUE(plot) << plot.Error();
        const int slot = NewPlot();
        EXPECT_TRUE(plot && StoreBinaryPlot(std::move(*plot), "x.qpx", slot));
        return slot;
    }

    /// Fills the active plot with made-up rows, main ones and those of overlays.
    static void FillRows(std::int32_t mainRows, const std::vector<std::int32_t>& overlays) {
        PlotRecord& record = ActiveRecord();
        record.NumData = mainRows;
        record.NumLoadedData = mainRows;
        for (std::size_t k = 0; k < overlays.size(); ++k) {
            record.OverlayRows[k + 1] = overlays[k];
            record.OverlayKind[k + 1] = static_cast<std::int16_t>(k % 4);
            record.NumLoadedData += overlays[k];
        }
        record.OverlayRows[kOverlayCount] = static_cast<std::int32_t>(overlays.size());
        if (record.NumLoadedData == 0) {
            return;
        }
        int secondary = record.SecondaryFormat;
        GrowDataColumns(secondary, record.NumLoadedData);
        ASSERT_EQ(secondary, 0);
        ASSERT_TRUE(record.HasAppendedLine == 0 || GrowAppendedColumn(AppendedColumn::Line));
        ASSERT_TRUE(record.HasAppendedNumeric == 0 || GrowAppendedColumn(AppendedColumn::Number));
        ASSERT_TRUE(record.HasAppendedText == 0 || GrowAppendedColumn(AppendedColumn::Text));
        std::mt19937 random(7);
        const auto below = [&random](int end) {
            return static_cast<int>(random() % static_cast<unsigned>(end));
        };
        for (std::int32_t row = 1; row <= record.NumLoadedData; ++row) {
            const bool isError = row <= mainRows && row % 17 == 0;
            record.NumValidData += row <= mainRows && !isError ? 1 : 0;
            gDataDip.At(gActivePlot, row) = isError ? kErrorRow : below(181) - 90;
            gDataAz.At(gActivePlot, row) = below(361);
            gDataSymbol.At(gActivePlot, row) = MakeSymbolCode(below(25), below(20), below(100));
            gPointDensity.At(gActivePlot, row) = below(9);
            gDataOrder.At(gActivePlot, row) = row;
            if (record.SecondaryFormat != 0) {
                const bool isMissing = row % 5 == 0;
                gData2Dip.At(gActivePlot, row) = isMissing ? kErrorRow : below(91);
                gData2Az.At(gActivePlot, row) = isMissing ? kErrorRow : below(361);
            }
            if (row > mainRows) {
                continue;
            }
            if (record.HasAppendedLine != 0) {
                gAppLineDip.At(gActivePlot, row) = row % 3 == 0 ? kInvalidAppendedLine : below(91);
                gAppLineAz.At(gActivePlot, row) = below(361);
            }
            if (record.HasAppendedNumeric != 0) {
                gAppNumeric.At(gActivePlot, row) = 0.1F * static_cast<float>(below(1000));
            }
            if (record.HasAppendedText != 0) {
                static const char* const names[] = {"", "slate", "gr\xc3\xa8s", "\xce\xa9",
                                                    "\xc3\x83\xc2\xa9"};
                gAppText.Set(gActivePlot, row, names[below(5)]);
            }
        }
        RebuildRowTable(gActivePlot);
    }

    /// Gives every kind of field another value than a new plot has.
    static void FillRecord() {
        PlotRecord& record = ActiveRecord();
        record.AxesTitle = "P";
        record.FabricText = "S\xe2\x82\x81";
        record.DescriptionText = std::string(300, 'd') + "\r\n";
        record.PlotSymbolMode = kContours;
        record.GridSize = 20;
        record.DensityGrid = std::make_unique<Table<std::int32_t, kGridNodes, kGridNodes>>();
        (*record.DensityGrid)[20][3] = 12345;
        record.DensityCount = 99;
        record.NumContours = 3;
        record.AxisItems[4] = {true,         std::string("30/120"), 1.25,
                               0.5F,         std::int32_t{3},       std::int16_t{1},
                               TaggedValue()};
        record.RoseStats[kRoseCount][kRawTotal] = 123456.5;
        record.RoseMeanDir = {123.456789012345, -1e-300};
        record.RoseRangeA[kBottomRoseLayer][kInUnits] = 1e300;
        record.RoseType = 12;
        record.RoseScaleType = "circ2.5";
        record.DistinctValues[3][kOfTexts] = std::string("gr\xc3\xa8s");
        record.DistinctValues[10][kOfNumbers] = 0.1;
        record.ClassTable[kFlagRow][kNameClasses] = std::string("last");
        record.ClassStats[kGridChoice][kBackground] = kUnsetValue;
        record.HasFrequencyColumn = kTrue;
        record.PlotAnnotations = std::make_unique<Annotations>();
        record.PlotAnnotations->push_back({1, -2, 3, 4, 5, 6, "17", {{7, -8}, {9, 10}}});
        record.PlotAnnotations->push_back({11, 12, 13, 14, 15, 0, "-3", {}});
        (*record.PlotSmallCircles)[4] = {3, 1, 2, kTrue, 2, "12.5", "120", "30"};
        const auto slot = static_cast<std::size_t>(gActivePlot);
        gGridCount[slot] = kTrue;
        gGridValues[slot] = std::make_unique<GridValues>();
        (*gGridValues[slot])[kCumulativeLayer][152][1] = 4.25;
        Form(gActivePlot).SetPlace({0, 150, 300, 9000, 6000});
    }
};

struct Variant {
    const char* name;
    std::int16_t primary;
    std::int16_t secondary;
    bool line;
    bool number;
    bool text;
    std::int32_t rows;
    std::vector<std::int32_t> overlays;
    bool filled;
    std::int16_t plotKind;
};

TEST_F(BinaryPlotFile, WrittenReadAndWrittenIsTheSame) {
    const Variant variants[] = {
        {"empty", kPrimaryPlane, 0, false, false, false, 0, {}, false, kEqualArea},
        {"planes", kPrimaryPlane, 0, false, false, false, 40, {}, false, kEqualArea},
        {"lines, equal angle", kPrimaryLine, 0, false, false, false, 40, {}, false, kEqualAngle},
        {"a rose of directions", kDirections, 0, false, false, false, 40, {}, true, kRose},
        {"secondary",
         kPrimaryPlane,
         kSecondaryLine,
         false,
         false,
         false,
         40,
         {},
         false,
         kEqualArea},
        {"appended line", kPrimaryPlane, 0, true, false, false, 40, {}, false, kEqualArea},
        {"appended number", kPrimaryPlane, 0, false, true, false, 40, {}, false, kEqualArea},
        {"appended text", kPrimaryPlane, 0, false, false, true, 40, {}, false, kEqualArea},
        {"overlays", kPrimaryPlane, 0, false, false, false, 40, {3, 0, 5}, false, kEqualArea},
        {"overlays alone", kPrimaryPlane, 0, false, false, false, 0, {2}, false, kEqualArea},
        {"20 overlays", kPrimaryPlane, kSecondaryPlane, false, false, false, 5,
         std::vector<std::int32_t>(20, 2), false, kEqualArea},
        {"all", kPrimaryPlane, kPitchInPlane, true, true, true, 60, {7, 4}, true, kEqualArea},
        {"many",
         kPrimaryPlane,
         kSecondaryLine,
         true,
         true,
         true,
         100000,
         {32767},
         true,
         kEqualArea},
    };
    for (const Variant& variant : variants) {
        NewPlot();
        PlotRecord& record = ActiveRecord();
        record.PrimaryFormat = variant.primary;
        record.SecondaryFormat = variant.secondary;
        record.HasAppendedLine = variant.line ? kTrue : std::int16_t{0};
        record.HasAppendedNumeric = variant.number ? kTrue : std::int16_t{0};
        record.HasAppendedText = variant.text ? kTrue : std::int16_t{0};
        record.PlotKind = variant.plotKind;
        if (variant.filled) {
            FillRecord();
        }
        FillRows(variant.rows, variant.overlays);
        const int slot = gActivePlot;
        const std::string first = Bytes(slot);
        const std::string second = Bytes(StoreAnew(first));
        EXPECT_TRUE(first == second) << variant.name;
        for (const int used : {slot, slot + 1}) {
            gPlotForm[static_cast<std::size_t>(used)].reset();
            ReleasePlotSlot(used);
        }
    }
}

TEST_F(BinaryPlotFile, TheOrderOfTheTableComesBack) {
    NewPlot();
    ActiveRecord().PrimaryFormat = kPrimaryPlane;
    FillRows(50, {4});
    SortRowTable(TableOf(gActivePlot), 50);
    const std::vector<std::int32_t> order = TableOf(gActivePlot).index;
    const std::vector<std::int16_t> x = TableOf(gActivePlot).x;
    const int again = StoreAnew(Bytes(gActivePlot));
    EXPECT_EQ(TableOf(again).index, order);
    EXPECT_EQ(TableOf(again).x, x);
}

TEST_F(BinaryPlotFile, PositionsAreThoseOfTheRowsWhateverTheCellsSay) {
    const int slot = StoreAnew(OldPlotWriter(SampleOfVersion(OldVersions().front())).Bytes());
    const PlottedRow row = TableOf(slot)[0];
    // The pole of 30/120 plunges 60 to 300; equal area: sqrt(2) sin(15 degrees) of the radius.
    const double radius = 1000 * std::sqrt(2.0) * std::sin(DegToRad(15));
    EXPECT_NEAR(row.x, radius * std::sin(DegToRad(300)), 0.51);
    EXPECT_NEAR(row.y, radius * std::cos(DegToRad(300)), 0.51);
    EXPECT_NEAR(row.plunge, DegToRad(60), 1e-12);
}

TEST_F(BinaryPlotFile, StandsWhereTheFormatSays) {
    NewPlot();
    const std::string bytes = Bytes(gActivePlot);
    EXPECT_EQ(bytes.substr(0, 6), "bin9.5");
    // After the full version: a count, two grids, ten statistics, a flag, three items of a truth,
    // an empty text, two empty values and three numbers.
    const std::size_t items = 3 * (4 + 4 + 2 + 2 + 3 * 4);
    const std::size_t behind = 2 + 153 * 153 * 2 * 8 + 10 * 8 + 2 + items;
    ASSERT_GT(bytes.size(), behind + 5);
    EXPECT_EQ(bytes.substr(bytes.size() - behind - 5, 5), "9.51 ");
}

TEST_F(BinaryPlotFile, AgreesWithAnotherWriterFieldByField) {
    constexpr std::size_t kCells = 8; // of the writer's fields, with two overlays
    constexpr std::size_t kPlace = 24;
    const OldPlotWriter other(SampleOfVersion(OldVersions().back()));
    const std::string theirs = other.Bytes();
    const std::string ours = Bytes(StoreAnew(theirs));
    // Up to the cells, whose texts follow from the rows, the bytes are the same.
    const std::size_t cells = other.Fields()[kCells];
    EXPECT_TRUE(ours.substr(0, cells) == theirs.substr(0, cells));
    // They are also the same from the position of the window onwards.
    const std::size_t place = theirs.size() - other.Fields()[kPlace];
    ASSERT_GT(ours.size(), place);
    EXPECT_TRUE(ours.substr(ours.size() - place) == theirs.substr(theirs.size() - place));
}

TEST_F(BinaryPlotFile, TextsComeBackWhateverTheirLetters) {
    for (const char* text : {"gr\xc3\xa8s", "\xce\xa9mega", "\xc3\x83\xc2\xa9", "\xe2\x82\xac",
                             "\xef\xbb\xbfmark", "\xc3\xbf\xc3\xbe", "plain"}) {
        NewPlot();
        ActiveRecord().FabricText = text;
        const int again = StoreAnew(Bytes(gActivePlot));
        EXPECT_EQ(RecordOf(again).FabricText, text);
        ReleasePlotSlot(again);
        ReleasePlotSlot(again - 1);
    }
}

TEST_F(BinaryPlotFile, LettersOfWesternEuropeTakeAByteEach) {
    NewPlot();
    ActiveRecord().FabricText = "gr\xc3\xa8s \xe2\x82\xac";
    EXPECT_NE(Bytes(gActivePlot).find(std::string("\6\0gr\xe8s \x80", 8)), std::string::npos);
}

// Kept: greater counts are cut to what the field holds.
TEST_F(BinaryPlotFile, CountsBeyondTheFieldAreCut) {
    NewPlot();
    FillRecord();
    (*ActiveRecord().DensityGrid)[1][1] = 40000;
    const int again = StoreAnew(Bytes(gActivePlot));
    EXPECT_EQ((*RecordOf(again).DensityGrid)[1][1], 32767);
    EXPECT_EQ((*RecordOf(again).DensityGrid)[20][3], 12345);
}

TEST_F(BinaryPlotFile, WhatIsTooLargeIsRefusedAndNotWrapped) {
    NewPlot();
    ActiveRecord().DescriptionText = std::string(32767, 'x');
    EXPECT_TRUE(BinaryPlotBytes(gActivePlot));
    ActiveRecord().DescriptionText += 'x';
    const Result<std::string> bytes = BinaryPlotBytes(gActivePlot);
    ASSERT_FALSE(bytes);
    EXPECT_NE(bytes.Error().find("32768 bytes"), std::string::npos);
    ActiveRecord().DescriptionText.clear();
    FillRows(1, {32768});
    const Result<std::string> overlay = BinaryPlotBytes(gActivePlot);
    ASSERT_FALSE(overlay);
    EXPECT_NE(overlay.Error().find("overlay 1 has 32768 rows"), std::string::npos);
}

TEST_F(BinaryPlotFile, APlotThatCouldNotBeOpenedAgainIsNotSaved) {
    NewPlot();
    ActiveRecord().RoseType = 99;
    EXPECT_FALSE(BinaryPlotBytes(gActivePlot));
}

TEST_F(BinaryPlotFile, TheGridIsCountedAnewAfterALoad) {
    NewPlot();
    FillRows(20, {});
    FillRecord();
    ActiveRecord().DensityCount = ActiveRecord().NumValidData;
    const std::string bytes = Bytes(gActivePlot);
    gActivePlot = StoreAnew(bytes);
    gGridCount[static_cast<std::size_t>(gActivePlot)] = 0;
    gSettings.gridSize = 20;
    ActiveRecord().PlotSymbolMode = kPointSymbols;
    ReplotActivePlot(false);
    EXPECT_TRUE(ActiveRecord().DensityGridFromFile);
    ActiveRecord().PlotSymbolMode = kContours;
    ReplotActivePlot(false);
    EXPECT_FALSE(ActiveRecord().DensityGridFromFile)
        << "although slider and count agree with the file's grid";
    ActiveRecord().GridDensityMax = -1;
    ReplotActivePlot(false);
    EXPECT_EQ(ActiveRecord().GridDensityMax, -1) << "counted once";
}

TEST_F(BinaryPlotFile, TheWindowTakesItsPlaceUnlessItIsImpossible) {
    NewPlot();
    Form(gActivePlot).SetPlace({2, 150, -300, 9000, 6000});
    const std::string bytes = Bytes(gActivePlot);
    const int again = StoreAnew(bytes);
    EXPECT_EQ(Form(again).Place(), (WindowPlace{2, 150, -300, 9000, 6000}));
    const std::string place("\2\0\0\0\0\0\x16\x43", 8);
    const std::size_t at = bytes.find(place);
    ASSERT_NE(at, std::string::npos);
    for (const std::string& wrong :
         {std::string("\3\0\0\0\0\0\x16\x43", 8), std::string("\2\0\0\0\0\0\xc0\x7f", 8),
          std::string("\2\0\0\0\xff\xff\x7f\x7f", 8), std::string("\2\0\0\0\0\0\x80\xff", 8)}) {
        std::string changed = bytes;
        changed.replace(at, wrong.size(), wrong);
        Result<BinaryPlot> plot = ReadBinaryPlot(changed);
        ASSERT_TRUE(plot);
        EXPECT_FALSE(plot->place);
    }
}

} // namespace
} // namespace quandrel
