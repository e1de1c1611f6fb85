// SPDX-License-Identifier: MIT
//
// Layers of all data of a plot: which are possible, what they draw, their densities.

#include "density/density_look.h"
#include "density/plot_density.h"
#include "drawing/draw_layers.h"
#include "drawing/layer_results.h"
#include "layered_plot.h"
#include "orientation/projection.h"

#include <cmath>
#include <set>

namespace quandrel {
namespace {

class LayersOfRowsTest : public LayeredPlotTest {};

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

} // namespace
} // namespace quandrel
