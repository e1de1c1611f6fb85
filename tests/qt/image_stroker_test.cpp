// SPDX-License-Identifier: MIT

#include "qt/image_stroker.h"

#include <QImage>

#include <algorithm>
#include <cmath>

namespace quandrel {
namespace {

/// The lightest pixel that a circle of some segments, turned by an angle, passes through.
int LightestOnCircle(int segments, double turn) {
    QImage image(500, 500, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPolygonF circle;
    for (int i = 0; i <= segments; ++i) {
        const double angle = i * 2 * M_PI / segments + turn;
        circle << QPointF(250 + 200 * std::cos(angle), 250 + 200 * std::sin(angle));
    }
    QPainter painter(&image);
    EXPECT_TRUE(StrokeOnImage(painter, circle, Qt::black, 1.2));
    painter.end();
    int lightest = 0;
    for (qsizetype i = 1; i < circle.size(); ++i) {
        for (int part = 0; part < 64; ++part) {
            const QPointF at = circle[i - 1] + (circle[i] - circle[i - 1]) * (part / 64.0);
            const QColor ink = image.pixelColor(static_cast<int>(at.x()), static_cast<int>(at.y()));
            lightest = std::max(lightest, ink.lightness());
        }
    }
    return lightest;
}

TEST(StrokeOnImage, InksAnArcWithoutGapsWhateverItsSlope) {
    for (int turn = 0; turn < 60; ++turn) {
        EXPECT_LT(LightestOnCircle(97, 0.013 * turn), 215) << turn;
    }
}

} // namespace
} // namespace quandrel
