// SPDX-License-Identifier: MIT
//
// Quantile plots as drawn.

#include "hypotheses/draw_quantiles.h"
#include "platform/scripted/recording_surface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace quandrel {
namespace {

using Kind = DrawOperation::Kind;

std::vector<QuantilePlot> ThreePlots() {
    std::vector<QuantilePlot> plots = {
        {"Colatitudes", "Exponential distribution", "1 - cos(colatitude)", {}, 0.05, false},
        {"Longitudes", "Uniform distribution", "Longitude, turns", {}, 1, false},
        {"Two variables", "Normal distribution", "Scaled longitude", {}, 0.22, true}};
    for (int i = 0; i < 40; ++i) {
        const double share = (i + 0.5) / 40;
        plots[0].points.push_back({-std::log1p(-share), -0.05 * std::log1p(-share)});
        plots[1].points.push_back({share, share});
        plots[2].points.push_back({2 * share - 1, 0.22 * (2 * share - 1)});
    }
    return plots;
}

struct TextBox {
    double left;
    double right;
    double bottom;
    double top;
    std::string text;
};

class QuantilePicture : public ::testing::Test {
protected:
    void Draw(double width, double height) {
        surface = std::make_unique<RecordingSurface>(width, height);
        surface->SetUserScale(kPlotScale);
        DrawQuantiles(*surface, ThreePlots());
    }

    /// The places of texts, logical pixels.
    std::vector<TextBox> Texts(double width, double height) {
        std::vector<TextBox> boxes;
        const DrawState former = surface->State();
        surface->SetUserScale({0, height, width, 0});
        for (const DrawOperation& one : surface->Operations()) {
            if (one.kind == Kind::Text) {
                surface->SetState(one.state);
                const Point at = one.points[0];
                boxes.push_back({at.x, at.x + surface->TextWidth(one.text),
                                 at.y - surface->TextHeight(), at.y, one.text});
            }
        }
        surface->SetState(former);
        return boxes;
    }

    std::unique_ptr<RecordingSurface> surface;
};

TEST_F(QuantilePicture, NoTextsOverlapNorLeaveThePicture) {
    for (const auto& [width, height] :
         {std::pair{kQuantilesWidth, kQuantilesHeight}, {560.0, 190.0}, {1200.0, 400.0}}) {
        Draw(width, height);
        const std::vector<TextBox> boxes = Texts(width, height);
        ASSERT_GT(boxes.size(), 9U);
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            const TextBox& a = boxes[i];
            EXPECT_GE(a.left, 0) << a.text;
            EXPECT_LE(a.right, width) << a.text;
            EXPECT_GE(a.bottom, 0) << a.text;
            EXPECT_LE(a.top, height) << a.text;
            for (std::size_t j = 0; j < i; ++j) {
                const TextBox& b = boxes[j];
                EXPECT_TRUE(a.right <= b.left || b.right <= a.left || a.top <= b.bottom
                            || b.top <= a.bottom)
                    << a.text << " over " << b.text << " at width " << width;
            }
        }
    }
}

TEST_F(QuantilePicture, PointsOfTheHypothesisAreOnItsLine) {
    Draw(kQuantilesWidth, kQuantilesHeight);
    std::vector<DrawOperation> lines;
    std::vector<DrawOperation> points;
    for (const DrawOperation& one : surface->Operations()) {
        if (one.kind == Kind::Line && one.state.widthInPoints > 0.9) {
            lines.push_back(one);
        } else if (one.kind == Kind::Markers) {
            points.push_back(one);
        }
    }
    ASSERT_EQ(lines.size(), 3U);
    ASSERT_EQ(points.size(), 3U);
    for (std::size_t plot = 0; plot < 3; ++plot) {
        const Point from = lines[plot].points[0];
        const Point to = lines[plot].points[1];
        EXPECT_EQ(points[plot].points.size(), 40U);
        for (const Point& at : points[plot].points) {
            const double share = (at.x - from.x) / (to.x - from.x);
            EXPECT_NEAR(at.y, from.y + share * (to.y - from.y), 1e-9);
            EXPECT_GE(share, 0);
            EXPECT_LE(share, 1);
        }
    }
}

TEST_F(QuantilePicture, LeavesScaleAndStateAsTheyWere) {
    Draw(640, 250);
    EXPECT_EQ(surface->Scale(), kPlotScale);
    EXPECT_EQ(surface->State(), DrawState());
}

} // namespace
} // namespace quandrel
