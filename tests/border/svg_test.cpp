// SPDX-License-Identifier: MIT

#include "quandrel/svg.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

namespace quandrel::api {
namespace {

constexpr Pen kRed{{255, 0, 0}, 2};
constexpr Pen kNoPen{{}, 1, Dash::kNone};

/// The contents of a document between the tags of its root.
std::string BodyOf(const SvgPicture& picture) {
    const std::string document = picture.Document();
    const std::size_t first = document.find('\n') + 1;
    return document.substr(first, document.rfind("</svg>") - first);
}

std::size_t CountOf(std::string_view part, std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string_view::npos;
         at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

TEST(PublicSvg, WritesOneElementForEachShape) {
    SvgPicture picture({200, 100.5});
    EXPECT_EQ(picture.Document(),
              "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\"200\" "
              "height=\"100.5\" viewBox=\"0 0 200 100.5\">\n</svg>\n");
    const std::vector<Point> points = {{0, 1}, {2, 3.00049}, {-4, 5}};
    picture.Polyline(points, {.colour = {0, 16, 255}, .width = 0, .dash = Dash::kDashed});
    picture.Polygon(points, kNoPen, {Pattern::kSolid, {1, 2, 3}});
    picture.Circle({10, 20}, 5, kRed, {});
    EXPECT_EQ(BodyOf(picture),
              "<path d=\"M0 1L2 3L-4 5\" fill=\"none\" stroke=\"#0010ff\" stroke-width=\"0.25\" "
              "stroke-dasharray=\"4 2\"/>\n"
              "<path d=\"M0 1L2 3L-4 5Z\" fill=\"#010203\" stroke=\"none\"/>\n"
              "<circle cx=\"10\" cy=\"20\" r=\"5\" fill=\"none\" stroke=\"#ff0000\" "
              "stroke-width=\"2\"/>\n");
}

TEST(PublicSvg, ArcsGoClockwiseFromTheTop) {
    SvgPicture picture({200, 200});
    picture.Arc({100, 100}, 50, 0, 90, kRed);
    EXPECT_EQ(BodyOf(picture).substr(0, 75),
              "<path d=\"M100 50A50 50 0 0 1 135.355 64.645A50 50 0 0 1 150 100\" fill=\"none");
    picture.Clear({255, 255, 255});
    EXPECT_EQ(BodyOf(picture), "<path d=\"M0 0L200 0L200 200L0 200Z\" fill=\"#ffffff\" "
                               "stroke=\"none\"/>\n");
    picture.Wedge({100, 100}, 50, 90, 360, kRed, {Pattern::kSolid, {}});
    EXPECT_NE(BodyOf(picture).find("M150 100A50 50 0 0 1 50 100A50 50 0 0 1 150 100L100 100Z"),
              std::string::npos)
        << BodyOf(picture);
}

TEST(PublicSvg, DefinesEachHatchOnce) {
    SvgPicture picture({200, 200});
    for (const Pattern pattern :
         {Pattern::kHorizontal, Pattern::kVertical, Pattern::kUpward, Pattern::kDownward,
          Pattern::kCross, Pattern::kDiagonalCross, Pattern::kCross}) {
        picture.Circle({10, 20}, 5, kRed, {pattern, {0, 128, 0}});
    }
    EXPECT_EQ(CountOf("<pattern", BodyOf(picture)), 6U);
    EXPECT_EQ(CountOf("id=\"hatch6-008000\"", BodyOf(picture)), 1U);
    EXPECT_EQ(CountOf("fill=\"url(#hatch6-008000)\"", BodyOf(picture)), 2U);
}

TEST(PublicSvg, PathsAreOneElementWithHoles) {
    SvgPicture picture({200, 200});
    const std::vector<std::vector<Point>> rings = {
        {{0, 0}, {90, 0}, {90, 90}}, {}, {{30, 10}, {60, 10}, {60, 30}}};
    picture.Path(rings, kNoPen, {Pattern::kSolid, {1, 2, 3}});
    EXPECT_EQ(BodyOf(picture), "<path d=\"M0 0L90 0L90 90ZM30 10L60 10L60 30Z\" "
                               "fill-rule=\"evenodd\" fill=\"#010203\" stroke=\"none\"/>\n");
}

TEST(PublicSvg, WritesOpacitiesAndExactPoints) {
    SvgPicture picture({200, 200});
    picture.Circle({10, 20}, 5, {.width = 7, .points = 0.35, .opacity = 0.5},
                   {Pattern::kSolid, {}, 0.25});
    picture.Circle({10, 20}, 5, {.opacity = 2}, {Pattern::kNone, {}, 0.25});
    EXPECT_EQ(BodyOf(picture),
              "<circle cx=\"10\" cy=\"20\" r=\"5\" fill=\"#000000\" fill-opacity=\"0.25\" "
              "stroke=\"#000000\" stroke-opacity=\"0.5\" stroke-width=\"0.35pt\"/>\n"
              "<circle cx=\"10\" cy=\"20\" r=\"5\" fill=\"none\" stroke=\"#000000\" "
              "stroke-opacity=\"1\" stroke-width=\"1\"/>\n");
}

TEST(PublicSvg, ClipsAreGroupsThatEndAndAreDefinedOnce) {
    SvgPicture picture({200, 200});
    picture.PushClip({100, 100.5}, 50);
    picture.PushClip({120, 100}, 50);
    picture.Circle({10, 20}, 5, kRed, {});
    const std::string unfinished = picture.Document();
    picture.PopClip();
    picture.PopClip();
    EXPECT_EQ(picture.Document(), unfinished) << "clips that are open are ended in the document";
    EXPECT_EQ(BodyOf(picture),
              "<clipPath id=\"clip100_100.5_50\"><circle cx=\"100\" cy=\"100.5\" r=\"50\"/>"
              "</clipPath>\n<g clip-path=\"url(#clip100_100.5_50)\">\n"
              "<clipPath id=\"clip120_100_50\"><circle cx=\"120\" cy=\"100\" r=\"50\"/>"
              "</clipPath>\n<g clip-path=\"url(#clip120_100_50)\">\n"
              "<circle cx=\"10\" cy=\"20\" r=\"5\" fill=\"none\" stroke=\"#ff0000\" "
              "stroke-width=\"2\"/>\n</g>\n</g>\n");
    picture.PushClip({120, 100}, 50);
    picture.PopClip();
    EXPECT_EQ(CountOf("<clipPath id=\"clip120_100_50\"", BodyOf(picture)), 1U);
    EXPECT_EQ(CountOf("<g", BodyOf(picture)), CountOf("</g>", BodyOf(picture)));
}

TEST(PublicSvg, TextsAreEscaped) {
    SvgPicture picture({200, 200});
    picture.Text({10, 20}, "a<b & \"Störung\"\x01", {"A\"B", 7.5, true, false, true}, {0, 0, 255});
    EXPECT_EQ(BodyOf(picture),
              "<text xml:space=\"preserve\" x=\"10\" y=\"28\" font-family=\"A&quot;B\" "
              "font-size=\"10\" font-weight=\"bold\" text-decoration=\"underline\" "
              "fill=\"#0000ff\">a&lt;b &amp; &quot;Störung&quot;</text>\n");
}

TEST(PublicSvg, HoldsAllThatARecordingHolds) {
    Plot plot;
    plot.rowsAs = RowsAs::kContoursOnDensities;
    plot.rows.planes = {{40, 120}, {38, 118}, {41, 125}, {70, 300}, {71, 301}};
    SvgPicture picture({550, 550});
    SvgPicture legend({160, 400});
    Recording net({550, 550});
    Recording lines({160, 400});
    DrawPlot(plot, {.plot = picture, .legend = legend});
    DrawPlot(plot, {.plot = net, .legend = lines});
    std::size_t elements = 0;
    for (const Operation& operation : net.Operations()) {
        elements += operation.kind == Operation::Kind::kMarkers
                        ? operation.points.size() * operation.marker.parts.size()
                        : 1;
    }
    const std::string body = BodyOf(picture);
    EXPECT_GT(elements, 20U);
    EXPECT_EQ(CountOf("\n", body), elements);
    EXPECT_EQ(CountOf("<path", body) + CountOf("<circle", body) + CountOf("<text", body), elements);
    EXPECT_EQ(body.find("nan"), std::string::npos);
    EXPECT_EQ(CountOf("<text", BodyOf(legend)),
              static_cast<std::size_t>(
                  std::ranges::count_if(lines.Operations(), [](const Operation& operation) {
                      return operation.kind == Operation::Kind::kText;
                  })));
}

} // namespace
} // namespace quandrel::api
