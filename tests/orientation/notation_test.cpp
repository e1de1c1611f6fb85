// SPDX-License-Identifier: MIT

#include "orientation/notation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace quandrel {
namespace {

struct CompassCase {
    const char* name;
    double degrees;
};

constexpr CompassCase kPrintedTable[] = {
    {"N", 360},  {"NNE", 23},  {"NE", 45},  {"ENE", 78},  {"E", 90},   {"ESE", 113},
    {"SE", 135}, {"SSE", 158}, {"S", 180},  {"SSW", 203}, {"SW", 225}, {"WSW", 245},
    {"W", 270},  {"WNW", 293}, {"NW", 315}, {"NNW", 338},
};

std::string QuadrantRead(const std::string& text) {
    std::string result;
    QuadrantToAzimuth(text, result);
    return result;
}

TEST(CompassNameToDegrees, HoldsTheTable) {
    int index = 0;
    for (const CompassCase& c : kPrintedTable) {
        std::string degrees;
        CompassNameToDegrees(c.name, degrees);
        EXPECT_EQ(degrees, std::to_string(static_cast<int>(c.degrees))) << c.name;
        EXPECT_EQ(CompassDegrees(c.name), c.degrees) << c.name;
        EXPECT_EQ(SectorName(index++), c.name);
    }
}

// Kept: WSW is 245.
TEST(CompassNameToDegrees, KeepsWestSouthWestAt245) {
    EXPECT_EQ(CompassDegrees("WSW"), 245);
}

// Kept: ENE is 78.
TEST(CompassNameToDegrees, KeepsEastNorthEastAt78) {
    EXPECT_EQ(CompassDegrees("ENE"), 78);
}

TEST(CompassNameToDegrees, ReadsBothCasesAlike) {
    EXPECT_EQ(CompassDegrees("n"), 360);
    EXPECT_EQ(CompassDegrees("nNw"), 338);
}

TEST(CompassNameToDegrees, MarksOtherNames) {
    for (const char* name : {"", "X", "NEN", "NS", "NNNE", "N E", "30", "\x1b"}) {
        std::string degrees = "7";
        CompassNameToDegrees(name, degrees);
        EXPECT_EQ(degrees, std::string(1, '\x1b')) << name;
        EXPECT_FALSE(IsValidCompassName(name)) << name;
    }
}

TEST(IsValidSense, TakesTheEightShortNames) {
    for (const char* name : {"N", "ne", "E", "SE", "s", "SW", "W", " NW "}) {
        EXPECT_TRUE(IsValidSense(name)) << name;
    }
    for (const char* name : {"", "NNE", "WSW", "EN", "NS", "X", "4"}) {
        EXPECT_FALSE(IsValidSense(name)) << name;
    }
}

TEST(SectorName, IsEmptyBeyondTheSixteen) {
    EXPECT_EQ(SectorName(16), "");
    EXPECT_EQ(SectorName(-1), "");
}

// Kept: a full turn does not become 0.
TEST(WrapDegrees, KeepsBothEndsOfTheCircle) {
    struct Case {
        double value;
        double expected;
    };

    for (const Case& c : {Case{0, 0},
                          {360, 360},
                          {361, 1},
                          {-1, 359},
                          {-360, 0},
                          {720, 360},
                          {-720, 0},
                          {-725, 355},
                          {450, 90},
                          {-90, 270},
                          {12.25, 12.25},
                          {-0.5, 359.5},
                          {3.6e9, 360},
                          {3.6e9 + 30, 30},
                          {360.5, 0.5}}) {
        double degrees = c.value;
        WrapDegrees(degrees);
        EXPECT_EQ(degrees, c.expected) << c.value;
    }
    double endless = std::numeric_limits<double>::infinity();
    WrapDegrees(endless);
    EXPECT_TRUE(std::isinf(endless));
    double huge = 1e300;
    WrapDegrees(huge);
    EXPECT_TRUE(huge >= 0 && huge <= 360);
}

TEST(AzimuthToQuadrant, NamesTheQuadrants) {
    struct Case {
        const char* azimuth;
        const char* expected;
    };

    for (const Case& c : {Case{"0", "N0E"},
                          {"360", "N0W"},
                          {"90", "N90E"},
                          {"30", "N30E"},
                          {"91", "S89E"},
                          {"180", "S0E"},
                          {"181", "S1W"},
                          {"270", "S90W"},
                          {"271", "N89W"},
                          {"-30", "N30W"},
                          {"123.4", "S56.6E"},
                          {"359.7", "N0.3W"},
                          {"179.999999", "S0.000001E"},
                          {"212.123456", "S32.123456W"},
                          {"12,5", "N12.5E"},
                          {"  45", "N45E"},
                          {"", ""},
                          {"  ", ""}}) {
        EXPECT_EQ(AzimuthToQuadrant(c.azimuth), c.expected) << c.azimuth;
    }
}

TEST(QuadrantToAzimuth, UndoesAzimuthToQuadrant) {
    for (int degrees = 0; degrees <= 360; ++degrees) {
        const std::optional<double> back =
            QuadrantDegrees(AzimuthToQuadrant(std::to_string(degrees)));
        ASSERT_TRUE(back) << degrees;
        EXPECT_EQ(static_cast<int>(*back) % 360, degrees % 360);
    }
}

TEST(QuadrantToAzimuth, ReadsQuadrantsAndNames) {
    struct Case {
        const char* text;
        const char* expected;
    };

    for (const Case& c : {Case{"N30E", "30"},
                          {"n30e", "30"},
                          {"N30W", "330"},
                          {"S30E", "150"},
                          {"S30W", "210"},
                          {"N0W", "0"},
                          {"N90E", "90"},
                          {"S90E", "90"},
                          {"S90W", "270"},
                          {"N12.5E", "12.5"},
                          {"N12,5E", "12.5"},
                          {" N30E ", "30"},
                          {"NE", "45"},
                          {"wsw", "245"},
                          {"N", "360"}}) {
        EXPECT_EQ(QuadrantRead(c.text), c.expected) << c.text;
    }
}

TEST(QuadrantToAzimuth, RefusesBlanksAndWrongLetters) {
    for (const char* text :
         {"", "30", "N30", "30E", "E30N", "N30S", "X30E", "N30X", "N30EE", "NN30E", "N3 0E",
          "N 30E", "N30 E", "N-30E", "N,E", "N3.0.0E", "N/E", "\x1b"}) {
        EXPECT_EQ(QuadrantRead(text), kUnreadable) << text;
    }
}

TEST(QuadrantToAzimuth, RefusesAnglesBeyondARightAngle) {
    EXPECT_EQ(QuadrantRead("N100E"), kUnreadable);
    EXPECT_EQ(QuadrantRead("S90.5W"), kUnreadable);
}

TEST(PadAzimuth, PadsTheWholePart) {
    struct Case {
        const char* text;
        const char* expected;
    };

    for (const Case& c : {Case{"7", "007"},
                          {"45", "045"},
                          {"120", "120"},
                          {"7.5", "007.5"},
                          {"7,50", "007,50"},
                          {".5", "000.5"},
                          {"-7", "-007"},
                          {"-7.5", "-007.5"},
                          {"", ""},
                          {"abc", "abc"},
                          {"7.5x", "7.5x"},
                          {"1e2", "1e2"}}) {
        EXPECT_EQ(PadAzimuth(c.text), c.expected) << c.text;
    }
}

TEST(SplitNumberFromLetters, CutsAtTheFirstLetter) {
    std::string_view number;
    std::string_view letters;
    EXPECT_TRUE(SplitNumberFromLetters("30NE", number, letters));
    EXPECT_EQ(number, "30");
    EXPECT_EQ(letters, "NE");
    EXPECT_TRUE(SplitNumberFromLetters(" -7,5 ", number, letters));
    EXPECT_EQ(number, "-7,5");
    EXPECT_EQ(letters, "");
    EXPECT_TRUE(SplitNumberFromLetters("SW", number, letters));
    EXPECT_EQ(number, "");
    EXPECT_EQ(letters, "SW");
}

TEST(SplitNumberFromLetters, RefusesBlanksAndDigitsBehindLetters) {
    for (const char* text : {"3 0NE", "30N5", "30/NE", "30N E"}) {
        std::string_view number;
        std::string_view letters;
        EXPECT_FALSE(SplitNumberFromLetters(text, number, letters)) << text;
    }
}

TEST(SplitSenseLetters, KeepsTheNumberAndGivesTheSense) {
    struct Case {
        const char* text;
        const char* number;
        const char* sense;
    };

    for (const Case& c : {Case{"45SW", "45", "SW"},
                          {"45  SW", "45", "SW"},
                          {"45", "45", ""},
                          {" 45n ", "45", "n"},
                          {"12,5E", "12,5", "E"},
                          {"1/2E", "1/2", "E"}}) {
        std::string text = c.text;
        std::string sense = "old";
        SplitSenseLetters(text, sense);
        EXPECT_EQ(text, c.number) << c.text;
        EXPECT_EQ(sense, c.sense) << c.text;
    }
}

TEST(SplitSenseLetters, MarksATextWithoutANumber) {
    for (const char* letters : {"SW", ""}) {
        std::string text = letters;
        std::string sense;
        SplitSenseLetters(text, sense);
        EXPECT_EQ(text, kUnreadable);
    }
}

TEST(SenseToDipDirection, TakesTheSideOfTheSense) {
    struct Case {
        const char* strike;
        const char* sense;
        const char* expected;
    };

    for (const Case& c : {Case{"30", "SE", "120"},
                          {"30", "NW", "300"},
                          {"30", "E", "120"},
                          {"30", "N", "300"},
                          {"210", "SE", "120"},
                          {"120", "SW", "210"},
                          {"0", "E", "90"},
                          {"0", "w", "270"},
                          {"90", "N", "0"},
                          {"270", "N", "360"},
                          {"-150", "SE", "120"},
                          {"12,5", "E", "102.5"}}) {
        EXPECT_EQ(SenseToDipDirection(c.strike, c.sense), c.expected) << c.strike << c.sense;
    }
}

TEST(SenseToDipDirection, AgreesWithTheSideOnWhichTheSenseLies) {
    // The sense lies right of the strike when the sine of the difference is positive.
    for (int strike = 0; strike <= 360; ++strike) {
        for (int index = 0; index < 16; index += 2) {
            const double side = std::sin((index * 22.5 - strike) * std::acos(-1.0) / 180);
            const std::string expected = std::abs(side) < 1e-9
                                             ? "repeat"
                                             : std::to_string(strike
                                                              + (side > 0       ? 90
                                                                 : strike >= 90 ? -90
                                                                                : 270));
            const std::string found =
                SenseToDipDirection(std::to_string(strike), SectorName(index));
            if (expected == "repeat") {
                EXPECT_EQ(found, expected);
            } else {
                EXPECT_EQ((std::stoi(found) + 360) % 360, std::stoi(expected) % 360)
                    << strike << SectorName(index);
            }
        }
    }
}

TEST(SenseToDipDirection, RepeatsForASenseAtRightAnglesToBothCandidates) {
    EXPECT_EQ(SenseToDipDirection("45", "NE"), "repeat");
    EXPECT_EQ(SenseToDipDirection("45", "SW"), "repeat");
    EXPECT_EQ(SenseToDipDirection("360", "N"), "repeat");
}

TEST(SenseToDipDirection, MarksWhatIsNoSenseOrNoStrike) {
    EXPECT_EQ(SenseToDipDirection("45", "X"), kUnreadable);
    EXPECT_EQ(SenseToDipDirection("45", ""), kUnreadable);
    EXPECT_EQ(SenseToDipDirection("abc", "E"), kUnreadable);
}

TEST(StrikeAndSenseToDipDirection, GivesTheDirectionAndASenseWithoutBlanks) {
    std::string sense = " S W ";
    std::string result;
    StrikeAndSenseToDipDirection("120", sense, result);
    EXPECT_EQ(result, "210");
    EXPECT_EQ(sense, "SW");
}

TEST(StrikeAndSenseToDipDirection, MarksASenseAlongTheStrike) {
    std::string sense = "NE";
    std::string result;
    StrikeAndSenseToDipDirection("45", sense, result);
    EXPECT_EQ(result, kUnreadable);
}

TEST(StrikeToDipDirection, AddsARightAngle) {
    struct Case {
        const char* strike;
        const char* expected;
    };

    for (const Case& c : {Case{"30", "120"},
                          {"270", "360"},
                          {"300", "30"},
                          {"-360", "90"},
                          {"", "90"},
                          {" ", "90"},
                          {"12.5", "102.5"}}) {
        std::string result;
        StrikeToDipDirection(c.strike, result);
        EXPECT_EQ(result, c.expected) << c.strike;
    }
    std::string result;
    StrikeToDipDirection("N30E", result);
    EXPECT_EQ(result, kUnreadable);
}

TEST(DipDirToStrikeQuadrant, WritesStrikesFromOneTo360) {
    struct Case {
        const char* dipDirection;
        AzimuthNotation notation;
        const char* strike;
    };

    for (const Case& c : {Case{"120", AzimuthNotation::kAzimuth, "030"},
                          {"90", AzimuthNotation::kAzimuth, "360"},
                          {"90.4", AzimuthNotation::kAzimuth, "360"},
                          {"10", AzimuthNotation::kAzimuth, "280"},
                          {"92,5", AzimuthNotation::kAzimuth, "003"},
                          {"120", AzimuthNotation::kQuadrant, "N30E"},
                          {"90", AzimuthNotation::kQuadrant, "N0W"},
                          {"300", AzimuthNotation::kQuadrant, "S30W"}}) {
        std::string strike;
        std::string sense;
        DipDirToStrikeQuadrant(c.dipDirection, strike, sense, c.notation);
        EXPECT_EQ(strike, c.strike) << c.dipDirection;
    }
}

TEST(DipDirToStrikeQuadrant, ChangesTheSenseAtItsBounds) {
    struct Case {
        const char* dipDirection;
        const char* sense;
    };

    for (const Case& c : {Case{"0", "N"},
                          {"45", "N"},
                          {"46", "E"},
                          {"134", "E"},
                          {"135", "S"},
                          {"225", "S"},
                          {"226", "W"},
                          {"313", "W"},
                          {"314", "N"},
                          {"360", "N"},
                          {"45.4", "N"},
                          {"45.6", "E"}}) {
        std::string strike;
        std::string sense;
        DipDirToStrikeQuadrant(c.dipDirection, strike, sense, AzimuthNotation::kAzimuth);
        EXPECT_EQ(sense, c.sense) << c.dipDirection;
    }
}

TEST(DipDirToStrikeQuadrant, GivesEmptyTextsForAnEmptyOne) {
    std::string strike = "x";
    std::string sense = "x";
    DipDirToStrikeQuadrant("", strike, sense, AzimuthNotation::kAzimuth);
    EXPECT_EQ(strike, "");
    EXPECT_EQ(sense, "");
}

TEST(DipDirToStrikeQuadrant, IsUndoneByStrikeAndSense) {
    for (int dipDirection = 0; dipDirection < 360; ++dipDirection) {
        std::string strike;
        std::string sense;
        DipDirToStrikeQuadrant(std::to_string(dipDirection), strike, sense,
                               AzimuthNotation::kAzimuth);
        const std::string back = SenseToDipDirection(strike, sense);
        ASSERT_NE(back, kRepeatSense) << dipDirection;
        EXPECT_EQ(std::stoi(back) % 360, dipDirection);
    }
}

TEST(PlaneComplement, AddsARightAngle) {
    EXPECT_EQ(PlaneComplement("30"), "120");
    EXPECT_EQ(PlaneComplement(""), "90");
    EXPECT_EQ(PlaneComplement("-90"), "0");
    EXPECT_EQ(PlaneComplement("300"), "30");
    EXPECT_EQ(PlaneComplement("22,5"), "112.5");
}

TEST(OrientationText, WritesPlanesInEveryConvention) {
    struct Case {
        int convention;
        AzimuthNotation notation;
        const char* expected;
    };

    for (const Case& c : {Case{1, AzimuthNotation::kAzimuth, "45/060"},
                          {2, AzimuthNotation::kAzimuth, "060/45"},
                          {3, AzimuthNotation::kAzimuth, "330/45E"},
                          {4, AzimuthNotation::kAzimuth, "45E/330"},
                          {5, AzimuthNotation::kAzimuth, "45/330"},
                          {6, AzimuthNotation::kAzimuth, "330/45"},
                          {1, AzimuthNotation::kQuadrant, "45/N60E"},
                          {2, AzimuthNotation::kQuadrant, "N60E/45"},
                          {3, AzimuthNotation::kQuadrant, "N30W/45E"},
                          {4, AzimuthNotation::kQuadrant, "45E/N30W"},
                          {6, AzimuthNotation::kQuadrant, "N30W/45"}}) {
        OrientationOptions options;
        options.kind = OrientationKind::kPlane;
        options.planeConvention = c.convention;
        options.notation = c.notation;
        EXPECT_EQ(OrientationText("45", "60", options), c.expected);
    }
}

TEST(OrientationText, WritesLinesInBothOrders) {
    OrientationOptions options;
    options.separator = "-";
    EXPECT_EQ(OrientationText("5", "7", options), "5-007");
    options.lineOrder = LineOrder::kTrendPlunge;
    EXPECT_EQ(OrientationText("5", "7.5", options), "007.5-5");
    options.notation = AzimuthNotation::kQuadrant;
    EXPECT_EQ(OrientationText("-5", "187", options), "S7W--5");
}

TEST(OrientationText, WritesALoneValuePadded) {
    OrientationOptions options;
    EXPECT_EQ(OrientationText("7", "", options), "007");
    options.kind = OrientationKind::kDirection;
    EXPECT_EQ(OrientationText("7", "", options), "007");
    EXPECT_EQ(OrientationText("0", "7", options), "007");
    options.notation = AzimuthNotation::kQuadrant;
    EXPECT_EQ(OrientationText("7", "", options), "N7E");
}

TEST(OrientationText, AStrikeHasTheDecimalsOfItsDipDirection) {
    OrientationOptions options;
    options.kind = OrientationKind::kPlane;
    options.planeConvention = 3;
    EXPECT_EQ(OrientationText("47.3", "218.6", options), "128.6/47.3S");
    EXPECT_EQ(OrientationText("47.25", "30.05", options), "300.05/47.25N");
    EXPECT_EQ(OrientationText("47.0", "90.0", options), "360.0/47.0E");
    options.planeConvention = 5;
    EXPECT_EQ(OrientationText("5.5", "97.5", options), "5.5/007.5");
    options.notation = AzimuthNotation::kQuadrant;
    EXPECT_EQ(OrientationText("5.5", "97.5", options), "5.5/N7.5E");
    options.planeConvention = 6;
    options.notation = AzimuthNotation::kAzimuth;
    EXPECT_EQ(OrientationText("5", "97", options), "007/5");
}

TEST(SplitOrientation, GivesEveryValueAFieldOfItsOwn) {
    OrientationOptions options;
    options.kind = OrientationKind::kPlane;
    options.planeConvention = 3;
    OrientationFields fields = SplitOrientation("45", "60", options);
    EXPECT_EQ(fields.first + "|" + fields.second + "|" + fields.third, "330|45|E");
    options.planeConvention = 4;
    fields = SplitOrientation("45", "60", options);
    EXPECT_EQ(fields.first + "|" + fields.second + "|" + fields.third, "45|E|330");
    options.planeConvention = 2;
    fields = SplitOrientation("45", "60", options);
    EXPECT_EQ(fields.first + "|" + fields.second + "|" + fields.third, "060|45|");
}

TEST(FormatDescription, JoinsTheCaptions) {
    EXPECT_EQ(FormatDescription(1, LineOrder::kPlungeTrend, AzimuthNotation::kAzimuth),
              "Planes as Dip,Dip Dir'n; Lines as Plunge,Trend (all in azimuth notation)");
    EXPECT_EQ(FormatDescription(6, LineOrder::kTrendPlunge, AzimuthNotation::kQuadrant),
              "Planes as Strike,Dip (RH rule); Lines as Trend,Plunge (all in quadrant notation)");
    EXPECT_EQ(PlaneConventionCaption(4), "Dip,Sense,Strike");
    EXPECT_EQ(PlaneConventionCaption(0), "");
    EXPECT_EQ(PlaneConventionCaption(7), "");
}

} // namespace
} // namespace quandrel
