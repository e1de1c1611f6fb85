// SPDX-License-Identifier: MIT
//
// Formats suggested for single layouts: comments, pairs in cells, angles in planes, winds.

#include "input/data_line.h"
#include "input/suggest/format_suggestion.h"
#include "input/suggest/suggestion_texts.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

using Lines = std::vector<std::string>;

class SuggestedLayouts : public EngineTest {
protected:
    /// The most probable format of lines.
    static FormatSuggestion First(const Lines& lines) {
        const std::vector<FormatSuggestion> found = SuggestFormats(lines);
        EXPECT_FALSE(found.empty()) << lines.front();
        return found.empty() ? FormatSuggestion() : found.front();
    }

    static ParsedRow Read(const FormatSuggestion& suggestion, const std::string& line) {
        const ParsedRow row = ParseLine(line, LineFormatOf(suggestion.choice));
        EXPECT_EQ(row.status, LineStatus::Row) << line;
        return row;
    }
};

TEST_F(SuggestedLayouts, MarksOfCommentsAreFound) {
    const FormatSuggestion found = First({"# seen 1979", "% 45 degrees", "dip,dip direction",
                                          "52,142", "// 43,35", "43,35", "20,300", "30,310"});
    EXPECT_EQ(found.choice.comments, (CommentMarks{true, true, true}));
    EXPECT_GE(found.probability, kSureEnough);
    EXPECT_EQ(First({"dip,dip direction", "52,142", "43,35"}).choice.comments, CommentMarks());
    // Numbers of rows that begin with a mark are no comments.
    EXPECT_FALSE(
        First({"no,dip,dip direction", "#1,52,142", "#2,43,35", "#3,4,35"}).choice.comments.hash);
}

TEST_F(SuggestedLayouts, HeadingsMayStandInTheLastComment) {
    const FormatSuggestion found =
        First({"# Valley", "# dip direction, dip, rock type", "142 52 schist", "35 43 marble",
               "300 20 schist", "310 30 marble", "20 30 schist"});
    EXPECT_FALSE(found.choice.columnHeadings);
    EXPECT_EQ(found.choice.delimiter, " ");
    EXPECT_EQ(found.choice.nonNumericName, "rock type");
    EXPECT_GE(found.probability, kSureEnough);
}

TEST_F(SuggestedLayouts, TitlesMayStandBeforeTheHeadings) {
    const FormatSuggestion words =
        First({"Beds of the valley", "dip;dip direction;rock", "52;142;marl", "43;35;lime"});
    EXPECT_GE(words.probability, kSureEnough);
    EXPECT_FALSE(words.choice.columnHeadings) << "lines without a digit are passed over";
    EXPECT_EQ(words.choice.nonNumericName, "rock");
    const FormatSuggestion dated =
        First({"Survey of 2019", "", "dip;dip direction", "52;142", "43;35"});
    EXPECT_GE(dated.probability, kSureEnough);
    EXPECT_TRUE(dated.choice.columnHeadings) << "or the title would be a bad row";
    EXPECT_TRUE(First({"dip;dip direction", "52;142", "43;35"}).choice.columnHeadings);
}

TEST_F(SuggestedLayouts, CoordinatesAreThePlaceOfARow) {
    const FormatSuggestion metres =
        First({"Easting (m);Northing (m);dip;dip direction", "651234.5;5200100;52;142",
               "651301;5200099.25;43;35", "651322;5200090;4;35"});
    EXPECT_GE(metres.probability, kSureEnough);
    EXPECT_EQ(metres.choice.placeColumns, (PlaceColumns{0, 1}));
    EXPECT_FALSE(metres.choice.numericAppended) << "a coordinate is no number of the row";
    EXPECT_EQ(metres.reasons.back(), "'Easting (m)' and 'Northing (m)' are the place on the map");
    EXPECT_NE(TextOfSuggestion(metres).find(", x 1, y 2"), std::string::npos);
    const FormatSuggestion degrees = First({"dip,dip direction,latitude,longitude,elevation",
                                            "52,142,46.5,7.25,1200", "43,35,46.6,7.26,1300"});
    EXPECT_EQ(degrees.choice.placeColumns, (PlaceColumns{3, 2})) << "x is the longitude";
    for (const char* headings : {"dip,dip direction,x,z", "dip,dip direction,y,z"}) {
        EXPECT_FALSE(
            First({headings, "52,142,46.5,7.25", "43,35,46.6,7.26"}).choice.placeColumns.AreUsed())
            << headings;
    }
    EXPECT_FALSE(First({"dip,dip direction,x,y", "52,142,here,there", "43,35,here,there"})
                     .choice.placeColumns.AreUsed());
}

TEST_F(SuggestedLayouts, RememberedFormatsKeepWhatIsNotOfTheFile) {
    const Lines lines = {"strike,dip", "10,30", "120,45", "170,80"};
    SuggestionOptions options;
    options.base.planeSeparator = "|";
    options.base.lineSeparator = "~";
    FormatChoice former;
    former.delimiter = ",";
    former.columnHeadings = true;
    former.planeConvention = kDipDirectionDip;
    former.columns = {1, 0, 2, 3, 4, 5, 6, 7, 8, 9};
    options.remembered = {{{"strike", "dip"}, former}};
    const FormatSuggestion again = SuggestFormats(lines, options).front();
    EXPECT_EQ(again.choice.planeConvention, kDipDirectionDip);
    EXPECT_FALSE(again.choice.numericAppended) << "as it was";
    EXPECT_EQ(again.choice.planeSeparator, "|");
    EXPECT_EQ(again.choice.lineSeparator, "~");
    options.kindIsFixed = true;
    options.base.primary = kPrimaryLine;
    EXPECT_TRUE(SuggestFormats(lines, options).empty()) << "the plot holds lines";
}

TEST_F(SuggestedLayouts, PairsInCellsAreSplit) {
    const FormatSuggestion plain =
        First({"site,plane,rock", "A,045/60SE,marl", "B,230/45NW,marl", "C,150/20SW,lime"});
    EXPECT_TRUE(plain.choice.pairsInCells);
    EXPECT_GE(plain.probability, kSureEnough) << "the letters say it";
    const ParsedRow row = Read(plain, "A,045/60SE,marl");
    EXPECT_EQ(row.dip, 60);
    EXPECT_EQ(row.az, 135);

    const FormatSuggestion quadrants = First({"A;N30E 45SE", "B;N20W 30NE", "C;N80E 10S"});
    EXPECT_TRUE(quadrants.choice.isQuadrant);
    EXPECT_EQ(Read(quadrants, "A;N30E 45SE").az, 120);

    const FormatSuggestion headed = First({"site,trend/plunge", "A,145/20", "B,230/45", "C,310/5"});
    EXPECT_GE(headed.probability, kSureEnough);
    EXPECT_EQ(headed.choice.primary, kPrimaryLine);
    EXPECT_EQ(Read(headed, "A,145/20").dip, 20);

    const std::vector<FormatSuggestion> several =
        SuggestFormats(Lines{"site,reading", "A,145/20", "B,230/45", "C,310/5"});
    ASSERT_EQ(several.size(), 3U);
    EXPECT_LT(several.front().probability, kSureEnough);
}

TEST_F(SuggestedLayouts, LinesOfOnePairAreDividedAtTheSlash) {
    const FormatSuggestion found = First({"045/60SE", "230/45NW", "150/20SW"});
    EXPECT_EQ(found.choice.delimiter, "/");
    EXPECT_EQ(Read(found, "045/60SE").az, 135);
}

TEST_F(SuggestedLayouts, PitchesHadesAndTrendsLieInThePlane) {
    const FormatSuggestion pitch = First({"strike (RHR),dip,rake", "26,61,82SW", "13,66,73S"});
    EXPECT_EQ(pitch.choice.secondary, kPitchInPlane);
    EXPECT_TRUE(Read(pitch, "26,61,82SW").secondaryPresent);
    const FormatSuggestion apart =
        First({"strike (RHR),dip,rake,end", "26,61,82,SW", "13,66,73,S"});
    EXPECT_EQ(apart.choice.secondary, kPitchInPlane);
    EXPECT_TRUE(Read(apart, "26,61,82,SW").secondaryPresent);
    EXPECT_EQ(First({"strike (RHR),dip,slip angle", "26,61,272", "13,66,256"}).choice.secondary,
              kHadeInPlane);
    EXPECT_EQ(First({"dip,dip direction,trend", "26,61,72", "13,66,56"}).choice.secondary,
              kTrendInPlane);
    EXPECT_EQ(First({"strike (RHR),dip,rake", "26,61,82", "13,66,73"}).choice.secondary,
              kNoSecondary)
        << "without its sense a pitch says nothing";
}

TEST_F(SuggestedLayouts, ASecondLineIsAppended) {
    const FormatSuggestion found =
        First({"dip,dip direction,groove plunge,groove trend,axis plunge,axis trend",
               "22,103,2,19,14,52", "37,122,10,199,14,52"});
    EXPECT_EQ(found.choice.secondary, kSecondaryLine);
    EXPECT_TRUE(found.choice.lineAppended);
    EXPECT_EQ(found.choice.columns[kSlotAppendedPlunge], 4);
    EXPECT_EQ(found.choice.columns[kSlotAppendedTrend], 5);
}

TEST_F(SuggestedLayouts, DeclinationsAndInclinationsAreVectors) {
    const FormatSuggestion found = First({"Dec,Inc", "350,-45", "10,50", "355,60"});
    EXPECT_EQ(found.choice.primary, kPrimaryLine);
    EXPECT_EQ(found.choice.negativePlunge, NegativePlunge::Vector);
    EXPECT_EQ(found.choice.plotDataKind, kPolarLines);
    EXPECT_GE(found.probability, kSureEnough);
}

TEST_F(SuggestedLayouts, AnAzimuthWithAnInclinationMayBeEither) {
    const std::vector<FormatSuggestion> found =
        SuggestFormats(Lines{"azi,inc", "350,45", "10,50", "355,60"});
    ASSERT_EQ(found.size(), 2U);
    EXPECT_LT(found[0].probability, kSureEnough);
    EXPECT_NE(found[0].choice.primary, found[1].choice.primary);
}

TEST_F(SuggestedLayouts, OneColumnIsDirections) {
    const FormatSuggestion headed = First({"theta", "12", "353", "359"});
    EXPECT_EQ(headed.choice.primary, kDirections);
    EXPECT_EQ(headed.choice.plotDataKind, kPolarLines);
    const FormatSuggestion bare = First({"12", "153", "159", "95"});
    EXPECT_EQ(bare.choice.primary, kDirections);
    EXPECT_EQ(bare.choice.plotDataKind, kLines) << "azimuths only below 180";
    EXPECT_LT(bare.probability, kSureEnough);
    EXPECT_TRUE(SuggestFormats(Lines{"12", "15", "15", "9"}).empty());
}

TEST_F(SuggestedLayouts, WindsHaveTheNamesOfTheirRoses) {
    const FormatSuggestion table =
        First({"direction,average speed,probability", "0,7.4,0.01", "5,7.0,0.02", "355,6.9,0.01"});
    EXPECT_EQ(table.choice.numericName, "Mean wind frequency");
    EXPECT_EQ(table.choice.columns[kSlotNumber], 2);
    EXPECT_EQ(table.choice.nonNumericName, "Mean wind speed");
    EXPECT_GE(table.probability, kSureEnough);
    const FormatSuggestion hours = First({"date,wd,ws", "1,280,0.6", "2,230,2.1", "5,40,1"});
    EXPECT_EQ(hours.choice.numericName, "Raw wind speed");
}

TEST_F(SuggestedLayouts, TextsOfRocksComeBeforeThoseOfPlaces) {
    const FormatSuggestion found =
        First({"station,dip,dip direction,rock type", "Q1,20,120,marl", "Q2,25,125,lime"});
    EXPECT_EQ(found.choice.nonNumericName, "rock type");
    EXPECT_EQ(First({"station,dip,dip direction", "Q1,20,120", "Q2,25,125"}).choice.nonNumericName,
              "station");
}

TEST_F(SuggestedLayouts, ConventionsAreInTheOrderOfTheColumns) {
    EXPECT_EQ(First({"dip,dip direction", "20,120", "25,300"}).choice.planeConvention,
              kDipDipDirection);
    EXPECT_EQ(First({"dip direction,dip", "120,20", "300,25"}).choice.planeConvention,
              kDipDirectionDip);
    EXPECT_EQ(First({"dip,strike rhr", "20,120", "25,300"}).choice.planeConvention,
              kDipStrikeRightHand);
    EXPECT_TRUE(First({"trend,plunge", "120,20", "300,25"}).choice.lineIsTrendFirst);
}

TEST_F(SuggestedLayouts, RowsThatJoinOthersHaveTheirKindAndTheirSets) {
    SuggestionOptions options;
    options.kindIsFixed = true;
    options.base.primary = kPrimaryPlane;
    const Lines both = {"dip direction;dip;plunge;trend", "142;52;10;60", "35;43;5;310"};
    const std::vector<FormatSuggestion> planes = SuggestFormats(both, options);
    ASSERT_FALSE(planes.empty());
    EXPECT_EQ(planes[0].choice.secondary, kNoSecondary) << "the plot has no secondary set";
    EXPECT_EQ(planes[0].choice.delimiter, ";");
    EXPECT_FALSE(planes[0].choice.numericAppended) << "the plot has no number";
    options.base.secondary = kSecondaryLine;
    ASSERT_FALSE(SuggestFormats(both, options).empty());
    EXPECT_EQ(SuggestFormats(both, options)[0].choice.secondary, kSecondaryLine);
    options.base = FormatChoice();
    options.base.primary = kPrimaryLine;
    options.base.plotDataKind = kLines;
    const std::vector<FormatSuggestion> lines =
        SuggestFormats(Lines{"plunge,trend", "-20,30", "40,50"}, options);
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines[0].choice.plotDataKind, kLines) << "though one points upward";
    EXPECT_TRUE(SuggestFormats(Lines{"dip,dip direction", "20,30"}, options).empty());
}

TEST_F(SuggestedLayouts, AFewOddValuesDoNotHideAColumn) {
    Lines lines = {"dip,dip direction"};
    for (int row = 0; row < 30; ++row) {
        lines.push_back(std::to_string(20 + row) + "," + std::to_string(10 * row));
    }
    lines.emplace_back("4,364");
    EXPECT_GE(First(lines).probability, kSureEnough);
}

TEST_F(SuggestedLayouts, AreToldInWords) {
    const std::vector<FormatSuggestion> found =
        SuggestFormats(Lines{"strike,dip,rock", "10,30,marl", "120,45,marl", "170,80,lime"});
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(TextOfSuggestion(found[0]), "55%: planes, dip 2, strike 1, rock 3");
    EXPECT_EQ(
        TextOfDoubt(found),
        "no format is sure enough:\n  55%: planes, dip 2, strike 1, rock 3 (column 2 is headed "
        "'dip' and lies in 30..80; column 1 is headed 'strike' and lies in 10..170; azimuths "
        "only below 180: strikes without a sense of dip)");
    EXPECT_EQ(TextOfDoubt({}), "no format can be suggested for this text");
}

} // namespace
} // namespace quandrel
