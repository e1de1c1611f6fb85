// SPDX-License-Identifier: MIT

#include "orientation/angles.h"
#include "orientation/notation.h"
#include "orientation/number_text.h"
#include "support/text_table.h"

#include <gtest/gtest.h>

namespace quandrel {

namespace {

/// The entry in a table for a text that could not be read.
constexpr const char* kNone = "none";

std::string Readable(const std::string& text) {
    return text == kUnreadable ? kNone : text;
}

std::string DegreesWords(double plunge, double trend) {
    return NumberWords({RadToDeg(plunge), RadToDeg(trend)});
}

std::string Wrapped(const TableRow& row) {
    double degrees = NumbersOf(row, 1)[0];
    WrapDegrees(degrees);
    return NumberWords({degrees});
}

std::string QuadrantOfAzimuth(const TableRow& row) {
    return AzimuthToQuadrant(NumbersOf(row, 1)[0]);
}

std::string AzimuthOfQuadrant(const TableRow& row) {
    const std::optional<double> degrees = QuadrantDegrees(row.input);
    return degrees ? NumberWords({*degrees}) : kNone;
}

std::string DegreesOfCompassName(const TableRow& row) {
    const std::optional<double> degrees = CompassDegrees(row.input);
    return degrees ? NumberWords({*degrees}) : kNone;
}

std::string Padded(const TableRow& row) {
    return PadAzimuth(row.input);
}

std::string DipDirectionByRightHand(const TableRow& row) {
    std::string result;
    StrikeToDipDirection(row.input, result);
    return Readable(result);
}

/// Strike and sense, separated by a blank.
std::string DipDirectionBySense(const TableRow& row) {
    const std::vector<std::string> words = WordsOf(row.input);
    if (words.size() != 2) {
        throw TableError(row.place + ": a strike and a sense are wanted");
    }
    return Readable(SenseToDipDirection(words[0], words[1]));
}

std::string StrikeAndSense(const TableRow& row) {
    std::string strike;
    std::string sense;
    DipDirToStrikeQuadrant(row.input, strike, sense,
                           OptionOf(row, "notation", "azimuth") == "quadrant"
                               ? AzimuthNotation::kQuadrant
                               : AzimuthNotation::kAzimuth);
    return strike + " " + sense;
}

/// Dip and dip direction, or plunge and trend, as the options of the block would have them.
std::string Written(const TableRow& row) {
    const std::vector<std::string> words = WordsOf(row.input);
    if (words.size() != 2) {
        throw TableError(row.place + ": two values are wanted");
    }
    OrientationOptions options;
    options.kind =
        OptionOf(row, "kind", "line") == "plane" ? OrientationKind::kPlane : OrientationKind::kLine;
    options.planeConvention = static_cast<int>(ParseNumber(OptionOf(row, "convention", "1")));
    options.lineOrder =
        OptionOf(row, "line", "pt") == "tp" ? LineOrder::kTrendPlunge : LineOrder::kPlungeTrend;
    options.notation = OptionOf(row, "notation", "azimuth") == "quadrant"
                           ? AzimuthNotation::kQuadrant
                           : AzimuthNotation::kAzimuth;
    return OrientationText(words[0], words[1], options);
}

/// Dip, dip direction, and an angle: the three numbers of the lines within a plane.
struct PlaneAndAngle {
    double dip, dipDirection, angle;
};

PlaneAndAngle PlaneAndAngleOf(const TableRow& row) {
    const std::vector<double> numbers = NumbersOf(row, 3);
    return {DegToRad(numbers[0]), DegToRad(numbers[1]), DegToRad(numbers[2])};
}

std::string LineOfTrend(const TableRow& row) {
    const PlaneAndAngle given = PlaneAndAngleOf(row);
    double plunge = 0;
    double trend = 0;
    PlaneTrendToLine(given.dip, given.dipDirection, given.angle, plunge, trend);
    return DegreesWords(plunge, trend);
}

std::string LineOfHade(const TableRow& row) {
    const PlaneAndAngle given = PlaneAndAngleOf(row);
    double plunge = 0;
    double trend = 0;
    PlaneHadeToPlunge(given.dip, given.dipDirection, given.angle, plunge, trend);
    return DegreesWords(plunge, trend);
}

/// The fourth word is the sense.
std::string LineOfPitch(const TableRow& row) {
    const std::vector<std::string> words = WordsOf(row.input);
    if (words.size() != 4) {
        throw TableError(row.place + ": dip, dip direction, pitch and sense are wanted");
    }
    TableRow angles = row;
    angles.input = words[0] + " " + words[1] + " " + words[2];
    const PlaneAndAngle given = PlaneAndAngleOf(angles);
    double plunge = 0;
    double trend = 0;
    const bool isFound =
        PlanePitchToLine(given.dip, given.dipDirection, given.angle, words[3], plunge, trend);
    return isFound ? DegreesWords(plunge, trend) : kNone;
}

std::string Pole(const TableRow& row) {
    const std::vector<double> plane = NumbersOf(row, 2);
    double plunge = 0;
    double trend = 0;
    PoleOfPlane(DegToRad(plane[0]), DegToRad(plane[1]), plunge, trend);
    return DegreesWords(plunge, trend);
}

using PairOfPairs = void (*)(double, double, double, double, double&, double&);

/// IntersectPlanes or PlaneThroughLines.
std::string OfTwo(const TableRow& row, PairOfPairs find) {
    const std::vector<double> given = NumbersOf(row, 4);
    double first = 0;
    double second = 0;
    find(DegToRad(given[0]), DegToRad(given[1]), DegToRad(given[2]), DegToRad(given[3]), first,
         second);
    return first < 0 ? kNone : DegreesWords(first, second);
}

} // namespace

TEST(NotationTable, GivesWhatItsRowsExpect) {
    const std::map<std::string, TableOperation> operations{
        {"wrap", Wrapped},
        {"quadrant-of-azimuth", QuadrantOfAzimuth},
        {"azimuth-of-quadrant", AzimuthOfQuadrant},
        {"degrees-of-compass-name", DegreesOfCompassName},
        {"pad", Padded},
        {"dip-direction-by-right-hand", DipDirectionByRightHand},
        {"dip-direction-by-sense", DipDirectionBySense},
        {"strike-and-sense", StrikeAndSense},
        {"written", Written},
        {"line-of-trend", LineOfTrend},
        {"line-of-hade", LineOfHade},
        {"line-of-pitch", LineOfPitch},
        {"pole", Pole},
        {"intersection", [](const TableRow& row) { return OfTwo(row, IntersectPlanes); }},
        {"plane-through", [](const TableRow& row) { return OfTwo(row, PlaneThroughLines); }},
    };
    const auto rows = ReadTableFile("notation.txt");
    EXPECT_GE(rows.size(), 40U);
    EXPECT_EQ(LinesOf(TableComplaints(rows, operations)), "");
}

} // namespace quandrel
