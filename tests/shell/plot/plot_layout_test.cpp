// SPDX-License-Identifier: MIT

#include "shell/plot/plot_layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace quandrel {
namespace {

/// All boxes that may not overlap each other.
std::vector<QRect> Boxes(const PlotLayout& layout) {
    std::vector<QRect> boxes;
    for (const QRect& box : {layout.tabs, layout.net, layout.resizeButton, layout.fabric,
                             layout.description, layout.legend, layout.statistics}) {
        if (!box.isEmpty()) {
            boxes.push_back(box);
        }
    }
    return boxes;
}

PlotParts PartsOf(int bits) {
    return {(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0, (bits & 8) != 0, (bits & 16) != 0};
}

constexpr QSize kSizes[] = {{600, 440}, {1200, 700}, {400, 300}, {300, 600},
                            {500, 500}, {1900, 400}, {260, 260}, {800, 1000}};

TEST(PlotLayout, BoxesStayInTheWindowAndApart) {
    for (const QSize& size : kSizes) {
        for (int bits = 0; bits < 32; ++bits) {
            const PlotLayout layout = LayOutPlot(size, PartsOf(bits), {});
            const std::vector<QRect> boxes = Boxes(layout);
            for (std::size_t i = 0; i < boxes.size(); ++i) {
                EXPECT_TRUE(QRect(QPoint(0, 0), size).contains(boxes[i]))
                    << size.width() << "x" << size.height() << " parts " << bits << " box " << i;
                for (std::size_t j = i + 1; j < boxes.size(); ++j) {
                    EXPECT_FALSE(boxes[i].intersects(boxes[j]))
                        << size.width() << "x" << size.height() << " parts " << bits << " boxes "
                        << i << " " << j;
                }
            }
        }
    }
}

TEST(PlotLayout, TheNetIsASquareAndTheLargestBox) {
    for (const QSize& size : kSizes) {
        const PlotLayout layout = LayOutPlot(size, {}, {});
        EXPECT_EQ(layout.net.width(), layout.net.height());
        EXPECT_GE(layout.net.width() * 5, std::min(size.width(), size.height()) * 2)
            << size.width() << "x" << size.height();
    }
}

TEST(PlotLayout, HiddenPartsTakeNoRoom) {
    const QSize size(600, 440);
    const PlotLayout bare = LayOutPlot(size, {false, false, false, false, false}, {});
    EXPECT_GT(bare.net.width(), LayOutPlot(size, {}, {}).net.width());
    EXPECT_TRUE(bare.fabric.isEmpty());
    EXPECT_TRUE(bare.description.isEmpty());
    EXPECT_TRUE(bare.legend.isEmpty());
    EXPECT_TRUE(bare.statistics.isEmpty());
    EXPECT_TRUE(bare.number.isEmpty());
}

TEST(PlotLayout, ShownPartsHaveRoomForText) {
    for (const QSize& size : {QSize(600, 440), QSize(1200, 700), QSize(500, 900)}) {
        const PlotLayout layout = LayOutPlot(size, {}, {});
        for (const QRect& box :
             {layout.fabric, layout.description, layout.legend, layout.statistics, layout.number}) {
            EXPECT_GE(box.width(), 100) << size.width();
            EXPECT_GE(box.height(), 20) << size.width();
        }
    }
}

TEST(PlotLayout, TheNumberStandsInTheCornerThatTheNetLeavesFree) {
    const PlotLayout layout = LayOutPlot({1200, 700}, {}, {});
    EXPECT_TRUE(layout.net.contains(layout.number));
    // The label's top, where a text of a few digits ends, lies outside the primitive circle, whose
    // radius is 10/11 of half the square.
    const QPointF centre = QRectF(layout.net).center();
    const QPointF corner = layout.number.topLeft() + QPointF(30, 0);
    const double radius = layout.net.width() / 2.0 * 10 / 11;
    EXPECT_GT(std::hypot(corner.x() - centre.x(), corner.y() - centre.y()), radius);
}

TEST(PlotLayout, LegendAndStatisticsHaveWhatTheyNeedWhereThereIsRoomForBoth) {
    const struct {
        QSize legend;
        QSize statistics;
    } needs[] = {{{200, 60}, {300, 380}}, {{250, 350}, {200, 150}}, {{390, 200}, {180, 250}}};

    for (const auto& [legend, statistics] : needs) {
        const PlotMetrics metrics{24, 22, legend, statistics};
        const PlotLayout layout = LayOutPlot({1000, 640}, PartsOf(31), metrics);
        EXPECT_GE(layout.legend.height(), legend.height());
        EXPECT_GE(layout.statistics.height(), statistics.height());
        EXPECT_GE(layout.legend.width(), std::max(legend.width(), statistics.width()));
        EXPECT_GE(layout.net.width(), 560) << "the net stays the largest";
    }
    const PlotMetrics tooMuch{24, 22, {900, 600}, {100, 600}};
    const PlotLayout layout = LayOutPlot({1000, 640}, PartsOf(31), tooMuch);
    EXPECT_NEAR(layout.legend.height(), layout.statistics.height(), 3) << "each its part";
    EXPECT_GE(layout.net.width(), 500);
}

TEST(PlotLayout, BoxesAreAsHighAsTheirTexts) {
    const PlotMetrics metrics{24, 22, {200, 60}, {150, 130}, 30};
    const PlotLayout wide = LayOutPlot({1000, 640}, PartsOf(31), metrics);
    EXPECT_EQ(wide.legend.height(), 60);
    EXPECT_EQ(wide.statistics.height(), 130);
    EXPECT_EQ(wide.description.height(), 30);
    const PlotLayout high = LayOutPlot({640, 800}, PartsOf(31), metrics);
    ASSERT_GT(high.legend.top(), high.net.bottom()) << "the boxes are below";
    EXPECT_EQ(high.legend.height(), 60);
    EXPECT_EQ(high.statistics.height(), 130);
    EXPECT_GT(high.net.height(), LayOutPlot({640, 800}, PartsOf(31), {}).net.height())
        << "the net has what they leave";
    const PlotMetrics much{24, 22, {200, 900}, {150, 900}, 900};
    const PlotLayout full = LayOutPlot({640, 800}, PartsOf(31), much);
    EXPECT_EQ(full.net.height(), LayOutPlot({640, 800}, PartsOf(31), {}).net.height());
    EXPECT_LE(full.description.height(), 3 * 22);
}

TEST(PlotLayout, BoxesOfAnyContentsStayInTheWindowAndApart) {
    std::mt19937 random(11);
    for (int trial = 0; trial < 4000; ++trial) {
        const auto upTo = [&random](int most) { return static_cast<int>(random() % most); };
        const QSize size(260 + upTo(1600), 260 + upTo(900));
        const PlotMetrics metrics{
            24, 22, {upTo(600), upTo(700)}, {upTo(600), upTo(700)}, upTo(200)};
        const std::vector<QRect> boxes = Boxes(LayOutPlot(size, PartsOf(upTo(32)), metrics));
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            ASSERT_TRUE(QRect(QPoint(0, 0), size).contains(boxes[i])) << trial;
            for (std::size_t j = i + 1; j < boxes.size(); ++j) {
                ASSERT_FALSE(boxes[i].intersects(boxes[j])) << trial;
            }
        }
    }
}

TEST(PlotLayout, AHighWindowHasItsBoxesBelow) {
    const PlotLayout layout = LayOutPlot({400, 800}, {}, {});
    EXPECT_GT(layout.legend.top(), layout.net.bottom());
    EXPECT_GT(layout.statistics.top(), layout.net.bottom());
    const PlotLayout wide = LayOutPlot({800, 400}, {}, {});
    EXPECT_GT(wide.legend.left(), wide.net.right());
}

} // namespace
} // namespace quandrel
