// SPDX-License-Identifier: MIT

#include "shell/plot/window_arrangement.h"

#include "shell/plot/frm_plot_forms.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr int kCascadeStep = 28;
constexpr int kCascadeLength = 10;
constexpr int kFewTiles = 3; ///< largest number of tiles in a single line

QRect CascadePlace(qsizetype index, QSize room) {
    const int step = static_cast<int>(index % kCascadeLength) * kCascadeStep;
    const QSize size(room.width() * 2 / 3, room.height() * 2 / 3);
    return {QPoint(std::min(step, room.width() - size.width()),
                   std::min(step, room.height() - size.height())),
            size};
}

/// Tiles in lines; the last line may have fewer, wider tiles. If `across`, a line runs from left to
/// right, otherwise lines are columns.
QList<QRect> Tiles(qsizetype count, bool across, QSize room) {
    const auto lines =
        count <= kFewTiles
            ? qsizetype{1}
            : static_cast<qsizetype>(std::floor(std::sqrt(static_cast<double>(count))));
    const int length = across ? room.width() : room.height();
    const int breadth = across ? room.height() : room.width();
    const auto part = [](int whole, qsizetype index, qsizetype of) {
        return static_cast<int>(whole * index / of);
    };
    QList<QRect> places;
    for (qsizetype line = 0; line < lines; ++line) {
        const qsizetype first = count * line / lines;
        const qsizetype inLine = count * (line + 1) / lines - first;
        const int start = part(breadth, line, lines);
        const int end = part(breadth, line + 1, lines);
        for (qsizetype i = 0; i < inLine; ++i) {
            const int from = part(length, i, inLine);
            const int to = part(length, i + 1, inLine);
            places << (across ? QRect(from, start, to - from, end - start)
                              : QRect(start, from, end - start, to - from));
        }
    }
    return places;
}

void PlaceWindow(QMdiSubWindow& window, const QRect& place) {
    if (auto* form = dynamic_cast<frmPlotForms*>(&window)) {
        form->Place(place); // an action of the program, not of the user
    } else {
        window.setGeometry(place);
    }
}

void ArrangeIcons(const QList<QMdiSubWindow*>& icons, QSize room) {
    int left = 0;
    for (QMdiSubWindow* icon : icons) {
        icon->move(left, room.height() - icon->height());
        left += icon->width();
    }
}

} // namespace

QRect WithinRoom(QRect place, QSize room) {
    place.setSize(place.size().boundedTo(room));
    place.moveLeft(std::clamp(place.left(), 0, room.width() - place.width()));
    place.moveTop(std::clamp(place.top(), 0, room.height() - place.height()));
    return place;
}

QList<QRect> PlacesOf(qsizetype count, Arrangement way, QSize room) {
    if (way != Arrangement::Cascade) {
        return count == 0 ? QList<QRect>() : Tiles(count, way == Arrangement::TileVertically, room);
    }
    QList<QRect> places;
    for (qsizetype i = 0; i < count; ++i) {
        places << CascadePlace(i, room);
    }
    return places;
}

void Arrange(QList<QMdiSubWindow*> windows, Arrangement way, QSize room, QMdiSubWindow* active) {
    if (way == Arrangement::Cascade && windows.removeOne(active)) {
        windows << active;
    }
    QList<QMdiSubWindow*> open;
    QList<QMdiSubWindow*> icons;
    for (QMdiSubWindow* window : windows) {
        (window->isMinimized() ? icons : open) << window;
    }
    if (way != Arrangement::Icons) {
        const int below = icons.isEmpty() ? 0 : icons.first()->height();
        const QList<QRect> places =
            PlacesOf(open.size(), way, QSize(room.width(), room.height() - below));
        for (qsizetype i = 0; i < open.size(); ++i) {
            if (open[i]->isMaximized()) {
                open[i]->showNormal();
            }
            PlaceWindow(*open[i], places[i]);
            if (way == Arrangement::Cascade) {
                open[i]->raise();
            }
        }
    }
    ArrangeIcons(icons, room);
    if (active != nullptr) {
        active->raise();
    }
}

} // namespace quandrel
