// SPDX-License-Identifier: MIT

#include "edit/edit_plot.h"
#include "edit/rows/clipboard_text.h"
#include "edit/rows/edit_rows.h"
#include "edit/selection/selected_intersections.h"

namespace quandrel {

namespace {

using ClipboardText = EditTest;
using Lines = std::vector<std::string>;

TEST_F(ClipboardText, OfPointsHasHeadPartialParametersAndPlanes) {
    const int slot = NewPlanes({{30, 120}, {45, 7}, {60, 300}});
    const std::vector<std::int32_t> rows = {1, 2};
    EXPECT_EQ(TextOfRows(slot, rows, CopiedFields::Points),
              ";Quandrel, ver 9.5.1\r\n/T1\t/P0\t/N1\t/I2\t/C1\t/U0\t/15\r\n30\t120\r\n45\t7\r\n");
}

TEST_F(ClipboardText, IsInConventionOneWhateverIsInForce) {
    const int slot = NewPlanes({{30, 120}});
    const std::vector<std::int32_t> rows = {1};
    const std::string text = TextOfRows(slot, rows, CopiedFields::Points);
    for (const int conventions : {2, 3, 4, 5, 6, 11, 12, -1, -3}) {
        gConventions = static_cast<std::int16_t>(conventions);
        EXPECT_EQ(TextOfRows(slot, rows, CopiedFields::Points), text) << conventions;
    }
}

TEST_F(ClipboardText, OfAllFieldsEndsWithPlacesOnTheMap) {
    const int slot = NewPlanes({{30, 120}, {45, 270}});
    EXPECT_FALSE(HasFurtherFields(slot));
    SetMapPlace(PlotOf(slot), 2, MapPlace{651234.125, -7.5});
    EXPECT_TRUE(HasFurtherFields(slot));
    const std::vector<std::int32_t> rows = {1, 2};
    const std::string text = TextOfRows(slot, rows, CopiedFields::All);
    EXPECT_TRUE(text.ends_with("\t/G1\r\n30\t120\t\t\r\n45\t270\t651234.125\t-7.5\r\n")) << text;
    EXPECT_EQ(TextOfRows(slot, rows, CopiedFields::Points).find("651234"), std::string::npos);
    const int other = NewPlanes({});
    ASSERT_TRUE(PasteText(text));
    EXPECT_EQ(MapPlaceOf(PlotOf(other).rows, 1), std::nullopt);
    EXPECT_EQ(MapPlaceOf(PlotOf(other).rows, 2), (MapPlace{651234.125, -7.5}));
}

TEST_F(ClipboardText, OfAllFieldsHasThemInOrder) {
    const int slot = NewPlanes({{30, 120}, {-5, 7}});
    AddFields();
    gData2Dip.At(slot, 2) = kErrorRow;
    gAppLineDip.At(slot, 2) = kInvalidAppendedLine;
    gAppNumeric.At(slot, 2) = kInvalidNumber;
    gAppText.Set(slot, 2, "\"a\"\tb");
    const std::vector<std::int32_t> rows = {1, 2};
    EXPECT_EQ(TextOfRows(slot, rows, CopiedFields::All),
              ";Quandrel, ver 9.5.1\r\n"
              "/T1\t/P0\t/N1\t/I2\t/C1\t/U0\t/12\t/23\t/S0\t/A1\t/L1\t/W1\t/FLength\t/DRock\r\n"
              "30\t120\t11\t101\t21\t201\t1.5\trock 1\r\n"
              "-05\t07\t\t\t\t\t\t\"\"\"a\"\" b\"\r\n");
}

TEST_F(ClipboardText, LeavesErrorRowsOut) {
    const int slot = NewPlanes({{30, 120}, {kErrorRow, 0}, {60, 300}});
    SelectRows(slot, {1, 2, 3});
    EXPECT_TRUE(CopyRows(CopiedFields::Points));
    const std::vector<std::int32_t> all = {1, 2, 3};
    clipboard.SetText(TextOfRows(slot, all, CopiedFields::Points));
    EXPECT_EQ(CopiedRows(), (Lines{"30\t120", "60\t300"}));
}

TEST_F(ClipboardText, OfPlanesShownAsLinesHoldsTheirPoles) {
    const int slot = NewPlanes({{30, 120}});
    ActiveRecord().DataKind = kLines;
    const std::vector<std::int32_t> rows = {1};
    clipboard.SetText(TextOfRows(slot, rows, CopiedFields::Points));
    EXPECT_EQ(CopiedRows(), Lines{"60\t300"});
    EXPECT_NE(Copied().find("/T2"), std::string::npos);
}

TEST_F(ClipboardText, OfTheSecondarySetHoldsWhatIsShown) {
    const int slot = NewPlanes({{30, 120}});
    AddFields();
    ActiveRecord().ShowSecondary = kTrue;
    ActiveRecord().DataKind = kLines;
    const std::vector<std::int32_t> rows = {1};
    clipboard.SetText(TextOfRows(slot, rows, CopiedFields::Points));
    EXPECT_EQ(CopiedRows(), Lines{"11\t101"});
}

TEST_F(ClipboardText, OfOverlayRowsAloneTellsTheirOwnKind) {
    const int slot = NewPlanes({{30, 120}});
    AddOverlay(kOverlayPolarLines, -20, 50, CodeOfStyleRow(2));
    const std::vector<std::int32_t> overlay = {2};
    clipboard.SetText(TextOfRows(slot, overlay, CopiedFields::Points));
    EXPECT_EQ(CopiedRows(), Lines{"-20\t50"});
    EXPECT_NE(Copied().find("/T3"), std::string::npos);
}

TEST_F(ClipboardText, OfMixedRowsTurnsOverlaysIntoTheKindOfTheMainRows) {
    const int slot = NewPlanes({{30, 120}});
    AddOverlay(kOverlayLines, 20, 50, CodeOfStyleRow(2));
    const std::vector<std::int32_t> rows = {1, 2};
    for (const CopiedFields fields : {CopiedFields::Points, CopiedFields::All}) {
        clipboard.SetText(TextOfRows(slot, rows, fields));
        // The plane whose pole is the line 20/050 dips 70 towards 230.
        EXPECT_EQ(CopiedRows(), (Lines{"30\t120", "70\t230"}));
    }
}

TEST_F(ClipboardText, OfDirectionsHasOneField) {
    const int slot = NewPlot();
    ActiveRecord().PrimaryFormat = kDirections;
    ActiveRecord().PlotKind = kRose;
    AddRow(0, 77);
    const std::vector<std::int32_t> rows = {1};
    clipboard.SetText(TextOfRows(slot, rows, CopiedFields::Points));
    EXPECT_EQ(CopiedRows(), Lines{"77"});
    EXPECT_NE(Copied().find("/I1"), std::string::npos);
}

TEST_F(ClipboardText, OfBetaPlotsHoldsTheIntersectionOfEachPair) {
    // Vertical planes striking north and east meet in the vertical line; each meets the plane that
    // dips 40 to the east: the northward one in its horizontal strike, the eastward one in its dip
    // line. The fourth plane is the first one again, and the pair has no line.
    const int slot = NewPlanes({{90, 90}, {90, 180}, {40, 90}, {90, 90}});
    ActiveRecord().PlotSymbolMode = kBetaIntersections;
    const std::vector<std::int32_t> rows = {1, 2, 3};
    clipboard.SetText(TextOfRows(slot, rows, CopiedFields::All));
    EXPECT_EQ(CopiedRows(), (Lines{"90\t0", "0\t0", "40\t90"}));
    EXPECT_NE(Copied().find("/T2\t"), std::string::npos);
    EXPECT_NE(Copied().find("/15"), std::string::npos);
    const std::vector<std::int32_t> same = {1, 4};
    clipboard.SetText(TextOfRows(slot, same, CopiedFields::Points));
    EXPECT_TRUE(CopiedRows().empty());
    EXPECT_EQ(PairsOfRows(slot, rows), 3);
}

TEST_F(ClipboardText, TooManyIntersectionsAreToldAndNotCopied) {
    const int slot = NewPlanes({});
    std::vector<std::int32_t> rows;
    for (std::int32_t row = 1; row <= 2002; ++row) {
        AddRow(row % 91, row % 360);
        rows.push_back(row);
    }
    ActiveRecord().PlotSymbolMode = kBetaIntersections;
    SelectRows(slot, rows);
    Expect("There are 2003001 intersections"); // 2002 * 2001 / 2
    EXPECT_FALSE(CopyRows(CopiedFields::Points));
    EXPECT_EQ(Copied(), "");
}

TEST(ClipboardKindTest, IsKnownByTheFirstNineCharactersWithoutCase) {
    const struct {
        const char* text;
        ClipboardKind kind;
    } cases[] = {
        {"", ClipboardKind::Empty},
        {";Quandrel, ver 9.5.1\r\n/T1\r\n", ClipboardKind::OwnRows},
        {";QUANDREL\r\n30\t120", ClipboardKind::OwnRows},
        {";quandrel, ver 9.5.1\r\n/Annotations 1\r\n", ClipboardKind::Marks},
        {";Velmixor", ClipboardKind::Companion},
        {";VELMIXOR\n30 120", ClipboardKind::Companion},
        {";Quandre", ClipboardKind::Foreign},
        {";Velmixo", ClipboardKind::Foreign},
        {" ;Quandrel", ClipboardKind::Foreign},
        {"30\t120", ClipboardKind::Foreign},
    };

    for (const auto& row : cases) {
        EXPECT_EQ(KindOfClipboardText(row.text), row.kind) << row.text;
    }
}

} // namespace

} // namespace quandrel
