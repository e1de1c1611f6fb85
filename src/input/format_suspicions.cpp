// SPDX-License-Identifier: MIT

#include "input/format_suspicions.h"

#include "core/settings.h"
#include "input/data_line.h"
#include "input/delimiter_merit.h"
#include "orientation/notation.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>

namespace quandrel {

namespace {

constexpr double kSteepest = 90;
constexpr double kFullTurn = 360;

/// The number at the start of a text, without a sense after it.
std::optional<double> NumberBeforeLetters(std::string_view text) {
    std::string_view number;
    std::string_view letters;
    if (!SplitSenseLetters(text, number, letters)) {
        return std::nullopt;
    }
    return ReadNumber(number);
}

std::string_view LettersBehindNumber(std::string_view text) {
    std::string_view number;
    std::string_view letters;
    return SplitSenseLetters(text, number, letters) ? letters : std::string_view();
}

std::string Quoted(std::string_view text) {
    return '"' + std::string(text) + '"';
}

bool IsDip(int slot) {
    return slot == kSlotDip || slot == kSlotSecondaryDip || slot == kSlotAppendedPlunge;
}

/// A pitch and an angle in the plane take the place of an azimuth but are not azimuths.
bool IsAzimuth(const FormatChoice& choice, int slot) {
    const bool isAngleInPlane =
        choice.secondary == kPitchInPlane || choice.secondary == kHadeInPlane;
    return slot == kSlotDirection || slot == kSlotAppendedTrend
           || (slot == kSlotSecondaryDirection && !isAngleInPlane);
}

/// The lines of a preview under a choice, checked column by column.
class Doubts {
public:
    Doubts(const FormatChoice& choice, const FormatPreview& preview)
        : choice_(choice)
        , preview_(preview)
        , format_(LineFormatOf(choice))
        , used_(ColumnsInUse(choice))
        , names_(LongColumnNames(choice))
        , rows_(DataLinesOf(preview)) {}

    [[nodiscard]] std::vector<std::string> Reasons(Doubt doubt) {
        if (!rows_.empty() && !DoubtDelimiter()) {
            DoubtWidth();
            if (doubt == Doubt::All) {
                DoubtHeadingColumns();
                DoubtColumns();
                DoubtRightHand();
            }
            DoubtAll();
        }
        if (doubt == Doubt::All) {
            DoubtHeading();
        }
        return std::move(reasons_);
    }

private:
    using Test = std::function<bool(const std::string&)>;

    [[nodiscard]] std::int32_t ColumnOf(int slot) const {
        return choice_.columns[static_cast<std::size_t>(slot)];
    }

    [[nodiscard]] const std::string& Name(int slot) const {
        return names_[static_cast<std::size_t>(slot)];
    }

    [[nodiscard]] bool IsUsed(int slot) const { return used_[static_cast<std::size_t>(slot)]; }

    /// The cell of a column; empty when the line is too short.
    [[nodiscard]] const std::string& Cell(std::size_t line, std::int32_t column) const {
        static const std::string none;
        const std::vector<std::string>& cells = preview_.lines[line].cells;
        return static_cast<std::size_t>(column) < cells.size()
                   ? cells[static_cast<std::size_t>(column)]
                   : none;
    }

    /// Lines whose cell in a column is not empty and fails the test, in order.
    [[nodiscard]] std::vector<std::size_t> Failing(std::int32_t column, const Test& fails) const {
        std::vector<std::size_t> failing;
        for (const std::size_t line : rows_) {
            const std::string& cell = Cell(line, column);
            if (!cell.empty() && fails(cell)) {
                failing.push_back(line);
            }
        }
        return failing;
    }

    [[nodiscard]] bool IsMost(std::size_t count) const { return 2 * count > rows_.size(); }

    [[nodiscard]] static std::string InLine(std::size_t line) {
        return " in line " + std::to_string(line + 1);
    }

    /// "Column 2 is the dip, but holds "120" in line 3"
    [[nodiscard]] std::string ButHolds(int slot, std::size_t line) const {
        return "Column " + std::to_string(ColumnOf(slot) + 1) + " is the " + Name(slot)
               + ", but holds " + Quoted(Cell(line, ColumnOf(slot))) + InLine(line);
    }

    [[nodiscard]] std::size_t NarrowLines(std::size_t columns) const {
        return static_cast<std::size_t>(
            std::count_if(rows_.begin(), rows_.end(), [&](std::size_t line) {
                return preview_.lines[line].cells.size() < columns;
            }));
    }

    /// True when the delimiter leaves most lines undivided.
    bool DoubtDelimiter() {
        const std::size_t narrow = NarrowLines(2);
        if (format_.neededColumns < 2 || !IsMost(narrow)) {
            return false;
        }
        std::string reason = "With the delimiter " + Quoted(NameOfDelimiter(choice_.delimiter))
                             + (narrow == rows_.size() ? " each line is" : " most lines are")
                             + " one column";
        if (const std::optional<DelimiterMerit> best = BestDelimiter(preview_)) {
            reason +=
                "; with " + Quoted(best->name) + " there are " + std::to_string(best->columns);
        }
        reasons_.push_back(reason + '.');
        return true;
    }

    /// Headings and rows differ in their number of columns, and another delimiter that splits the
    /// rows makes them agree.
    void DoubtHeadingColumns() {
        const PreviewLine* heading = HeadingLineOf(preview_);
        if (heading == nullptr || heading->kind != PreviewKind::Heading
            || heading->cells.size() == UsualWidth()) {
            return;
        }
        const std::optional<DelimiterMerit> best = BestDelimiter(preview_);
        if (best && best->headingAgrees && best->columns != UsualWidth()) {
            reasons_.push_back("With the delimiter " + Quoted(NameOfDelimiter(choice_.delimiter))
                               + " headings and rows differ in their number of columns; with "
                               + Quoted(best->name) + " both have " + std::to_string(best->columns)
                               + '.');
        }
    }

    /// Most lines are too short for a column that is needed.
    void DoubtWidth() {
        const auto needed =
            static_cast<std::size_t>(format_.neededColumns - (format_.wantText ? 1 : 0));
        if (!IsMost(NarrowLines(needed))) {
            return;
        }
        for (int slot = 0; slot < kColumnSlots; ++slot) {
            if (IsUsed(slot) && IsMost(NarrowLines(static_cast<std::size_t>(ColumnOf(slot)) + 1))) {
                reasons_.push_back("Column " + std::to_string(ColumnOf(slot) + 1) + " is the "
                                   + Name(slot) + ", but most lines have no more than "
                                   + std::to_string(UsualWidth()) + '.');
            }
        }
    }

    /// The median number of columns of the lines.
    [[nodiscard]] std::size_t UsualWidth() const {
        std::vector<std::size_t> widths;
        for (const std::size_t line : rows_) {
            widths.push_back(preview_.lines[line].cells.size());
        }
        return MiddleOf(std::move(widths));
    }

    void DoubtColumns() {
        for (int slot = 0; slot < kColumnSlots; ++slot) {
            if (!IsUsed(slot)) {
                continue;
            }
            if (IsDip(slot)) {
                DoubtDip(slot);
            } else if (IsAzimuth(choice_, slot)) {
                DoubtAzimuth(slot);
            } else if (slot == kSlotSense || slot == kSlotSecondarySense) {
                DoubtSense(slot);
            } else if (slot == kSlotNumber) {
                DoubtNumber(slot, [](const std::string& cell) { return !ReadNumber(cell); });
            } else if (slot == kSlotSecondaryDirection) {
                DoubtNumber(slot,
                            [](const std::string& cell) { return !NumberBeforeLetters(cell); });
            }
        }
    }

    void DoubtNumber(int slot, const Test& isNone) {
        const auto failing = Failing(ColumnOf(slot), isNone);
        if (IsMost(failing.size())) {
            reasons_.push_back(ButHolds(slot, failing.front()) + ", which is not a number.");
        }
    }

    void DoubtDip(int slot) {
        DoubtNumber(slot, [](const std::string& cell) { return !NumberBeforeLetters(cell); });
        const auto steep = Failing(ColumnOf(slot), [](const std::string& cell) {
            return std::abs(NumberBeforeLetters(cell).value_or(0)) > kSteepest;
        });
        if (!steep.empty()) {
            reasons_.push_back(ButHolds(slot, steep.front()) + ", above 90"
                               + (LooksLikeDips(slot + 1)
                                      ? "; has it been swapped with the " + Name(slot + 1) + "?"
                                      : "."));
        }
    }

    /// True when the column of an azimuth could be one of dips.
    [[nodiscard]] bool LooksLikeDips(int slot) const {
        return IsUsed(slot) && Failing(ColumnOf(slot), [](const std::string& cell) {
                                   const auto number = NumberBeforeLetters(cell);
                                   return !number || std::abs(*number) > kSteepest;
                               }).empty();
    }

    void DoubtAzimuth(int slot) {
        const bool isQuadrant = choice_.isQuadrant;
        const auto unreadable = Failing(ColumnOf(slot), [&](const std::string& cell) {
            return isQuadrant ? !QuadrantDegrees(cell) : !ReadNumber(cell);
        });
        if (IsMost(unreadable.size())) {
            const std::string& cell = Cell(unreadable.front(), ColumnOf(slot));
            const bool isOther =
                isQuadrant ? ReadNumber(cell).has_value() : QuadrantDegrees(cell).has_value();
            const char* reason = isQuadrant ? ", which is not in quadrant notation."
                                            : ", which is "
                                              "not an azimuth.";
            if (isOther && !isQuadrant) {
                reason = ", which is in quadrant notation.";
            }
            reasons_.push_back(ButHolds(slot, unreadable.front()) + reason);
        }
        const auto beyond = Failing(ColumnOf(slot), [](const std::string& cell) {
            return std::abs(ReadNumber(cell).value_or(0)) > kFullTurn;
        });
        if (!beyond.empty()) {
            reasons_.push_back(ButHolds(slot, beyond.front()) + ", above 360.");
        }
    }

    void DoubtSense(int slot) {
        const auto failing = Failing(ColumnOf(slot), [](const std::string& cell) {
            return !IsValidSense(cell) && !IsValidSense(LettersBehindNumber(cell));
        });
        if (IsMost(failing.size())) {
            reasons_.push_back(ButHolds(slot, failing.front()) + ", which is not a sense of dip.");
        }
    }

    /// Counts the lines that state a sense against the strike by the right-hand rule.
    void DoubtRightHand() {
        const bool isRightHand = choice_.planeConvention >= kDipStrikeRightHand;
        if (!isRightHand || choice_.primary != kPrimaryPlane) {
            return;
        }
        const std::optional<std::int32_t> senseColumn = ColumnOfSenses();
        std::size_t against = 0;
        std::size_t firstLine = 0;
        for (const std::size_t line : rows_) {
            const std::string& dip = Cell(line, ColumnOf(kSlotDip));
            const std::string_view sense =
                senseColumn ? std::string_view(Cell(line, *senseColumn)) : LettersBehindNumber(dip);
            if (ContradictsRightHand(Cell(line, ColumnOf(kSlotDirection)), sense)
                && ++against == 1) {
                firstLine = line;
            }
        }
        if (against > 0) {
            const std::string count =
                against == 1 ? "A line states" : std::to_string(against) + " lines state";
            reasons_.push_back(count + " a sense of dip against the right-hand rule, the first"
                               + InLine(firstLine) + " with the strike "
                               + Quoted(Cell(firstLine, ColumnOf(kSlotDirection))) + '.');
        }
    }

    [[nodiscard]] bool ContradictsRightHand(const std::string& strikeText,
                                            std::string_view sense) const {
        const auto strike =
            choice_.isQuadrant ? QuadrantDegrees(strikeText) : ReadNumber(strikeText);
        double dipDirection = 0;
        if (!strike
            || DipDirectionFromSense(*strike, sense, dipDirection) != SenseVerdict::kFound) {
            return false;
        }
        // Either end of the strike line matches; 0 and 360 are the same.
        const double apart = std::abs(dipDirection - RightHandDipDirection(*strike));
        return apart > kSteepest && apart < kFullTurn - kSteepest;
    }

    /// An unused column that holds nothing but senses.
    [[nodiscard]] std::optional<std::int32_t> ColumnOfSenses() const {
        for (std::int32_t column = 0; column < preview_.columns; ++column) {
            const auto isNone = [](const std::string& cell) { return !IsValidSense(cell); };
            const auto isSense = [](const std::string& cell) { return IsValidSense(cell); };
            if (ItemsOfColumn(choice_, column).empty() && Failing(column, isNone).empty()
                && IsMost(Failing(column, isSense).size())) {
                return column;
            }
        }
        return std::nullopt;
    }

    /// No line can be read, and no reason above explains it.
    void DoubtAll() {
        const bool anyRow = std::any_of(rows_.begin(), rows_.end(), [this](std::size_t line) {
            return ParseLine(preview_.lines[line].line, format_).status == LineStatus::Row;
        });
        if (!anyRow && reasons_.empty()) {
            reasons_.emplace_back("No line of the file can be read with these settings.");
        }
    }

    void DoubtHeading() {
        if (!preview_.heading.empty()
            && ParseLine(preview_.heading, format_).status == LineStatus::Row) {
            reasons_.push_back("The first row is left out as column headings, but holds data: "
                               + Quoted(preview_.heading) + '.');
        }
    }

    const FormatChoice& choice_;
    const FormatPreview& preview_;
    LineFormat format_;
    std::array<bool, kColumnSlots> used_;
    std::array<std::string, kColumnSlots> names_;
    std::vector<std::size_t> rows_; ///< indexes of the data lines
    std::vector<std::string> reasons_;
};

/// Reports a value that the rows of a plot have and those of a file do not, or the reverse.
void CompareValue(bool inPlot, bool inFile, const std::string& what,
                  std::vector<std::string>& reasons) {
    if (inPlot && !inFile) {
        reasons.push_back("The rows of the plot have " + what + ", the rows of this file do not.");
    } else if (!inPlot && inFile) {
        reasons.push_back("The rows of the plot have no place for " + what
                          + ": it will be left out.");
    }
}

} // namespace

std::vector<std::string> FormatMisfits(const FormatChoice& choice, const FormatPreview& preview,
                                       Doubt doubt) {
    return Doubts(choice, preview).Reasons(doubt);
}

std::vector<std::string> PlotMisfits(const FormatChoice& choice, const PlotRecord& record) {
    std::vector<std::string> reasons;
    CompareValue(record.SecondaryFormat != kNoSecondary, choice.secondary != kNoSecondary,
                 "a secondary orientation", reasons);
    CompareValue(record.HasAppendedLine != 0, choice.lineAppended, "an appended line", reasons);
    CompareValue(record.HasAppendedNumeric != 0, choice.numericAppended, "an appended number",
                 reasons);
    CompareValue(record.HasAppendedText != 0, choice.nonNumericAppended, "an appended text",
                 reasons);
    return reasons;
}

bool IsUnknownFile(const std::string& path, const std::vector<std::string>& lines) {
    const bool isRecent =
        std::find(gSettings.files.recent.begin(), gSettings.files.recent.end(), path)
        != gSettings.files.recent.end();
    const bool hasParameters = std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
        return WithoutBlanks(line).starts_with('/');
    });
    return !isRecent && !hasParameters;
}

} // namespace quandrel
