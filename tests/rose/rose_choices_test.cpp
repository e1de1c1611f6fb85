// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "rose/rose_choices.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <string>

namespace quandrel {
namespace {

PlotRecord RecordWith(bool numbers, bool texts, bool lines) {
    PlotRecord record;
    record.PrimaryFormat = kPrimaryPlane;
    record.HasAppendedNumeric = numbers ? kTrue : std::int16_t{0};
    record.HasAppendedText = texts ? kTrue : std::int16_t{0};
    record.HasAppendedLine = lines ? kTrue : std::int16_t{0};
    return record;
}

/// "1" for each open place, "0" for a closed one.
template <std::size_t N>
std::string Open(const std::array<std::string_view, N>& reasons) {
    std::string open;
    for (const std::string_view reason : reasons) {
        open += reason.empty() ? '1' : '0';
    }
    return open;
}

struct ColumnCase {
    bool numbers;
    bool texts;
    const char* kinds;
    const char* classes;
};

TEST(RoseChoices, OpenTheKindsThatTheColumnsAllow) {
    // Values need numbers, wind speeds texts, wind energies both.
    const std::vector<ColumnCase> cases = {
        {false, false, "100000000", "100"},
        {true, false, "111100011", "110"},
        {false, true, "100010000", "101"},
        {true, true, "111111111", "111"},
    };
    for (const ColumnCase& test : cases) {
        const RoseChoices choices = ChoicesOfRose({}, RecordWith(test.numbers, test.texts, false));
        EXPECT_EQ(Open(choices.kinds), test.kinds);
        EXPECT_EQ(Open(choices.classes), test.classes);
    }
}

TEST(RoseChoices, CloseClassesOfMeansAndVariances) {
    const PlotRecord record = RecordWith(true, true, false);
    for (int kind = 0; kind <= 8; ++kind) {
        RoseSettings settings;
        settings.kind = kind;
        settings.classes = kRoseByType;
        const bool hasClasses = kind != kRoseMeanValue && kind != kRoseVariance;
        const RoseChoices choices = ChoicesOfRose(settings, record);
        EXPECT_EQ(Open(choices.classes), hasClasses ? "111" : "100") << kind;
        EXPECT_EQ(choices.segments.empty(), hasClasses) << kind;
        FollowRoseKind(settings);
        EXPECT_EQ(settings.classes, hasClasses ? kRoseByType : kRoseUnclassified) << kind;
    }
}

TEST(RoseChoices, CloseTheShapeOfSegmentsWithoutClasses) {
    const PlotRecord record = RecordWith(true, true, false);
    RoseSettings settings;
    EXPECT_FALSE(ChoicesOfRose(settings, record).segments.empty());
    settings.classes = kRoseByLength;
    EXPECT_TRUE(ChoicesOfRose(settings, record).segments.empty());
}

TEST(RoseChoices, CorrectFrequenciesValuesAndMeansForBias) {
    const PlotRecord record = RecordWith(true, true, true);
    for (int kind = 0; kind <= 8; ++kind) {
        RoseSettings settings;
        settings.kind = kind;
        settings.biasMode = 1;
        const RoseChoices choices = ChoicesOfRose(settings, record);
        EXPECT_EQ(choices.bias.empty(), kind <= kRoseMeanValue) << kind;
        EXPECT_EQ(Open(choices.biasModes), kind <= kRoseMeanValue ? "1111" : "0000") << kind;
        EXPECT_EQ(Open(choices.biasBoxes), kind <= kRoseMeanValue ? "111" : "000") << kind;
        EXPECT_EQ(choices.ownLines.empty(), kind <= kRoseMeanValue) << kind;
    }
}

struct BiasCase {
    int mode;
    bool ownLines;
    const char* boxes; ///< plunge, trend, least angle
};

TEST(RoseChoices, OpenTheBoxesThatACorrectionReads) {
    const std::vector<BiasCase> cases = {
        {0, false, "000"}, {0, true, "000"}, {1, false, "111"}, {1, true, "001"},
        {2, false, "011"}, {2, true, "001"}, {3, false, "111"}, {3, true, "001"},
    };
    for (const BiasCase& test : cases) {
        RoseSettings settings;
        settings.biasMode = test.mode;
        settings.ownLines = test.ownLines;
        const RoseChoices choices = ChoicesOfRose(settings, RecordWith(false, false, true));
        EXPECT_EQ(Open(choices.biasBoxes), test.boxes) << test.mode << test.ownLines;
        EXPECT_EQ(choices.ownLines.empty(), test.mode != 0) << test.mode;
    }
}

TEST(RoseChoices, OfferLinesOfTheRowsWhereTheyAreAppended) {
    RoseSettings settings;
    settings.biasMode = 1;
    EXPECT_TRUE(ChoicesOfRose(settings, RecordWith(false, false, true)).ownLines.empty());
    EXPECT_EQ(ChoicesOfRose(settings, RecordWith(false, false, false)).ownLines,
              "The plot has no appended lines");
}

TEST(RoseChoices, CorrectDirectionsWithoutADipByTheirTrendAlone) {
    PlotRecord record = RecordWith(false, false, false);
    record.PrimaryFormat = kDirections;
    EXPECT_EQ(Open(ChoicesOfRose({}, record).biasModes), "1010");
    record.ShowSecondary = kTrue; // orientations of the other set
    EXPECT_EQ(Open(ChoicesOfRose({}, record).biasModes), "1111");
}

TEST(RoseChoices, CloseKindsOfValuesAfterAFault) {
    const PlotRecord record = RecordWith(true, true, false);
    EXPECT_EQ(Open(ChoicesOfRose({}, record, kNoRoseValues).kinds), "100000111");
    EXPECT_EQ(Open(ChoicesOfRose({}, record, kNoRoseClasses).kinds), "111111111");
}

struct FaultCase {
    int fault;
    int classes;
    int classesAfter;
};

TEST(RoseChoices, TakeAwayTheClassesThatAFaultMayComeFrom) {
    const std::vector<FaultCase> cases = {
        {kNoRoseValues, kRoseByLength, kRoseUnclassified},
        {kNoRoseValues, kRoseByType, kRoseByType},
        {kNoRoseLengths, kRoseByLength, kRoseUnclassified},
        {kNoRoseLengths, kRoseByType, kRoseByType},
        {kNoRoseClasses, kRoseByLength, kRoseByLength},
        {kNoRoseClasses, kRoseByType, kRoseUnclassified},
        {kNoRoseValues, kRoseUnclassified, kRoseUnclassified},
    };
    for (const FaultCase& test : cases) {
        RoseSettings settings;
        settings.kind = kRoseValue;
        settings.classes = test.classes;
        FollowRoseFault(settings, test.fault);
        EXPECT_EQ(settings.kind, kRoseFrequency);
        EXPECT_EQ(settings.classes, test.classesAfter) << test.fault << ' ' << test.classes;
    }
}

using RoseChoicesEngineTest = EngineTest;

TEST_F(RoseChoicesEngineTest, ClassesOfARoseFollowItsTypeAndWhatTypesAre) {
    NewPlot();
    PlotRecord& record = ActiveRecord();
    record.ClassMode = kClassesByNumber; // that of the stereo plot plays no part
    EXPECT_EQ(ClassSettingsOfRose().mode, kNotClassified);
    record.RoseType = 17;
    EXPECT_EQ(ClassSettingsOfRose().mode, kClassesByNumber);
    record.RoseType = 20;
    record.ClassTable[kBaseRow][kNameClasses] = std::int16_t{0};
    EXPECT_EQ(ClassSettingsOfRose().mode, kClassesByName);
    record.ClassTable[kBaseRow][kNameClasses] = std::int16_t{1};
    EXPECT_EQ(ClassSettingsOfRose().mode, kClassesByTextNumber);
}

TEST_F(RoseChoicesEngineTest, FillsStandOnceTheSettingsDo) {
    NewPlot();
    const ClassStyles before = StylesOfClasses(kFirstRoseClassStyle);
    ClassStyles fills = before;
    fills[2] = {7, kCrossHatch, 0};
    RoseSettings rose;
    rose.sectorSize = 0;
    ASSERT_TRUE(ApplyRose(rose, fills).refusal);
    EXPECT_EQ(StylesOfClasses(kFirstRoseClassStyle), before);
    AddRow(10, 10);
    rose.sectorSize = 7;
    Expect("odd sector size", Button::Cancel);
    ASSERT_EQ(ApplyRose(rose, fills).verdict, RoseVerdict::Cancelled);
    EXPECT_EQ(StylesOfClasses(kFirstRoseClassStyle), before);
    rose.sectorSize = 20;
    ASSERT_EQ(ApplyRose(rose, fills).verdict, RoseVerdict::Done);
    EXPECT_EQ(StylesOfClasses(kFirstRoseClassStyle), fills);
    EXPECT_EQ(gSymbolTable[kFirstRoseClassStyle + 2][kPlaceSymbol], kCrossHatch);
}

} // namespace
} // namespace quandrel
