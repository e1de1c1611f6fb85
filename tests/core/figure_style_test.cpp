// SPDX-License-Identifier: MIT
//
// Styles of figures, and their texts.

#include "core/figure_style_text.h"
#include "platform/colour_space.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace quandrel {
namespace {

std::string FaultOf(const std::string& text) {
    const Result<FigureStyle> style = StyleOfText(text);
    return style ? std::string() : style.Error();
}

TEST(FigureStyles, AreFourThatAreFoundByTheirNames) {
    ASSERT_EQ(StandardStyles().size(), 4U);
    for (const FigureStyle& style : StandardStyles()) {
        EXPECT_TRUE(IsValid(style)) << style.name;
        EXPECT_EQ(StandardStyle(style.name), &style);
    }
    EXPECT_EQ(StandardStyle("JOURNAL"), StandardStyle("journal"));
    EXPECT_EQ(StandardStyle("Thesis"), nullptr);
    FigureStyle nothing;
    nothing.name = kClassicStyle;
    EXPECT_EQ(ClassicStyle(), nothing) << "the tables decide";
}

TEST(FigureStyles, ReturnFromTheirTexts) {
    for (const FigureStyle& style : StandardStyles()) {
        const Result<FigureStyle> read = StyleOfText(TextOfStyle(style));
        ASSERT_TRUE(read) << read.Error();
        EXPECT_EQ(*read, style) << style.name;
    }
}

TEST(FigureStyles, TakeFromTheirBasisWhatATextDoesNotSay) {
    const Result<FigureStyle> thesis = StyleOfText(
        R"({"name": "Thesis", "net": {"rimWidth": 1.5}, "lines": {"accent": "#0a64c8"}})");
    ASSERT_TRUE(thesis) << thesis.Error();
    FigureStyle expected = *StandardStyle(kJournalStyle);
    expected.name = "Thesis";
    expected.net.rimWidth = 1.5;
    expected.lines.accent = {10, 100, 200};
    EXPECT_EQ(*thesis, expected);
    const Result<FigureStyle> grey = StyleOfText(R"({"name": "Mine", "basis": "grey"})");
    ASSERT_TRUE(grey) << grey.Error();
    EXPECT_EQ(grey->symbols, StandardStyle(kGreyStyle)->symbols);
}

TEST(FigureStyles, NameWhatIsWrongInATextThatIsNone) {
    EXPECT_NE(FaultOf("no style"), "");
    EXPECT_NE(FaultOf("[1, 2]"), "");
    EXPECT_NE(FaultOf(R"({"net": {"rimWidth": 1000}})").find("limits"), std::string::npos);
    EXPECT_NE(FaultOf(R"({"net": {"rimWidth": "wide"}})").find("net.rimWidth"), std::string::npos);
    EXPECT_NE(FaultOf(R"({"net": {"rimColour": 1}})").find("net.rimColour"), std::string::npos);
    EXPECT_NE(FaultOf(R"({"lines": {"accent": "red"}})").find("lines.accent"), std::string::npos);
    EXPECT_NE(FaultOf(R"({"basis": "Thesis"})").find("basis"), std::string::npos);
    EXPECT_NE(FaultOf(R"({"nets": {}})"), "");
    EXPECT_NE(FaultOf(R"({"symbols": {"setShapes": [2, 99]}})").find("limits"), std::string::npos);
    EXPECT_NE(FaultOf(std::string(kLongestStyleText + 1, ' ')).find("long"), std::string::npos);
}

TEST(FigureStyles, MakeManySymbolsSmallerAndSeeThrough) {
    const SymbolStyle& journal = StandardStyle(kJournalStyle)->symbols;
    EXPECT_DOUBLE_EQ(SymbolSizeOf(journal, 1), 1.1);
    EXPECT_DOUBLE_EQ(SymbolSizeOf(journal, 100), 1.1);
    EXPECT_DOUBLE_EQ(SymbolSizeOf(journal, 1000), 0.6);
    EXPECT_DOUBLE_EQ(SymbolSizeOf(journal, 1'000'000), 0.6);
    EXPECT_NEAR(SymbolSizeOf(journal, 316), (1.1 + 0.6) / 2, 0.001) << "half of a power of ten";
    double former = 1.2;
    for (int rows = 90; rows < 1100; rows += 10) {
        const double size = SymbolSizeOf(journal, rows);
        EXPECT_LE(size, former);
        former = size;
    }
    EXPECT_DOUBLE_EQ(SymbolOpacityOf(journal, 20'000), 1);
    EXPECT_DOUBLE_EQ(SymbolOpacityOf(journal, 40'000), 150 / std::sqrt(40'000.0));
    EXPECT_DOUBLE_EQ(SymbolOpacityOf(journal, 1'000'000), 0.15);
    EXPECT_DOUBLE_EQ(SymbolOpacityOf(ClassicStyle().symbols, 1'000'000), 1);
}

TEST(FigureStyles, MakeSymbolsSmallerFromTheFirstRowOn) {
    SymbolStyle symbols;
    symbols.size = 2;
    symbols.leastSize = 1;
    symbols.rowsOfLeast = 100;
    EXPECT_DOUBLE_EQ(SymbolSizeOf(symbols, 0), 2);
    EXPECT_DOUBLE_EQ(SymbolSizeOf(symbols, 1), 2);
    EXPECT_DOUBLE_EQ(SymbolSizeOf(symbols, 10), 1.5);
    EXPECT_DOUBLE_EQ(SymbolSizeOf(symbols, 100), 1);
}

TEST(FigureStyles, RefuseCrowdsThatCannotBeSeen) {
    const std::string beyond = "The style cannot be read: a value is beyond its limits.";
    EXPECT_EQ(FaultOf(R"({"symbols": {"crowd": 10, "crowdInk": 0}})"), beyond);
    EXPECT_EQ(FaultOf(R"({"symbols": {"crowd": 0, "crowdInk": 0}})"), "");
}

TEST(FigureStyles, NeighbouringSetsAreToldApartByAllEyes) {
    for (const FigureStyle& style : StandardStyles()) {
        const std::vector<Colour>& colours = style.symbols.setColours;
        for (const ColourVision vision :
             {ColourVision::Normal, ColourVision::Protanopia, ColourVision::Deuteranopia}) {
            const auto difference = [vision](Colour a, Colour b) {
                return ColourDifference(LabOf(ColourAsSeen(a, vision)),
                                        LabOf(ColourAsSeen(b, vision)));
            };
            for (std::size_t i = 1; i < colours.size(); ++i) {
                EXPECT_GE(difference(colours[i - 1], colours[i]), 8) << style.name << " " << i;
            }
            if (style.name == kJournalStyle) {
                EXPECT_GE(difference(style.lines.accent, style.lines.contour), 8);
                EXPECT_GE(difference(style.lines.accent, colours[0]), 8);
            }
        }
    }
}

} // namespace
} // namespace quandrel
