// SPDX-License-Identifier: MIT

#include "image_checks.h"
#include "platform/place_filter.h"
#include "qt/sprite.h"

#include <QPainter>
#include <gtest/gtest.h>

#include <random>

namespace quandrel {
namespace {

/// A picture of every alpha from 0 to 255, with holes.
QImage RandomPicture(int side) {
    std::mt19937 random(7);
    QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const int kind = static_cast<int>(random() % 3);
            const int alpha = kind == 0 ? 0 : kind == 1 ? 255 : static_cast<int>(random() % 256);
            const auto channel = [&] { return static_cast<int>(random() % 256); };
            picture.setPixel(x, y, qPremultiply(qRgba(channel(), channel(), channel(), alpha)));
        }
    }
    return picture;
}

TEST(Sprite, IsStampedLikeThePainterDrawsImages) {
    const QImage picture = RandomPicture(12);
    const Sprite sprite(picture, {5, 7});
    QImage stamped = WhiteImage(60, 40);
    stamped.fill(QColor(90, 160, 30));
    QImage drawn = stamped.copy();
    QPainter painter(&drawn);
    // Inside, over each border, over the corners, and far outside.
    for (const QPoint place :
         {QPoint(30, 20), QPoint(33, 22), QPoint(1, 20), QPoint(59, 20), QPoint(30, 2),
          QPoint(30, 39), QPoint(0, 0), QPoint(60, 40), QPoint(-100, 5), QPoint(5, 1000)}) {
        sprite.StampOn({stamped, {0, stamped.height()}}, place.x(), place.y());
        painter.drawImage(place - QPoint(5, 7), picture);
    }
    painter.end();
    EXPECT_LE(LargestDifference(stamped, drawn), 1) << "rounding";
    EXPECT_GT(CountOther(stamped, qRgb(90, 160, 30)), 200);
}

TEST(Sprite, OfNothingStampsNothing) {
    QImage clear(8, 8, QImage::Format_ARGB32_Premultiplied);
    clear.fill(Qt::transparent);
    QImage image = WhiteImage(8, 8);
    Sprite(clear, {4, 4}).StampOn({image, {0, 8}}, 4, 4);
    EXPECT_EQ(CountOther(image, qRgb(255, 255, 255)), 0);
}

TEST(Sprite, StaysWithinItsLines) {
    const QImage picture = RandomPicture(12);
    const Sprite sprite(picture, {5, 7});
    QImage whole = WhiteImage(20, 30);
    sprite.StampOn({whole, {0, 30}}, 10, 15);
    for (const PixelLines lines : {PixelLines{0, 12}, PixelLines{12, 13}, PixelLines{13, 30}}) {
        QImage part = WhiteImage(20, 30);
        sprite.StampOn({part, lines}, 10, 15);
        const QRect band(0, lines.first, 20, lines.end - lines.first);
        EXPECT_EQ(part.copy(band), whole.copy(band));
        EXPECT_EQ(CountOther(part, qRgb(255, 255, 255)),
                  CountOther(whole.copy(band), qRgb(255, 255, 255)));
    }
}

TEST(PlainTargetOf, IsOnlyThereWhenPixelsLieWhereThePainterPutsThem) {
    QImage image = WhiteImage(10, 10);
    QPainter painter(&image);
    const std::optional<PlainTarget> whole = PlainTargetOf(painter);
    ASSERT_TRUE(whole);
    EXPECT_EQ(&whole->image, &image);
    EXPECT_EQ(whole->lines, (PixelLines{0, 10}));
    painter.setClipRect(QRect(0, 3, 10, 4));
    ASSERT_TRUE(PlainTargetOf(painter)) << "clipped to whole lines";
    EXPECT_EQ(PlainTargetOf(painter)->lines, (PixelLines{3, 7}));
    painter.setClipRect(QRect(0, 0, 5, 5));
    EXPECT_FALSE(PlainTargetOf(painter)) << "clipped within lines";
    painter.setClipRegion(QRegion(0, 0, 10, 2) + QRegion(0, 5, 10, 2));
    EXPECT_FALSE(PlainTargetOf(painter)) << "clipped to two bands";
    painter.setClipping(false);
    painter.translate(1, 0);
    EXPECT_FALSE(PlainTargetOf(painter)) << "moved";
    painter.end();
    EXPECT_FALSE(PlainTargetOf(painter)) << "not begun";
    image.setDevicePixelRatio(2);
    painter.begin(&image);
    EXPECT_FALSE(PlainTargetOf(painter)) << "scaled";
    painter.end();
    QImage other(10, 10, QImage::Format_ARGB32_Premultiplied);
    painter.begin(&other);
    EXPECT_FALSE(PlainTargetOf(painter)) << "another format";
    painter.end();
}

TEST(LastOfEachPlace, IsWhatACountByPairsGives) {
    std::mt19937 random(11);
    for (const int range : {2, 10, 100, 100000}) {
        std::vector<StepPlace> places;
        for (int i = 0; i < 500; ++i) {
            places.push_back({static_cast<int>(random() % static_cast<unsigned>(range)) - range / 2,
                              static_cast<int>(random() % static_cast<unsigned>(range))});
        }
        std::vector<std::uint32_t> expected;
        for (std::size_t i = 0; i < places.size(); ++i) {
            bool comesAgain = false;
            for (std::size_t j = i + 1; j < places.size(); ++j) {
                comesAgain = comesAgain || places[i] == places[j];
            }
            if (!comesAgain) {
                expected.push_back(static_cast<std::uint32_t>(i));
            }
        }
        EXPECT_EQ(LastOfEachPlace(places), expected) << range;
    }
    EXPECT_TRUE(LastOfEachPlace({}).empty());
}

} // namespace
} // namespace quandrel
