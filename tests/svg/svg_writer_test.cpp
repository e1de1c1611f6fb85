// SPDX-License-Identifier: MIT

#include "support/text_counts.h"
#include "svg/svg_numbers.h"
#include "svg/svg_writer.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

namespace quandrel {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

constexpr SvgFill kBlackFill{kSolidFill, kBlack, 1, {}};
constexpr SvgFill kCrossFill{kCrossHatch, kBlack, 1, {}};

/// What a document holds after the tag of its root.
std::string BodyOf(const SvgWriter& writer) {
    const std::string document = writer.Document();
    const std::size_t first = document.find('\n') + 1;
    return document.substr(first, document.rfind("</svg>") - first);
}

TEST(NumberText, RoundsToThousandthsWithoutZeros) {
    const std::pair<double, const char*> kNumbers[] = {
        {0, "0"},           {-0.0, "0"},      {1, "1"},           {-12.5, "-12.5"},
        {0.001, "0.001"},   {0.0004, "0"},    {-0.0004, "0"},     {2.99951, "3"},
        {0.1, "0.1"},       {-0.05, "-0.05"}, {100.25, "100.25"}, {123456.789, "123456.789"},
        {1e9, "1000000000"}};
    for (const auto& [number, text] : kNumbers) {
        EXPECT_EQ(NumberText(number), text);
    }
    EXPECT_EQ(NumberText(std::numeric_limits<double>::max()), "1000000000000");
    EXPECT_EQ(NumberText(-std::numeric_limits<double>::infinity()), "-1000000000000");
}

TEST(SvgWriter, TheRootHasTheTrueSize) {
    const SvgWriter points(72, 36, 0.75);
    EXPECT_EQ(points.Document(),
              "<svg xmlns=\"http://www.w3.org/2000/svg\" "
              "xmlns:xlink=\"http://www.w3.org/1999/xlink\" version=\"1.1\" width=\"25.4mm\" "
              "height=\"12.7mm\" viewBox=\"0 0 72 36\">\n</svg>\n");
    const SvgWriter pixels(96, 48, 1);
    EXPECT_NE(pixels.Document().find(" width=\"25.4mm\" height=\"12.7mm\" viewBox=\"0 0 96 48\""),
              std::string::npos);
}

TEST(SvgWriter, ConsecutiveShapesOfOneStyleShareAGroup) {
    SvgWriter writer(100, 100, 1);
    const SvgPen red{{255, 0, 0}, 2};
    writer.Add(EllipseShape({10, 20}, 5, 5), red);
    writer.Add(EllipseShape({30, 20}, 5, 2.5), red);
    writer.Add(BoxShape({9, 8}, {1, 2}), red, {kSolidFill, {0, 128, 0}, 0.5, {}});
    writer.Add(BoxShape({1, 2}, {9, 8}), kNoSvgPen);
    EXPECT_EQ(BodyOf(writer),
              "<g fill=\"none\" stroke=\"#ff0000\" stroke-width=\"2\" stroke-linecap=\"round\">\n"
              "<circle cx=\"10\" cy=\"20\" r=\"5\"/>\n"
              "<ellipse cx=\"30\" cy=\"20\" rx=\"5\" ry=\"2.5\"/>\n"
              "</g>\n"
              "<g fill=\"#008000\" fill-opacity=\"0.5\" stroke=\"#ff0000\" stroke-width=\"2\" "
              "stroke-linecap=\"round\">\n"
              "<rect x=\"1\" y=\"2\" width=\"8\" height=\"6\"/>\n"
              "</g>\n");
}

TEST(SvgWriter, DashesAreInProportionToTheWidth) {
    const auto strokeOf = [](int style) {
        SvgWriter writer(100, 100, 1);
        const std::array<Point, 2> line = {Point{0, 0}, Point{9, 0}};
        writer.Add(LineShape(line), {kBlack, 1.5, style});
        return BodyOf(writer);
    };
    EXPECT_NE(strokeOf(kDashedLine).find("stroke-dasharray=\"6 3\""), std::string::npos);
    EXPECT_NE(strokeOf(kDottedLine).find("stroke-dasharray=\"1.5 3\""), std::string::npos);
    EXPECT_NE(strokeOf(kDashDotLine).find("\"6 3 1.5 3\""), std::string::npos);
    EXPECT_NE(strokeOf(kDashDotDotLine).find("\"6 3 1.5 3 1.5 3\""), std::string::npos);
    EXPECT_EQ(strokeOf(kDashedLine).find("linecap"), std::string::npos) << "flat ends";
    EXPECT_EQ(strokeOf(kSolidLine).find("dash"), std::string::npos);
    EXPECT_EQ(strokeOf(kNoLine), "") << "nothing is seen";
}

TEST(SvgWriter, ShapesThatAreNowhereAreLeftOut) {
    SvgWriter writer(100, 100, 1);
    const std::array<Point, 2> bad = {Point{0, 0}, Point{kNaN, 1}};
    const std::vector<std::vector<Point>> rings = {{{0, 0}, {INFINITY, 1}}};
    for (const std::string& shape :
         {LineShape(bad), ClosedShape(bad), LineShape({}), RingsShape(rings), RingsShape({}),
          EllipseShape({0, 0}, kNaN, 1), BoxShape({0, 0}, {1, INFINITY}),
          ArcShape({{0, 0}, 1, 1, kNaN, 1}), WedgeShape({{kNaN, 0}, 1, 1, 0, 1})}) {
        writer.Add(shape, {});
    }
    writer.Text({0, kNaN}, "no", {}, kBlack);
    writer.Use("s", std::array<Point, 2>{Point{kNaN, 0}, Point{1e9, 0}}, SvgRepeats::Last);
    EXPECT_EQ(BodyOf(writer), "");
}

TEST(SvgWriter, SymbolsAreDefinedOnceAndReferredTo) {
    SvgWriter writer(100, 100, 1);
    const std::array<SvgPart, 1> disc = {
        SvgPart{EllipseShape({0, 0}, 3, 3), {kBlack, 1, kSolidLine, 1, SvgCap::Square}, {}}};
    const std::string symbol = writer.Symbol(disc);
    EXPECT_EQ(writer.Symbol(disc), symbol);
    const std::array<Point, 4> places = {Point{1, 2}, Point{3, 4}, Point{1.0002, 2}, Point{5, 6}};
    writer.Use(symbol, places, SvgRepeats::Last);
    const std::string body = BodyOf(writer);
    EXPECT_EQ(body, "<defs>\n<g id=\"" + symbol
                        + "\"><circle cx=\"0\" cy=\"0\" r=\"3\" fill=\"none\" stroke=\"#000000\" "
                          "stroke-width=\"1\" stroke-linecap=\"square\"/></g>\n</defs>\n"
                          "<use xlink:href=\"#"
                        + symbol + "\" x=\"3\" y=\"4\"/>\n<use xlink:href=\"#" + symbol
                        + "\" x=\"1\" y=\"2\"/>\n<use xlink:href=\"#" + symbol
                        + "\" x=\"5\" y=\"6\"/>\n");
    writer.Use(symbol, places, SvgRepeats::All);
    EXPECT_EQ(CountOf("<use", BodyOf(writer)), 3U + 4U);
    const std::array<SvgPart, 1> ring = {SvgPart{EllipseShape({0, 0}, 4, 4), {}, {}}};
    EXPECT_NE(writer.Symbol(ring), symbol);
}

TEST(SvgWriter, SymbolsStandOutsideTheGroupOfAStyle) {
    SvgWriter writer(100, 100, 1);
    writer.Add(EllipseShape({10, 20}, 5, 5), {kBlack, 1, kDashedLine});
    const std::array<SvgPart, 1> disc = {SvgPart{EllipseShape({0, 0}, 3, 3), {}, {}}};
    writer.Use(writer.Symbol(disc), std::array<Point, 1>{Point{1, 2}}, SvgRepeats::Last);
    EXPECT_NE(BodyOf(writer).find("</g>\n<use"), std::string::npos) << "dashes are inherited";
}

TEST(SvgWriter, GroupsAreNamedOnceAndOnlyWrittenWithContents) {
    SvgWriter writer(100, 100, 1);
    const auto dot = [&] { writer.Add(EllipseShape({1, 1}, 1, 1), kNoSvgPen, kBlackFill); };
    writer.BeginGroup("empty", "Nothing");
    writer.EndGroup();
    for (int i = 0; i < 2; ++i) {
        writer.BeginGroup("rows", "Beds & <joints>\x01");
        writer.BeginGroup("2 b\"", "");
        dot();
        writer.EndGroup();
        writer.EndGroup();
    }
    const std::string dots = "<g fill=\"#000000\">\n<circle cx=\"1\" cy=\"1\" r=\"1\"/>\n</g>\n";
    const std::string title = "<title>Beds &amp; &lt;joints&gt;\xef\xbf\xbd</title>\n";
    EXPECT_EQ(BodyOf(writer), "<g id=\"rows\">\n" + title + "<g id=\"g2-b-\">\n" + dots
                                  + "</g>\n</g>\n<g id=\"rows-2\">\n" + title
                                  + "<g id=\"g2-b--2\">\n" + dots + "</g>\n</g>\n");
    writer.EndGroup();
    EXPECT_EQ(CountOf("</g>", BodyOf(writer)), CountOf("<g", BodyOf(writer)))
        << "an end without a beginning is ignored";
}

TEST(SvgWriter, ClipsAndGroupsThatAreOpenEndInTheDocument) {
    SvgWriter writer(100, 100, 1);
    writer.BeginGroup("net", "Net");
    writer.PushClip({50, 50.5}, 40, 40);
    writer.PushClip({50, 50}, 40, 20);
    writer.Add(EllipseShape({1, 1}, 1, 1), {});
    const std::string unfinished = writer.Document();
    writer.PopClip();
    writer.PopClip();
    writer.EndGroup();
    EXPECT_EQ(writer.Document(), unfinished);
    EXPECT_NE(unfinished.find("<clipPath id=\"clip50_50.5_40\"><circle cx=\"50\" cy=\"50.5\" "
                              "r=\"40\"/></clipPath>\n<clipPath id=\"clip50_50_40_20\"><ellipse"),
              std::string::npos);
    EXPECT_NE(unfinished.find("<g clip-path=\"url(#clip50_50.5_40)\">\n"
                              "<g clip-path=\"url(#clip50_50_40_20)\">\n<g fill"),
              std::string::npos);
    writer.PushClip({50, 50.5}, 40, 40);
    writer.Add(EllipseShape({1, 1}, 1, 1), {});
    writer.PopClip();
    EXPECT_EQ(CountOf("<clipPath id=\"clip50_50.5_40\"", BodyOf(writer)), 1U);
}

TEST(SvgWriter, DefinesEachHatchOnce) {
    SvgWriter writer(100, 100, 0.75);
    for (int round = 0; round < 2; ++round) {
        for (int style = kHorizontalHatch; style <= kDiagonalCrossHatch; ++style) {
            writer.Add(EllipseShape({9, 9}, 5, 5), {}, {style, {0, 128, 0}, 1, {12, 0.5}});
        }
    }
    const std::string body = BodyOf(writer);
    EXPECT_EQ(CountOf("<pattern", body), 6U);
    EXPECT_EQ(CountOf("fill=\"url(#hatch5-008000-12_0.5)\"", body), 2U);
    EXPECT_NE(body.find("<pattern id=\"hatch5-008000-12_0.5\" x=\"-2.25\" y=\"-2.25\" "
                        "width=\"4.5\" height=\"4.5\" patternUnits=\"userSpaceOnUse\" "
                        "patternTransform=\"translate(12 0.5)rotate(45)\"><path fill=\"none\" "
                        "d=\"M0 2.25H4.5\" stroke=\"#008000\" stroke-width=\"0.75\"/></pattern>"),
              std::string::npos)
        << body;
}

TEST(SvgWriter, NamesFamiliesThatHaveTheWidths) {
    SvgWriter writer(100, 100, 1);
    writer.Text({1, 2}, "a  b", {"Ann's \\ \"font\"", 8, true, true, true}, {0, 0, 255});
    writer.Text({1, 12}, "c", {"", 8, false, false, false}, kBlack);
    EXPECT_EQ(BodyOf(writer),
              "<g xml:space=\"preserve\" fill=\"#0000ff\" font-family=\"'Ann\\'s \\\\ "
              "&quot;font&quot;', Liberation Sans, Arial, Helvetica, sans-serif\" font-size=\"8\" "
              "font-weight=\"bold\" font-style=\"italic\" text-decoration=\"underline\">\n"
              "<text x=\"1\" y=\"2\">a  b</text>\n</g>\n"
              "<g xml:space=\"preserve\" fill=\"#000000\" font-family=\"Liberation Sans, Arial, "
              "Helvetica, sans-serif\" font-size=\"8\">\n<text x=\"1\" y=\"12\">c</text>\n</g>\n");
}

TEST(SvgWriter, ClearForgetsAllButOpenGroups) {
    SvgWriter writer(100, 100, 1);
    writer.BeginGroup("net", "Net");
    writer.Add(EllipseShape({1, 1}, 1, 1), {}, kCrossFill);
    writer.Clear();
    EXPECT_EQ(BodyOf(writer), "");
    writer.Add(EllipseShape({1, 1}, 1, 1), kNoSvgPen, kCrossFill);
    EXPECT_EQ(CountOf("<g id=\"net\">", BodyOf(writer)), 1U);
    EXPECT_EQ(CountOf("<pattern", BodyOf(writer)), 1U);
}

/// The ends of the pieces of an arc, from its path.
std::vector<Point> EndsOf(std::string path) {
    std::vector<Point> ends;
    const auto read = [&](std::size_t at) {
        Point point;
        EXPECT_EQ(std::sscanf(path.c_str() + at, "%lf %lf", &point.x, &point.y), 2);
        ends.push_back(point);
    };
    read(path.find('M') + 1);
    for (std::size_t at = path.find('A'); at != std::string::npos; at = path.find('A', at + 1)) {
        std::size_t place = at;
        for (int blanks = 0; blanks < 5; ++blanks) { // radii, turn, flags
            place = path.find(' ', place + 1);
        }
        read(place + 1);
    }
    return ends;
}

TEST(ArcShape, HasPiecesWhoseCentreIsCertain) {
    for (const double sweep : {0.1, 1.9, 2.1, 3.14159265, 4.0, 6.28318530718, -1.0, -5.0}) {
        const SvgArc arc{{100, 50}, 40, 40, 0.3, sweep};
        const std::vector<Point> ends = EndsOf(ArcShape(arc));
        EXPECT_EQ(ends.size(), 1 + std::ceil(std::abs(sweep) / 2)) << sweep;
        for (std::size_t i = 0; i < ends.size(); ++i) {
            const double angle =
                0.3 + sweep * static_cast<double>(i) / static_cast<double>(ends.size() - 1);
            EXPECT_NEAR(ends[i].x, 100 + 40 * std::cos(angle), 0.0006) << sweep;
            EXPECT_NEAR(ends[i].y, 50 + 40 * std::sin(angle), 0.0006) << sweep;
        }
        EXPECT_NE(ArcShape(arc).find(sweep > 0 ? "A40 40 0 0 1 " : "A40 40 0 0 0 "),
                  std::string::npos);
    }
    EXPECT_NE(ArcShape({{0, 0}, 40, -40, 0, 1}).find("A40 40 0 0 0 "), std::string::npos)
        << "mirrored";
    EXPECT_EQ(WedgeShape({{0, 0}, 10, 10, 0, 1.5707963267948966}),
              "<path d=\"M10 0A10 10 0 0 1 0 10L0 0Z\"");
}

} // namespace
} // namespace quandrel
