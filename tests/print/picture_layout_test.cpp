// SPDX-License-Identifier: MIT

#include "platform/scripted/recording_surface.h"
#include "print/picture_layout.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quandrel {
namespace {

TEST(PictureLayout, OfTheNetAloneIsASquare) {
    const PictureLayout layout = LayOutPicture(PicturePart::NetAlone, {true, 300});
    EXPECT_EQ(layout.width, 600);
    EXPECT_EQ(layout.height, 600);
    EXPECT_EQ(layout.net.width, 600);
    EXPECT_EQ(layout.legend.width, 0);
    EXPECT_EQ(layout.number.width, 0);
}

TEST(PictureLayout, SharesOutTheColumnBesideTheNet) {
    // 600 high, margins of 10: statistics 101 at the foot, 96 of description above them.
    const PictureLayout layout = LayOutPicture(PicturePart::WholePlot, {true, 100});
    EXPECT_EQ(layout.width, 890);
    EXPECT_EQ(layout.statistics.top, 489);
    EXPECT_EQ(layout.statistics.height, 101);
    EXPECT_EQ(layout.description.top, 393);
    EXPECT_EQ(layout.legend.top, 20);
    EXPECT_EQ(layout.legend.height, 363);
    EXPECT_EQ(layout.legend.left, 610);
    EXPECT_EQ(layout.legend.width, kPictureTextWidth);
}

TEST(PictureLayout, GivesTheLegendTheRoomOfADescriptionThatIsNotThere) {
    const PictureLayout layout = LayOutPicture(PicturePart::WholePlot, {false, 100});
    EXPECT_EQ(layout.description.height, 0);
    EXPECT_EQ(layout.legend.height, 459);
}

TEST(PictureLayout, LeavesTheLegendSomeRoomBesideLongStatistics) {
    for (const bool isDescribed : {false, true}) {
        const PictureLayout layout = LayOutPicture(PicturePart::WholePlot, {isDescribed, 5000});
        EXPECT_EQ(layout.legend.height, 110) << isDescribed;
        EXPECT_EQ(layout.statistics.top + layout.statistics.height, 590) << isDescribed;
    }
}

TEST(TextBox, LeavesOutTheLinesThatDoNotFit) {
    RecordingSurface surface(200, 200);
    const PlotFont font;
    const double line = HeightOfText(surface, font, "one", 200);
    ASSERT_GT(line, 0);
    EXPECT_EQ(HeightOfText(surface, font, "one\ntwo\nthree", 200), 3 * line);
    DrawTextBox(surface, font, "one\ntwo\nthree", 200, 2.5 * line);
    const auto isText = [](const DrawOperation& done) {
        return done.kind == DrawOperation::Kind::Text;
    };
    EXPECT_EQ(std::ranges::count_if(surface.Operations(), isText), 2);
}

} // namespace
} // namespace quandrel
