// SPDX-License-Identifier: MIT
//
// The columns of a format choice: how they follow changes of the format, and the questions about
// them.

#include "input/format_choice.h"

#include <algorithm>
#include <utility>

namespace quandrel {

namespace {

using SlotFlags = std::array<bool, kColumnSlots>;

std::size_t Index(int slot) {
    return static_cast<std::size_t>(slot);
}

// The orientations of a line, and the appended values. Slots of one group may swap places.
constexpr std::array<std::pair<int, int>, 5> kGroups = {{{kSlotDip, kSlotSense},
                                                         {kSlotSecondaryDip, kSlotSecondarySense},
                                                         {kSlotAppendedPlunge, kSlotAppendedTrend},
                                                         {kSlotNumber, kSlotNumber},
                                                         {kSlotText, kSlotText}}};

/// A slot and the sense that may be in its column.
struct SensePair {
    int value;
    int sense;
    const char* name; ///< as in the question about it
};

std::array<SensePair, 2> SensePairs(const FormatChoice& choice) {
    const bool isPitch = choice.secondary == kPitchInPlane;
    return {{{kSlotDip, kSlotSense, "Dip"},
             {isPitch ? kSlotSecondaryDirection : kSlotSecondaryDip, kSlotSecondarySense,
              isPitch ? "Pitch" : "Dip"}}};
}

bool IsSensePair(const FormatChoice& choice, int first, int second) {
    const auto pairs = SensePairs(choice);
    return std::any_of(pairs.begin(), pairs.end(), [&](const SensePair& pair) {
        return pair.value == first && pair.sense == second;
    });
}

bool SharesColumn(const FormatChoice& choice, int first, int second) {
    return choice.columns[Index(first)] == choice.columns[Index(second)];
}

bool HaveInitialColumns(const FormatChoice& choice) {
    const ColumnSettings initial = InitialColumns(choice);
    const SlotFlags used = ColumnsInUse(choice);
    for (std::size_t slot = 0; slot < used.size(); ++slot) {
        if (used[slot] && initial[slot] != choice.columns[slot]) {
            return false;
        }
    }
    return true;
}

/// Moves the columns of a choice to a new format, one group at a time.
class ColumnMove {
public:
    ColumnMove(const FormatChoice& before, FormatChoice& after)
        : before_(before)
        , after_(after)
        , usedBefore_(ColumnsInUse(before))
        , hasColumn_(usedBefore_)
        , usedAfter_(ColumnsInUse(after))
        , orderBefore_(InitialColumns(before))
        , orderAfter_(InitialColumns(after)) {}

    void MoveGroup(int first, int last) {
        std::vector<int> kept;
        std::vector<int> added;
        for (int slot = first; slot <= last; ++slot) {
            if (usedAfter_[Index(slot)] && !HasColumnOfValue(slot)) {
                (usedBefore_[Index(slot)] ? kept : added).push_back(slot);
            }
        }
        if (OrderChanged(kept)) {
            Reorder(kept);
        }
        std::sort(added.begin(), added.end(), [this](int a, int b) { return Order(a) < Order(b); });
        for (const int slot : added) {
            after_.columns[Index(slot)] = FreeColumn(slot);
            hasColumn_[Index(slot)] = true;
        }
        JoinSenses(first, last);
    }

private:
    [[nodiscard]] std::int32_t Order(int slot) const { return orderAfter_[Index(slot)]; }

    /// A sense that was in the column of its value, and stays there.
    [[nodiscard]] bool HasColumnOfValue(int slot) const {
        const auto pairs = SensePairs(before_);
        return std::any_of(pairs.begin(), pairs.end(), [&](const SensePair& pair) {
            return pair.sense == slot && usedBefore_[Index(slot)]
                   && SharesColumn(before_, pair.value, slot)
                   && IsSensePair(after_, pair.value, slot);
        });
    }

    void JoinSenses(int first, int last) {
        for (const SensePair& pair : SensePairs(before_)) {
            if (pair.sense >= first && pair.sense <= last && HasColumnOfValue(pair.sense)) {
                after_.columns[Index(pair.sense)] = after_.columns[Index(pair.value)];
            }
        }
    }

    [[nodiscard]] bool OrderChanged(const std::vector<int>& slots) const {
        for (const int a : slots) {
            for (const int b : slots) {
                if (orderBefore_[Index(a)] < orderBefore_[Index(b)] && Order(a) > Order(b)) {
                    return true;
                }
            }
        }
        return false;
    }

    void Reorder(std::vector<int> slots) {
        std::vector<std::int32_t> columns;
        columns.reserve(slots.size());
        for (const int slot : slots) {
            columns.push_back(after_.columns[Index(slot)]);
        }
        std::sort(columns.begin(), columns.end());
        std::sort(slots.begin(), slots.end(), [this](int a, int b) { return Order(a) < Order(b); });
        for (std::size_t i = 0; i < slots.size(); ++i) {
            after_.columns[Index(slots[i])] = columns[i];
        }
    }

    /// The last column of a group; -1 when it has none.
    [[nodiscard]] std::int32_t LastColumn(const std::pair<int, int>& group) const {
        std::int32_t last = -1;
        for (int slot = group.first; slot <= group.second; ++slot) {
            last = IsTaken(slot) ? std::max(last, after_.columns[Index(slot)]) : last;
        }
        return last;
    }

    /// The first column that no other item has, after those of the slot's own group, or else of the
    /// primary orientation: a column before that usually holds a place name.
    [[nodiscard]] std::int32_t FreeColumn(int slot) const {
        const auto* const group =
            std::find_if(kGroups.begin(), kGroups.end(), [slot](const auto& range) {
                return slot >= range.first && slot <= range.second;
            });
        const std::int32_t own = LastColumn(*group);
        std::int32_t column = (own >= 0 ? own : LastColumn(kGroups.front())) + 1;
        while (IsTakenColumn(column)) {
            ++column;
        }
        return column;
    }

    [[nodiscard]] bool IsTakenColumn(std::int32_t column) const {
        for (int slot = 0; slot < kColumnSlots; ++slot) {
            if (IsTaken(slot) && after_.columns[Index(slot)] == column) {
                return true;
            }
        }
        return false;
    }

    [[nodiscard]] bool IsTaken(int slot) const {
        return usedAfter_[Index(slot)] && hasColumn_[Index(slot)];
    }

    const FormatChoice& before_;
    FormatChoice& after_;
    SlotFlags usedBefore_;
    SlotFlags hasColumn_; ///< those used before, and those that have their column by now
    SlotFlags usedAfter_;
    ColumnSettings orderBefore_;
    ColumnSettings orderAfter_;
};

/// Finds columns that serve two items.
class ColumnCheck {
public:
    explicit ColumnCheck(const FormatChoice& choice)
        : choice_(choice)
        , used_(ColumnsInUse(choice)) {}

    [[nodiscard]] std::vector<ColumnProblem> Run() {
        CheckOrientations();
        CheckSenses();
        CheckAppendedLine();
        CheckNumberAndText();
        CheckDifferentOrientations();
        return std::move(problems_);
    }

private:
    [[nodiscard]] bool Clash(int first, int second) const {
        return used_[Index(first)] && used_[Index(second)] && SharesColumn(choice_, first, second);
    }

    [[nodiscard]] std::string ColumnText(const char* start, int slot) const {
        return start + std::to_string(choice_.columns[Index(slot)] + 1);
    }

    void AskToPlot(int slot, const char* text) {
        problems_.push_back({ColumnText("Column ", slot) + text
                                 + "\nDo you want to plot this data with this setting?",
                             Buttons::OkCancel, slot});
    }

    /// Whether two items may be parts of one cell: dip, azimuth and sense of an orientation.
    [[nodiscard]] bool IsPair(int first, int a, int b) const {
        return choice_.pairsInCells && (first == kSlotDip || first == kSlotSecondaryDip)
               && SharesColumn(choice_, first, a) && SharesColumn(choice_, first, b)
               && SharesColumn(choice_, first, first + 1);
    }

    void CheckOrientations() {
        for (const auto& [first, last] : kGroups) {
            for (int a = first; a <= last; ++a) {
                for (int b = a + 1; b <= last; ++b) {
                    if (Clash(a, b) && !IsSensePair(choice_, a, b) && !IsPair(first, a, b)) {
                        problems_.push_back(
                            {ColumnText("Column ", b)
                                 + " is used more than once for the same orientation data\n"
                                   "This must be resolved before the data can be plotted",
                             Buttons::Ok, b});
                    }
                }
            }
        }
    }

    void CheckSenses() {
        for (const SensePair& pair : SensePairs(choice_)) {
            if (Clash(pair.value, pair.sense) && !IsPair(pair.value, pair.value, pair.sense)) {
                const std::string name = pair.name;
                const std::string inText = name == "Dip" ? "dip" : "pitch";
                problems_.push_back(
                    {ColumnText("You have indicated that column ", pair.sense)
                         + " contains both the " + name
                         + " and the Sense. Quandrel can handle this and strip the sense "
                           "information from the "
                         + inText + ".\nDo you want to proceed with these settings?",
                     Buttons::OkCancel, pair.sense});
            }
        }
    }

    void CheckAppendedLine() {
        for (const int line : {kSlotAppendedPlunge, kSlotAppendedTrend}) {
            for (int other = kSlotDip; other <= kSlotText; ++other) {
                const bool isLine = other == kSlotAppendedPlunge || other == kSlotAppendedTrend;
                if (!isLine && Clash(line, other)) {
                    return AskToPlot(line, other < kSlotAppendedPlunge
                                               ? " is used both for the appended line and for "
                                                 "other orientation data"
                                               : " is used both for the appended line and for "
                                                 "other appended data");
                }
            }
        }
    }

    void CheckNumberAndText() {
        if (Clash(kSlotNumber, kSlotText)) {
            AskToPlot(kSlotText, " is used both for the appended Length and for the appended "
                                 "weighting in this data set");
        }
    }

    void CheckDifferentOrientations() {
        for (int a = kSlotDip; a <= kSlotSense; ++a) {
            for (int b = kSlotSecondaryDip; b <= kSlotSecondarySense; ++b) {
                if (Clash(a, b)) {
                    return AskToPlot(b, " is used to refer to different orientation data items");
                }
            }
        }
    }

    const FormatChoice& choice_;
    SlotFlags used_;
    std::vector<ColumnProblem> problems_;
};

} // namespace

void FollowFormat(const FormatChoice& before, FormatChoice& after) {
    if (HaveInitialColumns(before)) {
        after.columns = InitialColumns(after);
        return;
    }
    ColumnMove move(before, after);
    for (const auto& [first, last] : kGroups) {
        move.MoveGroup(first, last);
    }
}

std::vector<ColumnProblem> ColumnProblems(const FormatChoice& choice) {
    return ColumnCheck(choice).Run();
}

std::optional<std::string> PlotTypeQuestion(const FormatChoice& choice) {
    if (choice.plotDataKind == kNoDataKind) {
        return "You have not yet selected the type of data to be plotted.\nIf you Cancel now no "
               "data will be plotted.\nDo you want to plot this data?";
    }
    const bool isPlanes = PlotsPlaneData(choice);
    if (isPlanes == (choice.plotDataKind == kPlanes)) {
        return std::nullopt;
    }
    const bool isSecondary = choice.plotSecondary && choice.secondary != kNoSecondary;
    return std::string("You have indicated that your ") + (isSecondary ? "Secondary" : "Primary")
           + " data are " + (isPlanes ? "Planes" : "Lines")
           + "\nDo you want to continue and plot these as " + (isPlanes ? "Lines" : "Planes") + "?";
}

} // namespace quandrel
