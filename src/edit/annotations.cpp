// SPDX-License-Identifier: MIT

#include "edit/annotations.h"

#include "core/data_format.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "edit/annotation_text.h"
#include "edit/edit_rows.h"
#include "edit/edit_step.h"
#include "edit/kept_annotations.h"
#include "edit/marquee.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "platform/platform.h"
#include "stereo/draw_target.h"
#include "stereo/plot_driver.h"
#include "stereo/symbols.h"

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

constexpr int kTagTries = 100;

/// How far pasted annotations lie from those that were copied, plot units, and how many such steps
/// are tried.
constexpr int kPasteOffset = 30;
constexpr int kMostPasteSteps = 50;

constexpr const char* kNoTag = "Errors were encountered and the annotation has not been added\nIf "
                               "this error persists please contact Arlen Voss";
constexpr const char* kNothingCopied = "No annotations have been copied yet";
constexpr const char* kNoAnnotations = "The data on the clipboard is not annotation data!";
constexpr const char* kOtherData =
    "The data on the clipboard is not annotation data. Plot it in the data layer?";
constexpr const char* kBadLines = "Errors were encountered while pasting the copied annotations.";

/// The number of a tag, or 0 for a text that is none.
int NumberOfTag(std::string_view tag) {
    int number = 0;
    const auto [stop, error] = std::from_chars(tag.data(), tag.data() + tag.size(), number);
    return error == std::errc() && stop == tag.data() + tag.size() ? number : 0;
}

/// Hands out free numbers one after the other.
class FreeTags {
public:
    explicit FreeTags(const Annotations& annotations)
        : last_(annotations.empty() ? 0 : NumberOfTag(annotations.back().Tag)) {
        for (const Annotation& annotation : annotations) {
            taken_.insert(NumberOfTag(annotation.Tag));
        }
    }

    [[nodiscard]] std::optional<int> Next(int tries) {
        constexpr int kHighest = std::numeric_limits<std::int16_t>::max();
        int number = last_;
        for (int i = 0; i < tries; ++i) {
            number = number < 0 || number >= kHighest ? 1 : number + 1;
            if (taken_.insert(number).second) {
                last_ = number;
                return number;
            }
        }
        return std::nullopt;
    }

private:
    std::unordered_set<int> taken_;
    int last_;
};

Annotations& Collection() {
    std::unique_ptr<Annotations>& annotations = ActiveRecord().PlotAnnotations;
    if (!annotations) {
        annotations = std::make_unique<Annotations>();
    }
    return *annotations;
}

bool CanEdit() {
    return !gBusy && IsOpenSlot(gActivePlot) && ActiveRecord().PlotKind != kRose;
}

bool IsOnNet(double x, double y) {
    return x * x + y * y <= kNetRadius * kNetRadius;
}

std::int16_t WholeUnits(double position) {
    return static_cast<std::int16_t>(RoundToEven(position));
}

Point PointOf(const LineNode& node) {
    return {static_cast<double>(node.X), static_cast<double>(node.Y)};
}

void DrawPolyline(Surface& surface, std::span<const LineNode> nodes, const Annotation& annotation) {
    if (nodes.size() < 2) {
        return;
    }
    std::vector<Point> points;
    points.reserve(nodes.size());
    std::ranges::transform(nodes, std::back_inserter(points), PointOf);
    const SavedState saved(surface);
    DrawState state = surface.State();
    state.drawMode = kDrawCopy;
    state.drawWidth = 1;
    const bool isStyle = annotation.lineStyle >= kSolidLine && annotation.lineStyle <= kNoLine;
    state.drawStyle = isStyle ? int{annotation.lineStyle} : int{kSolidLine};
    surface.SetState(state);
    surface.Polyline(points, TableColour(StyleOfAnnotation(annotation)[kPlaceColour]));
}

void DrawAnnotation(Surface& surface, const Annotation& annotation) {
    DrawPolyline(surface, annotation.LineNodes, annotation);
    const SymbolRow style = StyleOfAnnotation(annotation);
    DrawSymbol(surface, annotation.X, annotation.Y, style[kPlaceColour], style[kPlaceSymbol],
               style[kPlaceSize], 0);
}

EditStep StepOf(EditKind kind, EditRun run = EditRun::Alone) {
    return EditStep(kind, Before<PropertyChange<AnnotationsProperty>>, run);
}

bool IsInPicture(double x, double y) {
    return x >= kPlotScale.left && x <= kPlotScale.right && y >= kPlotScale.bottom
           && y <= kPlotScale.top;
}

/// Moves an annotation by whole units; false when it would leave the picture.
bool MoveOne(Annotation& annotation, int dx, int dy) {
    const auto movedBy = [](std::int16_t position, int offset) {
        using Limits = std::numeric_limits<std::int16_t>;
        return static_cast<std::int16_t>(
            std::clamp<int>(position + offset, Limits::min(), Limits::max()));
    };
    if (!IsInPicture(annotation.X + dx, annotation.Y + dy)) {
        return false;
    }
    annotation.X = movedBy(annotation.X, dx);
    annotation.Y = movedBy(annotation.Y, dy);
    for (LineNode& node : annotation.LineNodes) {
        node.X = movedBy(node.X, dx);
        node.Y = movedBy(node.Y, dy);
    }
    return true;
}

using Place = std::pair<int, int>;

/// How far pasted annotations are set off from where they were copied: in steps to the right and
/// down, or away from an edge of the picture, until none of them covers one that is there.
Place OffsetOfPaste(const Annotations& pasted, const Annotations& others) {
    std::set<Place> taken;
    for (const Annotation& other : others) {
        taken.emplace(other.X, other.Y);
    }
    for (const Place& way : {Place{1, -1}, {-1, -1}, {-1, 1}, {1, 1}}) {
        for (int steps = 1; steps <= kMostPasteSteps; ++steps) {
            const int dx = way.first * steps * kPasteOffset;
            const int dy = way.second * steps * kPasteOffset;
            if (std::ranges::all_of(pasted, [&](const Annotation& annotation) {
                    const Place to{annotation.X + dx, annotation.Y + dy};
                    return IsInPicture(to.first, to.second) && !taken.contains(to);
                })) {
                return {dx, dy};
            }
        }
    }
    return {kPasteOffset, -kPasteOffset};
}

void RemoveMembers(std::span<const std::size_t> members) {
    Annotations& annotations = Collection();
    for (std::size_t i = members.size(); i > 0; --i) {
        annotations.erase(annotations.begin() + static_cast<std::ptrdiff_t>(members[i - 1]));
    }
}

void CopyMembers(std::span<const std::size_t> members) {
    Annotations copied;
    for (const std::size_t member : members) {
        copied.push_back(Collection()[member]);
    }
    gPlatform.clipboard->SetText(AnnotationText(copied));
}

void CutCopyOrDelete(int index) {
    const std::vector<std::size_t> members = SelectedAnnotations();
    if (members.empty()) {
        Tell(kNoAnnotationsSelected);
        return;
    }
    if (index != kDeleteAnnotations) {
        CopyMembers(members);
    }
    if (index == kCutAnnotations || index == kDeleteAnnotations) {
        EditStep step = StepOf(index == kCutAnnotations ? kAnnotationCut : kAnnotationDelete);
        RemoveMembers(members);
        step.Finish(Redraw::Plot);
    }
}

void Paste() {
    const std::string text = gPlatform.clipboard->Text().value_or("");
    switch (KindOfAnnotationText(text)) {
    case AnnotationTextKind::Foreign:
        Tell(kNothingCopied);
        return;
    case AnnotationTextKind::NoParts:
        Tell(kNoAnnotations);
        return;
    case AnnotationTextKind::Marks:
        PasteAnnotationText(text);
        return;
    case AnnotationTextKind::Rows:
        if (AskYes(kOtherData)) {
            UseLayer(kDataLayer);
            PasteData();
        }
        return;
    }
}

bool IsOfRightButton(const Annotation& annotation) {
    return annotation.SymbolType == kRightAnnotationStyle;
}

} // namespace

std::optional<int> FreeAnnotationTag(const Annotations& annotations) {
    return FreeTags(annotations).Next(kTagTries);
}

SymbolRow StyleOfAnnotation(const Annotation& annotation) {
    SymbolRow style = gSymbolTable[static_cast<std::size_t>(
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

std::span<const Annotation> AnnotationsOf(int slot) {
    const std::unique_ptr<Annotations>& annotations = RecordOf(slot).PlotAnnotations;
    return annotations ? std::span<const Annotation>(*annotations) : std::span<const Annotation>();
}

void DrawAnnotations() {
    if (ActiveRecord().ShowAnnotations == 0) {
        return;
    }
    for (const Annotation& annotation : AnnotationsOf(gActivePlot)) {
        DrawAnnotation(PlotSurface(), annotation);
    }
}

bool AddAnnotation(int button, double x, double y) {
    if (!CanEdit() || !IsOnNet(x, y)) {
        return false;
    }
    const std::optional<int> tag = FreeAnnotationTag(Collection());
    if (!tag) {
        Tell(kNoTag);
        return false;
    }
    const std::int16_t type =
        button == kRightMouseButton ? kRightAnnotationStyle : kLeftAnnotationStyle;
    const SymbolRow& style = gSymbolTable[static_cast<std::size_t>(type)];
    EditStep step = StepOf(kAnnotationAdd, EditRun::First);
    Collection().push_back({WholeUnits(x),
                            WholeUnits(y),
                            type,
                            style[kPlaceColour],
                            style[kPlaceSize],
                            kSolidLine,
                            std::to_string(*tag),
                            {}});
    PlotRecord& record = ActiveRecord();
    const bool wereShown = std::exchange(record.ShowAnnotations, kTrue) != 0;
    // What is there stays as it is: one symbol more needs no drawing of all the rows.
    step.Finish(wereShown ? Redraw::Nothing : Redraw::Plot);
    if (wereShown) {
        DrawAnnotation(PlotSurface(), Collection().back());
        FormOf(gActivePlot).Show();
    }
    return true;
}

bool ExtendAnnotation(double x, double y) {
    if (!CanEdit() || Collection().empty() || !IsOnNet(x, y)) {
        return false;
    }
    Annotation& annotation = Collection().back();
    std::vector<LineNode>& nodes = annotation.LineNodes;
    const LineNode end = nodes.empty() ? LineNode{annotation.X, annotation.Y} : nodes.back();
    const LineNode node{WholeUnits(x), WholeUnits(y)};
    if (std::hypot(node.X - end.X, node.Y - end.Y) < kNodeDistance) {
        return false;
    }
    EditStep step = StepOf(kAnnotationAdd, EditRun::Joins);
    if (nodes.empty()) {
        nodes.push_back(end);
    }
    nodes.push_back(node);
    step.Finish(Redraw::Nothing);
    if (ActiveRecord().ShowAnnotations != 0) {
        DrawPolyline(PlotSurface(), std::span(nodes).last(2), annotation);
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
    EditStep step = StepOf(kAnnotationRemoval);
    Collection().clear();
    ActiveRecord().ShowAnnotations = 0;
    step.Finish(Redraw::Plot);
}

std::vector<std::size_t> SelectedAnnotations() {
    if (!IsOpenSlot(gActivePlot) || !MarqueeStandsOn(gActivePlot)
        || ActiveRecord().ShowAnnotations == 0) {
        return {};
    }
    std::vector<std::size_t> members = PickedMarks() ? *PickedMarks() : MarksInMarquee();
    std::erase_if(members, [count = AnnotationsOf(gActivePlot).size()](std::size_t member) {
        return member >= count;
    });
    return members;
}

bool MoveAnnotations(std::span<const std::size_t> members, double dx, double dy) {
    if (!CanEdit() || members.empty()) {
        return false;
    }
    const auto wholeDx = static_cast<int>(RoundToEvenLong(dx));
    const auto wholeDy = static_cast<int>(RoundToEvenLong(dy));
    Annotations moved = Collection();
    bool hasMoved = false;
    for (const std::size_t member : members) {
        hasMoved = (MoveOne(moved.at(member), wholeDx, wholeDy) && (wholeDx != 0 || wholeDy != 0))
                   || hasMoved;
    }
    if (hasMoved) {
        EditStep step = StepOf(kAnnotationMove);
        Collection() = std::move(moved);
        step.Finish(Redraw::Plot);
    }
    return hasMoved;
}

bool MoveAnnotations(double dx, double dy) {
    return MoveAnnotations(SelectedAnnotations(), dx, dy);
}

std::optional<AnnotationStyles> StylesOfSelectedAnnotations() {
    const std::vector<std::size_t> members = SelectedAnnotations();
    if (members.empty()) {
        return std::nullopt;
    }
    const std::span<const Annotation> annotations = AnnotationsOf(gActivePlot);
    const auto firstOf = [&](bool ofRightButton) {
        const auto found = std::ranges::find_if(members, [&](std::size_t member) {
            return IsOfRightButton(annotations[member]) == ofRightButton;
        });
        return StyleOfAnnotation(annotations[found == members.end() ? members[0] : *found]);
    };
    return AnnotationStyles{firstOf(false), firstOf(true)};
}

void ChangeAnnotationSymbols(const AnnotationStyles& styles) {
    const std::vector<std::size_t> members = SelectedAnnotations();
    if (!CanEdit() || members.empty()) {
        return;
    }
    EditStep step = StepOf(kAnnotationSymbol);
    for (const std::size_t member : members) {
        Annotation& annotation = Collection()[member];
        const SymbolRow& style = IsOfRightButton(annotation) ? styles.up : styles.down;
        // A shape that is not changed goes on following the style table, and keeps its button.
        if (style[kPlaceSymbol] != StyleOfAnnotation(annotation)[kPlaceSymbol]
            && style[kPlaceSymbol] != kNoSymbol) {
            annotation.SymbolType = style[kPlaceSymbol];
        }
        annotation.Colour = style[kPlaceColour];
        annotation.Size = style[kPlaceSize];
    }
    step.Finish(Redraw::Plot);
}

void EditAnnotations(int index) {
    if (!CanEdit()) {
        return;
    }
    switch (index) {
    case kCutAnnotations:
    case kCopyAnnotations:
    case kCopyAllOfAnnotations:
    case kDeleteAnnotations:
        CutCopyOrDelete(index);
        return;
    case kPasteAnnotations:
        Paste();
        return;
    case kSelectAllAnnotations:
        SelectAll();
        return;
    case kUnselectAnnotations:
        ClearSelection();
        return;
    default:
        return;
    }
}

void PasteAnnotationText(const std::string& text) {
    if (!CanEdit()) {
        return;
    }
    ReadAnnotations read = ReadAnnotationText(text);
    if (!read.annotations.empty()) {
        EditStep step = StepOf(kAnnotationPaste);
        Annotations& annotations = Collection();
        FreeTags tags(annotations);
        const auto [dx, dy] = OffsetOfPaste(read.annotations, annotations);
        for (Annotation& annotation : read.annotations) {
            const std::optional<int> tag = tags.Next(std::numeric_limits<std::int16_t>::max());
            if (!tag) {
                ++read.badLines;
                continue;
            }
            annotation.Tag = std::to_string(*tag);
            (void)MoveOne(annotation, dx, dy); // one that has no room stays where it was
            annotations.push_back(std::move(annotation));
        }
        ActiveRecord().ShowAnnotations = kTrue;
        step.Finish(Redraw::Plot);
    }
    if (read.badLines > 0) {
        Tell(kBadLines);
    }
}

} // namespace quandrel
