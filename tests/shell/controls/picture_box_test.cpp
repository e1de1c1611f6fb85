// SPDX-License-Identifier: MIT

#include "shell/controls/picture_box.h"
#include "support/shell_test.h"

#include <QMouseEvent>
#include <QTest>

#include <vector>

namespace quandrel {
namespace {

/// A widget that counts the presses that reach it.
class Behind : public QWidget {
public:
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
};

class PictureBoxTest : public ::testing::Test {
protected:
    PictureBoxTest() {
        behind.resize(440, 220);
        box = new PictureBox(&behind);
        box->setGeometry(0, 0, 220, 220);
        box->setMouseTracking(true);
        behind.show();
        box->Picture().SetUserScale(kPlotScale);
        box->Picture().Line({-1000, 0}, {1000, 0}, kBlack);
    }

    Behind behind;
    PictureBox* box = nullptr;
};

TEST_F(PictureBoxTest, PaintsAnOverlayInPlotScaleAndKeepsItOutOfTheDrawing) {
    const QImage plain = box->grab().toImage();
    const QImage drawing = box->Image().copy();
    box->onOverlay = [](Surface& surface) {
        EXPECT_EQ(surface.Scale(), kPlotScale);
        surface.FilledBox({500, 600}, {600, 500}, {255, 0, 0});
    };
    const QImage with = box->grab().toImage();
    const auto at = [](const QImage& image, double x, double y) { // ten units in a logical pixel
        const QPointF pixel = QPointF(110 + x / 10, 110 - y / 10) * image.devicePixelRatio();
        return image.pixelColor(pixel.toPoint());
    };
    EXPECT_EQ(at(with, 550, 550), QColor(255, 0, 0));
    EXPECT_EQ(at(with, -550, 550), at(plain, -550, 550));
    EXPECT_EQ(at(with, -500, 0), at(plain, -500, 0)) << "the drawing shows through";
    EXPECT_EQ(box->Image(), drawing);
    box->onOverlay = {};
    EXPECT_EQ(box->grab().toImage(), plain);
}

TEST_F(PictureBoxTest, TellsPressesAndMovesInPlotUnits) {
    std::vector<Point> pressed;
    std::vector<Point> moved;
    box->onPress = [&pressed](Point at, const QMouseEvent& event) {
        EXPECT_EQ(event.button(), Qt::LeftButton);
        pressed.push_back(at);
        return true;
    };
    box->onMove = [&moved](Point at, const QMouseEvent&) { moved.push_back(at); };
    QTest::mousePress(box, Qt::LeftButton, {}, QPoint(110, 10));
    QTest::mouseMove(box, QPoint(210, 110));
    EXPECT_EQ(pressed, (std::vector<Point>{{0, 1000}}));
    ASSERT_FALSE(moved.empty());
    EXPECT_EQ(moved.back(), (Point{1000, 0}));
    EXPECT_EQ(behind.presses, 0);
}

TEST_F(PictureBoxTest, LeavesAPressThatNobodyTakesToWhatIsBehind) {
    QTest::mousePress(box, Qt::LeftButton, {}, QPoint(50, 50));
    EXPECT_EQ(behind.presses, 1);
    box->onPress = [](Point, const QMouseEvent&) { return false; };
    QTest::mousePress(box, Qt::LeftButton, {}, QPoint(50, 50));
    EXPECT_EQ(behind.presses, 2);
}

} // namespace
} // namespace quandrel
