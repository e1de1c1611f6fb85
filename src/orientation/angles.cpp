// SPDX-License-Identifier: MIT

#include "orientation/angles.h"

#include "orientation/direction_vectors.h"
#include "orientation/number_text.h"

#include <limits>
#include <utility>

namespace quandrel {

namespace {

constexpr double kRightAngle = kPi / 2;
constexpr double kThreeQuarterTurn = 9.42477796076937 / 2;
constexpr double kFiveQuarterTurn = 15.70796326794895 / 2;

// Angles from this size on are first reduced by division, so that no value takes long.
constexpr double kManyTurns = 1e5;

// A down component this small belongs to the normal of a vertical plane: the rest is rounding.
constexpr double kFlatNormal = 1e-12;

int SignOf(double value) {
    return (value > 0) - (value < 0);
}

// |angle| reduced by whole turns to at most kTwoPi.
double MirroredAngle(double angle) {
    double mirrored = std::abs(angle);
    if (mirrored > kManyTurns) {
        mirrored = std::fmod(mirrored, kTwoPi);
    }
    while (mirrored > kTwoPi) {
        mirrored -= kTwoPi;
    }
    return mirrored;
}

// The factor, 1 or -1, that turns a vector down, or north when it is horizontal.
int SenseDownOrNorth(const Direction& vector) {
    const int sense = vector.n != 0 ? SignOf(vector.n) : SignOf(vector.l);
    return sense != 0 ? sense : 1;
}

// Downward unit normal of a plane; its horizontal part is opposite to the dip direction.
Direction DownwardNormal(double dip, double dipDir) {
    const Direction normal = {-std::cos(dipDir) * std::sin(dip), -std::sin(dipDir) * std::sin(dip),
                              std::cos(dip)};
    return Scaled(normal, SenseDownOrNorth(normal) / LengthOf(normal));
}

// Azimuth 0 to kTwoPi of a horizontal vector that makes the angle acute (0 to kPi/2) with the
// meridian and has components of the given signs north and east.
double PlacedAzimuth(double acute, int signNorth, int signEast) {
    if (signEast == 0) {
        return signNorth < 0 ? kPi : acute;
    }
    if (signNorth == 0) {
        return signEast < 0 ? kThreeQuarterTurn : acute;
    }
    if (signEast > 0) {
        return signNorth > 0 ? acute : kPi - acute;
    }
    return signNorth < 0 ? kPi + acute : kTwoPi - acute;
}

} // namespace

long RoundToEvenLong(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    // The largest long is not a double: its neighbour 2^63 is the first value that does not fit.
    if (value >= -static_cast<double>(std::numeric_limits<long>::min())) {
        return std::numeric_limits<long>::max();
    }
    if (value <= static_cast<double>(std::numeric_limits<long>::min())) {
        return std::numeric_limits<long>::min();
    }
    return std::lrint(value);
}

double DegToRad(double degrees) {
    return std::isfinite(degrees) ? degrees * kPi / 180 : kUnreadableAngle;
}

double DegToRad(std::string_view degrees) {
    const std::optional<double> number = ReadNumber(degrees);
    return number ? DegToRad(*number) : kUnreadableAngle;
}

double RadToDeg(double radians) {
    return std::isfinite(radians) ? 180 * radians / kPi : 0.0;
}

std::string RadToDegText(double radians) {
    return std::to_string(RoundToEvenLong(RadToDeg(radians)));
}

std::string RadToAzimuthText(double radians) {
    return FormatNumber(RoundToEven(RadToDeg(radians)), "000");
}

void WrapAngle(double& angle) {
    if (!std::isfinite(angle)) {
        return;
    }
    if (std::abs(angle) > kManyTurns) {
        angle = std::fmod(angle, kTwoPi);
    }
    while (angle < 0) {
        angle += kTwoPi;
    }
    // Kept: a full turn stays a full turn and does not become 0.
    while (angle > kTwoPi) {
        angle -= kTwoPi;
    }
}

double WrappedAngle(double angle) {
    WrapAngle(angle);
    return angle;
}

double ArcCos(double cosine) {
    if (cosine >= 1) {
        return 0;
    }
    if (cosine <= -1) {
        return kPi;
    }
    return kRightAngle - std::atan(cosine / std::sqrt(1 - cosine * cosine));
}

double ArcSin(double sine) {
    if (sine == 0) {
        return 0;
    }
    if (std::abs(sine) >= 1) {
        return SignOf(sine) * kRightAngle;
    }
    return std::atan(sine / std::sqrt(1 - sine * sine));
}

void PoleOfPlane(double a, double b, double& plunge, double& trend) {
    plunge = kRightAngle - std::abs(a);
    trend = WrappedAngle(b + kPi);
}

void OppositeOfPlane(double a, double b, double& plunge, double& trend) {
    plunge = kRightAngle - std::abs(a);
    const double mirrored = MirroredAngle(b);
    trend = mirrored < kPi ? mirrored + kPi : mirrored - kPi;
}

void LineToCosines(double plunge, double trend, double& l, double& m, double& n) {
    // Kept: a negative trend is mirrored, not wrapped.
    double turned = std::abs(trend);
    if (plunge < 0) {
        turned += kPi;
    }
    turned = MirroredAngle(turned);
    l = std::cos(plunge) * std::cos(turned);
    m = std::cos(plunge) * std::sin(turned);
    n = std::sin(plunge);
}

Direction LineToCosines(double plunge, double trend) {
    Direction direction;
    LineToCosines(plunge, trend, direction.l, direction.m, direction.n);
    return direction;
}

void CosinesToLine(double l, double m, double n, double& plunge, double& trend) {
    if (l == 0 && m == 0) {
        // Kept: the sense of a vertical vector is lost.
        plunge = kRightAngle;
        trend = 0;
        return;
    }
    plunge = std::atan(std::sqrt(n * n / (l * l + m * m)));
    trend = l == 0 ? SignOf(m) * kRightAngle : std::atan(m / l);
    if (l < 0) {
        trend += kPi;
    } else if (trend < 0) {
        trend += kTwoPi;
    }
    if (n < 0) {
        trend += kPi;
        plunge = -plunge;
    }
    while (trend > kTwoPi) {
        trend -= kTwoPi;
    }
    trend += 0.0; // turns -0 into 0
}

void CosinesToLine(const Direction& direction, double& plunge, double& trend) {
    CosinesToLine(direction.l, direction.m, direction.n, plunge, trend);
}

void AngleBetweenLines(double plunge1, double trend1, double plunge2, double trend2, double& angle,
                       LineAngle wanted) {
    const double cosPlunge1 = std::cos(std::abs(plunge1));
    const double cosPlunge2 = std::cos(std::abs(plunge2));
    const double cosine = std::cos(trend1) * cosPlunge1 * std::cos(trend2) * cosPlunge2
                          + std::sin(trend1) * cosPlunge1 * std::sin(trend2) * cosPlunge2
                          + std::sin(std::abs(plunge1)) * std::sin(std::abs(plunge2));
    angle = ArcCos(cosine);
    const bool isAcute = angle < kRightAngle;
    const bool isObtuse = angle > kRightAngle;
    if (wanted == LineAngle::kObtuse ? isAcute : isObtuse) {
        angle = kPi - angle;
    }
}

void IntersectPlanes(double dip1, double dipDir1, double dip2, double dipDir2, double& plunge,
                     double& trend) {
    if (dip1 == 0 && dip2 == 0) {
        plunge = kNoAnswerPlunge;
        trend = 0;
        return;
    }
    if (dip1 == 0) {
        std::swap(dip1, dip2);
        std::swap(dipDir1, dipDir2);
    }
    const double strikeEnd = WrappedAngle(dipDir1 + kRightAngle);
    if (dipDir1 == dipDir2) {
        plunge = dip1 == dip2 ? kNoAnswerPlunge : 0;
        trend = strikeEnd;
        return;
    }
    const Direction line = CrossProduct(DownwardNormal(dip1, MirroredAngle(dipDir1)),
                                        DownwardNormal(dip2, MirroredAngle(dipDir2)));
    const double length = LengthOf(line);
    if (length < kParallelLength) {
        plunge = kNoAnswerPlunge;
        trend = strikeEnd;
        return;
    }
    const int sense = SenseDownOrNorth(line);
    plunge = ArcSin(std::abs(line.n) / length);
    if (plunge >= kRightAngle) {
        plunge = kRightAngle;
        trend = 0;
        return;
    }
    const double acute = ArcSin(std::abs(line.m) / (std::cos(plunge) * length));
    trend = PlacedAzimuth(acute, sense * SignOf(line.l), sense * SignOf(line.m));
}

std::optional<Direction> IntersectionDirection(const Direction& normal1, const Direction& normal2) {
    const Direction line = CrossProduct(normal1, normal2);
    const double length = LengthOf(line);
    if (!(length >= kParallelLength)) {
        return std::nullopt;
    }
    return Scaled(line, SenseDownOrNorth(line) / length);
}

void PlaneThroughLines(double plunge1, double trend1, double plunge2, double trend2, double& dip,
                       double& dipDir) {
    dip = kNoAnswerPlunge;
    dipDir = 0;
    const Direction line1 = LineToCosines(std::abs(plunge1), trend1);
    const Direction line2 = LineToCosines(std::abs(plunge2), trend2);
    Direction normal = CrossProduct(line1, line2);
    const double length = LengthOf(normal);
    if (!(length >= kParallelLength)) {
        return;
    }
    normal = Scaled(normal, 1 / length);
    if (std::abs(normal.n) < kFlatNormal) {
        normal.n = 0;
    }
    // The downward normal; that of a vertical plane points east.
    const int sense = normal.n != 0 ? SignOf(normal.n) : SignOf(normal.m);
    normal = Scaled(normal, sense != 0 ? sense : 1);
    if (normal.l == 0 && normal.m == 0) {
        dip = 0;
        return;
    }
    dip = ArcCos(normal.n);
    // The dip direction is opposite to the horizontal part of the downward normal.
    dipDir = AzimuthBetweenPoints(normal.m, normal.l, 0, 0);
}

double AzimuthToMathAngle(double azimuth) {
    return azimuth < kRightAngle ? kRightAngle - std::abs(azimuth)
                                 : kFiveQuarterTurn - std::abs(azimuth);
}

double AzimuthBetweenPoints(double x1, double y1, double x2, double y2) {
    const double dx = x2 - x1;
    const double dy = y2 - y1;
    if (dy == 0) {
        return dx < 0 ? kThreeQuarterTurn : kRightAngle;
    }
    const double acute = std::atan(dx / dy);
    if (dy < 0) {
        return acute + kPi;
    }
    return acute < 0 ? acute + kTwoPi : acute + 0.0; // + 0.0 turns -0 into 0
}

} // namespace quandrel
