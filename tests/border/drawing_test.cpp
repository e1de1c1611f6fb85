// SPDX-License-Identifier: MIT
//
// Pictures for other programs, compared with what the program itself draws from the same plot
// files.

#include "core/settings_value.h"
#include "drawing/draw_plot.h"
#include "drawing/work_out.h"
#include "persistence/plot_file_bytes.h"
#include "platform/scripted/recording_surface.h"
#include "quandrel/drawing.h"
#include "support/test_platform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>
#include <tuple>

namespace quandrel::api {
namespace {

// A square of 550 pixels has 4 units of the plot to a pixel; the legend has the same units.
constexpr Extent kNet{550, 550};
constexpr Extent kLegend{160, 400};
constexpr double kUnits = 4;
constexpr double kNear = 1e-9;

/// Beds about a fold axis with numbers, and an overlay of each kind if requested.
Plot FoldPlot(PlotKind kind, RowsAs rowsAs, bool hasOverlays = false) {
    Plot plot;
    plot.kind = kind;
    plot.rowsAs = rowsAs;
    for (int row = 0; row < 40; ++row) {
        plot.rows.planes.push_back(
            {20.0 + row * 7 % 60, static_cast<double>((row * row + 77) % 360)});
    }
    plot.rows.planes[3] = {-40, 120};
    plot.rows.planes[5] = {std::nan(""), std::nan("")};
    if (hasOverlays) {
        plot.overlays = {{OverlayKind::kGreatCircles, {}}, {OverlayKind::kPolarLines, {}}};
        plot.overlays[0].rows.planes = {{10, 20}, {60, 200}};
        plot.overlays[1].rows.lines = {{-20, 30}, {21, 31}};
    }
    return plot;
}

Plot Striae(PlotKind kind) {
    Plot plot;
    plot.kind = kind;
    plot.drawnAs = DrawnAs::kLines;
    plot.primary = Primary::kLines;
    for (int row = 0; row < 50; ++row) {
        plot.rows.lines.push_back({row % 30 * 1.0, (row * 13 + 4) % 360 * 1.0});
    }
    return plot;
}

/// P and T axes of two faults.
Plot KinematicPlot() {
    Plot plot;
    plot.axesTitle = "P & T";
    plot.drawnAs = DrawnAs::kPolarLines;
    plot.primary = Primary::kLines;
    plot.textName = "Axis and row";
    plot.rows.lines = {{10, 20}, {70, 200}, {15, 25}, {65, 210}, {12, 31}, {60, 190}};
    plot.rows.texts = {"P 1", "T 1", "P 2", "T 2", "P 3", "T 3"};
    return plot;
}

struct Pair {
    Recording net{kNet};
    Recording legend{kLegend};

    explicit Pair(const Plot& plot, DrawnFor purpose = DrawnFor::kPaper) {
        DrawPlot(plot, {.plot = net, .legend = legend, .title = "fold", .purpose = purpose});
    }
};

/// What the program draws from a plot's file.
struct InnerPair {
    RecordingSurface net{kNet.width, kNet.height};
    RecordingSurface legend{kLegend.width, kLegend.height};

    explicit InnerPair(const Plot& plot, quandrel::DrawnFor purpose) {
        quandrel::Result<quandrel::Plot> inner = quandrel::ReadPlotFile(*PlotBytes(plot));
        const Styles styles = StartStyles();
        inner->record.PlotTitle = "fold";
        WorkOutPlot(*inner, {ReplotCause::Rows, styles, Formulas::Own, 50});
        quandrel::DrawPlot(*inner, {net, legend, styles, purpose});
    }
};

Operation::Kind KindOf(DrawOperation::Kind kind) {
    switch (kind) {
    case DrawOperation::Kind::Clear:
        return Operation::Kind::kClear;
    case DrawOperation::Kind::Line:
    case DrawOperation::Kind::Polyline:
        return Operation::Kind::kPolyline;
    case DrawOperation::Kind::Circle:
        return Operation::Kind::kCircle;
    case DrawOperation::Kind::Arc:
        return Operation::Kind::kArc;
    case DrawOperation::Kind::Wedge:
        return Operation::Kind::kWedge;
    case DrawOperation::Kind::Markers:
        return Operation::Kind::kMarkers;
    case DrawOperation::Kind::Text:
        return Operation::Kind::kText;
    default:
        return Operation::Kind::kPolygon;
    }
}

bool AreNear(const std::vector<Point>& found, const std::vector<quandrel::Point>& units,
             quandrel::Point corner) {
    bool are = found.size() == units.size();
    for (std::size_t i = 0; are && i < found.size(); ++i) {
        are = std::abs(found[i].x - (units[i].x - corner.x) / kUnits) < kNear
              && std::abs(found[i].y - (corner.y - units[i].y) / kUnits) < kNear;
    }
    return are;
}

bool IsWholeTurns(double degrees) {
    return std::abs(std::remainder(degrees, 360)) < kNear;
}

bool IsColour(Colour found, quandrel::Colour colour) {
    return found == Colour{colour.red, colour.green, colour.blue};
}

void ExpectMarker(const Marker& found, const Glyph& glyph, quandrel::Colour colour) {
    ASSERT_EQ(found.parts.size(), glyph.parts.size());
    for (std::size_t i = 0; i < glyph.parts.size(); ++i) {
        const MarkerPart& part = found.parts[i];
        const GlyphPart& inner = glyph.parts[i];
        if (inner.kind == GlyphPart::Kind::Pixel) {
            EXPECT_EQ(part.points.size(), 4U);
            continue;
        }
        EXPECT_TRUE(AreNear(part.points, inner.points, {0, 0})) << glyph.name;
        EXPECT_EQ(part.radius, inner.radius / kUnits) << glyph.name;
        EXPECT_TRUE(IsColour(part.pen.colour, colour)) << glyph.name;
    }
}

void ExpectStyle(const Operation& found, const DrawOperation& inner) {
    EXPECT_TRUE(IsColour(found.pen.colour, inner.colour));
    if (found.kind == Operation::Kind::kText) {
        EXPECT_EQ(found.text, inner.text);
        EXPECT_EQ(found.font.points, inner.state.font.points);
        EXPECT_EQ(found.font.bold, inner.state.font.bold);
    } else if (found.kind != Operation::Kind::kClear) {
        EXPECT_EQ(found.pen.width, inner.state.drawWidth);
        EXPECT_EQ(static_cast<int>(found.pen.dash), inner.state.drawStyle);
    }
    const bool isShape = inner.kind == DrawOperation::Kind::Circle
                         || inner.kind == DrawOperation::Kind::Wedge
                         || inner.kind == DrawOperation::Kind::Polygon;
    if (isShape) {
        EXPECT_EQ(static_cast<int>(found.fill.pattern), inner.state.fillStyle);
        EXPECT_TRUE(inner.state.fillStyle == kNoFill
                    || IsColour(found.fill.colour, inner.state.fillColour));
    }
}

void ExpectRound(const Operation& found, const DrawOperation& inner) {
    constexpr double kDegrees = 180 / std::numbers::pi;
    EXPECT_NEAR(found.radius, inner.radius / kUnits, kNear);
    if (found.kind == Operation::Kind::kArc || found.kind == Operation::Kind::kWedge) {
        EXPECT_TRUE(IsWholeTurns(90 - inner.end * kDegrees - found.from)) << found.from;
        EXPECT_TRUE(IsWholeTurns((inner.end - inner.start) * kDegrees - found.sweep));
        EXPECT_GT(found.sweep, 0);
        EXPECT_LE(found.sweep, 360);
    }
}

/// Expects the operations of the program; `corner` is the top left corner in units.
void ExpectOperations(const Recording& found, const RecordingSurface& inner,
                      quandrel::Point corner) {
    ASSERT_EQ(found.Operations().size(), inner.Operations().size());
    for (std::size_t i = 0; i < inner.Operations().size(); ++i) {
        const Operation& mine = found.Operations()[i];
        const DrawOperation& theirs = inner.Operations()[i];
        const ::testing::ScopedTrace trace(__FILE__, __LINE__, OperationText(theirs));
        ASSERT_EQ(mine.kind, KindOf(theirs.kind));
        if (mine.kind == Operation::Kind::kMarkers) {
            EXPECT_TRUE(AreNear(mine.points, theirs.points, corner));
            ExpectMarker(mine.marker, inner.Glyphs().at(theirs.text), theirs.colour);
            continue;
        }
        if (mine.points.size() == theirs.points.size()) { // a box has four corners instead of two
            EXPECT_TRUE(AreNear(mine.points, theirs.points, corner));
        } else {
            EXPECT_TRUE(theirs.kind == DrawOperation::Kind::Box
                        || theirs.kind == DrawOperation::Kind::FilledBox
                        || theirs.kind == DrawOperation::Kind::Pixel);
        }
        ExpectRound(mine, theirs);
        if (theirs.kind != DrawOperation::Kind::Pixel) {
            ExpectStyle(mine, theirs);
        }
    }
}

class PublicDrawing : public EngineTest {
protected:
    static void ExpectTheProgramsPicture(const Plot& plot, DrawnFor purpose = DrawnFor::kPaper) {
        const Pair found(plot, purpose);
        const InnerPair inner(plot, purpose == DrawnFor::kPaper ? quandrel::DrawnFor::Paper
                                                                : quandrel::DrawnFor::Window);
        EXPECT_GT(found.net.Operations().size(), 3U);
        EXPECT_GT(found.legend.Operations().size(), 1U);
        ExpectOperations(found.net, inner.net, {-1100, 1100});
        ExpectOperations(found.legend, inner.legend, {0, 0});
    }
};

TEST_F(PublicDrawing, IsThatOfTheProgramOnBothNetsInAllModes) {
    for (const PlotKind kind : {PlotKind::kEqualArea, PlotKind::kEqualAngle}) {
        for (const RowsAs rowsAs : {RowsAs::kGreatCircles, RowsAs::kPoints, RowsAs::kIntersections,
                                    RowsAs::kPointDensities, RowsAs::kDensities, RowsAs::kContours,
                                    RowsAs::kContoursOnDensities}) {
            const ::testing::ScopedTrace trace(__FILE__, __LINE__,
                                               std::to_string(static_cast<int>(rowsAs)));
            ExpectTheProgramsPicture(FoldPlot(kind, rowsAs));
        }
        ExpectTheProgramsPicture(FoldPlot(kind, RowsAs::kPoints, true));
        ExpectTheProgramsPicture(Striae(kind));
    }
    EXPECT_EQ(status.Text(), "");
}

TEST_F(PublicDrawing, IsThatOfTheProgramForRosesScreensAndAxes) {
    ExpectTheProgramsPicture(Striae(PlotKind::kRose));
    ExpectTheProgramsPicture(FoldPlot(PlotKind::kRose, RowsAs::kPoints));
    ExpectTheProgramsPicture(KinematicPlot());
    ExpectTheProgramsPicture(FoldPlot(PlotKind::kEqualArea, RowsAs::kContours), DrawnFor::kScreen);
    const Pair screen(Striae(PlotKind::kRose), DrawnFor::kScreen);
    EXPECT_EQ(screen.net.Operations()[0].kind, Operation::Kind::kClear);
    EXPECT_EQ(screen.legend.Operations()[0].kind, Operation::Kind::kClear);
}

TEST_F(PublicDrawing, TheSettingsOfTheProgramPlayNoPart) {
    const Plot axes = KinematicPlot();
    const Pair before(axes);
    gSettings.styles = {};
    gSettings.gridSize = 30;
    gSettings.notation.formulas = Formulas::Textbook;
    const Pair after(axes);
    EXPECT_EQ(before.net.Operations(), after.net.Operations());
    EXPECT_EQ(before.legend.Operations(), after.legend.Operations());
}

TEST_F(PublicDrawing, ShowsDecimalsWhereThePlotUsesThem) {
    constexpr double kRadian = std::numbers::pi / 180;
    constexpr double kPixelStep = 0.25; // markers are placed at half pixels
    Plot plot = Striae(PlotKind::kEqualArea);
    plot.rows.lines = {{30.4, 45.3}};
    for (const auto& [uses, plunge, trend] : {std::tuple{false, 30.0, 45.0}, {true, 30.4, 45.3}}) {
        plot.usesDecimals = uses;
        const Pair found(plot);
        const auto markers =
            std::ranges::find(found.net.Operations(), Operation::Kind::kMarkers, &Operation::kind);
        ASSERT_NE(markers, found.net.Operations().end());
        ASSERT_EQ(markers->points.size(), 1U);
        const double fromCentre = std::numbers::sqrt2 * std::sin((90 - plunge) / 2 * kRadian);
        const Point& at = markers->points[0];
        EXPECT_NEAR(at.x, 275 + 250 * fromCentre * std::sin(trend * kRadian), kPixelStep);
        EXPECT_NEAR(at.y, 275 - 250 * fromCentre * std::cos(trend * kRadian), kPixelStep);
    }
}

TEST_F(PublicDrawing, FollowsTheChoiceOfFormulasOfThePlot) {
    Plot rose;
    rose.kind = PlotKind::kRose;
    rose.drawnAs = DrawnAs::kLines;
    rose.primary = Primary::kLines;
    rose.rows.lines = {{10, 40}, {20, 45}, {30, 50}}; // a mean of 090 or of 045
    const Pair unset(rose);
    rose.formulas = PlotFormulas::kOwn;
    EXPECT_EQ(Pair(rose).net.Operations(), unset.net.Operations());
    rose.formulas = PlotFormulas::kTextbook;
    EXPECT_NE(Pair(rose).net.Operations(), unset.net.Operations());
    gSettings.notation.formulas = Formulas::Textbook;
    rose.formulas = PlotFormulas::kOwn;
    EXPECT_EQ(Pair(rose).net.Operations(), unset.net.Operations());
}

TEST_F(PublicDrawing, TakesTheSquareAtTheCentre) {
    Recording wide({750, 550});
    Recording legend(kLegend);
    DrawPlot(Striae(PlotKind::kEqualArea), {.plot = wide, .legend = legend});
    const Operation& primitive = wide.Operations()[0];
    ASSERT_EQ(primitive.kind, Operation::Kind::kCircle);
    EXPECT_EQ(primitive.points[0], (Point{375, 275}));
    EXPECT_EQ(primitive.radius, 250);
}

TEST_F(PublicDrawing, AnEmptyPlotIsANetWithALegend) {
    const Pair empty(Plot{});
    EXPECT_EQ(empty.net.Operations()[0].kind, Operation::Kind::kCircle);
    EXPECT_EQ(empty.legend.Operations()[0].text, "Data: fold");
    Plot rose;
    rose.kind = PlotKind::kRose;
    EXPECT_EQ(Pair(rose).legend.Operations()[0].text, "Data: fold");
}

TEST_F(PublicDrawing, ThrowsBeforeAnythingIsDrawn) {
    Recording net(kNet);
    Recording legend(kLegend);
    const auto throws = [&](const Plot& plot, const Drawing& drawing) {
        EXPECT_THROW(DrawPlot(plot, drawing), std::invalid_argument);
        EXPECT_TRUE(net.Operations().empty() && legend.Operations().empty());
    };
    Plot steep = Striae(PlotKind::kEqualArea);
    steep.rows.lines[2].plunge = 91;
    throws(steep, {.plot = net, .legend = legend});
    throws({}, {.plot = net, .legend = legend, .gridSize = 9});
    throws({}, {.plot = net, .legend = legend, .gridSize = 151});
    Recording flat({100, 0});
    throws({}, {.plot = flat, .legend = legend});
    throws({}, {.plot = net, .legend = flat});
}

TEST(PublicSurface, DrawsMarkersAsTheirParts) {
    class Plain : public Recording {
    public:
        using Recording::Recording;

        void Markers(const Marker& marker, std::span<const Point> positions) override {
            Surface::Markers(marker, positions);
        }
    };

    Plain surface(kNet);
    const Marker dot{{{MarkerPart::Kind::kCircle, {{1, 2}}, 3, {}, {Pattern::kSolid, {}}},
                      {MarkerPart::Kind::kLine, {{0, 0}, {4, 0}}, 0, {}, {}}}};
    const std::vector<Point> places = {{10, 20}, {30, 40}};
    surface.Markers(dot, places);
    ASSERT_EQ(surface.Operations().size(), 4U);
    EXPECT_EQ(surface.Operations()[2].points[0], (Point{31, 42}));
    EXPECT_EQ(surface.Operations()[2].radius, 3);
    EXPECT_EQ(surface.Operations()[3].points[1], (Point{34, 40}));
}

TEST(PublicSurface, ForgetsWhatWasDrawnBeforeAClear) {
    Recording surface(kNet);
    surface.Circle({1, 1}, 2, {}, {});
    surface.Clear({1, 2, 3});
    ASSERT_EQ(surface.Operations().size(), 1U);
    EXPECT_EQ(surface.Operations()[0].pen.colour, (Colour{1, 2, 3}));
    EXPECT_NEAR(EstimatedTextWidth("Störung", {.points = 9}), 0.6 * 12 * 7, kNear);
    EXPECT_EQ(EstimatedTextHeight({.points = 9}), 12);
}

} // namespace
} // namespace quandrel::api
