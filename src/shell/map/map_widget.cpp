// SPDX-License-Identifier: MIT

#include "shell/map/map_widget.h"

#include "core/plot_store.h"
#include "mapsession/map_drawing.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr double kZoomStep = 1.25;

/// Of the mouse wheel, in its own units.
constexpr double kWheelNotch = 120;

/// The fraction of the map that an arrow key moves it by.
constexpr double kKeyShare = 0.125;

/// True for tools whose drag is a shape on the map.
bool DragsShape(int tool, const SessionState& state) {
    const auto custom = std::ranges::find(state.customTools, tool, &SessionToolButton::id);
    return custom != state.customTools.end()
               ? custom->drawMode == kDragRectangle
               : tool == kToolMarquee || tool == kToolRadius || tool == kToolZoomIn;
}

Qt::CursorShape CursorOf(int tool, const SessionState& state) {
    if (tool == kToolSelector) {
        return Qt::ArrowCursor;
    }
    if (tool == kToolGrabber) {
        return Qt::OpenHandCursor;
    }
    const auto custom = std::ranges::find(state.customTools, tool, &SessionToolButton::id);
    const bool points = custom != state.customTools.end() && custom->drawMode != kDragRectangle;
    return points ? Qt::PointingHandCursor : Qt::CrossCursor;
}

} // namespace

MapWidget::MapWidget(EmbeddedMapSession& session, std::int64_t id, const MapDocumentSigns& signs)
    : MapDocument(session, id, signs) {
    setObjectName("map_" + QString::number(id));
    setAccessibleName("Map");
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(80, 60);
    // White paper, whatever the desktop's colours.
    QPalette white = palette();
    white.setColor(QPalette::Window, Qt::white);
    setPalette(white);
    setAutoFillBackground(true);
    ShowCursor();
}

void MapWidget::Refresh() {
    picture_.reset();
    update();
}

void MapWidget::ToolChanged() {
    drag_.reset();
    ShowCursor();
    update();
}

void MapWidget::ShowCursor() {
    if (Session() == nullptr) {
        return;
    }
    const bool grabs = drag_ && MovesMap();
    setCursor(grabs ? Qt::ClosedHandCursor : CursorOf(Session()->State().tool, Session()->State()));
}

MapPoint MapWidget::MapPointAt(QPointF position) const {
    return Window()->view.ToMap({position.x(), position.y()});
}

bool MapWidget::MovesMap() const {
    return drag_->button == Qt::MiddleButton || Session()->State().tool == kToolGrabber;
}

bool MapWidget::ShowsShape() const {
    return !MovesMap() && DragsShape(Session()->State().tool, Session()->State());
}

const QImage& MapWidget::Picture(const SessionWindow& window) {
    const double density = devicePixelRatioF();
    const QSize wanted = PixelsOf(size(), density);
    if (picture_ == nullptr || picture_->Image().size() != wanted) {
        picture_ = std::make_unique<ImageSurface>(wanted, density, kWhite);
        DrawMapWindow(Session()->State(), window, DefaultMapColours(), picture_->Drawing());
    }
    return picture_->Image();
}

void MapWidget::paintEvent(QPaintEvent*) {
    const SessionWindow* window = Window();
    if (window == nullptr) {
        return;
    }
    const QImage& picture = Picture(*window);
    if (drag_ && MovesMap()) {
        PaintImage(*this, QRectF(drag_->to - drag_->from, QSizeF(size())), picture);
    } else if (drag_ && ShowsShape()) {
        ImageSurface both(picture, devicePixelRatioF());
        DrawDraggedShape(*window, Session()->State().tool, MapPointAt(drag_->from),
                         MapPointAt(drag_->to), both.Drawing());
        PaintImage(*this, QRectF(rect()), both.Image());
    } else {
        PaintImage(*this, QRectF(rect()), picture);
    }
}

void MapWidget::resizeEvent(QResizeEvent* event) {
    if (Session() != nullptr) {
        Session()->ResizeWindow(Id(), width(), height());
    }
    picture_.reset();
    QWidget::resizeEvent(event);
}

void MapWidget::mousePressEvent(QMouseEvent* event) {
    const bool drags = event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton;
    if (Window() == nullptr || gBusy || !drags || drag_) {
        return;
    }
    BringToFront();
    drag_ = Drag{event->button(), event->position(), event->position()};
    ShowCursor();
}

void MapWidget::mouseMoveEvent(QMouseEvent* event) {
    if (Window() == nullptr) {
        return;
    }
    ShowPosition(event->position());
    if (drag_) {
        drag_->to = event->position();
        update();
    }
}

void MapWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (Window() == nullptr || !drag_ || event->button() != drag_->button) {
        return;
    }
    Drag drag = *drag_;
    drag.to = event->position();
    drag_.reset();
    ShowCursor();
    update();
    UseDrag(drag, event->modifiers());
}

void MapWidget::UseDrag(const Drag& drag, Qt::KeyboardModifiers keys) {
    if (drag.button == Qt::MiddleButton) {
        MoveBy(drag.to - drag.from);
        return;
    }
    if (gBusy) {
        return;
    }
    const SessionKeys held{keys.testFlag(Qt::ShiftModifier), keys.testFlag(Qt::ControlModifier)};
    Session()->UseTool(Id(), MapPointAt(drag.from), MapPointAt(drag.to), held);
    TellDone();
}

void MapWidget::MoveBy(QPointF pixels) {
    Window()->view.Pan(MapPointAt({0, 0}), MapPointAt(pixels));
    Refresh();
}

void MapWidget::ShowAll() {
    MapBox box;
    for (const SessionLayer& layer : Window()->layers) {
        if (const auto rows = RowsNamed(Session()->State(), layer.table); rows && layer.visible) {
            box.Include(BoxOf(*rows));
        }
    }
    Window()->view.FitTo(box);
    Refresh();
}

void MapWidget::wheelEvent(QWheelEvent* event) {
    const double notches = event->angleDelta().y() / kWheelNotch;
    if (Window() == nullptr || drag_ || notches == 0) {
        return;
    }
    Session()->ZoomAt(Id(), MapPointAt(event->position()), std::pow(kZoomStep, notches));
    ShowPosition(event->position());
    event->accept();
}

bool MapWidget::UseKey(int key) {
    const QPointF step(width() * kKeyShare, height() * kKeyShare);
    switch (key) {
    case Qt::Key_Left:
        MoveBy({step.x(), 0});
        return true;
    case Qt::Key_Right:
        MoveBy({-step.x(), 0});
        return true;
    case Qt::Key_Up:
        MoveBy({0, step.y()});
        return true;
    case Qt::Key_Down:
        MoveBy({0, -step.y()});
        return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        Session()->ZoomAt(Id(), Window()->view.Middle(), kZoomStep);
        return true;
    case Qt::Key_Minus:
        Session()->ZoomAt(Id(), Window()->view.Middle(), 1 / kZoomStep);
        return true;
    case Qt::Key_Home:
        ShowAll();
        return true;
    default:
        return false;
    }
}

void MapWidget::keyPressEvent(QKeyEvent* event) {
    if (drag_ && event->key() == Qt::Key_Escape) {
        drag_.reset();
        ShowCursor();
        update();
    } else if (Window() == nullptr || drag_ || !UseKey(event->key())) {
        QWidget::keyPressEvent(event);
    }
}

void MapWidget::ShowPosition(QPointF position) const {
    if (!Signs().position) {
        return;
    }
    const MapPoint at = MapPointAt(position);
    // As many decimals as one pixel can resolve.
    const double unit = Window()->view.UnitsPerPixel();
    const int places = std::clamp(static_cast<int>(std::ceil(-std::log10(unit))), 0, 9);
    const auto text = [places](double value) { return QLocale::c().toString(value, 'f', places); };
    Signs().position(text(at.x) + ",  " + text(at.y));
}

void MapWidget::leaveEvent(QEvent* event) {
    if (Signs().position) {
        Signs().position({});
    }
    QWidget::leaveEvent(event);
}

void MapWidget::focusInEvent(QFocusEvent* event) {
    BringToFront();
    QWidget::focusInEvent(event);
}

void MapWidget::contextMenuEvent(QContextMenuEvent* event) {
    if (Window() != nullptr && !gBusy && Signs().menuWanted) {
        BringToFront();
        drag_.reset();
        Signs().menuWanted(Session()->State(), event->globalPos());
    }
}

} // namespace quandrel
