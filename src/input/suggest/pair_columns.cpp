// SPDX-License-Identifier: MIT

#include "input/suggest/pair_columns.h"

#include "input/paired_cell.h"
#include "input/suggest/angle_columns.h"
#include "input/suggest/further_columns.h"
#include "orientation/notation.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

namespace quandrel {

namespace {

using enum HeadingMeaning;

constexpr double kHeaded = 0.97;
constexpr double kLetters = 0.93;
constexpr double kPlanes = 0.5;
constexpr double kStrikes = 0.2;
constexpr double kLines = 0.25;

/// The two values of a column's cells as columns of their own, with their headings.
struct PairColumn {
    std::size_t place = 0;
    ColumnEvidence first;
    ColumnEvidence second;
};

std::optional<PairColumn> PairAt(const TextTable& table, std::size_t place) {
    PairColumn pair;
    pair.place = place;
    std::size_t filled = 0;
    for (const std::vector<std::string>& row : table.rows) {
        filled += row[place].empty() ? 0U : 1U;
        if (const auto parts = SplitPair(row[place])) {
            TakeCell(std::string(parts->first), pair.first);
            TakeCell(std::string(parts->second), pair.second);
        }
    }
    if (filled == 0 || 10 * pair.first.filled < 9 * filled) {
        return std::nullopt;
    }
    if (const auto headings = SplitPair(table.columns[place].heading)) {
        pair.first.meaning = MeaningOfHeading(headings->first);
        pair.second.meaning = MeaningOfHeading(headings->second);
    }
    return pair;
}

/// Makes suggestions for one column.
class PairSuggester {
public:
    PairSuggester(const PairColumn& pair, bool isAzimuthFirst, FormatChoice basis)
        : azimuth_(isAzimuthFirst ? pair.first : pair.second)
        , dip_(isAzimuthFirst ? pair.second : pair.first)
        , isAzimuthFirst_(isAzimuthFirst)
        , basis_(std::move(basis)) {
        basis_.pairsInCells = true;
        basis_.isQuadrant = azimuth_.IsMostly(azimuth_.quadrants);
        for (const int slot : {kSlotDip, kSlotDirection, kSlotSense}) {
            SetColumn(basis_, slot, pair.place);
        }
        reason_ = "the cells of column " + std::to_string(pair.place + 1)
                  + " hold pairs of an azimuth and an angle";
    }

    [[nodiscard]] std::vector<FormatSuggestion> Made() && {
        if (dip_.IsMostly(dip_.dipsWithSense)) {
            AddPlanes(kStrikeDipSense, kLetters, "letters stand for the sense of dip");
        } else if (dip_.meaning == Plunge || azimuth_.meaning == Trend) {
            AddLines(kHeaded);
        } else if (azimuth_.meaning == DipDirection) {
            AddPlanes(kDipDirectionDip, kHeaded, "the heading names a dip direction");
        } else if (azimuth_.meaning == RightHandStrike) {
            AddPlanes(kStrikeDipRightHand, kHeaded, "the heading names a right-hand strike");
        } else {
            AddPlanes(kDipDirectionDip, kPlanes, "no heading says what they are");
            AddLines(kLines);
            AddPlanes(kStrikeDipRightHand, kStrikes, "the azimuths may be strikes");
        }
        return std::move(found_);
    }

private:
    void AddPlanes(int convention, double probability, const char* why) {
        FormatChoice choice = basis_;
        choice.primary = kPrimaryPlane;
        choice.planeConvention = convention;
        if (!isAzimuthFirst_) {
            choice.planeConvention = convention == kDipDirectionDip  ? kDipDipDirection
                                     : convention == kStrikeDipSense ? kDipSenseStrike
                                                                     : kDipStrikeRightHand;
        }
        found_.push_back({std::move(choice), probability, {reason_, why}, false});
    }

    void AddLines(double probability) {
        FormatChoice choice = basis_;
        choice.primary = kPrimaryLine;
        choice.lineIsTrendFirst = isAzimuthFirst_;
        found_.push_back({std::move(choice), probability, {reason_}, false});
    }

    ColumnEvidence azimuth_;
    ColumnEvidence dip_;
    bool isAzimuthFirst_;
    FormatChoice basis_;
    std::string reason_;
    std::vector<FormatSuggestion> found_;
};

bool IsAngle(const ColumnEvidence& column) {
    return IsDip(column) && column.quadrants == 0;
}

} // namespace

std::vector<FormatSuggestion> SuggestionsOfPairs(const TextTable& table,
                                                 const FormatChoice& basis) {
    for (std::size_t place = 0; place < table.columns.size(); ++place) {
        const std::optional<PairColumn> pair = PairAt(table, place);
        if (!pair) {
            continue;
        }
        // Where both could be angles of dip, the azimuth comes first.
        if (IsAzimuth(pair->first) && IsAngle(pair->second)) {
            return PairSuggester(*pair, true, basis).Made();
        }
        if (IsAngle(pair->first) && IsAzimuth(pair->second)) {
            return PairSuggester(*pair, false, basis).Made();
        }
    }
    return {};
}

} // namespace quandrel
