// SPDX-License-Identifier: MIT

#include "sheet/sheet_text.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <limits>

namespace quandrel {
namespace {

FigureSheet SheetOfAllKinds() {
    FigureSheet sheet;
    sheet.width = 120;
    sheet.height = 200.5;
    sheet.columns = 2;
    sheet.gapAcross = 3.25;
    sheet.gapDown = 0;
    sheet.letters = SheetLetters::Capital;
    sheet.legend = LegendPlace::Right;
    sheet.style = "/styles/thesis.json";
    sheet.caption = "Poles, {n:2} \"rows\" {{";
    sheet.panels = {
        {PanelKind::Plot, "/data/fold/beds.qpx", "", "Beds", "Title", "", 2, 1},
        {PanelKind::Fabric, "", "eJw=", "Joints", "", "", 1, 2},
        {PanelKind::Statistics, "/data/other.qpx", "", "", "", "n = 3\t4\r\n", 1, 1},
        {PanelKind::Text, "", "", "", "", "\xc3\xa9t\xc3\xa9", 1, 1},
    };
    return sheet;
}

TEST(TextOfSheet, IsReadAsTheSameSheet) {
    const FigureSheet sheet = SheetOfAllKinds();
    const std::string text = TextOfSheet(sheet, "/data");
    const Result<FigureSheet> read = SheetOfText(text, "/data");
    ASSERT_TRUE(read) << read.Error();
    EXPECT_EQ(*read, sheet);
    EXPECT_EQ(TextOfSheet(*read, "/data"), text);
    EXPECT_TRUE(SheetOfText(TextOfSheet(FigureSheet(), ""), "/data"));
}

TEST(TextOfSheet, HasPathsFromItsFolderOn) {
    const std::string text = TextOfSheet(SheetOfAllKinds(), "/data");
    EXPECT_NE(text.find("\"fold/beds.qpx\""), std::string::npos);
    EXPECT_NE(text.find("\"/styles/thesis.json\""), std::string::npos);
    const Result<FigureSheet> moved = SheetOfText(text, "/elsewhere");
    ASSERT_TRUE(moved);
    EXPECT_EQ(moved->panels[0].file, "/elsewhere/fold/beds.qpx");
}

TEST(SheetOfText, NamesWhatIsWrong) {
    struct Row {
        const char* members;
        const char* names;
    };

    constexpr Row kRows[] = {
        {R"("width": "wide")", "width"},
        {R"("width": 19)", "1000 mm"},
        {R"("height": 1e9)", "1000 mm"},
        {R"("columns": 0)", "columns"},
        {R"("columns": 11)", "columns"},
        {R"("columns": 1.5)", "columns"},
        {R"("gapDown": -1)", "gap"},
        {R"("letters": "b")", "letters"},
        {R"("legend": "left")", "legend"},
        {R"("caption": 4)", "caption"},
        {R"("colour": "red")", "colour"},
        {R"("panels": {})", "panels"},
        {R"("panels": [4])", "panel 1"},
        {R"("panels": [{"kind": "text"}, {"kind": "map"}])", "kind of panel 2"},
        {R"("panels": [{"kind": "plot"}])", "panel 1"},
        {R"("panels": [{"kind": "plot", "file": "a", "data": "b"}])", "panel 1"},
        {R"("panels": [{"kind": "text", "file": "a"}])", "panel 1"},
        {R"("panels": [{"kind": "text", "columns": 4}])", "panel 1"},
        {R"("panels": [{"kind": "text", "rows": 99999999999}])", "rows of panel 1"},
        {R"("panels": [{"kind": "text", "angle": 4}])", "angle of panel 1"},
    };
    for (const Row& row : kRows) {
        const Result<FigureSheet> read =
            SheetOfText("{\"quandrelFigure\": 1, " + std::string(row.members) + "}", "/");
        ASSERT_FALSE(read) << row.members;
        EXPECT_NE(read.Error().find(row.names), std::string::npos)
            << row.members << ": " << read.Error();
    }
}

TEST(SheetOfText, RefusesOtherTexts) {
    for (const char* text :
         {"", "[]", "{", "4", "{}", R"({"quandrelFigure": 2})", "{\"a\": \"\xff\"}"}) {
        EXPECT_FALSE(SheetOfText(text, "/")) << text;
    }
    std::string many = R"({"quandrelFigure": 1, "panels": [)";
    for (std::size_t i = 0; i <= kMostPanels; ++i) {
        many += std::string(i == 0 ? "" : ",") + R"({"kind": "text"})";
    }
    EXPECT_FALSE(SheetOfText(many + "]}", "/"));
}

TEST(FaultOf, RefusesWhatIsNoNumber) {
    FigureSheet sheet;
    EXPECT_EQ(FaultOf(sheet), "");
    sheet.width = std::numeric_limits<double>::quiet_NaN();
    EXPECT_NE(FaultOf(sheet), "");
}

TEST(SheetFile, IsWrittenAndRead) {
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("quandrel sheet " + std::to_string(::getpid()));
    std::filesystem::create_directories(folder);
    FigureSheet sheet = SheetOfAllKinds();
    sheet.panels[0].file = (folder / "beds.qpx").string();
    const std::string path = (folder / "figure.qsheet").string();
    EXPECT_EQ(WriteSheetFile(path, sheet), "");
    const Result<FigureSheet> read = ReadSheetFile(path);
    ASSERT_TRUE(read) << read.Error();
    EXPECT_EQ(*read, sheet);
    EXPECT_NE(WriteSheetFile((folder / "none" / "figure.qsheet").string(), sheet), "");
    EXPECT_FALSE(ReadSheetFile((folder / "none.qsheet").string()));
    std::filesystem::remove_all(folder);
}

TEST(LetterOf, CountsOnAfterTheAlphabet) {
    FigureSheet sheet;
    EXPECT_EQ(LetterOf(sheet, 0), "(a)");
    EXPECT_EQ(LetterOf(sheet, 25), "(z)");
    EXPECT_EQ(LetterOf(sheet, 26), "(aa)");
    sheet.letters = SheetLetters::Capital;
    EXPECT_EQ(LetterOf(sheet, 2), "C");
    sheet.letters = SheetLetters::Small;
    EXPECT_EQ(LetterOf(sheet, 2), "c");
    sheet.letters = SheetLetters::None;
    EXPECT_EQ(LetterOf(sheet, 2), "");
}

} // namespace
} // namespace quandrel
