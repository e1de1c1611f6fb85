// SPDX-License-Identifier: MIT

#include "edit/marks/annotation_edits.h"

#include "core/messages.h"
#include "core/plot_store.h"
#include "edit/history/edit_step.h"
#include "edit/marks/annotation_tags.h"
#include "edit/marks/annotation_text.h"
#include "edit/marks/kept_annotations.h"
#include "edit/selection/marquee.h"
#include "orientation/angles.h"
#include "platform/platform.h"
#include "stereo/symbols.h"

#include <algorithm>
#include <limits>
#include <set>
#include <utility>

namespace quandrel {

namespace {

/// The distance of pasted annotations from the copied ones, plot units, and the largest number of
/// such steps that are tried.
constexpr int kPasteOffset = 30;
constexpr int kMostPasteSteps = 50;

constexpr const char* kBadLines = "Errors were encountered while pasting the copied annotations.";

bool IsInPicture(double x, double y) {
    return x >= kPlotScale.left && x <= kPlotScale.right && y >= kPlotScale.bottom
           && y <= kPlotScale.top;
}

/// Moves an annotation by whole units; false if it would leave the picture.
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

/// The offset of pasted annotations from their copied positions: steps to the right and down, or
/// away from an edge of the picture, until no pasted annotation covers an existing one.
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
    Annotations& annotations = AnnotationsOfActivePlot();
    for (std::size_t i = members.size(); i > 0; --i) {
        annotations.erase(annotations.begin() + static_cast<std::ptrdiff_t>(members[i - 1]));
    }
}

void CopyMembers(std::span<const std::size_t> members) {
    Annotations copied;
    for (const std::size_t member : members) {
        copied.push_back(AnnotationsOfActivePlot()[member]);
    }
    gPlatform.clipboard->SetText(AnnotationText(copied));
}

} // namespace

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
    if (!CanEditAnnotations() || members.empty()) {
        return false;
    }
    const auto wholeDx = static_cast<int>(RoundToEvenLong(dx));
    const auto wholeDy = static_cast<int>(RoundToEvenLong(dy));
    Annotations moved = AnnotationsOfActivePlot();
    bool hasMoved = false;
    for (const std::size_t member : members) {
        hasMoved = (MoveOne(moved.at(member), wholeDx, wholeDy) && (wholeDx != 0 || wholeDy != 0))
                   || hasMoved;
    }
    if (hasMoved) {
        EditStep step(kAnnotationMove, Before<AnnotationsChange>);
        AnnotationsOfActivePlot() = std::move(moved);
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
        return StyleOfAnnotation(gSettings.styles,
                                 annotations[found == members.end() ? members[0] : *found]);
    };
    return AnnotationStyles{firstOf(false), firstOf(true)};
}

void ChangeAnnotationSymbols(const AnnotationStyles& styles) {
    const std::vector<std::size_t> members = SelectedAnnotations();
    if (!CanEditAnnotations() || members.empty()) {
        return;
    }
    EditStep step(kAnnotationSymbol, Before<AnnotationsChange>);
    for (const std::size_t member : members) {
        Annotation& annotation = AnnotationsOfActivePlot()[member];
        const SymbolRow& style = IsOfRightButton(annotation) ? styles.up : styles.down;
        // An unchanged shape still follows the style table, and keeps its button.
        if (style[kPlaceSymbol] != StyleOfAnnotation(gSettings.styles, annotation)[kPlaceSymbol]
            && style[kPlaceSymbol] != kNoSymbol) {
            annotation.SymbolType = style[kPlaceSymbol];
        }
        annotation.Colour = style[kPlaceColour];
        annotation.Size = style[kPlaceSize];
    }
    step.Finish(Redraw::Plot);
}

void TakeAnnotations(AnnotationRemoval removal) {
    if (!CanEditAnnotations()) {
        return;
    }
    const std::vector<std::size_t> members = SelectedAnnotations();
    if (members.empty()) {
        Tell(kNoAnnotationsSelected);
        return;
    }
    if (removal != AnnotationRemoval::Delete) {
        CopyMembers(members);
    }
    if (removal != AnnotationRemoval::Copy) {
        EditStep step(removal == AnnotationRemoval::Cut ? kAnnotationCut : kAnnotationDelete,
                      Before<AnnotationsChange>);
        RemoveMembers(members);
        step.Finish(Redraw::Plot);
    }
}

void PasteAnnotationText(const std::string& text) {
    if (!CanEditAnnotations()) {
        return;
    }
    ReadAnnotations read = ReadAnnotationText(text);
    if (!read.annotations.empty()) {
        EditStep step(kAnnotationPaste, Before<AnnotationsChange>);
        Annotations& annotations = AnnotationsOfActivePlot();
        FreeTags tags(annotations);
        const auto [dx, dy] = OffsetOfPaste(read.annotations, annotations);
        for (Annotation& annotation : read.annotations) {
            const std::optional<int> tag = tags.Next(std::numeric_limits<std::int16_t>::max());
            if (!tag) {
                ++read.badLines;
                continue;
            }
            annotation.Tag = std::to_string(*tag);
            (void)MoveOne(annotation, dx, dy); // an annotation without space to move stays
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
