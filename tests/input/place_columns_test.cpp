// SPDX-License-Identifier: MIT

#include "input/data_line.h"
#include "input/place_columns.h"
#include "input/remembered_formats.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

class PlacesInLines : public ::testing::Test {
protected:
    PlacesInLines() {
        format.placeColumns = {2, 3};
        format.delimiter = ';';
    }

    LineFormat format;
};

TEST_F(PlacesInLines, AreTwoNumbers) {
    EXPECT_EQ(MapPlaceIn("30;120;651234.125;-5200100", format), (MapPlace{651234.125, -5200100}));
    EXPECT_EQ(MapPlaceIn("30;120;7,5;46,25", format), (MapPlace{7.5, 46.25})) << "decimal commas";
    EXPECT_EQ(MapPlaceIn("30;120;651,234.5;1,000,000.5", format), (MapPlace{651234.5, 1000000.5}))
        << "groups of digits";
    for (const char* line : {"30;120;7.5", "30;120;7.5;", "30;120;;46", "30;120;east;46",
                             "30;120;7.5;46N", "30;120", "", "30;120;inf;46", "30;120;nan;46"}) {
        EXPECT_EQ(MapPlaceIn(line, format), std::nullopt) << line;
    }
}

TEST_F(PlacesInLines, MayStandInAnyOrderAndFarToTheRight) {
    format.placeColumns = {40, 1};
    std::string line = "30;46.5";
    for (int column = 2; column < 40; ++column) {
        line += ";" + std::to_string(column);
    }
    EXPECT_EQ(MapPlaceIn(line + ";7.25", format), (MapPlace{7.25, 46.5}));
    EXPECT_EQ(MapPlaceIn(line, format), std::nullopt);
    format.placeColumns = {1, 1};
    EXPECT_EQ(MapPlaceIn(line, format), (MapPlace{46.5, 46.5}));
}

TEST_F(PlacesInLines, AreReadOnlyWhereTheFormatHasThem) {
    EXPECT_EQ(ParseLine("30;120;1;2", format).mapPlace, (MapPlace{1, 2}));
    EXPECT_EQ(ParseLine("30;120", format).status, LineStatus::Row) << "a row without a place";
    format.placeColumns = {2, -1};
    EXPECT_EQ(ParseLine("30;120;1;2", format).mapPlace, std::nullopt);
    format.placeColumns = {};
    EXPECT_EQ(ParseLine("30;120;1;2", format).mapPlace, std::nullopt);
}

TEST_F(PlacesInLines, AreRememberedWithTheirFormat) {
    RememberedFormat kept;
    kept.headings = {"dip", "dip direction", "x", "y"};
    kept.choice.delimiter = ",";
    kept.choice.placeColumns = {2, 3};
    const std::string text = TextOfRemembered(kept);
    const auto read = RememberedIn(text);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->choice.placeColumns, (PlaceColumns{2, 3}));
    std::string former = text;
    former.erase(former.rfind(",\"x\""), former.rfind('}') - former.rfind(",\"x\""));
    const auto without = RememberedIn(former);
    ASSERT_TRUE(without) << former;
    EXPECT_EQ(without->choice.placeColumns, PlaceColumns()) << "of an earlier version";
    std::string odd = text;
    odd.replace(odd.find("\"x\":2"), 5, "\"x\":999");
    EXPECT_FALSE(RememberedIn(odd));
}

} // namespace
} // namespace quandrel
