// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "input/format_model.h"

namespace quandrel {
namespace {

struct DecodedConventions {
    std::int16_t code;
    std::int16_t plane;
    bool trendFirst;
    bool quadrant;
};

// Kept: a quadrant code is never trend first.
// Kept: a quadrant code always gives lines as plunge.
// Its sign hides the ten of Trend,Plunge.
TEST(DecodeConventions, PartsTheCodeAndKeepsQuadrantLinesAsPlungeTrend) {
    const std::vector<DecodedConventions> cases = {
        {1, 1, false, false}, {6, 6, false, false}, {11, 1, true, false},  {16, 6, true, false},
        {-1, 1, false, true}, {-4, 4, false, true}, {-11, 1, false, true}, {-16, 6, false, true},
        {9, 9, false, false}, {10, 0, true, false},
    };
    for (const DecodedConventions& expected : cases) {
        std::int16_t plane = 0;
        bool trendFirst = false;
        bool quadrant = false;
        DecodeConventions(expected.code, plane, trendFirst, quadrant);
        EXPECT_EQ(plane, expected.plane) << expected.code;
        EXPECT_EQ(trendFirst, expected.trendFirst) << expected.code;
        EXPECT_EQ(quadrant, expected.quadrant) << expected.code;
    }
}

TEST(ConventionsText, TellsAllThreeChoices) {
    EXPECT_EQ(ConventionsText(1),
              "Planes as Dip,Dip Dir'n; Lines as Plunge,Trend (all in azimuth notation)");
    EXPECT_EQ(ConventionsText(16),
              "Planes as Strike,Dip (RH rule); Lines as Trend,Plunge (all in azimuth notation)");
    EXPECT_EQ(ConventionsText(-13),
              "Planes as Strike,Dip,Sense; Lines as Plunge,Trend (all in quadrant notation)");
}

// The slots are powers of two apart, so that the highest one shows which were counted.
struct NeededColumns {
    const char* what;
    std::int16_t primary;
    std::int16_t secondary;
    int convention;
    bool line, number, text, overlays;
    int highest;
};

TEST(HighestColumnNeeded, CountsOnlySlotsThatTheFormatUses) {
    const std::vector<NeededColumns> cases = {
        {"directions", kDirections, 0, 1, false, false, false, false, 3},
        {"no format counts as directions", 0, 0, 1, false, false, false, false, 3},
        {"directions in a plot with overlays", kDirections, 0, 1, false, false, false, true, 9},
        {"plane", kPrimaryPlane, 0, 1, false, false, false, false, 9},
        {"plane with sense", kPrimaryPlane, 0, 3, false, false, false, false, 20},
        {"plane with sense first", kPrimaryPlane, 0, 4, false, false, false, false, 20},
        {"right-hand strike", kPrimaryPlane, 0, 5, false, false, false, false, 9},
        {"line has no sense", kPrimaryLine, 0, 3, false, false, false, false, 9},
        {"pitch", kPrimaryPlane, kPitchInPlane, 1, false, false, false, false, 50},
        {"trend", kPrimaryPlane, kTrendInPlane, 1, false, false, false, false, 40},
        {"secondary line", kPrimaryPlane, kSecondaryLine, 1, false, false, false, false, 40},
        {"secondary plane", kPrimaryPlane, kSecondaryPlane, 2, false, false, false, false, 40},
        {"secondary plane, sense", kPrimaryPlane, kSecondaryPlane, 4, false, false, false, false,
         50},
        {"hade", kPrimaryPlane, kHadeInPlane, 1, false, false, false, false, 40},
        {"appended line", kPrimaryPlane, 0, 1, true, false, false, false, 70},
        {"number", kPrimaryPlane, 0, 1, false, true, false, false, 80},
        {"text", kPrimaryPlane, 0, 1, false, false, true, false, 90},
    };
    for (const NeededColumns& expected : cases) {
        LineFormat format;
        format.slots = {9, 3, 20, 30, 40, 50, 60, 70, 80, 90};
        format.primary = expected.primary;
        format.secondary = expected.secondary;
        format.planeConvention = expected.convention;
        format.wantLine = expected.line;
        format.wantNumber = expected.number;
        format.wantText = expected.text;
        format.hasOverlays = expected.overlays;
        EXPECT_EQ(HighestColumnNeeded(format), expected.highest) << expected.what;
    }
}

TEST(HighestColumnNeeded, StaysWithinBoundsForWildSlots) {
    LineFormat format;
    format.slots.fill(INT32_MIN);
    EXPECT_EQ(HighestColumnNeeded(format), 0);
    format.slots.fill(INT32_MAX);
    EXPECT_EQ(HighestColumnNeeded(format), kMostColumns);
}

TEST(LineFormatOf, TakesTheGivenValuesWhateverIsInForce) {
    FormatSettings settings = gSettings.format;
    settings.conventions = 12;
    settings.delimiter = ";";
    settings.primary = kPrimaryLine;
    settings.columns = {3, 4, 9, 9, 9, 9, 9, 9, 6, 9};
    settings.lineAppended = false;
    settings.numericAppended = true;
    settings.nonNumericAppended = false;
    settings.negativePlunge = NegativePlunge::Vector;
    const LineFormat format =
        LineFormatOf(settings, {.decimalIsComma = true, .convertDecimals = true}, false);
    EXPECT_EQ(format.planeConvention, kDipDirectionDip);
    EXPECT_TRUE(format.lineIsTrendFirst);
    EXPECT_EQ(format.delimiter, ';');
    EXPECT_EQ(format.primary, kPrimaryLine);
    EXPECT_EQ(format.slots, settings.columns);
    EXPECT_TRUE(format.wantNumber);
    EXPECT_FALSE(format.hasOverlays);
    EXPECT_TRUE(format.decimalIsComma);
    EXPECT_TRUE(format.convertDecimals);
    EXPECT_EQ(format.neededColumns, 7);
    EXPECT_EQ(format.negativePlunge, NegativePlunge::Vector);
}

TEST(LineFormatFromGlobals, TakesTheFormatInForce) {
    const FormatSettings former = gSettings.format;
    gConventions = -3;
    gFileDelimiter = "";
    gPrimaryDataType = kPrimaryPlane;
    gSecondaryDataType = kPitchInPlane;
    gFileColumnSettings = {1, 0, 2, 9, 3, 3, 9, 9, 4, 5};
    gFileNumericAppended = true;
    gFileNonNumericAppended = true;
    gFileLineAppended = false;
    gDecimalIsComma = true;
    const LineFormat format = LineFormatFromGlobals(true);
    gDecimalIsComma = false;
    gSettings.format = former;

    EXPECT_EQ(format.planeConvention, kStrikeDipSense);
    EXPECT_TRUE(format.isQuadrant);
    EXPECT_EQ(format.delimiter, kAnyDelimiter);
    EXPECT_EQ(format.secondary, kPitchInPlane);
    EXPECT_TRUE(format.wantNumber);
    EXPECT_TRUE(format.wantText);
    EXPECT_FALSE(format.wantLine);
    EXPECT_TRUE(format.hasOverlays);
    EXPECT_TRUE(format.decimalIsComma);
    EXPECT_EQ(format.neededColumns, 6);
}

} // namespace
} // namespace quandrel
