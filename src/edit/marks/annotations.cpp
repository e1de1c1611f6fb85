// SPDX-License-Identifier: MIT

#include "edit/marks/annotations.h"

#include "core/data_format.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "core/settings.h"
#include "edit/history/edit_step.h"
#include "edit/marks/annotation_tags.h"
#include "edit/marks/kept_annotations.h"
#include "edit/selection/marquee.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "platform/platform.h"
#include "stereo/symbols.h"
#include "stereo/window_drawing.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <memory>
#include <set>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace quandrel {

namespace {

constexpr const char* kNoTag = "Errors were encountered and the annotation has not been added\nIf "
                               "this error persists please contact Arlen Voss";

bool IsOnNet(double x, double y) {
    return x * x + y * y <= kNetRadius * kNetRadius;
}

std::int16_t WholeUnits(double position) {
    return static_cast<std::int16_t>(RoundToEven(position));
}

Point PointOf(const LineNode& node) {
    return {static_cast<double>(node.X), static_cast<double>(node.Y)};
}

void DrawPolyline(const Drawing& drawing, std::span<const LineNode> nodes,
                  const Annotation& annotation) {
    if (nodes.size() < 2) {
        return;
    }
    std::vector<Point> points;
    points.reserve(nodes.size());
    std::ranges::transform(nodes, std::back_inserter(points), PointOf);
    const SavedState saved(drawing.plot);
    DrawState state = drawing.plot.State();
    state.drawMode = kDrawCopy;
    state.drawWidth = 1;
    const bool isStyle = annotation.lineStyle >= kSolidLine && annotation.lineStyle <= kNoLine;
    state.drawStyle = isStyle ? int{annotation.lineStyle} : int{kSolidLine};
    drawing.plot.SetState(state);
    const int colour = StyleOfAnnotation(drawing.styles, annotation)[kPlaceColour];
    drawing.plot.Polyline(points, TableColour(drawing.styles, colour));
}

void DrawAnnotation(const Drawing& drawing, const Annotation& annotation) {
    DrawPolyline(drawing, annotation.LineNodes, annotation);
    const SymbolRow style = StyleOfAnnotation(drawing.styles, annotation);
    DrawSymbol(drawing.plot, drawing.styles, annotation.X, annotation.Y, style[kPlaceColour],
               style[kPlaceSymbol], style[kPlaceSize], 0);
}

} // namespace

Annotations& AnnotationsOfActivePlot() {
    std::unique_ptr<Annotations>& annotations = ActiveRecord().PlotAnnotations;
    if (!annotations) {
        annotations = std::make_unique<Annotations>();
    }
    return *annotations;
}

bool CanEditAnnotations() {
    return !gBusy && IsOpenSlot(gActivePlot) && ActiveRecord().PlotKind != kRose;
}

SymbolRow StyleOfAnnotation(const Styles& styles, const Annotation& annotation) {
    SymbolRow style = styles.symbols[static_cast<std::size_t>(
        IsOfRightButton(annotation) ? kRightAnnotationStyle : kLeftAnnotationStyle)];
    if (annotation.SymbolType > 0 && annotation.SymbolType < kLeftAnnotationStyle) {
        style[kPlaceSymbol] = annotation.SymbolType;
    }
    if (annotation.Colour >= 0 && annotation.Colour < kColourCount) {
        style[kPlaceColour] = annotation.Colour;
    }
    if (annotation.Size > 0) {
        style[kPlaceSize] = annotation.Size;
    }
    return style;
}

std::span<const Annotation> AnnotationsOf(const PlotRecord& record) {
    const std::unique_ptr<Annotations>& annotations = record.PlotAnnotations;
    return annotations ? std::span<const Annotation>(*annotations) : std::span<const Annotation>();
}

std::span<const Annotation> AnnotationsOf(int slot) {
    return AnnotationsOf(RecordOf(slot));
}

void DrawAnnotations(const PlotRecord& record, const Drawing& drawing) {
    if (record.ShowAnnotations == 0) {
        return;
    }
    for (const Annotation& annotation : AnnotationsOf(record)) {
        DrawAnnotation(drawing, annotation);
    }
}

void DrawAnnotations() {
    DrawAnnotations(ActiveRecord(), WindowDrawing(gActivePlot));
}

bool AddAnnotation(int button, double x, double y) {
    if (!CanEditAnnotations() || !IsOnNet(x, y)) {
        return false;
    }
    const std::optional<int> tag = FreeAnnotationTag(AnnotationsOfActivePlot());
    if (!tag) {
        Tell(kNoTag);
        return false;
    }
    const std::int16_t type =
        button == kRightMouseButton ? kRightAnnotationStyle : kLeftAnnotationStyle;
    const SymbolRow& style = gSymbolTable[static_cast<std::size_t>(type)];
    EditStep step(kAnnotationAdd, Before<AnnotationsChange>, EditRun::First);
    AnnotationsOfActivePlot().push_back({WholeUnits(x),
                                         WholeUnits(y),
                                         type,
                                         style[kPlaceColour],
                                         style[kPlaceSize],
                                         kSolidLine,
                                         std::to_string(*tag),
                                         {}});
    PlotRecord& record = ActiveRecord();
    const bool wereShown = std::exchange(record.ShowAnnotations, kTrue) != 0;
    // Draws only the new annotation: one more symbol does not require drawing all rows again.
    step.Finish(wereShown ? Redraw::Nothing : Redraw::Plot);
    if (wereShown) {
        DrawAnnotation(WindowDrawing(gActivePlot), AnnotationsOfActivePlot().back());
        FormOf(gActivePlot).Show();
    }
    return true;
}

bool ExtendAnnotation(double x, double y) {
    if (!CanEditAnnotations() || AnnotationsOfActivePlot().empty() || !IsOnNet(x, y)) {
        return false;
    }
    Annotation& annotation = AnnotationsOfActivePlot().back();
    std::vector<LineNode>& nodes = annotation.LineNodes;
    const LineNode end = nodes.empty() ? LineNode{annotation.X, annotation.Y} : nodes.back();
    const LineNode node{WholeUnits(x), WholeUnits(y)};
    if (std::hypot(node.X - end.X, node.Y - end.Y) < kNodeDistance) {
        return false;
    }
    EditStep step(kAnnotationAdd, Before<AnnotationsChange>, EditRun::Joins);
    if (nodes.empty()) {
        nodes.push_back(end);
    }
    nodes.push_back(node);
    step.Finish(Redraw::Nothing);
    if (ActiveRecord().ShowAnnotations != 0) {
        DrawPolyline(WindowDrawing(gActivePlot), std::span(nodes).last(2), annotation);
        FormOf(gActivePlot).Show();
    }
    return true;
}

void SetAnnotationsShown(bool shown) {
    if (gBusy || !IsOpenSlot(gActivePlot)) {
        return;
    }
    ActiveRecord().ShowAnnotations = shown ? kTrue : std::int16_t{0};
    ReplotActivePlot(false);
}

void RemoveAllAnnotations() {
    if (gBusy || !IsOpenSlot(gActivePlot) || AnnotationsOf(gActivePlot).empty()) {
        return;
    }
    EditStep step(kAnnotationRemoval, Before<AnnotationsChange>);
    AnnotationsOfActivePlot().clear();
    ActiveRecord().ShowAnnotations = 0;
    step.Finish(Redraw::Plot);
}

} // namespace quandrel
