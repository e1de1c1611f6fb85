// SPDX-License-Identifier: MIT
//
// The parser, checked with vectors: planes and lines are made as vectors, written here by the rules
// of each notation, and must be read back as the same vectors.

#include "input/data_line.h"

#include <array>
#include <cmath>
#include <random>

namespace quandrel {
namespace {

// North, east, down.
using Vector = std::array<double, 3>;

double Rad(double degrees) {
    return degrees * std::acos(-1.0) / 180;
}

Vector Along(double azimuth) {
    return {std::cos(Rad(azimuth)), std::sin(Rad(azimuth)), 0};
}

// A line; one with a negative plunge points the opposite way of the same line downward.
Vector LineVector(double plunge, double trend) {
    const double sign = plunge < 0 ? -1 : 1;
    const double p = Rad(std::abs(plunge));
    return {sign * std::cos(p) * std::cos(Rad(trend)), sign * std::cos(p) * std::sin(Rad(trend)),
            sign * std::sin(p)};
}

Vector DownDip(double dip, double dipDirection) {
    const Vector level = Along(dipDirection);
    return {std::cos(Rad(dip)) * level[0], std::cos(Rad(dip)) * level[1], std::sin(Rad(dip))};
}

// Pointing up.
Vector Normal(double dip, double dipDirection) {
    const Vector level = Along(dipDirection);
    return {std::sin(Rad(dip)) * level[0], std::sin(Rad(dip)) * level[1], -std::cos(Rad(dip))};
}

double Dot(const Vector& a, const Vector& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector Mixed(double wa, const Vector& a, double wb, const Vector& b) {
    return {wa * a[0] + wb * b[0], wa * a[1] + wb * b[1], wa * a[2] + wb * b[2]};
}

int Turned(int degrees) {
    return ((degrees % 360) + 360) % 360;
}

std::string InQuadrants(int azimuth) {
    const int a = Turned(azimuth);
    const std::string side = a <= 180 ? "E" : "W";
    const bool isNorth = a <= 90 || a >= 270;
    const int fromAxis = a <= 90 ? a : a <= 180 ? 180 - a : a <= 270 ? a - 180 : 360 - a;
    return (isNorth ? "N" : "S") + std::to_string(fromAxis) + side;
}

std::string Azimuth(int azimuth, bool isQuadrant) {
    return isQuadrant ? InQuadrants(azimuth) : std::to_string(Turned(azimuth));
}

const std::array<std::string, 8>& Senses() {
    static const std::array<std::string, 8> senses = {"N", "NE", "E", "SE", "S", "SW", "W", "NW"};
    return senses;
}

// A compass name within 67 degrees of an azimuth, for the random number given.
std::string SenseNear(int azimuth, unsigned choice) {
    const int nearest = (Turned(azimuth) + 22) / 45;
    return Senses()[static_cast<std::size_t>((nearest + static_cast<int>(choice % 3) + 7) % 8)];
}

// A plane as a line of its convention. `choice` picks among ways to write the same plane.
std::string Written(int dip, int dipDirection, int convention, bool isQuadrant, unsigned choice) {
    const std::string d = std::to_string(dip);
    const std::string direction = Azimuth(dipDirection, isQuadrant);
    const std::string rightHand = Azimuth(dipDirection - 90, isQuadrant);
    const std::string eitherEnd =
        Azimuth(dipDirection + (choice / 3 % 2 == 0 ? 90 : -90), isQuadrant);
    const std::string sense = SenseNear(dipDirection, choice);
    switch (convention) {
    case 2:
        return direction + ';' + d;
    case 3:
        return eitherEnd + ';' + d + ';' + sense;
    case 4:
        return d + ';' + sense + ';' + eitherEnd;
    case 5:
        return d + ';' + rightHand;
    case 6:
        return rightHand + ';' + d;
    default:
        return d + ';' + direction;
    }
}

LineFormat FormatOf(int convention, bool isQuadrant) {
    static const std::array<ColumnSettings, 7> kSlots = {{
        {},
        {0, 1, 9, 9, 9, 9, 9, 9, 9, 9},
        {1, 0, 9, 9, 9, 9, 9, 9, 9, 9},
        {1, 0, 2, 9, 9, 9, 9, 9, 9, 9},
        {0, 2, 1, 9, 9, 9, 9, 9, 9, 9},
        {0, 1, 9, 9, 9, 9, 9, 9, 9, 9},
        {1, 0, 9, 9, 9, 9, 9, 9, 9, 9},
    }};
    LineFormat format;
    format.planeConvention = convention;
    format.isQuadrant = isQuadrant;
    format.delimiter = ';';
    format.slots = kSlots[static_cast<std::size_t>(convention)];
    format.neededColumns = HighestColumnNeeded(format) + 1;
    return format;
}

TEST(PlaneConventions, AllSixGiveTheSamePlaneInBothNotations) {
    std::mt19937 random(41);
    for (int round = 0; round < 3000; ++round) {
        const int dip = static_cast<int>(random() % 91);
        const int dipDirection = static_cast<int>(random() % 360);
        const auto choice = static_cast<unsigned>(random() % 6);
        for (int convention = 1; convention <= 6; ++convention) {
            for (const bool isQuadrant : {false, true}) {
                const std::string line = Written(dip, dipDirection, convention, isQuadrant, choice);
                const ParsedRow row = ParseLine(line, FormatOf(convention, isQuadrant));
                ASSERT_EQ(row.status, LineStatus::Row) << convention << ' ' << line;
                ASSERT_NEAR(Dot(Normal(row.dip, row.az), Normal(dip, dipDirection)), 1, 1e-12)
                    << convention << ' ' << line;
                ASSERT_NEAR(Dot(Along(row.az), Along(dipDirection)), 1, 1e-12) << line;
            }
        }
    }
}

LineFormat InPlane(std::int16_t secondary, bool isQuadrant) {
    LineFormat format = FormatOf(1, isQuadrant);
    format.secondary = secondary;
    format.slots[kSlotSecondaryDirection] = 2;
    format.slots[kSlotSecondarySense] = 2;
    format.neededColumns = 3;
    return format;
}

TEST(PitchInPlane, IsMeasuredDownFromTheEndNearestTheSense) {
    std::mt19937 random(43);
    for (int round = 0; round < 3000; ++round) {
        const int dip = static_cast<int>(random() % 91);
        const int dipDirection = static_cast<int>(random() % 360);
        const int pitch = static_cast<int>(random() % 181) - 90;
        const std::size_t sense = random() % 8;
        const double towardStrike =
            Dot(Along(45.0 * static_cast<double>(sense)), Along(dipDirection - 90));
        const std::string line = std::to_string(dip) + ';' + std::to_string(dipDirection) + ';'
                                 + std::to_string(pitch) + Senses()[sense];
        const ParsedRow row = ParseLine(line, InPlane(kPitchInPlane, false));
        if (std::abs(towardStrike) < 1e-9) {
            EXPECT_EQ(row.status, LineStatus::NotOrientation) << line;
            continue;
        }
        const Vector strikeEnd = Along(dipDirection + (towardStrike > 0 ? -90 : 90));
        const Vector truth = Mixed(std::cos(Rad(pitch)), strikeEnd, std::sin(Rad(pitch)),
                                   DownDip(dip, dipDirection));
        ASSERT_TRUE(row.secondaryPresent) << line;
        const double cosine = Dot(LineVector(row.dip2, row.az2), truth);
        // A horizontal line, and a vertical one, have no sense of their own.
        const bool hasSense = std::abs(truth[2]) > 1e-9 && std::abs(truth[2]) < 1 - 1e-9;
        ASSERT_NEAR(hasSense ? cosine : std::abs(cosine), 1, 1e-9) << line;
    }
}

TEST(TrendInPlane, GivesTheLineOfThePlaneBelowTheTrend) {
    std::mt19937 random(44);
    for (int round = 0; round < 3000; ++round) {
        const int dip = static_cast<int>(random() % 90);
        const int dipDirection = static_cast<int>(random() % 360);
        const int trend = static_cast<int>(random() % 361);
        for (const bool isQuadrant : {false, true}) {
            const std::string line = std::to_string(dip) + ';' + Azimuth(dipDirection, isQuadrant)
                                     + ';' + Azimuth(trend, isQuadrant);
            const ParsedRow row = ParseLine(line, InPlane(kTrendInPlane, isQuadrant));
            ASSERT_TRUE(row.secondaryPresent) << line;
            const Vector found = LineVector(row.dip2, row.az2);
            EXPECT_NEAR(Dot(found, Normal(dip, dipDirection)), 0, 1e-9) << line;
            EXPECT_GE(row.dip2, 0) << line;
            EXPECT_NEAR(std::abs(Dot(Along(row.az2), Along(trend))), 1, 1e-9) << line;
        }
    }
}

TEST(TrendInPlane, OfAVerticalPlaneIsLevelAlongTheStrikeAndSteepElsewhere) {
    const LineFormat format = InPlane(kTrendInPlane, false);
    EXPECT_NEAR(ParseLine("90;120;30", format).dip2, 0, 1e-9);
    EXPECT_NEAR(ParseLine("90;120;210", format).dip2, 0, 1e-9);
    EXPECT_NEAR(ParseLine("90;120;31", format).dip2, 90, 1e-9);
    EXPECT_NEAR(ParseLine("90;120;120", format).dip2, 90, 1e-9);
}

TEST(HadeInPlane, TurnsFromTheStrikeDownward) {
    std::mt19937 random(45);
    for (int round = 0; round < 3000; ++round) {
        const int dip = static_cast<int>(random() % 91);
        const int dipDirection = static_cast<int>(random() % 360);
        const int hade = static_cast<int>(random() % 361);
        const std::string line =
            std::to_string(dip) + ';' + std::to_string(dipDirection) + ';' + std::to_string(hade);
        const ParsedRow row = ParseLine(line, InPlane(kHadeInPlane, false));
        ASSERT_TRUE(row.secondaryPresent) << line;
        const Vector truth = Mixed(std::cos(Rad(hade)), Along(dipDirection - 90),
                                   std::sin(Rad(hade)), DownDip(dip, dipDirection));
        const double cosine = Dot(LineVector(row.dip2, row.az2), truth);
        const bool hasSense = std::abs(truth[2]) > 1e-9 && std::abs(truth[2]) < 1 - 1e-9;
        ASSERT_NEAR(hasSense ? cosine : std::abs(cosine), 1, 1e-9) << line;
    }
}

TEST(HadeInPlane, StartsAtTheStrikeOfTheRightHandRule) {
    const LineFormat format = InPlane(kHadeInPlane, false);

    struct HadeCase {
        const char* hade;
        double plunge, trend;
    };

    for (const HadeCase& expected :
         std::vector<HadeCase>{{"0", 0, 30}, {"90", 60, 120}, {"180", 0, 210}, {"270", -60, 120}}) {
        const ParsedRow row = ParseLine(std::string("60;120;") + expected.hade, format);
        EXPECT_NEAR(row.dip2, expected.plunge, 1e-9) << expected.hade;
        EXPECT_NEAR(row.az2, expected.trend, 1e-9) << expected.hade;
    }
}

} // namespace
} // namespace quandrel
