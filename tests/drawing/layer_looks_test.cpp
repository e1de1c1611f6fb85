// SPDX-License-Identifier: MIT
//
// The looks of layers in the styles of figures, and their entries in the legend.

#include "core/item_style.h"
#include "drawing/draw_layers.h"
#include "layered_plot.h"
#include "platform/colour_space.h"
#include "stereo/row_sense.h"
#include "stereo/symbols.h"

#include <algorithm>

namespace quandrel {
namespace {

class LayerLooksTest : public LayeredPlotTest {};

TEST_F(LayerLooksTest, SelectionHasTheAccentUnlessItHasAColour) {
    RecordingSurface net(500, 500);
    FigureLayer layer = LayerOf("selection", kShowSymbols);
    const Colour accent = StandardStyle(kJournalStyle)->lines.accent;
    EXPECT_EQ(ColourFromValue(static_cast<std::uint32_t>(LayerAsDrawn(layer, In(net)).LayerColour)),
              accent);
    layer.LayerColour = 0x00ff00;
    EXPECT_EQ(LayerAsDrawn(layer, In(net)), layer);
    layer.LayerColour = kColourOfStyle;
    EXPECT_EQ(LayerAsDrawn(layer, In(net, kClassicStyle)), layer);
}

TEST_F(LayerLooksTest, LegendHasAnEntryForEachLayerInTheirOrder) {
    Plot plot = Faults();
    plot.record.FabricText = "faults";
    plot.record.ClassMode = 0;
    plot.record.Layers = {LayerOf("net", kShowNet),
                          LayerOf("main", kShowGreatCircles),
                          LayerOf("main", kShowPoles),
                          LayerOf("secondary", kShowSymbols),
                          LayerOf("main", kShowSlipArrows),
                          LayerOf("overlay1", kShowGreatCircles),
                          LayerOf("overlay1", kShowIntersections),
                          LayerOf("overlay2", kShowSymbols)};
    WorkOut(plot);
    std::vector<std::string> texts;
    for (const FigureEntry& entry : Legend(plot).entries) {
        texts.push_back(entry.text);
    }
    EXPECT_EQ(texts, (std::vector<std::string>{"faults, n = 60", "Poles to faults, n = 60",
                                               "Secondary lines, n = 60", "Slip directions, n = 60",
                                               "Planes normal to Overlay 1, n = 12",
                                               "Intersections of Overlay 1, n = 66"}))
        << "12 planes have 66 pairs; a plot without a second overlay shows none";
    EXPECT_EQ(Legend(plot).entries[3].sign, FigureSign::Arrow);
    EXPECT_TRUE(Legend(plot).entries[3].hasHead);
}

TEST_F(LayerLooksTest, LegendHasABarForEachDataWithBands) {
    Plot plot = Faults();
    plot.record.Layers = {LayerOf("main", kShowBands), LayerOf("main", kShowContours),
                          LayerOf("class3", kShowBands), LayerOf("overlay1", kShowContours)};
    plot.record.Layers[2].LayerSteps = 3;
    plot.record.Layers[2].LayerPalette = 1;
    WorkOut(plot);
    const FigureLegend legend = Legend(plot);
    ASSERT_EQ(legend.bars.size(), 2U);
    EXPECT_TRUE(legend.bars[0].title.starts_with("Planes: multiples of uniform, max "))
        << legend.bars[0].title;
    EXPECT_TRUE(legend.bars[1].title.starts_with("4-9: multiples of uniform, max "))
        << legend.bars[1].title;
    EXPECT_EQ(legend.bars[0].colours.size(), 5U) << "the steps of the style";
    EXPECT_EQ(legend.bars[1].colours.size(), 3U) << "those of the layer";
    EXPECT_NE(legend.bars[0].colours[0], legend.bars[1].colours[0]);
    ASSERT_GE(legend.entries.size(), 2U);
    EXPECT_TRUE(legend.entries[0].text.starts_with("Overlay 1: multiples of uniform, max "))
        << "contours without bands are lines";
    EXPECT_EQ(legend.entries[1].sign, FigureSign::Line);
}

TEST_F(LayerLooksTest, ContoursThatLookAlikeHaveOneEntry) {
    Plot plot = Faults();
    plot.record.Layers = {LayerOf("overlay1", kShowContours)};
    plot.record.Layers[0].LayerColour = 0x0000ff;
    plot.record.LevelRule = kLevelsByHand;
    plot.record.LevelsByHand = "0.5, 1";
    WorkOut(plot);
    const FigureLegend legend = Legend(plot);
    ASSERT_EQ(legend.entries.size(), 1U);
    EXPECT_TRUE(legend.entries[0].text.starts_with("Overlay 1: 0.5, 1 multiples of uniform, max "))
        << legend.entries[0].text;
    EXPECT_EQ(legend.entries[0].line.colour, (Colour{255, 0, 0}));
}

/// The colours of the lines of a group, in their order.
std::vector<Colour> ColoursOfLines(const GroupSurface& net, const std::string& group) {
    std::vector<Colour> colours;
    for (const DrawOperation& operation : net.operations.at(group)) {
        if (operation.kind == DrawOperation::Kind::Polyline
            && (colours.empty() || colours.back() != operation.colour)) {
            colours.push_back(operation.colour);
        }
    }
    return colours;
}

TEST_F(LayerLooksTest, ContoursWithoutBandsHaveDarkColoursOfTheStyle) {
    Plot plot = Faults();
    plot.record.Layers = {LayerOf("overlay1", kShowContours)};
    plot.record.LevelRule = kLevelsByHand;
    plot.record.LevelsByHand = "1, 2, 3";
    plot.record.KernelWidth = 10;
    WorkOut(plot);
    constexpr double kDarkOnWhite = 70; // lightness
    for (const std::string_view style : {kScreenStyle, kJournalStyle, kGreyStyle}) {
        const std::vector<Colour> colours =
            ColoursOfLines(Drawn(plot, style), "overlay-1-contours");
        ASSERT_EQ(colours.size(), 3U) << style;
        double last = kDarkOnWhite;
        for (const Colour colour : colours) {
            EXPECT_LT(LabOf(colour).lightness, last) << style;
            last = LabOf(colour).lightness;
        }
    }
    const Colour first = TableColour(gSettings.styles, gSettings.styles.contours[0][kStyleColour]);
    EXPECT_EQ(ColoursOfLines(Drawn(plot, kClassicStyle), "overlay-1-contours").front(), first);
    gSettings.styles.contours[0][kStyleColour] = 3;
    const Colour chosen = TableColour(gSettings.styles, 3);
    EXPECT_EQ(ColoursOfLines(Drawn(plot), "overlay-1-contours").front(), chosen)
        << "the user's choice";
}

TEST_F(LayerLooksTest, LegendHasTheColoursOfTheContoursOfCounts) {
    Plot plot = Faults();
    plot.record.Layers = {LayerOf("main", kShowContours)};
    plot.record.DensityMethod = kDensityByCone;
    plot.record.DensityUnit = kPerCentInConeUnit;
    WorkOut(plot);
    std::vector<Colour> ofLegend;
    for (const FigureEntry& entry : Legend(plot).entries) {
        if (entry.sign == FigureSign::Line) {
            ofLegend.push_back(entry.line.colour);
        }
    }
    EXPECT_EQ(ofLegend, ColoursOfLines(Drawn(plot), "contours"));
    plot.record.Layers[0].LayerPalette = 0; // the colours of the tables
    const Styles& styles = gSettings.styles;
    EXPECT_EQ(ColoursOfLines(Drawn(plot), "contours").front(),
              TableColour(styles, styles.contours[0][kStyleColour]));
}

TEST_F(LayerLooksTest, AxesTakeThePropertiesOfTheirLayer) {
    Plot plot = Faults();
    plot.record.Layers = {LayerOf("results", kShowAxes)};
    WorkOut(plot);
    plot.record.AxisItems[kGirdleItem][kItemShown] = std::int16_t{kTrue};
    const auto axisIn = [&plot, this](std::string_view style) {
        return Drawn(plot, style).operations.at("axes").at(0);
    };
    for (const std::string_view style : {kJournalStyle, kClassicStyle}) {
        plot.record.Layers[0] = LayerOf("results", kShowAxes);
        const DrawOperation before = axisIn(style);
        plot.record.Layers[0].LayerColour = 0x00ff00;
        plot.record.Layers[0].LayerSize = 5;
        const DrawOperation after = axisIn(style);
        EXPECT_EQ(after.colour, (Colour{0, 255, 0})) << style;
        EXPECT_NE(after.text, before.text) << "another size";
        EXPECT_EQ(after.points, before.points);
    }
}

TEST_F(LayerLooksTest, TheNetTakesThePropertiesOfItsLayer) {
    Plot plot = Faults();
    plot.record.Layers = {LayerOf("net", kShowNet)};
    plot.record.Layers[0].LayerWidth = 2;
    plot.record.Layers[0].LayerColour = 0x0000ff;
    WorkOut(plot);
    const GroupSurface drawn = Drawn(plot);
    const auto isRim = [](const DrawOperation& operation) {
        return operation.kind == DrawOperation::Kind::Circle;
    };
    const std::vector<DrawOperation>& net = drawn.operations.at("net");
    const auto rim = std::ranges::find_if(net, isRim);
    ASSERT_NE(rim, net.end());
    EXPECT_EQ(rim->state.widthInPoints, 2);
    EXPECT_EQ(rim->colour, (Colour{255, 0, 0}));
}

TEST_F(LayerLooksTest, OverlaysHaveTheColoursOfTheStyleInTheirOrder) {
    const Styles start = StartStyles();
    const FigureStyle& journal = *StandardStyle(kJournalStyle);
    for (int overlay = 1; overlay < kOverlaySymbols; ++overlay) {
        PlotRecord of;
        of.OverlayKind[static_cast<std::size_t>(overlay)] = kOverlayLines;
        const FigureSymbol symbol =
            SymbolInFigure(journal, start, CodeOfNewRow(start, of, overlay, false), 50);
        EXPECT_EQ(symbol.colour, journal.symbols.setColours[static_cast<std::size_t>(overlay)]);
        EXPECT_FALSE(symbol.isOpen) << overlay;
    }
}

TEST_F(LayerLooksTest, BandsAreFilledInTheColoursOfTheirBar) {
    Plot plot = Faults();
    plot.record.Layers = {LayerOf("class3", kShowBands), LayerOf("class3", kShowContours)};
    const auto coloursOf = [&](std::string_view style) {
        GroupSurface drawn = Drawn(plot, style);
        std::vector<Colour> filled;
        for (const DrawOperation& operation : drawn.operations["class-3-bands"]) {
            if (operation.kind == DrawOperation::Kind::Path) {
                filled.push_back(operation.colour);
            }
        }
        return filled;
    };
    for (const std::int32_t colour : {kColourOfStyle, std::int32_t{0x2030b0}}) {
        plot.record.Layers[0].LayerColour = colour;
        WorkOut(plot);
        EXPECT_EQ(coloursOf(kJournalStyle), Legend(plot).bars.at(0).colours);
    }
    EXPECT_EQ(coloursOf(kJournalStyle).back(), (Colour{0xb0, 0x30, 0x20}))
        << "a layer's own colour is that of the highest band";
    plot.record.LevelRule = kLevelsByHand;
    plot.record.LevelsByHand = "0.5, 1";
    WorkOut(plot);
    EXPECT_EQ(coloursOf(kJournalStyle).size(), 2U) << "the levels that the plot chose";
}

TEST_F(LayerLooksTest, GirdlesAreToldApartByTheirLines) {
    RecordingSurface net(500, 500);
    Plot plot = Faults();
    WorkOut(plot);
    for (const int item : {static_cast<int>(kMeanPlaneItem), static_cast<int>(kGirdleItem)}) {
        SetStyleOfItem(plot.record.AxisItems[static_cast<std::size_t>(item)],
                       StartStyles().axes[StyleRowOfItem(item)]);
    }
    const LineLook mean = LookOfGirdle(plot.record, In(net), static_cast<int>(kMeanPlaneItem));
    const LineLook girdle = LookOfGirdle(plot.record, In(net), static_cast<int>(kGirdleItem));
    EXPECT_EQ(mean.state.drawStyle, kDashDotLine);
    EXPECT_EQ(girdle.state.drawStyle, kSolidLine);
    EXPECT_EQ(girdle.colour, StandardStyle(kJournalStyle)->lines.accent);
    EXPECT_EQ(mean.colour, girdle.colour);
}

/// Whether some line of a group is drawn as the sign of an entry.
bool IsDrawnAs(const std::vector<DrawOperation>& drawn, const FigureEntry& entry) {
    return std::ranges::any_of(drawn, [&entry](const DrawOperation& operation) {
        return operation.kind != DrawOperation::Kind::Markers
               && operation.colour == entry.line.colour
               && operation.state.drawStyle == entry.line.state.drawStyle
               && operation.state.widthInPoints == entry.line.state.widthInPoints
               && operation.state.lineOpacity == entry.line.state.lineOpacity;
    });
}

TEST_F(LayerLooksTest, SignsOfLinesAreTheLinesThatAreDrawn) {
    Plot plot;
    plot.record = NewPlotRecord();
    plot.record.PlotKind = kEqualArea;
    plot.record.PrimaryFormat = kPrimaryLine;
    plot.record.DataKind = kLines;
    plot.record.ShowConfidenceCone = kTrue;
    for (int trend = 0; trend < 360; trend += 6) { // about the vertical, for a cone
        AppendTo(plot, 0, 70, trend, CodeOfStyleRow(gSettings.styles, kRowSymbol), 0);
    }
    plot.record.PlotSmallCircles =
        std::make_unique<std::remove_reference_t<decltype(*plot.record.PlotSmallCircles)>>();
    SmallCircle& circle = (*plot.record.PlotSmallCircles)[1];
    circle.AxisPl = "30";
    circle.AxisAz = "200";
    circle.Angle = "20";
    circle.Visible = kTrue;
    const AxisStyle start = StartStyles().axes[kSmallCircleStyle];
    circle.LineColour = start[kStyleColour];
    circle.lineStyle = start[kStyleLine];
    circle.LineWidth = start[kStyleWidth];
    plot.record.AxisItems[kMeanPlaneItem][kItemShown] = true;
    FigureLayer girdles = LayerOf("results", kShowCalculatedGirdles);
    girdles.LayerWidth = 3;
    plot.record.Layers = {LayerOf("main", kShowGreatCircles), girdles,
                          LayerOf("results", kShowSmallCircles)};
    WorkOut(plot);
    GroupSurface drawn = Drawn(plot);
    std::map<std::int16_t, int> entries;
    for (const FigureEntry& entry : Legend(plot).entries) {
        ASSERT_EQ(entry.sign, FigureSign::Line) << entry.text;
        const LayerGroup group = GroupOfLayer(plot, entry.layer);
        EXPECT_TRUE(IsDrawnAs(drawn.operations[group.id], entry)) << entry.text;
        ++entries[entry.layer.LayerShow];
        if (entry.layer.LayerShow == kShowSmallCircles) {
            EXPECT_EQ(entry.line.state.drawStyle, kDashedLine) << entry.text;
        }
    }
    EXPECT_EQ(entries[kShowGreatCircles], 1);
    EXPECT_EQ(entries[kShowCalculatedGirdles], 1);
    EXPECT_EQ(entries[kShowSmallCircles], 2) << "the confidence cone and a circle";
}

TEST_F(LayerLooksTest, KinematicAxesAreSmallBlackCirclesFullAndHollow) {
    const Styles start = StartStyles();
    const FigureStyle& journal = *StandardStyle(kJournalStyle);
    for (const int row : {kDerivedSymbol, kDerivedUpSymbol}) {
        const FigureSymbol symbol = SymbolInFigure(journal, start, CodeOfStyleRow(start, row), 50);
        EXPECT_EQ(symbol.colour, kBlack);
        EXPECT_EQ(symbol.shape, journal.symbols.setShapes.front());
        EXPECT_EQ(symbol.isOpen, row == kDerivedUpSymbol) << "T axes";
        EXPECT_EQ(symbol.millimetres, journal.symbols.size);
    }
}

TEST_F(LayerLooksTest, SlipArrowsHaveTheWidthAndColourOfTheStyle) {
    Plot plot = Faults();
    plot.record.ClassMode = 0;
    plot.record.Layers = {LayerOf("main", kShowSlipArrows)};
    WorkOut(plot);
    const FigureStyle& journal = *StandardStyle(kJournalStyle);
    GroupSurface drawn = Drawn(plot);
    const std::vector<DrawOperation>& arrows = drawn.operations["rows-slip-arrows"];
    ASSERT_EQ(arrows.size(), static_cast<std::size_t>(kRows)) << "arrows without symbols";
    for (const DrawOperation& arrow : arrows) {
        EXPECT_EQ(arrow.state.widthInPoints, journal.lines.circleWidth);
        EXPECT_EQ(arrow.colour, journal.symbols.setColours.front());
    }
    plot.record.Layers[0].LayerColour = 0x0000ff;
    plot.record.Layers[0].LayerWidth = 2;
    const DrawOperation own = Drawn(plot).operations["rows-slip-arrows"].at(0);
    EXPECT_EQ(own.colour, (Colour{255, 0, 0}));
    EXPECT_EQ(own.state.widthInPoints, 2);
}

} // namespace
} // namespace quandrel
