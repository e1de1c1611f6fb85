// SPDX-License-Identifier: MIT

#include "quandrel/svg.h"
#include "support/text_counts.h"

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

TEST(PublicSvg, WritesOneElementForEachShape) {
    SvgPicture picture({200, 100.5});
    EXPECT_EQ(picture.Document(),
              "<svg xmlns=\"http://www.w3.org/2000/svg\" "
              "xmlns:xlink=\"http://www.w3.org/1999/xlink\" version=\"1.1\" width=\"52.917mm\" "
              "height=\"26.591mm\" viewBox=\"0 0 200 100.5\">\n</svg>\n");
    const std::vector<Point> points = {{0, 1}, {2, 3.00049}, {-4, 5}};
    picture.Polyline(points, {.colour = {0, 16, 255}, .width = 0, .dash = Dash::kDashed});
    picture.Polygon(points, kNoPen, {Pattern::kSolid, {1, 2, 3}});
    picture.Circle({10, 20}, 5, kRed, {});
    EXPECT_EQ(BodyOf(picture),
              "<g fill=\"none\" stroke=\"#0010ff\" stroke-width=\"0.25\" "
              "stroke-dasharray=\"1 0.5\">\n<path d=\"M0 1L2 3L-4 5\"/>\n</g>\n"
              "<g fill=\"#010203\">\n<path d=\"M0 1L2 3L-4 5Z\"/>\n</g>\n"
              "<g fill=\"none\" stroke=\"#ff0000\" stroke-width=\"2\" stroke-linecap=\"round\">\n"
              "<circle cx=\"10\" cy=\"20\" r=\"5\"/>\n</g>\n");
}

TEST(PublicSvg, ArcsGoClockwiseFromTheTop) {
    SvgPicture picture({200, 200});
    picture.Arc({100, 100}, 50, 0, 90, kRed);
    EXPECT_NE(BodyOf(picture).find("<path d=\"M100 50A50 50 0 0 1 150 100\"/>"), std::string::npos)
        << BodyOf(picture);
    picture.Clear({255, 255, 255});
    EXPECT_EQ(BodyOf(picture), "<g fill=\"#ffffff\">\n<rect x=\"0\" y=\"0\" width=\"200\" "
                               "height=\"200\"/>\n</g>\n");
    picture.Wedge({100, 100}, 50, 90, 360, kRed, {Pattern::kSolid, {}});
    const std::string wedge = BodyOf(picture);
    EXPECT_NE(wedge.find("M150 100A50 50 0 0 1 "), std::string::npos) << wedge;
    EXPECT_NE(wedge.find("A50 50 0 0 1 150 100L100 100Z"), std::string::npos) << wedge;
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
    EXPECT_EQ(BodyOf(picture), "<g fill=\"#010203\">\n<path fill-rule=\"evenodd\" "
                               "d=\"M0 0L90 0L90 90ZM30 10L60 10L60 30Z\"/>\n</g>\n");
}

TEST(PublicSvg, WritesOpacitiesAndExactPoints) {
    SvgPicture picture({200, 200});
    picture.Circle({10, 20}, 5, {.width = 7, .points = 0.75, .opacity = 0.5},
                   {Pattern::kSolid, {}, 0.25});
    picture.Circle({10, 20}, 5, {.opacity = 2}, {Pattern::kNone, {}, 0.25});
    EXPECT_EQ(BodyOf(picture),
              "<g fill=\"#000000\" fill-opacity=\"0.25\" stroke=\"#000000\" "
              "stroke-opacity=\"0.5\" stroke-width=\"1\" stroke-linecap=\"round\">\n"
              "<circle cx=\"10\" cy=\"20\" r=\"5\"/>\n</g>\n"
              "<g fill=\"none\" stroke=\"#000000\" stroke-opacity=\"1\" stroke-width=\"1\" "
              "stroke-linecap=\"round\">\n<circle cx=\"10\" cy=\"20\" r=\"5\"/>\n</g>\n");
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
              "<defs>\n<clipPath id=\"clip100_100.5_50\"><circle cx=\"100\" cy=\"100.5\" "
              "r=\"50\"/></clipPath>\n<clipPath id=\"clip120_100_50\"><circle cx=\"120\" "
              "cy=\"100\" r=\"50\"/></clipPath>\n</defs>\n"
              "<g clip-path=\"url(#clip100_100.5_50)\">\n<g clip-path=\"url(#clip120_100_50)\">\n"
              "<g fill=\"none\" stroke=\"#ff0000\" stroke-width=\"2\" stroke-linecap=\"round\">\n"
              "<circle cx=\"10\" cy=\"20\" r=\"5\"/>\n</g>\n</g>\n</g>\n");
    picture.PushClip({120, 100}, 50);
    picture.Circle({10, 20}, 5, kRed, {});
    picture.PopClip();
    EXPECT_EQ(CountOf("<clipPath id=\"clip120_100_50\"", BodyOf(picture)), 1U);
    EXPECT_EQ(CountOf("<g", BodyOf(picture)), CountOf("</g>", BodyOf(picture)));
}

TEST(PublicSvg, TextsAreEscaped) {
    SvgPicture picture({200, 200});
    picture.Text({10, 20}, "a<b & \"Störung\"\x01", {"A\"B", 7.5, true, false, true}, {0, 0, 255});
    EXPECT_EQ(BodyOf(picture),
              "<g xml:space=\"preserve\" fill=\"#0000ff\" font-family=\"'A&quot;B', Liberation "
              "Sans, Arial, Helvetica, sans-serif\" font-size=\"10\" font-weight=\"bold\" "
              "text-decoration=\"underline\">\n"
              "<text x=\"10\" y=\"29.053\">a&lt;b &amp; &quot;Störung&quot;\xef\xbf\xbd</text>\n"
              "</g>\n");
    EXPECT_NEAR(picture.TextWidth("WI", {.points = 7.5}), 10 * (0.944 + 0.278), 0.01);
    EXPECT_NEAR(picture.TextHeight({.points = 7.5}), 11.17, 0.01);
}

TEST(PublicSvg, MarkersAreSymbolsThatHideEachOther) {
    SvgPicture picture({200, 200});
    Marker marker{{{MarkerPart::Kind::kCircle, {{0, 0}}, 3, kRed, {}},
                   {MarkerPart::Kind::kLine, {{-1, 0}, {1, 0}}, 0, kRed, {}}}};
    const std::vector<Point> places = {{10, 20}, {30, 40}, {10, 20}};
    picture.Markers(marker, places);
    EXPECT_EQ(CountOf("<use ", BodyOf(picture)), 2U);
    EXPECT_EQ(CountOf("<circle", BodyOf(picture)), 1U);
    marker.parts[0].pen.opacity = 0.5;
    picture.Markers(marker, places);
    EXPECT_EQ(CountOf("<use ", BodyOf(picture)), 5U) << "translucent ones add up";
}

TEST(PublicSvg, ACopyIsAPictureOfItsOwn) {
    SvgPicture picture({200, 200});
    picture.Circle({10, 20}, 5, kRed, {});
    SvgPicture copy = picture;
    copy.Circle({30, 20}, 5, kRed, {});
    EXPECT_EQ(CountOf("<circle", picture.Document()), 1U);
    EXPECT_EQ(CountOf("<circle", copy.Document()), 2U);
    picture = copy;
    EXPECT_EQ(picture.Document(), copy.Document());
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
    std::size_t shapes = 0;
    std::size_t symbols = 0;
    std::size_t texts = 0;
    for (const Operation& operation : net.Operations()) {
        const bool isMarkers = operation.kind == Operation::Kind::kMarkers;
        symbols += isMarkers ? operation.points.size() : 0;
        texts += operation.kind == Operation::Kind::kText ? 1 : 0;
        shapes += isMarkers || operation.kind == Operation::Kind::kText ? 0 : 1;
    }
    const std::string document = BodyOf(picture);
    const std::size_t end = document.find("</defs>\n");
    ASSERT_NE(end, std::string::npos);
    const std::string body = document.substr(end);
    EXPECT_GT(shapes, 5U);
    EXPECT_GT(shapes + symbols, 20U);
    EXPECT_EQ(CountOf("<path", body) + CountOf("<circle", body) + CountOf("<rect", body), shapes);
    EXPECT_EQ(CountOf("<use", body), symbols);
    EXPECT_EQ(CountOf("<text", body), texts);
    EXPECT_EQ(body.find("nan"), std::string::npos);
    for (const char* group : {"net", "grid-symbols", "contours"}) {
        EXPECT_EQ(CountOf(std::string("<g id=\"") + group + "\">", body), 1U) << group;
    }
    EXPECT_EQ(CountOf("<text", BodyOf(legend)),
              static_cast<std::size_t>(
                  std::ranges::count_if(lines.Operations(), [](const Operation& operation) {
                      return operation.kind == Operation::Kind::kText;
                  })));
}

} // namespace
} // namespace quandrel::api
