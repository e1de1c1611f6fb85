// SPDX-License-Identifier: MIT

#include "input/data_line.h"

#include "input/decimal_delimiter.h"
#include "input/line_tokens.h"
#include "input/paired_cell.h"
#include "input/place_columns.h"
#include "orientation/angles.h"
#include "orientation/attitude.h"
#include "orientation/notation.h"
#include "orientation/number_text.h"

#include <cmath>
#include <optional>

namespace quandrel {

namespace {

constexpr double kSteepest = 90;
constexpr double kHalfTurn = 180;
constexpr double kFullTurn = 360;
constexpr double kSteepestPitch = 180;

// What adding or subtracting right angles may change an angle by. More is a digit of the file.
constexpr double kRounding = 1e-10;

// The tokens of a row by their slots.
struct Items {
    const LineTokens& tokens;
    const LineFormat& format;

    [[nodiscard]] const Token& At(int slot) const { return tokens.At(slot, format.slots); }

    [[nodiscard]] bool IsSameColumn(int slot, int other) const {
        return format.slots[static_cast<std::size_t>(slot)]
               == format.slots[static_cast<std::size_t>(other)];
    }
};

// What the first characters of a line say it is; Row when it has to be parsed.
LineStatus KindOfLine(std::string_view line, const LineFormat& format) {
    line = WithoutLeadingBlanks(line, format.delimiter);
    if (line.empty()) {
        return LineStatus::Blank;
    }
    if (BeginsWithMark(line, format.comments)) {
        return LineStatus::Comment;
    }
    switch (line.front()) {
    case '/':
        return LineStatus::ParameterLine;
    case ';':
    case '*':
        return LineStatus::Comment;
    default:
        return line.find_first_of("0123456789") != std::string_view::npos ? LineStatus::Row
                                                                          : LineStatus::NotData;
    }
}

// Cuts a sense off a number such as "45SW"; nothing when its letters are not a sense.
std::optional<double> NumberBeforeSense(std::string_view text, std::string_view& sense) {
    std::string_view number;
    if (!SplitSenseLetters(text, number, sense) || !IsValidSense(sense)) {
        return std::nullopt;
    }
    return ReadNumber(number);
}

// A dip or plunge. A sense after it is cut off in every convention.
bool ReadDip(const Token& token, double& dip) {
    std::optional<double> degrees = NumberIn(token);
    if (!degrees) {
        std::string_view sense;
        degrees = NumberBeforeSense(token.Text(), sense);
    }
    dip = degrees.value_or(0);
    return degrees && std::abs(dip) <= kSteepest;
}

LineStatus ReadAzimuth(const Token& token, bool isQuadrant, double& azimuth) {
    const std::optional<double> degrees =
        isQuadrant ? QuadrantDegrees(token.Text()) : NumberIn(token);
    if (!degrees) {
        return isQuadrant ? LineStatus::NotQuadrant : LineStatus::NotOrientation;
    }
    azimuth = *degrees;
    return std::abs(azimuth) <= kFullTurn ? LineStatus::Row : LineStatus::NotOrientation;
}

LineStatus ReadLine(const Token& plungeToken, const Token& trendToken, bool isQuadrant,
                    double& plunge, double& trend) {
    if (plungeToken.Text().empty() || trendToken.Text().empty()) {
        return LineStatus::Missing;
    }
    const LineStatus status = ReadAzimuth(trendToken, isQuadrant, trend);
    if (status != LineStatus::Row) {
        return status;
    }
    return ReadDip(plungeToken, plunge) ? LineStatus::Row : LineStatus::NotOrientation;
}

// The sense of a plane: from its own token, or else from the letters after the dip.
LineStatus ReadSense(const Token& dipToken, std::string_view own, std::string_view& sense) {
    sense = own;
    if (IsValidSense(sense)) {
        return LineStatus::Row;
    }
    std::string_view number;
    if (!SplitSenseLetters(dipToken.Text(), number, sense)) {
        return LineStatus::NotOrientation;
    }
    if (sense.empty()) {
        return LineStatus::Missing;
    }
    return IsValidSense(sense) ? LineStatus::Row : LineStatus::NotOrientation;
}

// A plane in the convention of the format. `own` is the token in the column of the sense; it is not
// a sense when the dip has the same column.
LineStatus ReadPlane(const Token& dipToken, const Token& azimuthToken, std::string_view own,
                     const LineFormat& format, double& dip, double& dipDirection) {
    if (dipToken.Text().empty() || azimuthToken.Text().empty()) {
        return LineStatus::Missing;
    }
    const bool hasSense = HasSenseOfDip(format.planeConvention);
    std::string_view sense;
    LineStatus status = hasSense ? ReadSense(dipToken, own, sense) : LineStatus::Row;
    if (status != LineStatus::Row) {
        return status;
    }
    double azimuth = 0;
    status = ReadAzimuth(azimuthToken, format.isQuadrant, azimuth);
    if (status != LineStatus::Row) {
        return status;
    }
    if (!ReadDip(dipToken, dip)) {
        return LineStatus::NotOrientation;
    }
    dipDirection = azimuth;
    if (hasSense) {
        return DipDirectionFromSense(azimuth, sense, dipDirection) == SenseVerdict::kFound
                   ? LineStatus::Row
                   : LineStatus::NotOrientation;
    }
    if (format.planeConvention == kDipStrikeRightHand
        || format.planeConvention == kStrikeDipRightHand) {
        dipDirection = RightHandDipDirection(azimuth);
    }
    return LineStatus::Row;
}

// An orientation whose azimuth and sense are in the two slots after that of its dip or plunge.
LineStatus ReadOrientation(const Items& items, int slot, bool isPlane, double& dip,
                           double& azimuth) {
    const LineFormat& format = items.format;
    const auto read = [&](const Token& dipToken, const Token& azimuthToken) {
        return isPlane ? ReadPlane(dipToken, azimuthToken, items.At(slot + 2).Text(), format, dip,
                                   azimuth)
                       : ReadLine(dipToken, azimuthToken, format.isQuadrant, dip, azimuth);
    };
    if (format.pairsInCells && items.IsSameColumn(slot, slot + 1)) {
        const TokenPair pair = TokensOfPair(items.At(slot), format, isPlane);
        return read(pair.dip, pair.azimuth);
    }
    return read(items.At(slot), items.At(slot + 1));
}

LineStatus ReadDirection(const Items& items, double& azimuth) {
    const Token& token = items.At(kSlotDirection);
    if (token.Text().empty()) {
        return LineStatus::Missing;
    }
    const LineStatus status = ReadAzimuth(token, items.format.isQuadrant, azimuth);
    return status == LineStatus::Row && azimuth < 0 ? LineStatus::NotOrientation : status;
}

LineStatus ReadPrimary(const Items& items, ParsedRow& row) {
    if (items.format.primary <= kDirections
        && (!items.format.hasOverlays || items.IsSameColumn(kSlotDip, kSlotDirection))) {
        row.dip = 0;
        return ReadDirection(items, row.az);
    }
    return ReadOrientation(items, kSlotDip, items.format.primary == kPrimaryPlane, row.dip, row.az);
}

// Rounds an angle of the line, -360 to 360, to six decimals.
void RoundAngle(double& degrees, ParsedRow& row) {
    if (degrees == static_cast<double>(static_cast<std::int32_t>(degrees))) {
        return;
    }
    const double rounded = ToMicrodegree(degrees) + 0.0; // never -0
    row.hasMoreDecimals = row.hasMoreDecimals || std::abs(rounded - degrees) > kRounding;
    degrees = rounded;
}

// Takes a line that was computed from an angle in the plane, in degrees.
void TakeSecondary(double plunge, double trend, double angle, ParsedRow& row) {
    row.dip2 = RadToDeg(plunge);
    row.az2 = RadToDeg(trend);
    row.secondaryPresent = true;
    const bool isWhole = IsWhole({row.dip, row.az}) && IsWholeNumber(angle);
    row.secondaryOrigin = isWhole ? SecondaryOrigin::WholeDegrees : SecondaryOrigin::Decimals;
}

LineStatus ReadPitch(const Items& items, ParsedRow& row) {
    const Token& token = items.At(kSlotSecondaryDirection);
    std::string_view number = token.Text();
    std::string_view sense = items.At(kSlotSecondarySense).Text();
    if (items.IsSameColumn(kSlotSecondaryDirection, kSlotSecondarySense)) {
        if (token.Text().empty()) {
            return LineStatus::Missing;
        }
        if (!SplitSenseLetters(token.Text(), number, sense)) {
            return LineStatus::NotOrientation;
        }
    }
    if (number.empty() || sense.empty()) {
        return LineStatus::Missing;
    }
    std::optional<double> pitch = ReadNumber(number);
    if (!pitch || std::abs(*pitch) > kSteepestPitch) {
        return LineStatus::NotOrientation;
    }
    RoundAngle(*pitch, row);
    double plunge = 0;
    double trend = 0;
    if (!PlanePitchToLine(DegToRad(row.dip), DegToRad(row.az), DegToRad(*pitch), sense, plunge,
                          trend)) {
        return LineStatus::NotOrientation;
    }
    TakeSecondary(plunge, trend, *pitch, row);
    return LineStatus::Row;
}

// An invalid trend leaves the row without a secondary orientation.
LineStatus ReadTrend(const Items& items, ParsedRow& row) {
    const Token& token = items.At(kSlotSecondaryDirection);
    std::optional<double> degrees = NumberIn(token);
    if (!degrees && items.format.isQuadrant) {
        degrees = QuadrantDegrees(token.Text());
    }
    if (!degrees) {
        return LineStatus::Row;
    }
    if (std::abs(*degrees) > kFullTurn) {
        return LineStatus::NotOrientation;
    }
    RoundAngle(*degrees, row);
    double plunge = 0;
    double trend = 0;
    PlaneTrendToLine(DegToRad(row.dip), DegToRad(row.az), DegToRad(*degrees), plunge, trend);
    TakeSecondary(plunge, trend, *degrees, row);
    return LineStatus::Row;
}

LineStatus ReadHade(const Items& items, ParsedRow& row) {
    const Token& token = items.At(kSlotSecondaryDirection);
    if (token.Text().empty()) {
        return LineStatus::Missing;
    }
    // An angle within the plane is a number in either notation.
    const bool isQuadrant = items.format.isQuadrant && !NumberIn(token);
    double hade = 0;
    const LineStatus status = ReadAzimuth(token, isQuadrant, hade);
    if (status != LineStatus::Row) {
        return status;
    }
    RoundAngle(hade, row);
    double plunge = 0;
    double trend = 0;
    PlaneHadeToPlunge(DegToRad(row.dip), DegToRad(row.az), DegToRad(hade), plunge, trend);
    TakeSecondary(plunge, trend, hade, row);
    return LineStatus::Row;
}

LineStatus ReadSecondaryPair(const Items& items, ParsedRow& row) {
    const LineFormat& format = items.format;
    if (format.secondaryMayBeMissing && items.At(kSlotSecondaryDip).Text().empty()
        && items.At(kSlotSecondaryDirection).Text().empty()) {
        return LineStatus::Row;
    }
    const LineStatus status = ReadOrientation(
        items, kSlotSecondaryDip, format.secondary == kSecondaryPlane, row.dip2, row.az2);
    row.secondaryPresent = status == LineStatus::Row;
    if (row.secondaryPresent) {
        RoundAngle(row.dip2, row);
        RoundAngle(row.az2, row);
    }
    return status;
}

LineStatus ReadSecondary(const Items& items, ParsedRow& row) {
    switch (items.format.secondary) {
    case kPitchInPlane:
        return ReadPitch(items, row);
    case kTrendInPlane:
        return ReadTrend(items, row);
    case kSecondaryLine:
    case kSecondaryPlane:
        return ReadSecondaryPair(items, row);
    case kHadeInPlane:
        return ReadHade(items, row);
    default:
        return LineStatus::Row;
    }
}

void ReadAppendedLine(const Items& items, ParsedRow& row) {
    switch (ReadLine(items.At(kSlotAppendedPlunge), items.At(kSlotAppendedTrend),
                     items.format.isQuadrant, row.linePlunge, row.lineTrend)) {
    case LineStatus::Row:
        row.lineStatus = AppendedLineStatus::Good;
        RoundAngle(row.linePlunge, row);
        RoundAngle(row.lineTrend, row);
        break;
    case LineStatus::Missing:
        row.lineStatus = AppendedLineStatus::Missing;
        break;
    default:
        row.lineStatus = AppendedLineStatus::Incorrect;
        break;
    }
}

bool Holds(std::string_view text, char c) {
    return text.find(c) != std::string_view::npos;
}

void ReadNumberItem(const Items& items, ParsedRow& row) {
    const Token& token = items.At(kSlotNumber);
    const LineFormat& format = items.format;
    if (token.Text().empty()) {
        row.numberStatus = NumberStatus::Missing;
        return;
    }
    std::optional<double> value = NumberIn(token);
    if (!value) {
        value = NumberWithGroups(token.Text(), format.decimalIsComma, format.convertDecimals);
    }
    if (!value) {
        row.numberStatus = NumberStatus::Incorrect;
        return;
    }
    const char right = format.decimalIsComma ? ',' : '.';
    const char wrong = format.decimalIsComma ? '.' : ',';
    const bool isWrong = token.isPlainNumber
                             ? token.decimalDelimiter == wrong
                             : Holds(token.Text(), wrong) && !Holds(token.Text(), right);
    row.number = *value;
    row.numberStatus =
        isWrong && !format.convertDecimals ? NumberStatus::WrongDelimiter : NumberStatus::Good;
}

void ReadTextItem(const Items& items, ParsedRow& row) {
    const Token& token = items.At(kSlotText);
    const LineFormat& format = items.format;
    row.textStatus = TextStatus::Good;
    if (token.hasDoubledQuotes) {
        row.text.Keep(WithSingleQuotes(token.Text()));
    } else if (format.convertDecimals && NumberIn(token)
               && Holds(token.Text(), format.decimalIsComma ? '.' : ',')) {
        row.text.Keep(FixDecimalDelimiter(token.Text(), format.decimalIsComma));
    } else {
        row.text.View(token.Text());
    }
}

// Gives a line that points up the trend of its lower end.
void TakeLowerEnd(NegativePlunge meaning, double plunge, double& trend) {
    if (meaning == NegativePlunge::Vector && plunge < 0) {
        trend += trend < kHalfTurn ? kHalfTurn : -kHalfTurn;
    }
}

void TakeLowerEnds(const LineFormat& format, ParsedRow& row) {
    if (!row.isPlane) {
        TakeLowerEnd(format.negativePlunge, row.dip, row.az);
    }
    // Lines computed from angles in a plane already have the trends of their lower ends.
    if (row.secondaryPresent && format.secondary == kSecondaryLine) {
        TakeLowerEnd(format.negativePlunge, row.dip2, row.az2);
    }
    if (row.lineStatus == AppendedLineStatus::Good) {
        TakeLowerEnd(format.negativePlunge, row.linePlunge, row.lineTrend);
    }
}

void ReadRow(const Items& items, ParsedRow& row) {
    row.isPlane = items.format.primary == kPrimaryPlane;
    row.isPlane2 = items.format.secondary == kSecondaryPlane;
    row.status = ReadPrimary(items, row);
    if (row.status == LineStatus::Row) {
        RoundAngle(row.dip, row);
        RoundAngle(row.az, row);
        row.status = ReadSecondary(items, row);
    }
    if (row.status != LineStatus::Row) {
        return;
    }
    if (items.format.wantLine) {
        ReadAppendedLine(items, row);
    }
    if (items.format.wantNumber) {
        ReadNumberItem(items, row);
    }
    if (items.format.wantText) {
        ReadTextItem(items, row);
    }
    TakeLowerEnds(items.format, row);
}

} // namespace

[[gnu::flatten]] ParsedRow ParseLine(std::string_view line, const LineFormat& format) {
    ParsedRow row;
    row.status = KindOfLine(line, format);
    if (row.status != LineStatus::Row) {
        return row;
    }
    LineTokens tokens;
    const int missing = format.neededColumns
                        - tokens.Split(line, format.neededColumns, format.delimiter, format.slots);
    // A text at the end of a line is optional.
    if (missing > (format.wantText ? 1 : 0)) {
        row.status = LineStatus::TooFewItems;
        return row;
    }
    ReadRow({tokens, format}, row);
    row.mapPlace = MapPlaceIn(line, format);
    return row;
}

ParsedRow ParseValues(const std::array<std::string_view, kColumnSlots>& values,
                      const LineFormat& format) {
    LineFormat bySlot = format;
    bySlot.slots = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    LineTokens tokens;
    tokens.Assign(values);
    ParsedRow row;
    ReadRow({tokens, bySlot}, row);
    return row;
}

} // namespace quandrel
