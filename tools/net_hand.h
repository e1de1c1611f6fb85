// SPDX-License-Identifier: MIT
//
// A hand on the mouse, for pictures of editing.

#pragma once

#include "core/plot_store.h"
#include "platform/surface.h"
#include "shell/controls/picture_box.h"
#include "shell/plot/frm_plot_forms.h"

#include <QCoreApplication>
#include <QMouseEvent>

#include <vector>

namespace quandrel {

/// Mouse actions over the net of the active plot; positions are plot units.
class Hand {
public:
    static void Drag(Point from, Point to, Qt::KeyboardModifiers keys = {},
                     Qt::MouseButton button = Qt::LeftButton) {
        Trace({from, to}, keys, button);
    }

    static void Press(Point at, Qt::KeyboardModifiers keys, Qt::MouseButton button) {
        Trace({at}, keys, button);
    }

    /// Presses at the first position, moves through the others, and releases at the last.
    static void Trace(const std::vector<Point>& places, Qt::KeyboardModifiers keys = {},
                      Qt::MouseButton button = Qt::LeftButton) {
        Send(QEvent::MouseButtonPress, places.front(), button, button, keys);
        for (const Point& at : places) {
            Send(QEvent::MouseMove, at, Qt::NoButton, button, keys);
        }
        Send(QEvent::MouseButtonRelease, places.back(), button, Qt::NoButton, keys);
    }

private:
    static void Send(QEvent::Type type, Point place, Qt::MouseButton button, Qt::MouseButtons held,
                     Qt::KeyboardModifiers keys) {
        PictureBox& net = *static_cast<frmPlotForms&>(FormOf(gActivePlot)).picStereoArea;
        const QSize size = net.PictureSize();
        const QPointF at(
            (place.x - kPlotScale.left) / (kPlotScale.right - kPlotScale.left) * size.width(),
            (place.y - kPlotScale.top) / (kPlotScale.bottom - kPlotScale.top) * size.height());
        QMouseEvent event(type, at, net.mapToGlobal(at), button, held, keys);
        QCoreApplication::sendEvent(&net, &event);
    }
};

} // namespace quandrel
