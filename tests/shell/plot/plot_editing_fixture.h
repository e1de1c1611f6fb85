// SPDX-License-Identifier: MIT
//
// A main window whose plots are edited by mouse and keys, at places in plot units.

#pragma once

#include "core/plot_store.h"
#include "edit/history/undo.h"
#include "edit/marks/annotations.h"
#include "edit/marks/girdles.h"
#include "edit/selection/marquee.h"
#include "session/start.h"
#include "shell/controls/picture_box.h"
#include "support/main_window_test.h"

#include <cmath>
#include <string>
#include <vector>

namespace quandrel {

class PlotEditing : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        gPlaneSeparator = "/";
        gLineSeparator = "-";
        ClearSelection();
        ForgetUndo();
        gActiveGirdle = 0;
    }

    void TearDown() override {
        ClearSelection();
        ForgetUndo();
        gActiveGirdle = 0;
        MainWindowTest::TearDown();
    }

    [[nodiscard]] static PictureBox& Net() { return *FormOfSlot(gActivePlot).picStereoArea; }

    /// Where a position of the plot lies in its picture.
    [[nodiscard]] static QPoint At(double x, double y) {
        const QSize size = Net().PictureSize();
        return {static_cast<int>(std::lround(
                    (x - kPlotScale.left) / (kPlotScale.right - kPlotScale.left) * size.width())),
                static_cast<int>(std::lround(
                    (y - kPlotScale.top) / (kPlotScale.bottom - kPlotScale.top) * size.height()))};
    }

    static void Click(double x, double y, Qt::KeyboardModifiers keys = {},
                      Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(&Net(), button, keys, At(x, y));
    }

    static void Drag(Point from, Point to, Qt::KeyboardModifiers keys = {},
                     Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(&Net(), button, keys, At(from.x, from.y));
        const Point half{(from.x + to.x) / 2, (from.y + to.y) / 2};
        for (const Point& at : {half, to}) {
            QMouseEvent move(QEvent::MouseMove, QPointF(At(at.x, at.y)),
                             Net().mapToGlobal(QPointF(At(at.x, at.y))), Qt::NoButton, button,
                             keys);
            QCoreApplication::sendEvent(&Net(), &move);
        }
        QTest::mouseRelease(&Net(), button, keys, At(to.x, to.y));
    }

    [[nodiscard]] static std::vector<int> Dips() {
        std::vector<int> dips;
        for (std::int32_t row = 1; row <= ActiveRecord().NumLoadedData; ++row) {
            dips.push_back(gDataDip(gActivePlot, row));
        }
        return dips;
    }

    int OpenLines(const std::string& name, const std::string& text) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kLines;
        return OpenFile(name, text);
    }

    [[nodiscard]] bool IsEnabled(const std::string& name) const { return Action(name).isEnabled(); }
};

} // namespace quandrel
