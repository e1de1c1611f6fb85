// SPDX-License-Identifier: MIT
//
// Layers of all data of a plot: which are possible, what they draw, and their entries in the
// legend.

#include "core/item_style.h"
#include "density/density_look.h"
#include "density/plot_density.h"
#include "drawing/draw_layers.h"
#include "drawing/figure_legend.h"
#include "drawing/layer_list.h"
#include "drawing/layer_results.h"
#include "orientation/projection.h"
#include "stereo/row_sense.h"
#include "stereo/symbols.h"
#include "support/slotless_plots.h"
#include "support/test_platform.h"

#include <cmath>
#include <map>
#include <memory>
#include <set>

namespace quandrel {
namespace {

constexpr int kGridSize = 20;
constexpr std::int32_t kRows = 60;

/// What is drawn in each group, in the order of their ends.
class GroupSurface : public RecordingSurface {
public:
    GroupSurface()
        : RecordingSurface(500, 500) {}

    void BeginGroup(std::string_view id, std::string_view title) override {
        open_.push_back({std::string(id), std::string(title), Operations().size()});
    }

    void EndGroup() override {
        const Open group = open_.back();
        open_.pop_back();
        titles[group.id] = group.title;
        std::vector<DrawOperation>& drawn = operations[group.id];
        drawn.insert(drawn.end(), Operations().begin() + static_cast<std::ptrdiff_t>(group.first),
                     Operations().end());
    }

    std::map<std::string, std::string> titles;
    std::map<std::string, std::vector<DrawOperation>> operations;

private:
    struct Open {
        std::string id;
        std::string title;
        std::size_t first = 0;
    };

    std::vector<Open> open_;
};

FigureLayer LayerOf(const std::string& data, std::int16_t show) {
    FigureLayer layer = DataOfWord(data).value();
    layer.LayerShow = show;
    return layer;
}

class LayersOfRowsTest : public EngineTest {
protected:
    /// Faults with slip lines, an overlay of lines, and two classes by appended numbers.
    static Plot Faults() {
        Plot plot;
        plot.record = NewPlotRecord();
        PlotRecord& record = plot.record;
        record.PlotTitle = "Faults";
        record.PlotKind = kEqualArea;
        record.PlotSymbolMode = kPointSymbols;
        record.PrimaryFormat = kPrimaryPlane;
        record.SecondaryFormat = kSecondaryLine;
        record.DataKind = kPlanes;
        record.HasAppendedNumeric = kTrue;
        record.AppNumName = "Throw";
        const Styles styles = StartStyles();
        for (std::int32_t row = 0; row < kRows; ++row) {
            RowValues values;
            values.isData = true;
            values.dip = 30 + row * 7 % 55;
            values.azimuth = row * 37 % 360;
            values.hasSecondary = true;
            values.dip2 = -values.dip; // straight up the plane
            values.azimuth2 = values.azimuth;
            values.code = CodeOfStyleRow(styles, kRowSymbol);
            values.number = static_cast<float>(row % 9);
            values.place =
                PlottedOrientation(record.PlotKind, true, 0, {values.dip, values.azimuth});
            EXPECT_TRUE(AppendRow(plot, 0, values));
        }
        const int overlay = OpenOverlay(record, kOverlayLines);
        for (std::int32_t row = 0; row < 12; ++row) {
            AppendTo(plot, overlay, 10 + 5 * row, 30 * row, CodeOfStyleRow(styles, 2), 0);
        }
        record.ClassTable[kBaseRow][kNumberClasses] = std::int16_t{2};
        record.ClassTable[kLowestRow][kNumberClasses] = 0.0;
        record.ClassTable[kLowestRow + 1][kNumberClasses] = 4.0;
        record.ClassTable[kTopRow][kNumberClasses] = 9.0;
        record.ClassMode = 1;
        record.DensityMethod = kDensityByKernel;
        record.DensityUnit = kMultiplesUnit;
        return plot;
    }

    static void WorkOut(Plot& plot, std::vector<std::int32_t> selection = {3, 5, 8, 40}) {
        WorkingOut how{ReplotCause::Rows, gSettings.styles, Formulas::Own, kGridSize};
        how.selection = std::move(selection);
        WorkOutPlot(plot, how);
    }

    Drawing In(Surface& net, std::string_view style = kJournalStyle) {
        Drawing drawing{net, page, gSettings.styles, DrawnFor::Paper};
        drawing.figure = std::make_shared<const FigureStyle>(*StandardStyle(style));
        return drawing;
    }

    GroupSurface Drawn(const Plot& plot, std::string_view style = kJournalStyle) {
        GroupSurface net;
        DrawNetOfFigure(plot, In(net, style));
        return net;
    }

    FigureLegend Legend(const Plot& plot) {
        RecordingSurface net(500, 500);
        return LegendOfFigure(plot, In(net));
    }

    /// A plot with one layer, worked out.
    static Plot With(const FigureLayer& layer) {
        Plot plot = Faults();
        plot.record.Layers = {layer};
        WorkOut(plot);
        return plot;
    }

    RecordingSurface page{500, 700};
};

const std::vector<std::string> kData = {"main",   "secondary", "overlay1",
                                        "class2", "class3",    "selection"};

TEST_F(LayersOfRowsTest, ShowAllRowsInAllWaysThatArePossible) {
    const Plot plot = Faults();
    std::string possible;
    for (const std::string& data : kData) {
        possible += data + ":";
        for (std::int16_t show = kShowSymbols; show <= kShowNet; ++show) {
            if (IsPossible(plot, LayerOf(data, show))) {
                possible += " " + std::string(WordOfShow(show));
            }
        }
        possible += "\n";
    }
    const std::string all = "symbols greatcircles poles intersections sliparrows ";
    const std::string fields = "gridsymbols bands contours";
    std::string expected =
        "main: " + all + "bandsymbols " + fields + " densitymarks gridvalues valuecontours\n";
    for (const char* data : {"secondary", "overlay1", "class2", "class3", "selection"}) {
        expected += std::string(data) + ": " + all + fields + "\n";
    }
    EXPECT_EQ(possible, expected);
}

TEST_F(LayersOfRowsTest, AreNotPossibleOfDataThatThePlotLacks) {
    Plot plot = Faults();
    for (const char* data : {"overlay2", "class5", "results", "net"}) {
        EXPECT_FALSE(IsPossible(plot, LayerOf(data, kShowSymbols))) << data;
    }
    plot.record.SecondaryFormat = kNoSecondary;
    EXPECT_FALSE(IsPossible(plot, LayerOf("secondary", kShowSymbols)));
    EXPECT_FALSE(IsPossible(plot, LayerOf("main", kShowSlipArrows)));
    plot.record.ClassMode = 0;
    EXPECT_FALSE(IsPossible(plot, LayerOf("class2", kShowSymbols)));
    EXPECT_FALSE(IsPossible(plot, LayerOf("main", kShowGridValues)));
    plot.record.AxesTitle = kBothAxes;
    EXPECT_FALSE(IsPossible(plot, LayerOf("main", kShowContours))) << "P and T are not mixed";
    EXPECT_TRUE(IsPossible(plot, LayerOf("overlay1", kShowContours)));
    plot.record.PlotKind = kRose;
    EXPECT_FALSE(IsPossible(plot, LayerOf("main", kShowSymbols)));
}

TEST_F(LayersOfRowsTest, DrawInAGroupOfTheirOwnAndHaveAnEntry) {
    for (const std::string& data : kData) {
        for (std::int16_t show = kShowSymbols; show <= kShowContours; ++show) {
            const FigureLayer layer = LayerOf(data, show);
            Plot plot = With(layer);
            if (!IsPossible(plot, layer)) {
                continue;
            }
            const std::string what = data + " " + std::string(WordOfShow(show));
            const LayerGroup group = GroupOfLayer(plot, layer);
            ASSERT_FALSE(group.id.empty()) << what;
            EXPECT_FALSE(group.title.empty()) << what;
            EXPECT_FALSE(Drawn(plot).operations[group.id].empty()) << what;
            const FigureLegend legend = Legend(plot);
            EXPECT_EQ(legend.bars.size(), show == kShowBands ? 1U : 0U) << what;
            EXPECT_EQ(legend.entries.empty(), show == kShowBands) << what;

            plot.record.Layers[0].LayerHidden = kTrue;
            WorkOut(plot);
            EXPECT_TRUE(Drawn(plot).operations[group.id].empty()) << what << " hidden";
            EXPECT_TRUE(Legend(plot).entries.empty() && Legend(plot).bars.empty())
                << what << " hidden";
        }
    }
}

TEST_F(LayersOfRowsTest, HaveGroupsThatTellDataAndWaysApart) {
    const Plot plot = Faults();
    std::set<std::string> ids;
    int layers = 0;
    for (const std::string& data : kData) {
        for (const std::int16_t show : {kShowSymbols, kShowPoles, kShowSlipArrows, kShowGridSymbols,
                                        kShowBands, kShowContours}) {
            ids.insert(GroupOfLayer(plot, LayerOf(data, show)).id);
            ++layers;
        }
    }
    EXPECT_EQ(static_cast<int>(ids.size()), layers);
    EXPECT_TRUE(ids.contains("overlay-1"));
    EXPECT_TRUE(ids.contains("class-2-bands"));
    FigureLayer named = LayerOf("class2", kShowBands);
    EXPECT_EQ(GroupOfLayer(plot, named).title, "0-4: Filled bands");
    named.LayerName = "Early faults";
    EXPECT_EQ(GroupOfLayer(plot, named).title, "Early faults");
}

/// The places of all markers in a group.
std::vector<Point> PlacesIn(GroupSurface drawn, const std::string& id) {
    std::vector<Point> places;
    for (const DrawOperation& operation : drawn.operations[id]) {
        if (operation.kind == DrawOperation::Kind::Markers) {
            places.insert(places.end(), operation.points.begin(), operation.points.end());
        }
    }
    return places;
}

bool IsNear(const std::vector<Point>& places, Point wanted) {
    return std::ranges::any_of(places, [wanted](const Point& place) {
        return std::hypot(place.x - wanted.x, place.y - wanted.y) < 1e-6;
    });
}

TEST_F(LayersOfRowsTest, PolesAreAtRightAnglesToTheirPlanes) {
    const Plot plot = With(LayerOf("main", kShowPoles));
    const std::vector<Point> places = PlacesIn(Drawn(plot), "rows-poles");
    for (std::int32_t row = 1; row <= kRows; ++row) {
        // The pole of a plane is its line of dip turned by a right angle in the vertical plane:
        // (-sin d cos a, -sin d sin a, cos d) to north, east and down.
        const double dip = plot.rows.dip(row) * kPi / 180;
        const double azimuth = plot.rows.azimuth(row) * kPi / 180;
        const double north = -std::sin(dip) * std::cos(azimuth);
        const double east = -std::sin(dip) * std::sin(azimuth);
        // Equal area: a line at the angle c from the vertical is sqrt(2) sin(c / 2) from the
        // centre, and cos c = cos d here.
        const double radius = kNetRadius * std::sqrt(2.0) * std::sin(dip / 2);
        const double level = std::hypot(north, east);
        EXPECT_TRUE(IsNear(places, {radius * east / level, radius * north / level})) << row;
    }
    EXPECT_EQ(places.size(), static_cast<std::size_t>(kRows)) << "no two rows are the same";
}

TEST_F(LayersOfRowsTest, SecondaryRowsAreAtTheirOwnPlaces) {
    const Plot plot = With(LayerOf("secondary", kShowSymbols));
    const std::vector<Point> places = PlacesIn(Drawn(plot), "secondary");
    ASSERT_FALSE(places.empty());
    for (std::int32_t row = 1; row <= kRows; ++row) {
        Point line;
        ProjectPoint(kEqualArea, plot.rows.dip(row) * kPi / 180, plot.rows.azimuth(row) * kPi / 180,
                     line.x, line.y);
        EXPECT_TRUE(IsNear(places, line)) << row << ": slip lines run down the dip";
    }
    EXPECT_EQ(Legend(plot).entries.at(0).text, "Secondary lines, n = 60");
}

/// A plot with the main rows alone that are wanted.
template <class Wanted>
Plot Alone(const Plot& plot, Wanted isWanted) {
    Plot alone;
    alone.record = NewPlotRecord();
    alone.record.PlotKind = plot.record.PlotKind;
    alone.record.PrimaryFormat = plot.record.PrimaryFormat;
    alone.record.DataKind = plot.record.DataKind;
    static_cast<RecordDensityView&>(alone.record) = plot.record;
    alone.record.ContourPicture = kLinesOverBands;
    alone.record.PlotSymbolMode = kContours;
    for (std::int32_t row = 1; row <= plot.record.NumData; ++row) {
        if (isWanted(row)) {
            AppendTo(alone, 0, plot.rows.dip(row), plot.rows.azimuth(row), plot.rows.symbol(row),
                     plot.rows.number(row));
        }
    }
    return alone;
}

void ExpectSameDensity(const PlotDensity* density, const PlotDensity* expected) {
    ASSERT_NE(density, nullptr);
    ASSERT_NE(expected, nullptr);
    EXPECT_EQ(density->Greatest().value, expected->Greatest().value);
    EXPECT_EQ(density->Unit(), expected->Unit());
    for (int trend = 0; trend < 360; trend += 15) {
        for (int plunge = 0; plunge <= 90; plunge += 15) {
            const MeasuredLine line{DegToRad(plunge), DegToRad(trend)};
            EXPECT_EQ(density->ValueAt(line), expected->ValueAt(line)) << plunge << " " << trend;
        }
    }
}

TEST_F(LayersOfRowsTest, ClassesHaveTheDensityOfAPlotOfTheirRows) {
    for (const std::int16_t method :
         {kDensityByKernel, kDensityByKambExponential, kDensityByCone}) {
        Plot plot = Faults();
        plot.record.DensityMethod = method;
        plot.record.Layers = {LayerOf("class2", kShowBands), LayerOf("class3", kShowContours)};
        WorkOut(plot);
        for (const int number : {2, 3}) {
            const double lowest = number == 2 ? 0 : 4;
            const double highest = number == 2 ? 3 : 9;
            Plot alone = Alone(plot, [&](std::int32_t row) {
                const auto value = static_cast<double>(plot.rows.number(row));
                return value >= lowest && value <= highest;
            });
            EXPECT_GT(alone.record.NumData, 20);
            WorkOut(alone, {});
            ExpectSameDensity(DensityOfLayer(plot, plot.record.Layers[number == 2 ? 0 : 1]),
                              DensityOf(alone));
        }
        EXPECT_EQ(DensityOf(plot), nullptr) << "the main rows have no layer of densities";
    }
}

TEST_F(LayersOfRowsTest, DensitiesAreNotWorkedOutTwice) {
    Plot plot = With(LayerOf("class2", kShowBands));
    const FigureLayer layer = plot.record.Layers[0];
    const PlotDensity* const first = DensityOfLayer(plot, layer);
    plot.record.Layers.push_back(LayerOf("class2", kShowContours));
    WorkOut(plot);
    EXPECT_EQ(DensityOfLayer(plot, layer), first) << "the same rows, though in two layers";
    plot.record.DensityMethod = kDensityByKambExponential;
    WorkOut(plot);
    EXPECT_NE(DensityOfLayer(plot, layer)->Formula().method, DensityMethod::Kernel);
    plot.record.ClassTable[kLowestRow + 1][kNumberClasses] = 6.0;
    const double greatest = DensityOfLayer(plot, layer)->Greatest().value;
    WorkOut(plot);
    EXPECT_NE(DensityOfLayer(plot, layer)->Greatest().value, greatest) << "other limits";
}

TEST_F(LayersOfRowsTest, ContoursAtTheLevelsOfLayersAndStyleAreKept) {
    Plot plot = Faults();
    plot.record.StyleName = kJournalStyle;
    plot.record.Layers = {LayerOf("main", kShowBands), LayerOf("class3", kShowContours)};
    plot.record.Layers[1].LayerSteps = 3;
    WorkOut(plot);
    const FigureStyle& journal = *StandardStyle(kJournalStyle);
    for (const FigureLayer& layer : plot.record.Layers) {
        const PlotDensity* const density = DensityOfLayer(plot, layer);
        ASSERT_NE(density, nullptr);
        const std::vector<double> levels = OwnLevelsOf(plot.record, journal, layer, *density);
        EXPECT_EQ(levels.size(), layer.LayerSteps == 3 ? 3U : 5U);
        const auto* const kept = density->KeptAt(levels);
        ASSERT_NE(kept, nullptr);
        EXPECT_EQ(kept->size(), levels.size());
        EXPECT_EQ(density->KeptAt(std::vector<double>{0.123}), nullptr);
    }
}

TEST_F(LayersOfRowsTest, SelectionIsFollowed) {
    Plot plot = With(LayerOf("selection", kShowSymbols));
    EXPECT_EQ(PlacesIn(Drawn(plot), "selection").size(), 4U);
    EXPECT_EQ(Legend(plot).entries.at(0).text, "Selected rows, n = 4");
    WorkOut(plot, {7});
    EXPECT_EQ(PlacesIn(Drawn(plot), "selection").size(), 1U);
    EXPECT_EQ(Legend(plot).entries.at(0).text, "Selected rows, n = 1");
    WorkOut(plot, {});
    EXPECT_TRUE(PlacesIn(Drawn(plot), "selection").empty());
    EXPECT_TRUE(Legend(plot).entries.empty()) << "nothing that is not drawn";
}

TEST_F(LayersOfRowsTest, SelectionHasTheAccentUnlessItHasAColour) {
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

TEST_F(LayersOfRowsTest, LegendHasAnEntryForEachLayerInTheirOrder) {
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

TEST_F(LayersOfRowsTest, LegendHasABarForEachDataWithBands) {
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

TEST_F(LayersOfRowsTest, ContoursThatLookAlikeHaveOneEntry) {
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

TEST_F(LayersOfRowsTest, OverlaysHaveTheColoursOfTheStyleInTheirOrder) {
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

TEST_F(LayersOfRowsTest, BandsAreFilledInTheColoursOfTheirBar) {
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

TEST_F(LayersOfRowsTest, GirdlesAreToldApartByTheirLines) {
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

TEST_F(LayersOfRowsTest, SignsOfLinesAreTheLinesThatAreDrawn) {
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

TEST_F(LayersOfRowsTest, KinematicAxesAreSmallBlackCirclesFullAndHollow) {
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

TEST_F(LayersOfRowsTest, SlipArrowsHaveTheWidthAndColourOfTheStyle) {
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
