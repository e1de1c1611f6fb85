// SPDX-License-Identifier: MIT

#include "qt/dark_image.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

namespace quandrel {
namespace {

/// The luma by its definition (ITU-R BT.709).
double Luma(const QColor& colour) {
    return 0.2126 * colour.red() + 0.7152 * colour.green() + 0.0722 * colour.blue();
}

TEST(DarkImage, TurnsPaperDarkAndInkLight) {
    EXPECT_EQ(InDarkColours(QColor(Qt::white)), QColor(28, 28, 28));
    EXPECT_EQ(InDarkColours(QColor(Qt::black)), QColor(232, 232, 232));
    const QColor grey = InDarkColours(QColor(64, 64, 64));
    EXPECT_EQ(grey.red(), grey.green());
    EXPECT_EQ(grey.red(), grey.blue());
    EXPECT_NEAR(grey.red(), 28 + 191 * 204 / 255, 2);
}

TEST(DarkImage, MirrorsTheLumaOfSoftColoursAndKeepsTheirHue) {
    for (int hue = 0; hue < 360; hue += 20) {
        for (const int value : {90, 140, 190}) {
            const QColor colour = QColor::fromHsv(hue, 60, value);
            const QColor dark = InDarkColours(colour);
            const double mirrored = 28 + (255 - Luma(colour)) * 204 / 255;
            EXPECT_NEAR(Luma(dark), mirrored, 2) << hue << " " << value;
            const int turn = std::abs(dark.hsvHue() - colour.hsvHue());
            EXPECT_LE(std::min(turn, 360 - turn), 8) << hue << " " << value;
        }
    }
}

TEST(DarkImage, KeepsTheOrderOfGreys) {
    int former = 256;
    for (int grey = 0; grey < 256; ++grey) {
        const int now = InDarkColours(QColor(grey, grey, grey)).red();
        EXPECT_LE(now, former);
        former = now;
    }
}

TEST(DarkImage, ChangesEveryPixelAndNoOpacity) {
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(QColor(200, 40, 40, 128));
    image.setPixelColor(2, 1, QColor(255, 255, 255, 0));
    const QImage dark = InDarkColours(image);
    ASSERT_EQ(dark.size(), image.size());
    EXPECT_EQ(dark.pixelColor(0, 0), InDarkColours(QColor(200, 40, 40, 128)));
    EXPECT_EQ(dark.pixelColor(0, 0).alpha(), 128);
    EXPECT_EQ(dark.pixelColor(2, 1).alpha(), 0);
    EXPECT_TRUE(InDarkColours(QImage()).isNull());
}

} // namespace
} // namespace quandrel
