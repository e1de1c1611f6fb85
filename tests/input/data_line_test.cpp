// SPDX-License-Identifier: MIT

#include "input/data_line.h"

#include <limits>
#include <string_view>

namespace quandrel {
namespace {

LineFormat Format(std::int16_t primary, int convention = 1, char delimiter = '\t') {
    LineFormat format;
    format.primary = primary;
    format.planeConvention = convention;
    format.delimiter = delimiter;
    format.neededColumns = HighestColumnNeeded(format) + 1;
    return format;
}

LineFormat Quadrant(LineFormat format) {
    format.isQuadrant = true;
    return format;
}

LineFormat WithSlots(LineFormat format, const ColumnSettings& slots) {
    format.slots = slots;
    format.neededColumns = HighestColumnNeeded(format) + 1;
    return format;
}

LineFormat WithAppended(LineFormat format, bool line, bool number, bool text) {
    format.wantLine = line;
    format.wantNumber = number;
    format.wantText = text;
    int next = 2;
    format.slots[kSlotAppendedPlunge] = next;
    format.slots[kSlotAppendedTrend] = next + 1;
    next += line ? 2 : 0;
    format.slots[kSlotNumber] = next;
    next += number ? 1 : 0;
    format.slots[kSlotText] = next;
    format.neededColumns = HighestColumnNeeded(format) + 1;
    return format;
}

LineFormat Secondary(std::int16_t secondary, const ColumnSettings& slots, int convention = 1) {
    LineFormat format = Format(kPrimaryPlane, convention);
    format.secondary = secondary;
    return WithSlots(format, slots);
}

struct LineCase {
    std::string line;
    LineFormat format;
    LineStatus status;
    double dip = 0;
    double az = 0;
};

void ExpectAll(const std::vector<LineCase>& cases) {
    for (const LineCase& expected : cases) {
        const ParsedRow row = ParseLine(expected.line, expected.format);
        EXPECT_EQ(row.status, expected.status) << '[' << expected.line << ']';
        if (expected.status == LineStatus::Row) {
            EXPECT_EQ(row.dip, expected.dip) << '[' << expected.line << ']';
            EXPECT_EQ(row.az, expected.az) << '[' << expected.line << ']';
        }
    }
}

TEST(ParseLine, TellsLinesThatAreNoData) {
    const LineFormat tab = Format(kPrimaryPlane);
    const LineFormat any = Format(kPrimaryPlane, 1, kAnyDelimiter);
    ExpectAll({
        {"", tab, LineStatus::Blank},
        {"    ", tab, LineStatus::Blank},
        {"\t \t", Format(kPrimaryPlane, 1, ','), LineStatus::Blank},
        {"\t\t", tab, LineStatus::NotData},
        {"; 45 120", tab, LineStatus::Comment},
        {"  ;45", tab, LineStatus::Comment},
        {"* 45\t120", tab, LineStatus::Comment},
        {"/T1\t/P0", tab, LineStatus::ParameterLine},
        {" /T1", tab, LineStatus::ParameterLine},
        {"dip and direction", any, LineStatus::NotData},
        {"N E", Quadrant(any), LineStatus::NotData},
        {"# title", tab, LineStatus::NotData},
        {"# in 1979", any, LineStatus::NotOrientation},
        {"#45\t120", tab, LineStatus::NotOrientation},
    });
}

TEST(ParseLine, ReadsPlanesAndLinesByTheirSlots) {
    const ColumnSettings swapped = {1, 0, 2, 3, 4, 5, 6, 7, 8, 9};
    const ColumnSettings sameColumn = {1, 0, 1, 3, 4, 5, 6, 7, 8, 9};
    const LineFormat plane = Format(kPrimaryPlane);
    ExpectAll({
        {"45\t120", plane, LineStatus::Row, 45, 120},
        {"45  120", Format(kPrimaryPlane, 1, kAnyDelimiter), LineStatus::Row, 45, 120},
        {"45  120", plane, LineStatus::TooFewItems},
        {"45/120", Format(kPrimaryPlane, 1, '/'), LineStatus::Row, 45, 120},
        {"120\t45", WithSlots(Format(kPrimaryPlane, 2), swapped), LineStatus::Row, 45, 120},
        {"120\t45\tSW", WithSlots(Format(kPrimaryPlane, 3), swapped), LineStatus::Row, 45, 210},
        {"120\t45\tne", WithSlots(Format(kPrimaryPlane, 3), swapped), LineStatus::Row, 45, 30},
        {"120\t45SW", WithSlots(Format(kPrimaryPlane, 3), sameColumn), LineStatus::Row, 45, 210},
        {"45\tSW\t120", WithSlots(Format(kPrimaryPlane, 4), {0, 2, 1, 3, 4, 5, 6, 7, 8, 9}),
         LineStatus::Row, 45, 210},
        {"45\t300", Format(kPrimaryPlane, 5), LineStatus::Row, 45, 30},
        {"300\t45", WithSlots(Format(kPrimaryPlane, 6), swapped), LineStatus::Row, 45, 30},
        {"45\t120", Format(kPrimaryLine), LineStatus::Row, 45, 120},
        {"120\t-45", WithSlots(Format(kPrimaryLine), swapped), LineStatus::Row, -45, 120},
        {"\"45\"\t\"120\"", plane, LineStatus::Row, 45, 120},
    });
}

// The order in a line depends only on the slots.
TEST(ParseLine, DoesNotTurnLinesForTrendFirst) {
    LineFormat format = Format(kPrimaryLine);
    format.lineIsTrendFirst = true;
    ExpectAll({{"45\t120", format, LineStatus::Row, 45, 120}});
}

TEST(ParseLine, ChecksTheRangesOfValues) {
    const LineFormat plane = Format(kPrimaryPlane);
    const LineFormat strike = Format(kPrimaryPlane, 5);
    const LineFormat sense = WithSlots(Format(kPrimaryPlane, 3), {1, 0, 2, 3, 4, 5, 6, 7, 8, 9});
    ExpectAll({
        {"90\t360", plane, LineStatus::Row, 90, 360},
        {"-90\t-360", plane, LineStatus::Row, -90, -360},
        {"90.01\t10", plane, LineStatus::NotOrientation},
        {"-91\t10", plane, LineStatus::NotOrientation},
        {"45\t361", plane, LineStatus::NotOrientation},
        {"45\t-360.5", plane, LineStatus::NotOrientation},
        {"45\t361", Format(kPrimaryLine), LineStatus::NotOrientation},
        {"91\t10", Format(kPrimaryLine), LineStatus::NotOrientation},
        // Strikes are checked before they are turned into dip directions.
        {"45\t361", strike, LineStatus::NotOrientation},
        {"45\t-300", strike, LineStatus::Row, 45, 150},
        {"400\t45\tE", sense, LineStatus::NotOrientation},
        {"45\t", plane, LineStatus::Missing},
        {"\t120 ", plane, LineStatus::Missing},
        {"\"\"\t120", plane, LineStatus::Missing},
    });
}

TEST(ParseLine, RefusesWhatOnlyLooksLikeANumber) {
    const LineFormat plane = Format(kPrimaryPlane);
    for (const char* wrong : {"1e999", "nan", "inf", "0x10", "12abc", "45abc", "4 5", "1.2.3",
                              "--4", "1,234.5", "e5", "+", ".", "45\xc2\xb0"}) {
        EXPECT_EQ(ParseLine(std::string(wrong) + "\t7", plane).status, LineStatus::NotOrientation)
            << wrong;
        EXPECT_EQ(ParseLine(std::string("7\t") + wrong, plane).status, LineStatus::NotOrientation)
            << wrong;
    }
    ExpectAll({
        {"4.5e1\t1.2e+02", plane, LineStatus::Row, 45, 120},
        {"+45\t+120", plane, LineStatus::Row, 45, 120},
    });
}

// In a locale with points, 45,5 is still 45 and a half.
TEST(ParseLine, ReadsOrientationsWithEitherDecimalDelimiter) {
    for (const bool isComma : {false, true}) {
        LineFormat plane = Format(kPrimaryPlane);
        plane.decimalIsComma = isComma;
        ExpectAll({
            {"45,5\t120.25", plane, LineStatus::Row, 45.5, 120.25},
            {"45.5\t120,25", plane, LineStatus::Row, 45.5, 120.25},
        });
    }
}

TEST(ParseLine, CutsASenseOffADipInEveryConvention) {
    const ColumnSettings ownColumn = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    ExpectAll({
        {"45SW\t120", Format(kPrimaryPlane, 1), LineStatus::Row, 45, 120},
        {"45 e\t120", Format(kPrimaryPlane, 2), LineStatus::Row, 45, 120},
        {"45SW\t120", Format(kPrimaryPlane, 5), LineStatus::Row, 45, 210},
        {"45N\t120", Format(kPrimaryLine), LineStatus::Row, 45, 120},
        {"45SW\t120\tSW", WithSlots(Format(kPrimaryPlane, 3), ownColumn), LineStatus::Row, 45, 210},
    });
}

TEST(ParseLine, TellsWhatIsWrongWithASense) {
    const ColumnSettings own = {1, 0, 2, 3, 4, 5, 6, 7, 8, 9};
    const ColumnSettings same = {1, 0, 1, 3, 4, 5, 6, 7, 8, 9};
    const LineFormat ownColumn = WithSlots(Format(kPrimaryPlane, 3), own);
    const LineFormat sameColumn = WithSlots(Format(kPrimaryPlane, 3), same);
    ExpectAll({
        {"120\t45\t", ownColumn, LineStatus::Missing},
        {"120\t45\tX", ownColumn, LineStatus::Missing},
        {"120\t45SW\tX", ownColumn, LineStatus::Row, 45, 210},
        {"120\t45", sameColumn, LineStatus::Missing},
        {"120\t45XY", sameColumn, LineStatus::NotOrientation},
        {"120\tSW", sameColumn, LineStatus::NotOrientation},
        {"120\t45WSW", sameColumn, LineStatus::NotOrientation},
        {"120\t45XY", Quadrant(sameColumn), LineStatus::NotOrientation}, // seen before the strike
        {"120\t45SW", Quadrant(sameColumn), LineStatus::NotQuadrant},
        // Along the strike it is undecided which side is meant.
        {"45\t30\tNE", ownColumn, LineStatus::NotOrientation},
        {"135\t30NW", sameColumn, LineStatus::NotOrientation},
    });
}

TEST(ParseLine, ReadsQuadrantNotation) {
    const LineFormat plane = Quadrant(Format(kPrimaryPlane));
    const LineFormat line = Quadrant(Format(kPrimaryLine));
    ExpectAll({
        {"45\tN30E", plane, LineStatus::Row, 45, 30},
        {"45\ts30e", plane, LineStatus::Row, 45, 150},
        {"45\tS30W", line, LineStatus::Row, 45, 210},
        {"45\tN30W", line, LineStatus::Row, 45, 330},
        {"45\tN12.5E", line, LineStatus::Row, 45, 12.5},
        {"45\tN90E", line, LineStatus::Row, 45, 90},
        {"45\tN100E", line, LineStatus::NotQuadrant},
        {"45\tE30N", line, LineStatus::NotQuadrant},
        {"45\t120", plane, LineStatus::NotQuadrant},
        {"45\tN30", plane, LineStatus::NotQuadrant},
        {"45\t", plane, LineStatus::Missing},
        {"x9\tN30E", plane, LineStatus::NotOrientation},
        // A line that holds a digit somewhere may have a name for its direction.
        {"45\tSW", line, LineStatus::Row, 45, 225},
        {"45\tENE", line, LineStatus::Row, 45, 78},
        {"45\tWSW", plane, LineStatus::Row, 45, 245},
        {"45\tNEN", plane, LineStatus::NotQuadrant},
    });
}

TEST(ParseLine, ReadsDirections) {
    const ColumnSettings first = {5, 0, 2, 3, 4, 5, 6, 7, 8, 9};
    const LineFormat directions = WithSlots(Format(kDirections), first);
    const LineFormat unset = WithSlots(Format(0), first);
    ExpectAll({
        {"0", directions, LineStatus::Row, 0, 0},
        {"360", directions, LineStatus::Row, 0, 360},
        {"361", directions, LineStatus::NotOrientation},
        {"-1", directions, LineStatus::NotOrientation},
        {"12E", directions, LineStatus::NotOrientation},
        {"\t5", directions, LineStatus::Missing},
        {"127.5", unset, LineStatus::Row, 0, 127.5},
        {"N30E", Quadrant(directions), LineStatus::Row, 0, 30},
        {"30", Quadrant(directions), LineStatus::NotQuadrant},
    });
}

TEST(ParseLine, AsksDirectionsForAPlungeOnceThereAreOverlays) {
    LineFormat format = Format(kDirections);
    format.hasOverlays = true;
    const LineFormat pair = WithSlots(format, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
    const LineFormat alone = WithSlots(format, {0, 0, 2, 3, 4, 5, 6, 7, 8, 9});
    ExpectAll({
        {"20\t300", pair, LineStatus::Row, 20, 300},
        {"300", pair, LineStatus::TooFewItems},
        {"300\t20", pair, LineStatus::NotOrientation},
        {"300", alone, LineStatus::Row, 0, 300},
    });
}

TEST(ParseLine, CountsColumns) {
    const LineFormat number = WithAppended(Format(kPrimaryPlane), false, true, false);
    const LineFormat text = WithAppended(Format(kPrimaryPlane), false, true, true);
    ExpectAll({
        {"45\t120", number, LineStatus::TooFewItems},
        {"45\t120\t7\t8\t9", number, LineStatus::Row, 45, 120},
        {"45\t120\t7", text, LineStatus::Row, 45, 120},
        {"45\t120", text, LineStatus::TooFewItems},
        {"45", text, LineStatus::TooFewItems},
    });
    LineFormat wild = Format(kPrimaryPlane);
    wild = WithSlots(wild, {0, std::numeric_limits<std::int32_t>::max(), 2, 3, 4, 5, 6, 7, 8, 9});
    ExpectAll({{"45\t120", wild, LineStatus::TooFewItems}});
}

struct NumberCase {
    std::string item;
    NumberStatus point;
    NumberStatus comma;
    double number = 0;
};

TEST(ParseLine, JudgesNumbersByTheRegionalDelimiter) {
    using Status = NumberStatus;
    const std::vector<NumberCase> cases = {
        {"25", Status::Good, Status::Good, 25},
        {"-7", Status::Good, Status::Good, -7},
        {" 25 ", Status::Good, Status::Good, 25},
        {"2.5", Status::Good, Status::WrongDelimiter, 2.5},
        {"2,5", Status::WrongDelimiter, Status::Good, 2.5},
        {"7.44e+00", Status::Good, Status::WrongDelimiter, 7.44},
        {"\"2.5\"", Status::Good, Status::WrongDelimiter, 2.5},
        {"", Status::Missing, Status::Missing},
        {"  ", Status::Missing, Status::Missing},
        {"\"\"", Status::Missing, Status::Missing},
        {"NA", Status::Incorrect, Status::Incorrect},
        {"12abc", Status::Incorrect, Status::Incorrect},
        {"1e999", Status::Incorrect, Status::Incorrect},
        {"nan", Status::Incorrect, Status::Incorrect},
        {"inf", Status::Incorrect, Status::Incorrect},
        {"0x10", Status::Incorrect, Status::Incorrect},
        {"1,234.5", Status::Good, Status::Incorrect, 1234.5},
        {"1.234,5", Status::Incorrect, Status::Good, 1234.5},
    };
    for (const NumberCase& expected : cases) {
        for (const bool isComma : {false, true}) {
            LineFormat format = WithAppended(Format(kPrimaryPlane), false, true, false);
            format.decimalIsComma = isComma;
            const ParsedRow row = ParseLine("45\t120\t" + expected.item, format);
            const NumberStatus status = isComma ? expected.comma : expected.point;
            ASSERT_EQ(row.status, LineStatus::Row);
            EXPECT_EQ(row.numberStatus, status) << expected.item << isComma;
            if (status == Status::Good || status == Status::WrongDelimiter) {
                EXPECT_EQ(row.number, expected.number) << expected.item;
            }
        }
    }
}

TEST(ParseLine, TakesBothDelimitersWhenTheyAreConverted) {
    for (const bool isComma : {false, true}) {
        LineFormat format = WithAppended(Format(kPrimaryPlane), false, true, true);
        format.decimalIsComma = isComma;
        format.convertDecimals = true;
        const char* const right = isComma ? "12,5" : "12.5";
        for (const char* number : {"12.5", "12,5"}) {
            const std::string line = std::string("45\t120\t") + number + '\t' + number;
            const ParsedRow row = ParseLine(line, format);
            EXPECT_EQ(row.numberStatus, NumberStatus::Good);
            EXPECT_EQ(row.number, 12.5);
            EXPECT_EQ(std::string_view(row.text), right);
        }
        for (const char* grouped : {"1,234.5", "1.234,5"}) {
            EXPECT_EQ(ParseLine(std::string("45\t120\t") + grouped + "\tx", format).number, 1234.5);
        }
        const ParsedRow words = ParseLine("45\t120\t1\tfine sand, dry.", format);
        EXPECT_EQ(std::string_view(words.text), "fine sand, dry.");
    }
}

TEST(ParseLine, TakesTextsAsTheyAre) {
    struct TextCase {
        const char* item;
        const char* text;
    };

    const LineFormat format = WithAppended(Format(kPrimaryPlane), false, false, true);
    for (const TextCase& expected : std::vector<TextCase>{
             {"Eocene", "Eocene"},
             {"ERROR zone", "ERROR zone"},
             {"TRUE", "TRUE"},
             {"NA", "NA"},
             {"  fine sand", "fine sand"},
             {"", ""},
             {"\"marl, red\"", "marl, red"},
             {"\"the \"\"Top\"\" bed\"", "the \"Top\" bed"},
             {"2,5", "2,5"},
             {"Gr\xc3\xbc"
              "nschiefer",
              "Gr\xc3\xbc"
              "nschiefer"},
         }) {
        const std::string line = std::string("45\t120\t") + expected.item;
        const ParsedRow row = ParseLine(line, format);
        EXPECT_EQ(row.textStatus, TextStatus::Good);
        EXPECT_EQ(std::string_view(row.text), expected.text);
    }
    EXPECT_EQ(std::string_view(ParseLine("45\t120", format).text), "");
    EXPECT_EQ(ParseLine("45\t120", format).textStatus, TextStatus::Good);
    EXPECT_EQ(ParseLine("45\t120", Format(kPrimaryPlane)).textStatus, TextStatus::Absent);
}

TEST(ParseLine, KeepsAChangedTextWithTheRow) {
    LineFormat format = WithAppended(Format(kPrimaryPlane), false, false, true);
    format.convertDecimals = true;
    ParsedRow row = ParseLine("45\t120\t2,5", format);
    ParsedRow copy = row;
    row = ParseLine("45\t120\t8,75", format);
    EXPECT_EQ(std::string_view(copy.text), "2.5");
    EXPECT_EQ(std::string_view(row.text), "8.75");
}

// A missing number does not make the text unreadable, nor does a bad line.
TEST(ParseLine, ReadsEachAppendedValueForItself) {
    const LineFormat format = WithAppended(Format(kPrimaryPlane), true, true, true);
    const ParsedRow bad = ParseLine("45\t120\t95\t10\t\tmarl", format);
    EXPECT_EQ(bad.status, LineStatus::Row);
    EXPECT_EQ(bad.lineStatus, AppendedLineStatus::Incorrect);
    EXPECT_EQ(bad.numberStatus, NumberStatus::Missing);
    EXPECT_EQ(std::string_view(bad.text), "marl");
    const ParsedRow missing = ParseLine("45\t120\t\t10\t3\tmarl", format);
    EXPECT_EQ(missing.lineStatus, AppendedLineStatus::Missing);
    EXPECT_EQ(missing.number, 3);
    const ParsedRow good = ParseLine("45\t120\t14S\t52\t3\tmarl", format);
    EXPECT_EQ(good.lineStatus, AppendedLineStatus::Good);
    EXPECT_EQ(good.linePlunge, 14);
    EXPECT_EQ(good.lineTrend, 52);
}

TEST(ParseLine, SplitsAPitchFromItsSense) {
    const LineFormat same = Secondary(kPitchInPlane, {0, 1, 9, 9, 2, 2, 9, 9, 9, 9});
    const LineFormat own = Secondary(kPitchInPlane, {0, 1, 9, 9, 2, 3, 9, 9, 9, 9});
    ExpectAll({
        {"60\t90\t45NE", same, LineStatus::Row, 60, 90},
        {"60\t90\t45E", same, LineStatus::NotOrientation}, // at right angles to the strike
        {"60\t90\t45N", same, LineStatus::Row, 60, 90},
        {"60\t90\t45", same, LineStatus::Missing},
        {"60\t90\t ", same, LineStatus::Missing},
        {"60\t90\tN", same, LineStatus::NotOrientation},
        {"60\t90\t45abc", same, LineStatus::NotOrientation},
        {"60\t90\t45\tS", own, LineStatus::Row, 60, 90},
        {"60\t90\t45\t", own, LineStatus::Missing},
        {"60\t90\t\tS", own, LineStatus::Missing},
        {"60\t90\tsteep\tS", own, LineStatus::NotOrientation},
        {"60\t90\t200\tS", own, LineStatus::NotOrientation},
        {"60\t90\t45\tE", own, LineStatus::NotOrientation},
    });
}

// The plane 60/120 strikes NE and SW: NE picks the one end, and a sense across it neither.
TEST(ParseLine, ReadsAPitchOf45NE) {
    const LineFormat same = Secondary(kPitchInPlane, {0, 1, 9, 9, 2, 2, 9, 9, 9, 9});
    const ParsedRow row = ParseLine("60\t120\t45NE", same);
    ASSERT_EQ(row.status, LineStatus::Row);
    ASSERT_TRUE(row.secondaryPresent);
    // sin(plunge) = sin(pitch) sin(dip); tan(trend - strike) = tan(pitch) cos(dip)
    EXPECT_NEAR(row.dip2, 37.761244, 1e-6);
    EXPECT_NEAR(row.az2, 30 + 26.565051, 1e-6);
}

TEST(ParseLine, LeavesARowWithoutTrendWithoutSecondary) {
    const LineFormat format = Secondary(kTrendInPlane, {0, 1, 9, 9, 2, 9, 9, 9, 9, 9});
    for (const char* none : {"-", "", "NA", "12abc"}) {
        const ParsedRow row = ParseLine(std::string("60\t120\t") + none, format);
        EXPECT_EQ(row.status, LineStatus::Row) << none;
        EXPECT_FALSE(row.secondaryPresent) << none;
    }
    EXPECT_TRUE(ParseLine("60\t120\t90", format).secondaryPresent);
    EXPECT_EQ(ParseLine("60\t120\t400", format).status, LineStatus::NotOrientation);
    const ParsedRow quadrant = ParseLine("60\tS60E\tN90E", Quadrant(format));
    EXPECT_TRUE(quadrant.secondaryPresent);
    EXPECT_NEAR(quadrant.az2, 90, 1e-9);
}

TEST(ParseLine, ReadsSecondaryLinesAndPlanesLikePrimaryOnes) {
    const LineFormat line = Secondary(kSecondaryLine, {0, 1, 9, 2, 3, 9, 9, 9, 9, 9});
    const ParsedRow row = ParseLine("60\t120\t-30\t200", line);
    ASSERT_TRUE(row.secondaryPresent);
    EXPECT_EQ(row.dip2, -30);
    EXPECT_EQ(row.az2, 200);
    const LineFormat plane = Secondary(kSecondaryPlane, {1, 0, 2, 4, 3, 5, 9, 9, 9, 9}, 3);
    const ParsedRow pair = ParseLine("120\t45\tSW\t10\t20\tE", plane);
    ASSERT_TRUE(pair.secondaryPresent);
    EXPECT_EQ(pair.dip2, 20);
    EXPECT_EQ(pair.az2, 100);
    const LineFormat joined = Secondary(kSecondaryPlane, {1, 0, 1, 3, 2, 3, 9, 9, 9, 9}, 3);
    EXPECT_EQ(ParseLine("120\t45SW\t10\t20W", joined).az2, 280);
    ExpectAll({
        {"60\t120\t\t200", line, LineStatus::Missing},
        {"60\t120\t95\t200", line, LineStatus::NotOrientation},
        {"60\tS60E\t30\t200", Quadrant(line), LineStatus::NotQuadrant},
        {"120\t45\tSW\t10\t20\t", plane, LineStatus::Missing},
    });
}

TEST(ParseLine, ReadsAnAngleInThePlaneInEitherNotation) {
    const LineFormat format = Secondary(kHadeInPlane, {0, 1, 9, 9, 2, 9, 9, 9, 9, 9});
    EXPECT_NEAR(ParseLine("60\t120\t90", format).dip2, 60, 1e-9);
    EXPECT_NEAR(ParseLine("60\tS60E\t90", Quadrant(format)).dip2, 60, 1e-9);
    ExpectAll({
        {"60\t120\t", format, LineStatus::Missing},
        {"60\t120\tsteep", format, LineStatus::NotOrientation},
        {"60\t120\t361", format, LineStatus::NotOrientation},
        {"60\tS60E\tsteep", Quadrant(format), LineStatus::NotQuadrant},
    });
}

TEST(ParseValues, TakesARowWithoutALine) {
    LineFormat format = Format(kPrimaryPlane, 3);
    format.slots.fill(4); // have no effect
    format.wantNumber = true;
    format.wantText = true;
    const ParsedRow row =
        ParseValues({"45", "120", "SW", "", "", "", "", "", "2.5", " marl"}, format);
    ASSERT_EQ(row.status, LineStatus::Row);
    EXPECT_EQ(row.az, 210);
    EXPECT_EQ(row.number, 2.5);
    EXPECT_EQ(std::string_view(row.text), "marl");
    EXPECT_EQ(ParseValues({"45NE", "120"}, format).az, 30);
    EXPECT_EQ(ParseValues({"", "120"}, format).status, LineStatus::Missing);
    EXPECT_EQ(ParseValues({}, format).status, LineStatus::Missing);
}

TEST(ParseLine, StandsLinesOfAnyBytesAndLength) {
    const std::string nul("45\t12\0"
                          "0",
                          7);
    EXPECT_EQ(ParseLine(nul, Format(kPrimaryPlane)).status, LineStatus::NotOrientation);
    const std::string nulText("45\t120\t\0x", 9);
    const LineFormat text = WithAppended(Format(kPrimaryPlane), false, false, true);
    EXPECT_EQ(std::string_view(ParseLine(nulText, text).text), std::string_view("\0x", 2));

    constexpr std::size_t kTenMegabytes = 10 << 20;
    for (const char* part : {"x", "7", "\"", "7\t", ",,", " ", "\"\"", "\"a,", "7\"\",\""}) {
        std::string line;
        while (line.size() < kTenMegabytes) {
            line += part;
        }
        for (const char delimiter : {'\t', ',', ' ', kAnyDelimiter}) {
            LineFormat format = WithSlots(Format(kPrimaryPlane, 1, delimiter),
                                          {0, kMostColumns, 2, 3, 4, 5, 6, 7, 8, 9});
            EXPECT_NE(ParseLine(line, format).status, LineStatus::Comment);
        }
    }
}

} // namespace
} // namespace quandrel
