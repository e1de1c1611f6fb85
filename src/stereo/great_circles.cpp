// SPDX-License-Identifier: MIT

#include "stereo/great_circles.h"

#include "stereo/true_circles.h"

#include <cmath>

namespace quandrel {

namespace {

/// The diameter at right angles to the direction (cx, cy).
void DrawChord(Surface& surface, double cx, double cy, Colour colour) {
    if (cy == 0) {
        surface.Line({0, -kNetRadius}, {0, kNetRadius}, colour);
        return;
    }
    const double a = std::atan(-cx / cy);
    const Point end{kNetRadius * std::cos(a), kNetRadius * std::sin(a)};
    surface.Line({-end.x, -end.y}, end, colour);
}

} // namespace

void DrawGreatCircleArc(Surface& surface, const Styles& styles, const GreatCircle& circle,
                        int colour, int drawStyle, double drawWidth) {
    const SavedState saved(surface);
    DrawState state = surface.State();
    state.drawStyle = drawStyle;
    state.drawWidth = drawWidth;
    state.fillStyle = kNoFill;
    surface.SetState(state);
    DrawGreatCircle(surface, circle, TableColour(styles, colour));
}

void DrawGreatCircle(Surface& surface, const GreatCircle& circle, Colour ink) {
    if (circle.radius >= kStraightRadius) {
        DrawChord(surface, circle.cx, circle.cy, ink);
    } else if (circle.cx == 0 && circle.cy == 0) {
        surface.Circle({0, 0}, kNetRadius, ink);
    } else {
        surface.Arc({circle.cx, circle.cy}, circle.radius, circle.start, circle.end, ink);
    }
}

void DrawGreatCircleOfPole(Surface& surface, const Styles& styles, int plotKind, double polePlunge,
                           double poleTrend, int colour, int drawStyle, double drawWidth) {
    DrawGreatCircleArc(surface, styles, GreatCircleArc(plotKind, polePlunge, poleTrend), colour,
                       drawStyle, drawWidth);
}

void DrawPlane(const Drawing& drawing, int plotKind, double polePlunge, double poleTrend,
               Colour ink) {
    if (FigureOf(drawing).lines.trueCircles) {
        drawing.plot.Polyline(TrueGreatCircle(plotKind, LineToCosines(polePlunge, poleTrend)), ink);
    } else {
        DrawGreatCircle(drawing.plot, GreatCircleArc(plotKind, polePlunge, poleTrend), ink);
    }
}

} // namespace quandrel
