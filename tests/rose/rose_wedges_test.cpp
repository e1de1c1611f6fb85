// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "orientation/angles.h"
#include "rose/rose_plot.h"
#include "rose/rose_wedges.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <set>
#include <vector>

namespace quandrel {

namespace {

constexpr double kClose = 1e-9;
constexpr Colour kBlank = kWhite;

double Degrees(double radians) {
    return radians * 180 / std::acos(-1.0);
}

/// Degrees that a wedge covers.
double WidthOf(const RoseWedge& wedge) {
    const double width = Degrees(wedge.end - wedge.start);
    return width > 0 ? width : width + 360;
}

RoseRadiiTable RadiiOf(const std::vector<double>& lengths) {
    RoseRadiiTable radii(static_cast<int>(lengths.size()), 1);
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        radii(static_cast<int>(i) + 1, 0) = lengths[i];
    }
    return radii;
}

/// One sector of three classes, with 100, 200 and 300 of its 600.
RoseRadiiTable ThreeClasses() {
    RoseRadiiTable radii(1, 3);
    radii(1, 0) = 600;
    radii(1, 1) = 100;
    radii(1, 2) = 200;
    radii(1, 3) = 300;
    return radii;
}

RoseWedgeSettings Sectors(double size, double startMath = 0) {
    RoseWedgeSettings settings;
    settings.sectorSize = size;
    settings.startMath = startMath;
    return settings;
}

} // namespace

TEST(WedgesOfRose, RunCounterClockwiseFromTheStart) {
    const auto wedges = WedgesOfRose(RadiiOf({100, 200, 300, 400}), Sectors(90, 80));
    ASSERT_EQ(wedges.size(), 4U);
    const std::array<double, 4> starts = {80, 170, 260, 350};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_NEAR(Degrees(wedges[i].start), starts[i], kClose);
        EXPECT_NEAR(WidthOf(wedges[i]), 90, kClose);
        EXPECT_EQ(wedges[i].sector, static_cast<int>(i) + 1);
        EXPECT_EQ(wedges[i].classNumber, 0);
        EXPECT_EQ(wedges[i].radius, 100 * static_cast<double>(i + 1));
    }
    EXPECT_NEAR(Degrees(wedges[3].end), 80, kClose); // wrapped
}

TEST(WedgesOfRose, LeavesTheSameGapOnEitherSide) {
    RoseWedgeSettings settings = Sectors(30, 45);
    settings.fraction = 0.6;
    const auto wedges = WedgesOfRose(RadiiOf(std::vector<double>(12, 500)), settings);
    ASSERT_EQ(wedges.size(), 12U);
    EXPECT_NEAR(Degrees(wedges[0].start), 45 + 6, kClose);
    EXPECT_NEAR(Degrees(wedges[0].end), 75 - 6, kClose);
    EXPECT_NEAR(Degrees(wedges[5].start), 45 + 150 + 6, kClose);
    EXPECT_NEAR(WidthOf(wedges[11]), 18, kClose);
}

TEST(WedgesOfRose, StandsOnTheZeroCircle) {
    RoseWedgeSettings settings = Sectors(180);
    settings.zeroRadius = 250;
    EXPECT_EQ(WedgesOfRose(RadiiOf({400, 0}), settings)[0].radius, 650);
}

TEST(WedgesOfRose, SkipsSectorsWithoutLength) {
    const auto wedges = WedgesOfRose(RadiiOf({0, 100, -20, std::nan("")}), Sectors(90));
    ASSERT_EQ(wedges.size(), 1U);
    EXPECT_EQ(wedges[0].sector, 2);
}

TEST(WedgesOfRose, MirrorsAxialSectors) {
    RoseWedgeSettings settings = Sectors(10, 80);
    std::vector<double> lengths(36, 0);
    lengths[0] = 700;
    EXPECT_EQ(WedgesOfRose(RadiiOf(lengths), settings).size(), 1U);
    settings.mirror = true;
    const auto wedges = WedgesOfRose(RadiiOf(lengths), settings);
    ASSERT_EQ(wedges.size(), 2U);
    EXPECT_FALSE(wedges[0].mirror);
    EXPECT_TRUE(wedges[1].mirror);
    EXPECT_NEAR(Degrees(wedges[1].start), 260, kClose);
    EXPECT_NEAR(Degrees(wedges[1].end), 270, kClose);
    EXPECT_EQ(wedges[1].radius, 700);
    EXPECT_EQ(wedges[1].sector, 1);
}

TEST(WedgesOfRose, GoesOnceRoundForASectorOfTheWholeCircle) {
    for (const double start : {0.0, 90.0, 233.3}) {
        RoseWedgeSettings settings = Sectors(360, start);
        settings.mirror = true;
        for (const RoseWedge& wedge : WedgesOfRose(RadiiOf({1000}), settings)) {
            EXPECT_EQ(wedge.start, wedge.end) << start;
        }
        settings.fraction = 0.5;
        EXPECT_NEAR(WidthOf(WedgesOfRose(RadiiOf({1000}), settings)[0]), 180, kClose);
    }
}

TEST(WedgesOfRose, FitsTheSmallerLastSectorBetweenItsNeighbours) {
    RoseWedgeSettings settings = Sectors(7, 83);
    settings.oddSectorSize = 3;
    const auto wedges = WedgesOfRose(RadiiOf(std::vector<double>(52, 100)), settings);
    EXPECT_NEAR(Degrees(wedges[51].start), 80, kClose); // 83 + 51 x 7 - 360
    EXPECT_NEAR(Degrees(wedges[51].end), 83, kClose);
}

// Kept: a gap of whole degrees.
TEST(WedgesOfRose, GivesTheSmallerLastSectorItsOwnWholeGaps) {
    // Size 100, and 60 after three of them. Half of it is 30, with gaps of 15.
    RoseWedgeSettings settings = Sectors(100, 10);
    settings.oddSectorSize = 60;
    settings.fraction = 0.5;
    const auto wedges = WedgesOfRose(RadiiOf({1, 1, 1, 1}), settings);
    EXPECT_NEAR(Degrees(wedges[3].start), 310 + 15, kClose);
    EXPECT_NEAR(Degrees(wedges[3].end), 10 - 15 + 360, kClose);
    // Of 3 degrees a half is 1.5, which counts as 2; half of the 1 left counts as 0.
    settings = Sectors(7, 83);
    settings.oddSectorSize = 3;
    settings.fraction = 0.5;
    const auto narrow = WedgesOfRose(RadiiOf(std::vector<double>(52, 100)), settings);
    EXPECT_NEAR(Degrees(narrow[51].start), 80, kClose);
    EXPECT_NEAR(Degrees(narrow[51].end), 83, kClose);
    // Of 4 degrees a quarter is 1, and the gaps of 1.5 count as 2: they would leave nothing.
    settings = Sectors(89, 0);
    settings.oddSectorSize = 4;
    settings.fraction = 0.25;
    const auto quarter = WedgesOfRose(RadiiOf({1, 1, 1, 1, 1}), settings);
    EXPECT_NEAR(Degrees(quarter[4].start), 357.5, kClose);
    EXPECT_NEAR(WidthOf(quarter[4]), 1, kClose);
}

TEST(WedgesOfRose, NeverOverlapWhateverTheSize) {
    for (double size = 1; size <= 360; size += 13.7) {
        const int whole = static_cast<int>(360 / size);
        const double odd = std::nearbyint(360 - whole * size);
        RoseWedgeSettings settings = Sectors(size, 33);
        settings.oddSectorSize = odd;
        const int sectors = whole + (odd != 0 ? 1 : 0);
        for (const double fraction : {0.01, 0.3, 0.5, 1.0}) {
            settings.fraction = fraction;
            double last = 33;
            for (int sector = 1; sector <= sectors; ++sector) {
                const RoseSpan span = SpanOfSector(settings, sectors, sector);
                EXPECT_GE(Degrees(span.start), last - kClose) << size << " " << fraction;
                EXPECT_GT(span.end, span.start) << size << " " << fraction;
                last = Degrees(span.end);
            }
            EXPECT_LE(last, 393 + kClose);
        }
    }
}

TEST(WedgesOfRose, PutsClassesOnTopOfEachOther) {
    RoseWedgeSettings settings = Sectors(360, 10);
    settings.zeroRadius = 50;
    settings.fraction = 0.5;
    const auto wedges = WedgesOfRose(ThreeClasses(), settings);
    ASSERT_EQ(wedges.size(), 3U);
    const std::array<double, 3> radii = {650, 350, 150};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(wedges[i].classNumber, 3 - static_cast<int>(i));
        EXPECT_DOUBLE_EQ(wedges[i].radius, radii[i]);
        EXPECT_EQ(wedges[i].start, wedges[0].start);
        EXPECT_EQ(wedges[i].end, wedges[0].end);
    }
}

TEST(WedgesOfRose, WidensSteppedClassesOutward) {
    RoseWedgeSettings settings = Sectors(90, 0);
    settings.stepped = true;
    const auto wedges = WedgesOfRose(ThreeClasses(), settings);
    ASSERT_EQ(wedges.size(), 3U);
    const std::array<double, 3> widths = {90, 54, 18}; // fifths of the sector
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(WidthOf(wedges[i]), widths[i], kClose);
        EXPECT_NEAR(Degrees(wedges[i].start), 45 - widths[i] / 2, kClose); // in the middle
    }
}

TEST(WedgesOfRose, SkipsClassesWithoutData) {
    RoseRadiiTable radii(1, 3);
    radii(1, 0) = 300;
    radii(1, 1) = 300;
    const auto wedges = WedgesOfRose(radii, Sectors(90));
    ASSERT_EQ(wedges.size(), 1U);
    EXPECT_EQ(wedges[0].classNumber, 1);
    EXPECT_EQ(wedges[0].radius, 300);
}

TEST(WedgesOfRose, StopsWhenClassesHaveUsedUpTheirSector) {
    // Classes of values of both signs: 500 and -200 make 300.
    RoseRadiiTable radii(1, 2);
    radii(1, 0) = 300;
    radii(1, 1) = -200;
    radii(1, 2) = 500;
    for (const RoseWedge& wedge : WedgesOfRose(radii, Sectors(90))) {
        EXPECT_GT(wedge.radius, 0);
    }
}

TEST(WedgeAt, FindsTheInnermostWedge) {
    RoseWedgeSettings settings = Sectors(90, 0);
    settings.mirror = true;
    const auto wedges = WedgesOfRose(ThreeClasses(), settings);
    const auto classAt = [&wedges](double radius, double degrees) {
        const double angle = degrees * std::acos(-1.0) / 180;
        const RoseWedge* wedge =
            WedgeAt(wedges, {radius * std::cos(angle), radius * std::sin(angle)});
        return wedge == nullptr ? 0 : wedge->mirror ? -wedge->classNumber : wedge->classNumber;
    };
    EXPECT_EQ(classAt(50, 45), 1);
    EXPECT_EQ(classAt(150, 45), 2);
    EXPECT_EQ(classAt(599, 1), 3);
    EXPECT_EQ(classAt(601, 45), 0);
    EXPECT_EQ(classAt(150, 91), 0);
    EXPECT_EQ(classAt(150, 225), -2);
}

TEST(FractionOfLayer, NarrowsTheMiddleLayerByAQuarter) {
    EXPECT_EQ(FractionOfLayer(1, 0), 1);
    EXPECT_EQ(FractionOfLayer(1, 1), 0.75);
    EXPECT_EQ(FractionOfLayer(1, 2), 1);
    EXPECT_EQ(FractionOfLayer(0.2, 1), 0.01);
}

class DrawRoseWedgesTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        BuildStyleTables();
        NewPlot();
        Record().RoseSectorSize = 90;
        gRoseStartMath = 0;
        gRoseDirectional = true;
        gRoseRadii = RadiiOf({400, 0, 800, 0});
        ActiveRose().wedges.clear();
    }

    static PlotRecord& Record() { return ActiveRecord(); }

    [[nodiscard]] std::vector<DrawOperation> Drawn() const {
        return DrawnOn(Form(gActivePlot).Plot());
    }

    [[nodiscard]] static std::vector<DrawOperation> Of(const std::vector<DrawOperation>& all,
                                                       DrawOperation::Kind kind) {
        std::vector<DrawOperation> some;
        for (const DrawOperation& operation : all) {
            if (operation.kind == kind) {
                some.push_back(operation);
            }
        }
        return some;
    }
};

TEST_F(DrawRoseWedgesTest, FillsTheWedgesWithTheirStyle) {
    gSymbolTable[kRoseStyle] = {8, kUpwardHatch, 1};
    gSymbolTable[kRoseBackgroundStyle] = {1, 19, 1};
    DrawRoseWedges(0);
    const auto drawn = Drawn();
    ASSERT_EQ(drawn.size(), 2U);
    EXPECT_EQ(drawn[0].kind, DrawOperation::Kind::Wedge);
    EXPECT_EQ(drawn[0].radius, 400);
    EXPECT_EQ(drawn[0].state.fillColour, TableColour(8));
    EXPECT_EQ(drawn[0].state.fillStyle, kUpwardHatch);
    EXPECT_EQ(drawn[0].colour, TableColour(19));
    EXPECT_EQ(drawn[1].radius, 800);
    EXPECT_NEAR(Degrees(drawn[1].start), 180, kClose);
    EXPECT_EQ(ActiveRose().wedges.size(), 2U);
}

TEST_F(DrawRoseWedgesTest, DrawsAxialSectorsTwice) {
    gRoseDirectional = false;
    gRoseRadii = RadiiOf({400, 0, 0, 0});
    DrawRoseWedges(0);
    EXPECT_EQ(Drawn().size(), 2U);
}

// Kept: it plays no part.
TEST_F(DrawRoseWedgesTest, DrawsTheSameInEveryStyleOfHistogram) {
    DrawRoseWedges(0);
    const auto first = Drawn();
    for (const int style : {1, 2, 3}) {
        Form(gActivePlot).PlotSurface().Clear(kWhite);
        DrawRoseWedges(style);
        ASSERT_EQ(Drawn().size(), first.size());
        for (std::size_t i = 0; i < first.size(); ++i) {
            EXPECT_EQ(OperationText(Drawn()[i]), OperationText(first[i]));
        }
    }
}

TEST_F(DrawRoseWedgesTest, LeavesTheSurfaceAsItWas) {
    Surface& surface = Form(gActivePlot).PlotSurface();
    DrawState state;
    state.fillColour = {1, 2, 3};
    state.fillStyle = kCrossHatch;
    state.drawWidth = 4;
    surface.SetState(state);
    Record().RoseZeroCircle = 10;
    Record().RoseShape = 2;
    DrawRoseWedges(0);
    EXPECT_EQ(surface.State(), state);
}

TEST_F(DrawRoseWedgesTest, BlanksTheZeroCircleLast) {
    Record().RoseZeroCircle = 20;
    DrawRoseWedges(0);
    const DrawOperation last = Drawn().back();
    EXPECT_EQ(last.kind, DrawOperation::Kind::Circle);
    EXPECT_EQ(last.radius, 200);
    EXPECT_EQ(last.state.fillStyle, kSolidFill);
    EXPECT_EQ(last.state.fillColour, kBlank);
}

TEST_F(DrawRoseWedgesTest, BlanksWithTheBackgroundOfTheScreenAndWithWhiteOnPages) {
    gSettings.styles.plotBackColour = 0x332211;
    Record().RoseZeroCircle = 20;
    DrawRoseWedges(0);
    EXPECT_EQ(Drawn().back().state.fillColour, (Colour{0x11, 0x22, 0x33}));
    RecordingSurface page(500, 500);
    DrawRoseWedges(ActivePlot(), {page, page, gSettings.styles, DrawnFor::Paper});
    EXPECT_EQ(page.Operations().back().state.fillColour, kWhite);
}

TEST_F(DrawRoseWedgesTest, BlanksTheHalfThatIsNotShown) {
    const std::array<std::pair<double, double>, 5> hidden = {
        {{0, 0}, {180, 360}, {90, 270}, {360, 180}, {270, 90}}};
    for (std::int16_t shape = 1; shape <= 4; ++shape) {
        Record().RoseShape = shape;
        Form(gActivePlot).PlotSurface().Clear(kWhite);
        DrawRoseWedges(0);
        const auto drawn = Drawn();
        const DrawOperation& last = drawn[drawn.size() - 2];
        EXPECT_EQ(last.kind, DrawOperation::Kind::Wedge);
        EXPECT_EQ(last.radius, 1000);
        EXPECT_EQ(last.state.fillColour, kBlank);
        EXPECT_EQ(last.colour, kBlank);
        EXPECT_NEAR(Degrees(last.start), hidden.at(static_cast<std::size_t>(shape)).first, kClose);
        EXPECT_NEAR(Degrees(last.end), hidden.at(static_cast<std::size_t>(shape)).second, kClose);
        // and erases what protrudes from the circle
        EXPECT_EQ(drawn.back().kind, DrawOperation::Kind::Arc);
        EXPECT_EQ(drawn.back().colour, kBlank);
        EXPECT_EQ(drawn.back().start, last.start);
        EXPECT_EQ(drawn.back().end, last.end);
    }
}

TEST_F(DrawRoseWedgesTest, BlanksWithThePaperOfAPage) {
    Record().RoseShape = 1;
    RecordingSurface page(600, 600);
    RecordingSurface legend(100, 100);
    DrawRoseWedges(ActivePlot(), {page, legend, gSettings.styles, DrawnFor::Paper});
    EXPECT_EQ(page.Operations().back().state.fillColour, kWhite);
    // A colour that the user has chosen is the same everywhere.
    gSymbolTable[kRoseBackgroundStyle][kPlaceColour] = 13;
    DrawRoseWedges(0);
    EXPECT_EQ(Drawn().back().state.fillColour, TableColour(13));
}

TEST_F(DrawRoseWedgesTest, FillsEachClassWithItsOwnStyle) {
    gRoseRadii = ThreeClasses();
    DrawRoseWedges(0);
    const auto drawn = Drawn();
    ASSERT_EQ(drawn.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(drawn[i].state.fillColour, TableColour(gSymbolTable[26 - i][kPlaceColour])) << i;
    }
}

TEST_F(DrawRoseWedgesTest, LetsNothingThroughAPatternedClass) {
    gSymbolTable[kFirstRoseClassStyle][kPlaceSymbol] = kCrossHatch;
    gRoseRadii = ThreeClasses();
    DrawRoseWedges(0);
    const auto drawn = Drawn();
    ASSERT_EQ(drawn.size(), 4U);
    EXPECT_EQ(drawn[2].radius, 100);
    EXPECT_EQ(drawn[2].state.fillColour, kBlank);
    EXPECT_EQ(drawn[2].state.fillStyle, kSolidFill);
    EXPECT_EQ(drawn[3].radius, 100);
    EXPECT_EQ(drawn[3].state.fillStyle, kCrossHatch);
}

TEST_F(DrawRoseWedgesTest, BlanksTheSectorBelowItsSteps) {
    gRoseRadii = ThreeClasses();
    Record().RoseSegShape = 1;
    gRoseDirectional = false;
    DrawRoseWedges(0);
    const auto drawn = Drawn();
    ASSERT_EQ(drawn.size(), 2U + 6U);
    for (std::size_t i = 0; i < 2; ++i) {
        const DrawOperation& blank = drawn[i];
        EXPECT_EQ(blank.kind, DrawOperation::Kind::Wedge);
        EXPECT_EQ(blank.radius, 600 - 5);
        EXPECT_EQ(blank.state.drawWidth, 3);
        EXPECT_EQ(blank.state.fillColour, kBlank);
        EXPECT_EQ(blank.colour, kBlank);
        EXPECT_NEAR(Degrees(blank.start), i == 0 ? 0 : 180, kClose);
        EXPECT_NEAR(Degrees(blank.end - blank.start), 90, kClose); // the whole sector
    }
}

TEST_F(DrawRoseWedgesTest, DrawsEachStepInItsOwnRing) {
    gRoseRadii = ThreeClasses();
    Record().RoseSegShape = 1;
    DrawRoseWedges(0);
    const auto steps = Of(Drawn(), DrawOperation::Kind::Polygon);
    ASSERT_EQ(steps.size(), 3U);
    const std::array<std::array<double, 3>, 3> rings = {
        {{300, 600, 90}, {100, 300, 54}, {0, 100, 18}}}; // radii and width
    for (std::size_t i = 0; i < 3; ++i) {
        double least = 1e9;
        double most = 0;
        double first = 360;
        double last = 0;
        for (const Point& corner : steps[i].points) {
            const double radius = std::hypot(corner.x, corner.y);
            least = std::min(least, radius);
            most = std::max(most, radius);
            if (radius > 1) {
                first = std::min(first, Degrees(std::atan2(corner.y, corner.x)));
                last = std::max(last, Degrees(std::atan2(corner.y, corner.x)));
            }
        }
        EXPECT_NEAR(least, rings[i][0], kClose) << i;
        EXPECT_NEAR(most, rings[i][1], kClose) << i;
        EXPECT_NEAR(last - first, rings[i][2], kClose) << i;
        EXPECT_NEAR(last + first, 90, kClose) << i; // in the middle of the sector
        EXPECT_EQ(steps[i].state.fillColour, TableColour(gSymbolTable[26 - i][kPlaceColour]));
        EXPECT_EQ(steps[i].state.drawWidth, 1);
    }
}

TEST_F(DrawRoseWedgesTest, DrawsTheOutlinesOfLowerLayersOnTop) {
    DrawRoseWedges(0, 2);
    gRoseRadii = RadiiOf({100, 0, 0, 0});
    DrawRoseWedges(0, 1);
    gRoseRadii = RadiiOf({1000, 0, 0, 0});
    DrawRoseWedges(0, 0);
    const auto drawn = Drawn();
    ASSERT_EQ(drawn.size(), 4U + 3U);
    EXPECT_NEAR(Degrees(drawn[0].end - drawn[0].start), 90, kClose);
    EXPECT_NEAR(Degrees(drawn[2].end - drawn[2].start), 67.5, kClose);
    EXPECT_NEAR(Degrees(drawn[3].end - drawn[3].start), 90, kClose);
    EXPECT_EQ(drawn[3].radius, 1000);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(drawn[4 + i].radius, drawn[i].radius);
        EXPECT_EQ(drawn[4 + i].start, drawn[i].start);
        EXPECT_EQ(drawn[4 + i].state.fillStyle, kNoFill);
        EXPECT_EQ(drawn[4 + i].colour, TableColour(gSymbolTable[i < 2 ? 36 : 37][kPlaceColour]));
    }
    EXPECT_EQ(ActiveRose().wedges.size(), 4U);
    EXPECT_EQ(ActiveRose().wedges[0].layer, 2);
    EXPECT_EQ(ActiveRose().wedges[3].layer, 0);
}

TEST(FillOfRoseClass, TellsClassesBeyondTheTableApart) {
    BuildStyleTables();
    std::set<std::pair<int, int>> fills;
    for (int c = 1; c <= 13; ++c) {
        const RoseFill fill = FillOfRoseClass(gSettings.styles, c);
        fills.insert({fill.colour, fill.pattern});
    }
    EXPECT_EQ(fills.size(), 13U);
}

} // namespace quandrel
