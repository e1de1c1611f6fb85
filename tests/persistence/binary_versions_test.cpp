// SPDX-License-Identifier: MIT

#include "core/class_stats.h"
#include "input/file_loading.h"
#include "orientation/angles.h"
#include "persistence/binary_plot_file.h"
#include "persistence/binary_samples.h"
#include "support/test_platform.h"

#include <iterator>

namespace quandrel {
namespace {

class BinaryVersions : public EngineTest {
protected:
    /// Loads bytes into a new slot; returns the reported version.
    std::string Load(const std::string& bytes) {
        const std::string path = WriteFile("old.qpx", bytes);
        NewPlot();
        std::string version;
        LoadBinaryPlot(path, gActivePlot, version);
        return version;
    }

    std::string Load(const OldPlot& plot) { return Load(OldPlotWriter(plot).Bytes()); }

    static std::string FileBytes(const std::string& path) {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }
};

TEST_F(BinaryVersions, EachHasAKeptSampleThatIsWhatItsWriterWrote) {
    for (const OldVersion& version : OldVersions()) {
        const std::string path = std::string(QUANDREL_TEST_DATA) + "/persistence/" + version.file;
        EXPECT_TRUE(FileBytes(path) == OldPlotWriter(SampleOfVersion(version)).Bytes())
            << version.file;
        std::string told;
        NewPlot();
        LoadBinaryPlot(path, gActivePlot, told);
        EXPECT_EQ("bin" + told, FileBytes(path).substr(0, 6));
        EXPECT_EQ(ActiveRecord().FileTitle, version.file);
        ASSERT_EQ(ActiveRecord().NumData, 4) << version.file;
    }
}

TEST_F(BinaryVersions, RowsComeBackFromAll) {
    for (const OldVersion& version : OldVersions()) {
        ASSERT_EQ(Load(SampleOfVersion(version)).size(), 3U) << version.file;
        const PlotRecord& record = ActiveRecord();
        const int slot = gActivePlot;
        EXPECT_EQ(record.NumValidData, 3);
        EXPECT_EQ(record.NumLoadedData, 7);
        EXPECT_EQ(gDataDip(slot, 4), 80);
        EXPECT_EQ(gDataAz(slot, 4), 5);
        EXPECT_EQ(gData2Dip(slot, 2), kErrorRow);
        EXPECT_EQ(gData2Az(slot, 4), 15);
        EXPECT_EQ(gAppLineDip(slot, 1), 10);
        EXPECT_EQ(gAppLineDip(slot, 2), kInvalidAppendedLine);
        EXPECT_EQ(gAppNumeric(slot, 1), 1.5F);
        EXPECT_EQ(gAppText(slot, 1), "12.5") << "a number before version 9.0";
        EXPECT_EQ(gDataSymbol(slot, 4), MakeSymbolCode(3, 2, 6));
        EXPECT_EQ(gDataSymbolBase(slot, 4), MakeSymbolCode(3, 2, 6));
        EXPECT_EQ(gPointDensity(slot, 1), 3);
        EXPECT_EQ(gDataOrder(slot, 7), 7);
        EXPECT_EQ(record.OverlayRows[2], 2);
        EXPECT_EQ(record.OverlayKind[2], kOverlayPolarLines);
        EXPECT_EQ(gDataDip(slot, 6), -20);
        EXPECT_EQ(gAppNumeric(slot, 6), kInvalidNumber) << "overlays keep no appended values";
        EXPECT_EQ(record.FabricText, "S1");
        EXPECT_EQ(record.DescriptionText, "two\r\nlines");
        EXPECT_EQ(record.GridSize, 10);
        EXPECT_EQ((*record.DensityGrid)[3][7], 307);
        EXPECT_EQ(record.ContourLevels[4], 16);
        EXPECT_EQ(record.FabricResults[kEastOfAxis][kLeastAxis], 0.25F * 5);
        EXPECT_EQ(record.FabricValueB, 1.5F);
        EXPECT_EQ(record.RoseMinBiasAngle, 7);
        EXPECT_EQ(record.RoseDisplay8, kTrue);
        EXPECT_EQ(TextOf(record.AxisItems[kMeanPlaneItem][kItemText]), "item 9");
    }
}

/// What a version adds, by the first version that has it: absent in earlier ones, complete from
/// that one on.
struct Since {
    const char* what;
    int tenths; ///< and 944 for the field that was added with 9.44
    std::function<bool(const PlotRecord&)> isFromFile;
};

const std::vector<Since>& AllSince() {
    static const std::vector<Since> all = {
        {"FabricValueC", 72, [](const PlotRecord& r) { return r.FabricValueC == 4.125; }},
        {"FabricValueD", 72, [](const PlotRecord& r) { return r.FabricValueD == 2.25F; }},
        {"FabricValueE", 72, [](const PlotRecord& r) { return r.FabricValueE == 3.25F; }},
        {"StatsBoxKind", 72, [](const PlotRecord& r) { return r.StatsBoxKind == kTrue; }},
        {"EigenResults", 72,
         [](const PlotRecord& r) { return r.EigenResults[kSymmetryStatistic][kLogRatio] == 5.5F; }},
        {"AxisItems 10", 72,
         [](const PlotRecord& r) {
             return TextOf(r.AxisItems[kGirdleItem][kItemText]) == "item 10";
         }},
        {"annotations", 80,
         [](const PlotRecord& r) {
             return r.PlotAnnotations != nullptr && r.PlotAnnotations->size() == 2
                    && (*r.PlotAnnotations)[0].Tag == "7"
                    && (*r.PlotAnnotations)[1].LineNodes.at(1).X == -7;
         }},
        {"small circles", 80,
         [](const PlotRecord& r) {
             return (*r.PlotSmallCircles)[3].LineColour == 3
                    && (*r.PlotSmallCircles)[3].Angle == "30"
                    && (*r.PlotSmallCircles)[3].AxisPl == "45";
         }},
        {"RoseType", 90, [](const PlotRecord& r) { return r.RoseType == 12; }},
        {"AppNumName", 90, [](const PlotRecord& r) { return r.AppNumName == "Thickness"; }},
        {"RoseScaleType", 90, [](const PlotRecord& r) { return r.RoseScaleType == "circ5"; }},
        {"RoseZeroCircle", 90, [](const PlotRecord& r) { return r.RoseZeroCircle == 10; }},
        {"RoseKappa", 90, [](const PlotRecord& r) { return r.RoseKappa == 0.1 * 5; }},
        {"RoseSectorSize", 90, [](const PlotRecord& r) { return r.RoseSectorSize == 20; }},
        {"RoseResultant", 90,
         [](const PlotRecord& r) { return r.RoseResultant[kOfDoubledAngles] == 0.02; }},
        {"RoseRangeB", 90,
         [](const PlotRecord& r) {
             return r.RoseRangeA[kBottomRoseLayer][kInUnits] == 6
                    && r.RoseRangeB[kTopRoseLayer][kInPerCent] == 7;
         }},
        {"RoseStats", 90,
         [](const PlotRecord& r) {
             return r.RoseStats[kRoseWindFrequencySum][kLargestSector] == 120;
         }},
        {"AppendedMax", 90,
         [](const PlotRecord& r) {
             return r.AppendedMin[kOfTexts] == -2.5 && r.AppendedMax[kOfNumbers] == 11.5;
         }},
        {"DistinctValues", 90,
         [](const PlotRecord& r) {
             return NumberOf(r.DistinctValues[10][kOfNumbers]) == 5
                    && TextOf(r.DistinctValues[1][kOfTexts]) == "t1";
         }},
        {"ClassTable", 90,
         [](const PlotRecord& r) {
             return NumberOf(r.ClassTable[kLowestRow + 1][kTextNumberClasses]) == 15;
         }},
        {"NumClassified", 90, [](const PlotRecord& r) { return r.NumClassified == 2; }},
        {"LayerVisible", 91,
         [](const PlotRecord& r) { return r.LayerVisible[0] == kTrue && r.LayerVisible[1] == 0; }},
        {"RoseMedian", 92, [](const PlotRecord& r) { return r.RoseMedian == 33.5; }},
        {"ClassHigh", 92, [](const PlotRecord& r) { return r.ClassHigh == 70; }},
        {"RoseMeanDir", 92,
         [](const PlotRecord& r) { return r.RoseMeanDir[kOfDoubledAngles] == 88.5; }},
        {"ClassStats", 94,
         [](const PlotRecord& r) { return r.ClassStats[kGridChoice][kBackground] == 9.5; }},
        {"HasFrequencyColumn", 944,
         [](const PlotRecord& r) { return r.HasFrequencyColumn == kTrue; }},
        {"AxisItems 8", 95,
         [](const PlotRecord& r) { return TextOf(r.AxisItems[8][kItemText]) == "item 8"; }},
    };
    return all;
}

TEST_F(BinaryVersions, EachBringsItsFieldsAndNoneBefore) {
    for (const OldVersion& version : OldVersions()) {
        OldPlot plot = SampleOfVersion(version);
        plot.roseType = 12;
        ASSERT_NE(Load(plot), kLoadError) << version.file;
        for (const Since& since : AllSince()) {
            const bool has = since.tenths == 944 ? version.full == "9.44 " || version.tenths >= 95
                                                 : version.tenths >= since.tenths;
            EXPECT_EQ(since.isFromFile(ActiveRecord()), has) << version.file << ' ' << since.what;
        }
    }
}

TEST_F(BinaryVersions, WhatAFileLacksIsAsInANewPlot) {
    gFileAppNumName = "Other";
    gRoseSectorFraction = 55;
    OldPlot plot = SampleOfVersion(OldVersions().front());
    plot.roseCode = 1;
    ASSERT_EQ(Load(plot), "7.0");
    const PlotRecord& record = ActiveRecord();
    EXPECT_EQ(record.AppNumName, "Length");
    EXPECT_EQ(record.AppNonNumName, "Type");
    EXPECT_EQ(record.FabricValueD, record.FabricValueA);
    EXPECT_EQ(record.FabricValueE, record.FabricValueB);
    EXPECT_EQ(record.FabricValueC, 0.75);
    EXPECT_EQ(record.PlotAnnotations, nullptr);
    EXPECT_EQ((*record.PlotSmallCircles)[4].LineColour,
              gAxisStyleTable[kSmallCircleStyle][kStyleColour]);
    EXPECT_EQ(record.RoseSectorFraction, 55);
    EXPECT_EQ(record.RoseType, 1);
    EXPECT_EQ(record.RoseSectorSize, 15) << "the earlier field";
    EXPECT_EQ(record.LayerVisible[kLegendLayer], kTrue);
    EXPECT_EQ(record.ClassWidth, kUnsetValue);
    EXPECT_EQ(gGridCount[static_cast<std::size_t>(gActivePlot)], 0);
}

TEST_F(BinaryVersions, RangesOfBeforeNineAreFoundInTheRows) {
    ASSERT_EQ(Load(SampleOfVersion({80, "", ""})), "8.0");
    const PlotRecord& record = ActiveRecord();
    // The error row's 0 and the invalid number take no part.
    EXPECT_EQ(record.AppendedMin[kOfNumbers], 1.5);
    EXPECT_EQ(record.AppendedMax[kOfNumbers], 300);
    EXPECT_EQ(record.AppendedMin[kOfTexts], -3);
    EXPECT_EQ(record.AppendedMax[kOfTexts], 12.5);
    EXPECT_EQ(TextOf(record.DistinctValues[2][kOfTexts]), "-3");
    EXPECT_TRUE(IsEmpty(record.DistinctValues[3][kOfTexts]));
}

TEST_F(BinaryVersions, EarlierRosesTakeTheirPresentNumbers) {
    struct Case {
        int code;
        int type;
        bool isTold;
    };

    for (const Case& test : {Case{0, 0, false}, Case{1, 1, false}, Case{2, 0, true},
                             Case{3, 2, false}, Case{4, 3, false}}) {
        OldPlot plot = SampleOfVersion({80, "", ""});
        plot.roseCode = test.code;
        if (test.isTold) {
            Expect("This .qpx file was saved in a previous version of Quandrel.\nTo repeat the "
                   "weighting used on the original plot you will have to replot the diagram.");
        }
        EXPECT_EQ(Load(plot), "8.0");
        EXPECT_EQ(ActiveRecord().RoseType, test.type) << test.code;
    }
}

TEST_F(BinaryVersions, FromNineOnTheRoseIsTheLaterField) {
    OldPlot plot = SampleOfVersion({90, "", ""});
    plot.roseCode = 4;
    plot.roseType = 25;
    ASSERT_EQ(Load(plot), "9.0");
    EXPECT_EQ(ActiveRecord().RoseType, 25);
}

TEST_F(BinaryVersions, GirdlesOfBeforeNineOneAreNamedAnew) {
    gConventions = 1;
    gPlaneSeparator = "/";
    // The pole 0.5, 0.25 radians: the plane dips pi/2 - 0.5 = 61.35 to 0.25 + pi = 194.3 degrees.
    ASSERT_EQ(Load(SampleOfVersion({90, "", ""})), "9.0");
    EXPECT_EQ(TextOf(ActiveRecord().AxisItems[3][kItemText]), "61/194");
    EXPECT_EQ(TextOf(ActiveRecord().AxisItems[kMeanPlaneItem][kItemText]), "item 9")
        << "named with the statistics";
    EXPECT_EQ(TextOf(ActiveRecord().AxisItems[7][kItemText]), "")
        << "an invalid girdle has no name";
    ASSERT_EQ(Load(SampleOfVersion({91, "", ""})), "9.1");
    EXPECT_EQ(TextOf(ActiveRecord().AxisItems[3][kItemText]), "item 3");
}

TEST_F(BinaryVersions, GridsOfValuesComeNodeByNodeInBothLayers) {
    OldPlot plot = SampleOfVersion(OldVersions().back());
    plot.gridCount = -1;
    ASSERT_EQ(Load(plot), "9.5");
    const auto slot = static_cast<std::size_t>(gActivePlot);
    EXPECT_EQ(gGridCount[slot], -1);
    EXPECT_EQ((*gGridValues[slot])[kMeanLayer][7][150], 150007);
    EXPECT_EQ((*gGridValues[slot])[kCumulativeLayer][152][3], -3152);
}

TEST_F(BinaryVersions, TheFullVersionIsTakenWithoutWhatFillsIt) {
    using namespace std::string_literals;

    struct Case {
        const char* what;
        int tenths;
        std::string full;
        bool hasFrequency;
    };

    const Case cases[] = {
        {"blanks behind", 94, "9.4  ", false},
        {"blanks before", 94, "  9.4", false},
        {"blanks about", 94, " 9.44", true},
        {"zero bytes behind", 94, "9.44\0"s, true},
        {"one below", 94, "9.439", false},
        {"a comma", 94, "9,44 ", true},
        {"blank, as the beginning", 94, "     ", false},
        {"blank, as the later beginning", 95, "     ", true},
        {"zero bytes alone", 95, "\0\0\0\0\0"s, true},
    };
    for (const Case& test : cases) {
        OldPlot plot = SampleOfVersion({test.tenths, test.full, ""});
        std::string bytes = OldPlotWriter(plot).Bytes();
        if (test.hasFrequency && test.tenths == 94) {
            // The writer knows only one spelling of 9.44.
            plot.fullVersion = "9.44 ";
            bytes = OldPlotWriter(plot).Bytes();
            bytes.replace(bytes.find(plot.fullVersion), 5, test.full);
        }
        ASSERT_NE(Load(bytes), kLoadError) << test.what;
        EXPECT_EQ(ActiveRecord().HasFrequencyColumn != 0, test.hasFrequency) << test.what;
        EXPECT_EQ(ActiveRecord().ClassStats[kGridChoice][kBackground], 9.5) << test.what;
    }
}

TEST_F(BinaryVersions, AFullVersionThatIsNoneIsDamage) {
    EXPECT_EQ(Load(SampleOfVersion({95, "later", ""})), kLoadError);
    EXPECT_EQ(Load(SampleOfVersion({95, "9.5 1", ""})), kLoadError);
}

TEST_F(BinaryVersions, FilesOfLaterVersionsOpenWithAWarning) {
    struct Case {
        const char* first;
        const char* full;
        const char* told; ///< nothing for a version that is not later
    };

    for (const Case& test :
         {Case{"9.5", "9.51 ", ""}, Case{"9.5", "9.5  ", ""}, Case{"9.5", "     ", ""},
          Case{"9.5", "9.52 ", "9.52"}, Case{"9.6", "9.60 ", "9.60"}, Case{"9.6", "     ", "9.6"},
          Case{"10.", "10.25", "10.25"}, Case{"9.6", "9.51 ", "9.6"}}) {
        std::string bytes = OldPlotWriter(SampleOfVersion({95, test.full, ""})).Bytes();
        bytes.replace(3, 3, test.first);
        if (test.told[0] != 0) {
            Expect("This .qpx file was saved by a later version of Quandrel, "
                   + std::string(test.told) + ".\n");
        }
        // What a later version adds comes after the fields of this one.
        ASSERT_EQ(Load(bytes + "more"), test.first) << test.full;
        EXPECT_EQ(ActiveRecord().NumData, 4) << test.full;
        EXPECT_EQ(TextOf(ActiveRecord().AxisItems[8][kItemText]), "item 8") << test.full;
        EXPECT_EQ(prompts.Problems(), "") << test.full;
    }
}

TEST_F(BinaryVersions, ALaterFileThatCannotBeReadSaysWhoSavedIt) {
    std::string bytes = OldPlotWriter(SampleOfVersion(OldVersions().back())).Bytes();
    bytes.replace(3, 3, "9.7");
    bytes.resize(1000);
    const Result<BinaryPlot> plot = ReadBinaryPlot(bytes);
    ASSERT_FALSE(plot);
    EXPECT_EQ(plot.Error(), "It was saved by version 9.7, which is later than this one. "
                            "It ends too early.");
}

TEST_F(BinaryVersions, ClassesAreToBeCheckedAfterALoadUnlessTheyWereDrawn) {
    struct Case {
        const char* what;
        int plotKind;
        int roseType;
        int byNumbers; ///< first cell of the text column of the class table
        bool pending;
    };

    for (const Case& test :
         {Case{"no rose", 1, 10, 1, true}, Case{"a rose without classes", 3, 5, 1, true},
          Case{"a rose by numbers", 3, 10, 0, false}, Case{"a rose by names", 3, 20, 0, true},
          Case{"a rose by ranges of texts", 3, 21, 1, false}}) {
        OldPlot plot = SampleOfVersion({92, "", ""});
        plot.plotKind = test.plotKind;
        plot.roseType = test.roseType;
        plot.textClasses = test.byNumbers;
        ASSERT_EQ(Load(plot), "9.2");
        EXPECT_EQ(ActiveRecord().ClassifyCheckPending != 0, test.pending) << test.what;
    }
    ASSERT_EQ(Load(SampleOfVersion({80, "", ""})), "8.0");
    EXPECT_EQ(ActiveRecord().ClassifyCheckPending, kTrue);
}

TEST_F(BinaryVersions, OtherBeginningsAreRefused) {
    std::string bytes = OldPlotWriter(SampleOfVersion({80, "", ""})).Bytes();
    for (const char* start : {"bIn8.0", "bin6.9", "bin   ", "binabc", "bin1e9", "bin-9."}) {
        EXPECT_EQ(Load(start + bytes.substr(6)), kLoadError) << start;
    }
    EXPECT_EQ(Load(""), kLoadError);
    EXPECT_EQ(Load("bi"), kLoadError);
    EXPECT_EQ(Load("bin7"), kLoadError);
    std::string version;
    LoadBinaryPlot((folder / "missing.qpx").string(), gActivePlot, version);
    EXPECT_EQ(version, kLoadError);
}

TEST_F(BinaryVersions, BytesBehindTheLastFieldAreLeftAlone) {
    // A shorter file may have been written over a longer one.
    EXPECT_EQ(Load(OldPlotWriter(SampleOfVersion({92, "", ""})).Bytes() + "rest"), "9.2");
}

TEST_F(BinaryVersions, TextsAreWindows1252OrUtf8) {
    struct Case {
        const char* inFile;
        const char* text;
    };

    for (const Case& test : {Case{"gr\xe8s", "gr\xc3\xa8s"}, Case{"gr\xc3\xa8s", "gr\xc3\xa8s"},
                             Case{"5 \x80", "5 \xe2\x82\xac"}}) {
        OldPlot plot = SampleOfVersion({90, "", ""});
        plot.fabric = test.inFile;
        plot.rows[0].text = test.inFile;
        ASSERT_EQ(Load(plot), "9.0");
        EXPECT_EQ(ActiveRecord().FabricText, test.text);
        EXPECT_EQ(gAppText(gActivePlot, 1), test.text);
    }
}

TEST_F(BinaryVersions, RowsOfAClassifiedPlotGoBackToPlainSymbols) {
    OldPlot plot = SampleOfVersion({90, "", ""});
    plot.classMode = 1;
    plot.dataKind = 3;
    plot.primary = 3;
    plot.rows[0].dip = -30;
    ASSERT_EQ(Load(plot), "9.0");
    EXPECT_EQ(gDataSymbol(gActivePlot, 4), MakeSymbolCode(3, 2, 6));
    EXPECT_EQ(gDataSymbolBase(gActivePlot, 4), CodeOfStyleRow(kRowSymbol));
    EXPECT_EQ(gDataSymbolBase(gActivePlot, 1), CodeOfStyleRow(kUpRowSymbol)) << "upward";
    EXPECT_EQ(gDataSymbolBase(gActivePlot, 3), 0U) << "an error row has none";
    EXPECT_EQ(gDataSymbolBase(gActivePlot, 6), MakeSymbolCode(2, 1, 6)) << "overlays have no class";
}

TEST_F(BinaryVersions, WhatNoPlotCanHaveIsRefused) {
    struct Case {
        const char* what;
        std::function<void(OldPlot&)> change;
    };

    const Case cases[] = {
        {"a primary format of 4", [](OldPlot& p) { p.primary = 4; }},
        {"a negative primary format", [](OldPlot& p) { p.primary = -1; }},
        {"no kind of plot", [](OldPlot& p) { p.plotKind = 0; }},
        {"a kind of data of 4", [](OldPlot& p) { p.dataKind = 4; }},
        {"mode 8", [](OldPlot& p) { p.mode = 8; }},
        {"a dip of 91", [](OldPlot& p) { p.rows[0].dip = 91; }},
        {"a huge azimuth", [](OldPlot& p) { p.rows[0].azimuth = 100000; }},
        {"a huge azimuth below 0", [](OldPlot& p) { p.rows[0].azimuth = -2147483647 - 1; }},
        {"a secondary dip of -91", [](OldPlot& p) { p.rows[0].dip2 = -91; }},
        {"a line of 95", [](OldPlot& p) { p.rows[0].lineDip = 95; }},
        {"no number", [](OldPlot& p) { p.rows[0].number = std::nanf(""); }},
        {"no drawing code", [](OldPlot& p) { p.rows[0].code = "12345"; }},
        {"letters in a drawing code", [](OldPlot& p) { p.rows[0].code = "00a106"; }},
        {"an overlay of kind 4", [](OldPlot& p) { p.overlays[0].first = 4; }},
        {"a grid of 153", [](OldPlot& p) { p.gridSize = 153; }},
        {"an earlier rose of 5", [](OldPlot& p) { p.roseCode = 5; }},
        {"a rose of kind 9", [](OldPlot& p) { p.roseType = 9; }},
        {"a rose of class 3", [](OldPlot& p) { p.roseType = 30; }},
        {"a class mode of 4", [](OldPlot& p) { p.classMode = 4; }},
        {"21 overlays",
         [](OldPlot& p) {
             p.overlays.resize(21, {1, {}});
         }},
    };
    ASSERT_EQ(Load(SampleOfVersion({92, "", ""})), "9.2");
    for (const Case& test : cases) {
        OldPlot plot = SampleOfVersion({92, "", ""});
        test.change(plot);
        EXPECT_EQ(Load(plot), kLoadError) << test.what;
        ReleasePlotSlot(gActivePlot);
    }
}

TEST_F(BinaryVersions, AzimuthsBeyondTheCircleAreTurnedIntoIt) {
    OldPlot plot = SampleOfVersion({92, "", ""});
    plot.rows[0].azimuth = 725;
    plot.rows[1].azimuth = -10;
    plot.rows[3].azimuth = 360;
    ASSERT_EQ(Load(plot), "9.2");
    EXPECT_EQ(gDataAz(gActivePlot, 1), 5);
    EXPECT_EQ(gDataAz(gActivePlot, 2), 350);
    EXPECT_EQ(gDataAz(gActivePlot, 4), 360) << "a full turn stays";
}

} // namespace
} // namespace quandrel
