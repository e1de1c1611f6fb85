// SPDX-License-Identifier: MIT

#include "classify/class_legend.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "drawing/legend.h"
#include "rose/rose_legend.h"
#include "stereo/legend_line.h"
#include "stereo/window_drawing.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <algorithm>

namespace quandrel {
namespace {

using Kind = DrawOperation::Kind;

class Legend : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        NewPlot();
        ActiveRecord().LayerVisible[kLegendLayer] = kTrue;
    }

    /// What is drawn for one line.
    std::vector<DrawOperation> Drawn(const LegendLine& line, Kind kind) {
        RecordingForm& form = Form(gActivePlot);
        form.LegendSurface().Clear(kWhite);
        DrawLegendLines(WindowDrawing(gActivePlot), {line});
        std::vector<DrawOperation> found;
        std::ranges::copy_if(
            DrawnOn(form.Legend()), std::back_inserter(found),
            [kind](const DrawOperation& operation) { return operation.kind == kind; });
        return found;
    }

    static std::vector<std::string> TextsOf(const std::vector<LegendLine>& lines) {
        std::vector<std::string> texts;
        for (const LegendLine& line : lines) {
            texts.push_back(line.text);
        }
        return texts;
    }

    static std::vector<std::string> Texts() {
        return TextsOf(LegendLines(ActivePlot(), gSettings.styles, gSettings.notation.formulas));
    }

    /// The name of the data, and lines of a folder below it.
    static std::vector<std::string> TextsWith(const std::vector<LegendLine>& lines) {
        std::vector<std::string> texts = TextsOf(lines);
        EXPECT_FALSE(texts.empty());
        texts.insert(texts.begin(), Texts().front());
        return texts;
    }
};

TEST_F(Legend, ALineHasColourPatternAndWidthOfWhatItStandsFor) {
    const auto lines =
        Drawn({LegendSample::Line, MakeSymbolCode(7, kDashedLine, 3), "level"}, Kind::Line);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].colour, TableColour(7));
    EXPECT_EQ(lines[0].state.drawStyle, kDashedLine);
    EXPECT_EQ(lines[0].state.drawWidth, 3);
    EXPECT_EQ(Form(gActivePlot).LegendSurface().State().drawStyle, kSolidLine) << "restored";
}

TEST_F(Legend, APatchHasFillAndShareOfTheWidthOfWhatItStandsFor) {
    const auto full =
        Drawn({LegendSample::Patch, MakeSymbolCode(15, kCrossHatch, 0), "all"}, Kind::Polygon);
    const auto half =
        Drawn({LegendSample::Patch, MakeSymbolCode(15, kCrossHatch, 50), "half"}, Kind::Polygon);
    ASSERT_EQ(full.size(), 1U);
    ASSERT_EQ(half.size(), 1U);
    EXPECT_EQ(full[0].state.fillStyle, kCrossHatch);
    EXPECT_EQ(full[0].state.fillColour, TableColour(15));
    const auto width = [](const DrawOperation& patch) {
        return patch.points[1].x - patch.points[0].x;
    };
    EXPECT_NEAR(width(half[0]), width(full[0]) / 2, 1e-9);
    EXPECT_EQ(full[0].colour, kBlack);
    const auto open =
        Drawn({LegendSample::Patch, MakeSymbolCode(15, kNoFill, 0), "open"}, Kind::Polygon);
    EXPECT_EQ(open.at(0).colour, TableColour(15)) << "nothing else shows the colour";
}

TEST_F(Legend, OfAClassifiedPlotListsClassesInThePlaceOfRows) {
    AddRow(30, 120);
    EXPECT_EQ(Texts().back(), "Poles to planes");
    ActiveRecord().ClassMode = 1;
    EXPECT_EQ(Texts(), TextsWith(ClassLegendLines(ActivePlot(), gSettings.styles)));
}

TEST_F(Legend, CallsTheOtherSetOfTheRowsByWhatItIs) {
    AddRow(30, 120);
    AddOverlay(kOverlayLines, 10, 10, CodeOfStyleRow(3));
    EXPECT_EQ(Texts().back(), "Overlay 1");
    ActiveRecord().SelectedOverlay = 1;
    EXPECT_EQ(Texts().back(), "Secondary lines");
    ActiveRecord().OverlayKind[1] = kOverlayPoles;
    EXPECT_EQ(Texts().back(), "Secondary planes");
}

TEST_F(Legend, OfARoseIsTheRosesOwn) {
    AddRow(30, 120);
    ActiveRecord().PlotSymbolMode = kPointDensitySymbols; // whose bands a net would list
    ActiveRecord().PlotKind = kRose;
    EXPECT_EQ(Texts(), TextsWith(RoseLegendLines(ActivePlot(), gSettings.styles)));
}

TEST_F(Legend, OfAClassifiedPlotTellsOfIntersectionsWhereTheyAreDrawn) {
    AddRow(30, 120, 0);
    AddRow(60, 250, 0);
    PlotRecord& record = ActiveRecord();
    record.PlotSymbolMode = kBetaIntersections;
    record.BetaCount = 1;
    const auto tells = [] {
        const auto texts = Texts();
        return std::ranges::count(texts, "1 intersections of") == 1
               && std::ranges::count(texts, "2 planes") == 1;
    };
    for (std::int16_t mode = 1; mode <= 3; ++mode) {
        record.ClassMode = mode;
        EXPECT_TRUE(tells()) << mode;
    }
    record.ClassMode = 1;
    for (std::int16_t type = 0; type <= 4; ++type) {
        record.NumClasses = type;
        EXPECT_EQ(tells(), type == 0 || type == 4) << type;
    }
}

} // namespace
} // namespace quandrel
