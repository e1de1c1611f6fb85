// SPDX-License-Identifier: MIT

#include "input/suggest/format_suggestion.h"

#include "core/style_tables.h"
#include "input/data_line.h"
#include "input/format_preview.h"
#include "input/suggest/angle_columns.h"
#include "input/suggest/heading_terms.h"
#include "input/suggest/table_columns.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>

namespace quandrel {

namespace {

using enum HeadingMeaning;

constexpr double kSteepest = 90;
constexpr double kHalfTurn = 180;
constexpr double kHeaded = 0.97;      ///< a heading says it
constexpr double kRemembered = 0.99;  ///< the user said it
constexpr double kStatedBeside = 0.8; ///< "azimuth" beside a dip: of the dip, rarely of the strike
constexpr double kStrikeByRange = 0.85; ///< strikes of a full turn: by the right-hand rule
constexpr double kStrikeOfHalf = 0.55;  ///< strikes below 180: their planes dip to either side
constexpr double kInPlane = 0.88;       ///< no headings, but lines that lie in the planes
constexpr double kPlanesByOrder = 0.45; ///< no headings: two columns that could be anything
constexpr double kStrikesByOrder = 0.28;
constexpr double kLinesByOrder = 0.25;

class Suggester {
public:
    Suggester(TextTable table, std::span<const std::string> lines, const SuggestionOptions& options)
        : table_(std::move(table))
        , lines_(lines)
        , options_(options) {}

    [[nodiscard]] std::vector<FormatSuggestion> Made() && {
        AddRemembered();
        AddByHeadings();
        if (found_.empty()) {
            AddByValues();
        }
        Check();
        return std::move(found_);
    }

private:
    [[nodiscard]] std::optional<std::size_t> Headed(HeadingMeaning meaning) const {
        const auto found = std::ranges::find(table_.columns, meaning, &ColumnEvidence::meaning);
        return found != table_.columns.end()
                   ? std::optional(static_cast<std::size_t>(found - table_.columns.begin()))
                   : std::nullopt;
    }

    [[nodiscard]] FormatChoice Basis() const;
    [[nodiscard]] std::string ReasonOf(std::size_t column) const;
    [[nodiscard]] std::optional<std::size_t> SenseFor(const AnglePair& pair) const;
    [[nodiscard]] FormatChoice PlaneOf(const AnglePair& pair, int convention) const;
    void SetColumn(FormatChoice& choice, int slot, std::size_t column) const;
    void AddLine(FormatChoice& choice, const AnglePair& line) const;
    void AddAppended(FormatChoice& choice) const;
    void Add(FormatChoice choice, double probability, std::vector<std::string> reasons);
    void AddRemembered();
    void AddByHeadings();
    void AddHeadedPlanes(std::size_t dip, std::optional<AnglePair> line);
    void AddStrikes(const AnglePair& pair, bool isRightHand, std::optional<AnglePair> line);
    void AddHeadedDirections();
    [[nodiscard]] std::optional<AnglePair> HeadedLine() const;
    void AddByValues();
    void AddPair(const AnglePair& pair);
    void AddTwoPairs(const AnglePair& first, const AnglePair& second);
    void Check();
    [[nodiscard]] double ShareRead(const FormatChoice& choice) const;

    TextTable table_;
    std::span<const std::string> lines_;
    const SuggestionOptions& options_;
    std::vector<FormatSuggestion> found_;
};

FormatChoice Suggester::Basis() const {
    FormatChoice choice = options_.base;
    choice.delimiter = table_.delimiter;
    choice.columnHeadings = table_.hasHeadings;
    choice.isQuadrant = choice.lineAppended = false;
    choice.numericAppended = choice.nonNumericAppended = false;
    if (!options_.kindIsFixed) {
        choice.secondary = kNoSecondary;
        choice.plotDataKind = kNoDataKind;
        choice.kindIsStated = choice.plotSecondary = false;
    }
    return choice;
}

/// "column 2 is headed 'dip' and lies in 0..90".
std::string Suggester::ReasonOf(std::size_t column) const {
    const ColumnEvidence& evidence = table_.columns[column];
    std::string reason = "column " + std::to_string(column + 1);
    reason += evidence.heading.empty() ? "" : " is headed '" + evidence.heading + "' and";
    if (evidence.IsMostly(evidence.quadrants)) {
        return reason + " holds quadrants";
    }
    const auto whole = [](double value) { return std::to_string(std::lround(value)); };
    return reason + " lies in " + whole(std::floor(evidence.least)) + ".."
           + whole(std::ceil(evidence.most));
}

/// The column of the sense of dip: headed so, beside the pair, or the letters after the dip.
std::optional<std::size_t> Suggester::SenseFor(const AnglePair& pair) const {
    if (table_.columns[pair.dip].IsMostly(table_.columns[pair.dip].dipsWithSense)) {
        return pair.dip;
    }
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
        const ColumnEvidence& column = table_.columns[i];
        if (column.filled > 0 && column.IsMostly(column.senses)) {
            return i;
        }
    }
    return std::nullopt;
}

void Suggester::SetColumn(FormatChoice& choice, int slot, std::size_t column) const {
    choice.columns[static_cast<std::size_t>(slot)] = static_cast<std::int32_t>(column);
}

FormatChoice Suggester::PlaneOf(const AnglePair& pair, int convention) const {
    FormatChoice choice = Basis();
    choice.primary = kPrimaryPlane;
    choice.planeConvention = convention;
    SetColumn(choice, kSlotDip, pair.dip);
    SetColumn(choice, kSlotDirection, pair.azimuth);
    const ColumnEvidence& azimuth = table_.columns[pair.azimuth];
    choice.isQuadrant = azimuth.IsMostly(azimuth.quadrants);
    if (const auto sense = SenseFor(pair); sense && convention == kStrikeDipSense) {
        SetColumn(choice, kSlotSense, *sense);
    }
    return choice;
}

void Suggester::AddLine(FormatChoice& choice, const AnglePair& line) const {
    choice.secondary = kSecondaryLine;
    SetColumn(choice, kSlotSecondaryDip, line.dip);
    SetColumn(choice, kSlotSecondaryDirection, line.azimuth);
}

/// The first number and the first text of the other columns that have a heading.
void Suggester::AddAppended(FormatChoice& choice) const {
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
        const ColumnEvidence& column = table_.columns[i];
        const bool isFree =
            column.meaning == Number || column.meaning == Text || column.meaning == None;
        if (!isFree || column.heading.empty() || column.filled == 0
            || !ItemsOfColumn(choice, static_cast<int>(i)).empty()) {
            continue;
        }
        const bool isNumber = column.IsMostly(column.numbers);
        if (isNumber && column.meaning != Text && !column.rises && !choice.numericAppended) {
            choice.numericAppended = true;
            choice.numericName = column.heading;
            SetColumn(choice, kSlotNumber, i);
        } else if (!isNumber && column.numbers == 0 && !choice.nonNumericAppended) {
            choice.nonNumericAppended = true;
            choice.nonNumericName = column.heading;
            SetColumn(choice, kSlotText, i);
        }
    }
}

void Suggester::Add(FormatChoice choice, double probability, std::vector<std::string> reasons) {
    if (options_.kindIsFixed
        && (choice.primary != options_.base.primary
            || choice.secondary != options_.base.secondary)) {
        return;
    }
    AddAppended(choice);
    found_.push_back({std::move(choice), probability, std::move(reasons)});
}

void Suggester::AddRemembered() {
    for (const RememberedFormat& former : options_.remembered) {
        const auto isSame = [](const ColumnEvidence& column, const std::string& heading) {
            return PlainHeading(column.heading) == PlainHeading(heading);
        };
        if (table_.hasHeadings && std::ranges::equal(table_.columns, former.headings, isSame)) {
            found_.push_back({former.choice,
                              kRemembered,
                              {"a file with the same headings was opened in this format"}});
            return;
        }
    }
}

std::optional<AnglePair> Suggester::HeadedLine() const {
    const auto plunge = Headed(Plunge);
    const auto trend = Headed(Trend) ? Headed(Trend) : Headed(Azimuth);
    return plunge && trend ? std::optional(AnglePair{*plunge, *trend}) : std::nullopt;
}

void Suggester::AddByHeadings() {
    std::optional<AnglePair> line = HeadedLine();
    if (const auto dip = Headed(Dip)) {
        AddHeadedPlanes(*dip, line);
    } else if (line) {
        FormatChoice choice = Basis();
        choice.primary = kPrimaryLine;
        SetColumn(choice, kSlotDip, line->dip);
        SetColumn(choice, kSlotDirection, line->azimuth);
        const ColumnEvidence& trend = table_.columns[line->azimuth];
        choice.isQuadrant = trend.IsMostly(trend.quadrants);
        Add(choice, kHeaded, {ReasonOf(line->dip), ReasonOf(line->azimuth)});
    } else {
        AddHeadedDirections();
    }
}

void Suggester::AddHeadedPlanes(std::size_t dip, std::optional<AnglePair> line) {
    const auto addDipDirection = [&](std::size_t azimuth, double probability) {
        FormatChoice choice = PlaneOf({dip, azimuth}, kDipDipDirection);
        std::vector<std::string> reasons = {ReasonOf(dip), ReasonOf(azimuth)};
        if (line && line->azimuth != azimuth) {
            AddLine(choice, *line);
            reasons.insert(reasons.end(), {ReasonOf(line->dip), ReasonOf(line->azimuth)});
        }
        Add(choice, probability, std::move(reasons));
    };
    if (const auto direction = Headed(DipDirection)) {
        addDipDirection(*direction, kHeaded);
    } else if (const auto rightHand = Headed(RightHandStrike)) {
        AddStrikes({dip, *rightHand}, true, line);
    } else if (const auto strike = Headed(Strike)) {
        AddStrikes({dip, *strike}, false, line);
    } else if (const auto azimuth = Headed(Azimuth)) {
        if (SenseFor({dip, *azimuth})) {
            AddStrikes({dip, *azimuth}, false, line);
        } else {
            addDipDirection(*azimuth, kStatedBeside);
            Add(PlaneOf({dip, *azimuth}, kDipStrikeRightHand), 1 - kStatedBeside,
                {ReasonOf(dip), ReasonOf(*azimuth), "an azimuth may be that of the strike"});
        }
    }
}

void Suggester::AddStrikes(const AnglePair& pair, bool isRightHand, std::optional<AnglePair> line) {
    const ColumnEvidence& strike = table_.columns[pair.azimuth];
    std::vector<std::string> reasons = {ReasonOf(pair.dip), ReasonOf(pair.azimuth)};
    int convention = kDipStrikeRightHand;
    double probability = kHeaded;
    if (!isRightHand && SenseFor(pair)) {
        convention = kStrikeDipSense;
        reasons.emplace_back("letters stand for the sense of dip");
    } else if (!isRightHand) {
        const bool isFullTurn = strike.most > kHalfTurn && strike.quadrants == 0;
        probability = isFullTurn ? kStrikeByRange : kStrikeOfHalf;
        reasons.emplace_back(isFullTurn
                                 ? "the strikes go around: by the right-hand rule"
                                 : "azimuths only below 180: strikes without a sense of dip");
    }
    FormatChoice choice = PlaneOf(pair, convention);
    if (line && line->azimuth != pair.azimuth) {
        AddLine(choice, *line);
        reasons.insert(reasons.end(), {ReasonOf(line->dip), ReasonOf(line->azimuth)});
    }
    Add(choice, probability, std::move(reasons));
}

void Suggester::AddHeadedDirections() {
    constexpr double kTrendAlone = 0.92;
    constexpr double kAzimuthAlone = 0.85;
    constexpr double kUnknownBeside = 0.5;
    for (const auto& [meaning, probability] :
         {std::pair{Trend, kTrendAlone}, std::pair{Azimuth, kAzimuthAlone},
          std::pair{Strike, kAzimuthAlone}, std::pair{DipDirection, kAzimuthAlone}}) {
        const auto column = Headed(meaning);
        if (!column || !IsAzimuth(table_.columns[*column])) {
            continue;
        }
        FormatChoice choice = Basis();
        choice.primary = kDirections;
        SetColumn(choice, kSlotDirection, *column);
        choice.isQuadrant = table_.columns[*column].IsMostly(table_.columns[*column].quadrants);
        // A column of angles without a term may be the dip.
        const bool mayHaveDips = std::ranges::any_of(table_.columns, [](const ColumnEvidence& one) {
            return one.meaning == None && !one.rises && IsDip(one);
        });
        Add(choice, mayHaveDips ? kUnknownBeside : probability,
            {ReasonOf(*column), "there is no dip and no plunge"});
        return;
    }
}

void Suggester::AddPair(const AnglePair& pair) {
    std::vector<std::string> reasons = {ReasonOf(pair.dip), ReasonOf(pair.azimuth)};
    if (SenseFor(pair)) {
        constexpr double kLetters = 0.93;
        reasons.emplace_back("letters stand for the sense of dip");
        Add(PlaneOf(pair, kStrikeDipSense), kLetters, std::move(reasons));
        return;
    }
    reasons.emplace_back("there are no headings");
    Add(PlaneOf(pair, kDipDipDirection), kPlanesByOrder, reasons);
    Add(PlaneOf(pair, kDipStrikeRightHand), kStrikesByOrder, reasons);
    FormatChoice line = PlaneOf(pair, kDipDipDirection);
    line.primary = kPrimaryLine;
    Add(line, kLinesByOrder, std::move(reasons));
}

void Suggester::AddTwoPairs(const AnglePair& first, const AnglePair& second) {
    constexpr double kMost = 0.9;
    for (const auto& [convention, turn] :
         {std::pair{kDipDipDirection, 0.0}, std::pair{kDipStrikeRightHand, kSteepest}}) {
        const double share = ShareInPlane(table_.rows, first, second, turn);
        if (share >= kMost) {
            FormatChoice choice = PlaneOf(first, convention);
            AddLine(choice, second);
            Add(choice, kInPlane * share,
                {ReasonOf(first.dip), ReasonOf(first.azimuth), ReasonOf(second.dip),
                 ReasonOf(second.azimuth), "the lines lie in the planes within 10 degrees"});
        }
    }
}

void Suggester::AddByValues() {
    const std::vector<AnglePair> pairs = PairsByValues(table_.columns);
    if (pairs.size() >= 2) {
        AddTwoPairs(pairs[0], pairs[1]);
    }
    if (!pairs.empty() && found_.empty()) {
        AddPair(pairs.front());
    }
}

/// The share of the rows that a format reads.
double Suggester::ShareRead(const FormatChoice& choice) const {
    LineFormat format = LineFormatOf(choice);
    format.convertDecimals = true;
    std::size_t rows = 0;
    std::size_t read = 0;
    for (const std::string& line : lines_) {
        const LineStatus status = ParseLine(line, format).status;
        const bool isData = status == LineStatus::Row || status >= LineStatus::TooFewItems;
        rows += isData ? 1U : 0U;
        read += status == LineStatus::Row ? 1U : 0U;
    }
    return rows > 0 ? static_cast<double>(read) / static_cast<double>(rows) : 0;
}

/// Formats that do not read most of the rows are no suggestions.
void Suggester::Check() {
    constexpr double kLeastShare = 0.5;
    for (FormatSuggestion& suggestion : found_) {
        suggestion.decimalIsComma = table_.decimalIsComma;
        const double share = ShareRead(suggestion.choice);
        suggestion.probability *= share < kLeastShare ? 0 : share * share;
    }
    std::ranges::stable_sort(found_, std::ranges::greater(), &FormatSuggestion::probability);
    for (std::size_t i = 1; i < found_.size(); ++i) {
        found_[i].probability = std::min(found_[i].probability, 1 - found_[0].probability);
    }
    std::erase_if(found_, [](const FormatSuggestion& one) { return one.probability <= 0; });
}

/// Whether a text says its own format.
bool StatesItsFormat(std::span<const std::string> lines) {
    return std::ranges::any_of(lines, [](const std::string& line) {
        return line.starts_with(";Quandrel") || (line.starts_with("/") && !line.starts_with("//"));
    });
}

/// The lines that are looked at.
std::vector<std::string> SampleOf(std::span<const std::string> lines) {
    std::vector<std::string> sample(
        lines.begin(),
        lines.begin() + static_cast<std::ptrdiff_t>(std::min(lines.size(), kSuggestedFrom)));
    const std::size_t rest = lines.size() - sample.size();
    const std::size_t step = std::max<std::size_t>(rest / kSuggestedFrom, 1);
    for (std::size_t i = sample.size(); i < lines.size(); i += step) {
        sample.push_back(lines[i]);
    }
    return sample;
}

} // namespace

std::vector<FormatSuggestion> SuggestFormats(std::span<const std::string> lines,
                                             const SuggestionOptions& options) {
    const std::vector<std::string> sample = SampleOf(lines);
    if (StatesItsFormat(sample)) {
        return {};
    }
    std::optional<TextTable> table = TableOfText(sample);
    return table ? Suggester(std::move(*table), sample, options).Made()
                 : std::vector<FormatSuggestion>();
}

} // namespace quandrel
