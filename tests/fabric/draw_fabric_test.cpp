// SPDX-License-Identifier: MIT
//
// The picture of a fabric plot by its recorded operations: where the points are, that no text
// covers another, at the sizes of paper and of windows.

#include "fabric/draw_fabric.h"
#include "fabric/label_places.h"
#include "platform/scripted/recording_surface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace quandrel {
namespace {

using Kind = DrawOperation::Kind;

constexpr double kPixelsInPoint = 96.0 / 72;
constexpr int kDot = 2; // a filled circle

FabricPoint PointOf(const std::string& name, const DescendingEigenvalues& s) {
    FabricPoint point;
    point.name = name;
    point.count = 20;
    point.eigenvalues = s;
    point.place = LogRatioPlaceOf(s);
    point.shares = SharesOf(s);
    point.symbol = kDot;
    point.colour = {200, 0, 0};
    return point;
}

/// Fabrics all over both diagrams, some of them nearly the same.
std::vector<FabricPoint> ManyPoints() {
    return {
        PointOf("a cluster", {0.9, 0.07, 0.03}),
        PointOf("a girdle", {0.5, 0.48, 0.02}),
        PointOf("nothing at all", {0.36, 0.33, 0.31}),
        PointOf("beds", {0.62, 0.33, 0.05}),
        PointOf("the same beds, in the north of the quarry by the old road", {0.61, 0.34, 0.05}),
        PointOf("the same again", {0.615, 0.335, 0.05}),
        PointOf("strong", {0.99, 0.009, 0.001}),
        PointOf("in one plane", {0.6, 0.4, 0}),
        PointOf("uniform", {1.0 / 3, 1.0 / 3, 1.0 / 3})};
}

std::vector<DrawOperation> Drawn(FabricDiagram diagram, const std::vector<FabricPoint>& points,
                                 FabricPictureSize size) {
    RecordingSurface surface(size.width * kPixelsInPoint, size.height * kPixelsInPoint);
    DrawFabric(surface, diagram, points);
    return surface.Operations();
}

std::vector<DrawOperation> OnPaper(FabricDiagram diagram, const std::vector<FabricPoint>& points) {
    return Drawn(diagram, points, PaperSizeOf(diagram, points));
}

/// The boxes of the texts; a character of the recording surface is six tenths of its height wide.
std::vector<LabelBox> BoxesOf(const std::vector<DrawOperation>& operations) {
    std::vector<LabelBox> boxes;
    for (const DrawOperation& operation : operations) {
        if (operation.kind == Kind::Text) {
            const double height = operation.state.font.points;
            const double width = 0.6 * height * static_cast<double>(operation.text.size());
            const Point at = operation.points[0];
            boxes.push_back({at.x, at.y - height, width, height});
        }
    }
    return boxes;
}

std::vector<std::string> TextsOf(const std::vector<DrawOperation>& operations) {
    std::vector<std::string> texts;
    for (const DrawOperation& operation : operations) {
        if (operation.kind == Kind::Text) {
            texts.push_back(operation.text);
        }
    }
    return texts;
}

std::vector<Point> MarkersOf(const std::vector<DrawOperation>& operations) {
    std::vector<Point> at;
    for (const DrawOperation& operation : operations) {
        if (operation.kind == Kind::Markers) {
            at.push_back(operation.points[0]);
        }
    }
    return at;
}

bool Has(const std::vector<std::string>& texts, const std::string& text) {
    return std::ranges::find(texts, text) != texts.end();
}

void ExpectNoOverlap(const std::vector<DrawOperation>& operations, FabricPictureSize size) {
    const std::vector<LabelBox> boxes = BoxesOf(operations);
    const std::vector<std::string> texts = TextsOf(operations);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        EXPECT_GE(boxes[i].left, 0) << texts[i];
        EXPECT_GE(boxes[i].bottom, 0) << texts[i];
        EXPECT_LE(boxes[i].Right(), size.width + 1e-9) << texts[i];
        EXPECT_LE(boxes[i].Top(), size.height + 1e-9) << texts[i];
        for (std::size_t j = 0; j < i; ++j) {
            EXPECT_FALSE(Overlap(boxes[i], boxes[j])) << texts[i] << " and " << texts[j];
        }
    }
}

TEST(DrawFabric, NoTextCoversAnotherOnPaper) {
    for (const FabricDiagram diagram :
         {FabricDiagram::LogRatios, FabricDiagram::Triangle, FabricDiagram::Both}) {
        const std::vector<FabricPoint> points = ManyPoints();
        const FabricPictureSize size = PaperSizeOf(diagram, points);
        ExpectNoOverlap(Drawn(diagram, points, size), size);
    }
}

TEST(DrawFabric, NoTextCoversAnotherInWindows) {
    const std::vector<FabricPoint> points = ManyPoints();
    for (const FabricPictureSize size : {FabricPictureSize{600, 400}, {420, 300}, {900, 380}}) {
        for (const FabricDiagram diagram :
             {FabricDiagram::LogRatios, FabricDiagram::Triangle, FabricDiagram::Both}) {
            ExpectNoOverlap(Drawn(diagram, points, size), size);
        }
    }
}

TEST(DrawFabric, IsAColumnOrAPageWide) {
    const std::vector<FabricPoint> points = ManyPoints();
    EXPECT_NEAR(PaperSizeOf(FabricDiagram::LogRatios, points).width, 84 / 25.4 * 72, 1e-9);
    EXPECT_NEAR(PaperSizeOf(FabricDiagram::Triangle, points).width, 84 / 25.4 * 72, 1e-9);
    EXPECT_NEAR(PaperSizeOf(FabricDiagram::Both, points).width, 174 / 25.4 * 72, 1e-9);
}

TEST(DrawFabric, CornersOfTheTriangleAreThoseOfItsEnds) {
    const std::vector<FabricPoint> ends = {PointOf("p", {1, 0, 0}), PointOf("g", {0.5, 0.5, 0}),
                                           PointOf("r", {1.0 / 3, 1.0 / 3, 1.0 / 3})};
    const auto operations = OnPaper(FabricDiagram::Triangle, ends);
    const auto frame = std::ranges::find_if(
        operations, [](const DrawOperation& o) { return o.kind == Kind::Polygon; });
    ASSERT_NE(frame, operations.end());
    ASSERT_EQ(frame->points.size(), 3U);
    const std::vector<Point> at = MarkersOf(operations);
    ASSERT_EQ(at.size(), 6U) << "three in the triangle, three in the legend";
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(at[i].x, frame->points[i].x, 1e-9);
        EXPECT_NEAR(at[i].y, frame->points[i].y, 1e-9);
    }
    EXPECT_LT(at[0].x, at[1].x);
    EXPECT_LT(at[2].y, at[0].y);
}

TEST(DrawFabric, PlacesByLogRatiosAreOnTheScaleOfTheAxes) {
    // A uniform fabric is at the origin; ln(S1/S2) = ln(S2/S3) = 1 in the middle of axes to 2.
    const double e = 2.718281828459045;
    const double sum = e * e + e + 1;
    const std::vector<FabricPoint> points = {PointOf("uniform", {1.0 / 3, 1.0 / 3, 1.0 / 3}),
                                             PointOf("middle", {e * e / sum, e / sum, 1 / sum})};
    const auto operations = OnPaper(FabricDiagram::LogRatios, points);
    const auto frame = std::ranges::find_if(
        operations, [](const DrawOperation& o) { return o.kind == Kind::Polygon; });
    ASSERT_NE(frame, operations.end());
    const Point origin = frame->points[0];
    const Point end = frame->points[2];
    EXPECT_NEAR(end.x - origin.x, end.y - origin.y, 1e-9) << "K = 1 is a diagonal";
    const std::vector<Point> at = MarkersOf(operations);
    ASSERT_EQ(at.size(), 4U);
    EXPECT_NEAR(at[0].x, origin.x, 1e-6);
    EXPECT_NEAR(at[0].y, origin.y, 1e-6);
    EXPECT_NEAR(at[1].x, (origin.x + end.x) / 2, 1e-6);
    EXPECT_NEAR(at[1].y, (origin.y + end.y) / 2, 1e-6);
}

TEST(DrawFabric, LinesOfShapeAndStrengthAreLabelled) {
    const auto texts =
        TextsOf(OnPaper(FabricDiagram::LogRatios, {PointOf("a", {0.9, 0.08, 0.02})}));
    for (const char* text : {"K = 0.2", "K = 0.5", "K = 1", "K = 2", "K = 5", "C = 2", "C = 4",
                             "ln(S1/S2)", "ln(S2/S3)", "clusters", "girdles"}) {
        EXPECT_TRUE(Has(texts, text)) << text;
    }
}

TEST(DrawFabric, FabricsOfOnePlaneAreNotedAndNotDrawnByLogRatios) {
    const std::vector<FabricPoint> points = {PointOf("a", {0.6, 0.3, 0.1}),
                                             PointOf("b", {0.6, 0.4, 0})};
    const auto operations = OnPaper(FabricDiagram::LogRatios, points);
    EXPECT_EQ(MarkersOf(operations).size(), 3U) << "one in the diagram, two in the legend";
    EXPECT_TRUE(Has(TextsOf(operations), "Not in the diagram of log ratios, S3 = 0: 2"));
    EXPECT_EQ(MarkersOf(OnPaper(FabricDiagram::Triangle, points)).size(), 4U);
}

TEST(DrawFabric, ASingleFabricNeedsNoNumber) {
    const auto texts = TextsOf(OnPaper(FabricDiagram::Triangle, {PointOf("a", {0.6, 0.3, 0.1})}));
    EXPECT_FALSE(Has(texts, "1"));
    EXPECT_TRUE(Has(texts, "a (n = 20)"));
}

TEST(DrawFabric, WhiteSymbolsAreSeen) {
    FabricPoint point = PointOf("a", {0.6, 0.3, 0.1});
    point.colour = kWhite;
    for (const DrawOperation& operation : OnPaper(FabricDiagram::Both, {point})) {
        if (operation.kind == Kind::Markers) {
            EXPECT_EQ(operation.colour, kBlack);
        }
    }
}

TEST(DrawFabric, ALegendWithoutRoomEndsInDots) {
    std::vector<FabricPoint> points;
    for (int i = 0; i < 80; ++i) {
        points.push_back(PointOf("rows", {0.6, 0.3, 0.1}));
    }
    const auto texts = TextsOf(Drawn(FabricDiagram::Triangle, points, {300, 300}));
    EXPECT_TRUE(Has(texts, "..."));
}

TEST(LabelPlaces, TakesEachPlaceOnce) {
    LabelPlaces places({0, 0, 100, 100});
    const std::vector<LabelBox> candidates = {{10, 10, 20, 10}, {15, 12, 20, 10}, {40, 10, 20, 10}};
    EXPECT_EQ(places.TakeFirstFree(candidates)->left, 10);
    EXPECT_EQ(places.TakeFirstFree(candidates)->left, 40) << "the second covers the first";
    EXPECT_FALSE(places.TakeFirstFree(candidates));
    EXPECT_FALSE(places.TakeFirstFree(std::vector<LabelBox>{{95, 50, 20, 10}}))
        << "leaves the room";
}

TEST(LabelPlaces, AvoidsLinesWhileItCan) {
    LabelPlaces places({0, 0, 100, 100});
    places.Avoid({0, 0}, {100, 100});
    const std::vector<LabelBox> candidates = {{45, 45, 10, 10}, {70, 10, 10, 10}};
    EXPECT_EQ(places.TakeFirstFree(candidates)->left, 70);
    EXPECT_EQ(places.TakeFirstFree(candidates)->left, 45);
    EXPECT_TRUE(Crosses({0, 5}, {20, 5}, {8, 0, 4, 10}));
    EXPECT_FALSE(Crosses({0, 15}, {20, 15}, {8, 0, 4, 10}));
    EXPECT_FALSE(Crosses({0, 5}, {6, 5}, {8, 0, 4, 10}));
}

} // namespace
} // namespace quandrel
