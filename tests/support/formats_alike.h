// SPDX-License-Identifier: MIT
//
// Whether a suggested format reads a text as a known one does.

#pragma once

#include "input/data_line.h"
#include "input/suggest/format_suggestion.h"

#include <cmath>
#include <span>
#include <string>

namespace quandrel {

inline bool AreAlike(double one, double other) {
    return std::abs(one - other) < 1e-9;
}

/// Whether two formats give a line the same orientations. The known one may leave a secondary
/// orientation out that the other one finds.
inline bool AreRowsAlike(const ParsedRow& known, const ParsedRow& other, bool hasSecondary) {
    if (known.status != other.status || known.isPlane != other.isPlane
        || !AreAlike(known.dip, other.dip) || !AreAlike(known.az, other.az)) {
        return false;
    }
    return !hasSecondary
           || (known.secondaryPresent == other.secondaryPresent && known.isPlane2 == other.isPlane2
               && AreAlike(known.dip2, other.dip2) && AreAlike(known.az2, other.az2));
}

/// Whether a suggestion reads the rows of a known format, all of them and in the same way.
inline bool ReadsAlike(std::span<const std::string> lines, LineFormat known,
                       const FormatChoice& suggested) {
    LineFormat other = LineFormatOf(suggested);
    known.convertDecimals = other.convertDecimals = true;
    if (known.primary != other.primary) {
        return false;
    }
    std::size_t rows = 0;
    for (const std::string& line : lines) {
        const ParsedRow row = ParseLine(line, known);
        if (row.status == LineStatus::Row) {
            ++rows;
            if (!AreRowsAlike(row, ParseLine(line, other), known.secondary != kNoSecondary)) {
                return false;
            }
        }
    }
    return rows > 0;
}

/// How well a text is suggested.
struct Suggested {
    bool isRight = false; ///< the first suggestion reads the text as the known format does
    bool isSure = false;
};

inline Suggested SuggestionFor(std::span<const std::string> lines, const LineFormat& known) {
    const std::vector<FormatSuggestion> found = SuggestFormats(lines);
    if (found.empty()) {
        return {};
    }
    return {ReadsAlike(lines, known, found.front().choice),
            found.front().probability >= kSureEnough};
}

} // namespace quandrel
