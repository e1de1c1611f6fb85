// SPDX-License-Identifier: MIT
//
// Places for labels that do not cover each other: boxes taken so far, lines that a label had better
// not cross, and the first of several candidates that is free.

#pragma once

#include "platform/surface.h"

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace quandrel {

/// A box by its lower left corner; +y is up.
struct LabelBox {
    double left = 0;
    double bottom = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] double Right() const { return left + width; }

    [[nodiscard]] double Top() const { return bottom + height; }
};

/// Whether two boxes share more than an edge.
[[nodiscard]] bool Overlap(const LabelBox& a, const LabelBox& b);

/// Whether a line between two points runs through a box.
[[nodiscard]] bool Crosses(Point from, Point to, const LabelBox& box);

class LabelPlaces {
public:
    /// @param room  the box that labels do not leave
    explicit LabelPlaces(const LabelBox& room)
        : room_(room) {}

    /// Takes a box, free or not.
    void Take(const LabelBox& box) { taken_.push_back(box); }

    /// The same of a text, with a gap beside it: numbers side by side would read as one.
    void TakeText(const LabelBox& box);

    /// Adds a line that labels cross only where they have no other place.
    void Avoid(Point from, Point to) { lines_.push_back({from, to}); }

    /// Takes the first candidate that is within the room, covers no box that is taken and crosses
    /// no line; else the first that only crosses lines; nothing if there is none either.
    [[nodiscard]] std::optional<LabelBox> TakeFirstFree(std::span<const LabelBox> candidates);

private:
    LabelBox room_;
    std::vector<LabelBox> taken_;
    std::vector<std::array<Point, 2>> lines_;
};

/// The places for the label of a marker, best first: to its right, then around it, then the same
/// at larger distances.
///
/// @param reach  from the marker's centre to its edge
[[nodiscard]] std::vector<LabelBox> PlacesAround(Point marker, double reach, double width,
                                                 double height);

} // namespace quandrel
