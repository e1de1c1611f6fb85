// SPDX-License-Identifier: MIT
//
// Recorded drawings as plain text, and back: what the reference files of tests/golden hold.
//
// A line is one operation: its kind and colour, whatever differs from the initial state, and "at"
// with its points, which may continue on lines that begin with a blank. A path has an "at" for each
// of its rings:
//
//     drawing "plot 1" size 1000 1000 scale -1100 1100 1100 -1100
//     glyph "2/3"
//     circle filled radius 12 at 0,0
//     circle 000000 width 2 radius 1000 at 0,0
//     markers ff0000 glyph "2/3" at 12,13 14,15
//     clip 000000 radius 1000 at 0,0
//     path 000000 fill 0 ff8000 fillopacity 0.5 at 0,0 9,0 9,9 0,9 at 3,3 6,3 6,6 3,6
//     unclip 000000
//     text 000000 points 8 say "N" at 0,1050
//     end

#pragma once

#include "platform/scripted/recording_surface.h"

#include <map>
#include <string>
#include <vector>

namespace quandrel {

/// What was drawn on one surface.
struct RecordedDrawing {
    std::string name;
    Point size; ///< logical pixels
    UserScale scale;
    std::map<std::string, Glyph> glyphs;
    std::vector<DrawOperation> operations;
};

/// What a surface has recorded.
[[nodiscard]] RecordedDrawing DrawingOf(const std::string& name, const RecordingSurface& surface);

/// A drawing as text. Lengths are rounded to hundredths of a user unit, angles to millionths, by a
/// rule that floating-point noise does not affect: its boundaries avoid all short decimals.
[[nodiscard]] std::string TextOfDrawing(const RecordedDrawing& drawing);

/// The drawings in a text; lines that are not part of one are skipped.
[[nodiscard]] std::vector<RecordedDrawing> DrawingsOfText(const std::string& text);

} // namespace quandrel
