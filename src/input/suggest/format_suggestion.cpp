// SPDX-License-Identifier: MIT

#include "input/suggest/format_suggestion.h"

#include "core/style_tables.h"
#include "input/format_preview.h"
#include "input/suggest/angle_columns.h"
#include "input/suggest/further_columns.h"
#include "input/suggest/heading_terms.h"
#include "input/suggest/pair_columns.h"
#include "input/suggest/table_columns.h"
#include "input/suggest/text_sample.h"

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
constexpr double kLinesInQuadrants = 0.7;

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
            AddPairsInCells();
        }
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
    void Add(FormatChoice choice, double probability, std::vector<std::string> reasons);
    [[nodiscard]] bool HasKindOfPlot(const FormatChoice& choice) const;
    void AddSecondaryData(FormatChoice& choice, std::vector<std::string>& reasons) const;
    void Remember(FormatChoice choice);
    void AddRemembered();
    void AddByHeadings();
    void AddHeadedPlanes(std::size_t dip);
    void AddPlanes(const AnglePair& pair, double probability);
    void AddStrikes(const AnglePair& pair, bool isRightHand);
    void AddLines(const AnglePair& line, double probability);
    void AddInclinations(std::size_t inclination);
    [[nodiscard]] std::optional<std::size_t> HeadedDip() const;
    void AddAzimuths(std::size_t place, double probability);
    void AddHeadedDirections();
    [[nodiscard]] std::optional<AnglePair> HeadedLine() const;
    void AddPairsInCells();
    void AddByValues();
    void AddDirections();
    void AddPair(const AnglePair& pair);
    void AddTwoPairs(const AnglePair& first, const AnglePair& second);
    void Check();

    TextTable table_;
    std::span<const std::string> lines_;
    const SuggestionOptions& options_;
    std::vector<FormatSuggestion> found_;
};

FormatChoice Suggester::Basis() const {
    FormatChoice choice = options_.base;
    choice.delimiter = table_.delimiter;
    choice.columnHeadings = table_.hasHeadings;
    choice.comments = table_.comments;
    choice.isQuadrant = choice.lineAppended = choice.pairsInCells = false;
    choice.numericAppended = choice.nonNumericAppended = false;
    if (!options_.kindIsFixed) {
        choice.secondary = kNoSecondary;
        choice.plotDataKind = kNoDataKind;
        choice.kindIsStated = choice.plotSecondary = false;
    }
    return choice;
}

std::string Suggester::ReasonOf(std::size_t column) const {
    return ReasonOfColumn(table_.columns, column);
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

/// Whether rows of a format can join those of the plot, if they are to.
bool Suggester::HasKindOfPlot(const FormatChoice& choice) const {
    const FormatChoice& base = options_.base;
    return !options_.kindIsFixed
           || (choice.primary == base.primary && choice.secondary == base.secondary);
}

void Suggester::Add(FormatChoice choice, double probability, std::vector<std::string> reasons) {
    if (!HasKindOfPlot(choice)) {
        return;
    }
    AddAppended(table_.columns, choice);
    AddPlaceColumns(table_.columns, choice, reasons);
    if (options_.kindIsFixed) {
        TakeFromPlot(options_.base, choice);
    }
    FollowOrder(choice);
    found_.push_back({std::move(choice), probability, std::move(reasons)});
}

void Suggester::AddSecondaryData(FormatChoice& choice, std::vector<std::string>& reasons) const {
    if (!options_.kindIsFixed || options_.base.secondary != kNoSecondary) {
        choice.secondary = kNoSecondary;
        AddSecondary(table_.columns, choice, reasons);
    }
}

/// Suggests a format again. What reading does not need is as in the basis.
void Suggester::Remember(FormatChoice choice) {
    const FormatChoice& base = options_.base;
    choice.planeSeparator = base.planeSeparator;
    choice.lineSeparator = base.lineSeparator;
    choice.hasOverlays = base.hasOverlays;
    if (options_.kindIsFixed) {
        TakeFromPlot(base, choice);
    }
    if (HasKindOfPlot(choice)) {
        found_.push_back({std::move(choice),
                          kRemembered,
                          {"a file with the same headings was opened in this format"}});
    }
}

void Suggester::AddRemembered() {
    for (const RememberedFormat& former : options_.remembered) {
        const auto isSame = [](const ColumnEvidence& column, const std::string& heading) {
            return PlainHeading(column.heading) == PlainHeading(heading);
        };
        if (table_.hasHeadings && std::ranges::equal(table_.columns, former.headings, isSame)) {
            Remember(former.choice);
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
    const std::optional<AnglePair> line = HeadedLine();
    if (const auto dip = HeadedDip()) {
        AddHeadedPlanes(*dip);
    } else if (line) {
        AddLines(*line, kHeaded);
    } else if (const auto inclination = Headed(Inclination)) {
        AddInclinations(*inclination);
    } else {
        AddHeadedDirections();
    }
}

void Suggester::AddLines(const AnglePair& line, double probability) {
    FormatChoice choice = Basis();
    choice.primary = kPrimaryLine;
    SetColumn(choice, kSlotDip, line.dip);
    SetColumn(choice, kSlotDirection, line.azimuth);
    const ColumnEvidence& trend = table_.columns[line.azimuth];
    choice.isQuadrant = trend.IsMostly(trend.quadrants);
    std::vector<std::string> reasons = {ReasonOf(line.dip), ReasonOf(line.azimuth)};
    if (table_.columns[line.dip].least < 0) {
        choice.plotDataKind = kPolarLines;
        choice.kindIsStated = true;
        reasons.emplace_back("some lines point upward: they are polar");
    }
    if (trend.meaning == Declination) {
        choice.negativePlunge = NegativePlunge::Vector;
        reasons.emplace_back("a declination names the end that the vector points to");
    }
    Add(choice, probability, std::move(reasons));
}

/// A dip, or an inclination where a plane's azimuth or sense is headed.
std::optional<std::size_t> Suggester::HeadedDip() const {
    const auto dip = Headed(Dip);
    const auto inclination = Headed(Inclination);
    const bool isOfPlane = inclination
                           && (Headed(DipDirection) || Headed(RightHandStrike) || Headed(Strike)
                               || Headed(Sense) || table_.columns[*inclination].dipsWithSense > 0);
    return dip || !isOfPlane ? dip : inclination;
}

/// An inclination without a word on planes: a plunge beside a declination or a trend, else either.
void Suggester::AddInclinations(std::size_t inclination) {
    constexpr double kPlanes = 0.5;
    constexpr double kLines = 0.4;
    if (const auto declination = Headed(Declination)) {
        AddLines({inclination, *declination}, kHeaded);
    } else if (const auto trend = Headed(Trend)) {
        AddLines({inclination, *trend}, kHeaded);
    } else if (const auto azimuth = Headed(Azimuth)) {
        AddPlanes({inclination, *azimuth}, kPlanes);
        AddLines({inclination, *azimuth}, kLines);
    }
}

void Suggester::AddPlanes(const AnglePair& pair, double probability) {
    FormatChoice choice = PlaneOf(pair, kDipDipDirection);
    std::vector<std::string> reasons = {ReasonOf(pair.dip), ReasonOf(pair.azimuth)};
    AddSecondaryData(choice, reasons);
    Add(choice, probability, std::move(reasons));
}

void Suggester::AddHeadedPlanes(std::size_t dip) {
    if (const auto direction = Headed(DipDirection)) {
        AddPlanes({dip, *direction}, kHeaded);
    } else if (const auto rightHand = Headed(RightHandStrike)) {
        AddStrikes({dip, *rightHand}, true);
    } else if (const auto strike = Headed(Strike)) {
        AddStrikes({dip, *strike}, false);
    } else if (const auto azimuth = Headed(Azimuth)) {
        if (SenseFor({dip, *azimuth})) {
            AddStrikes({dip, *azimuth}, false);
        } else {
            AddPlanes({dip, *azimuth}, kStatedBeside);
            Add(PlaneOf({dip, *azimuth}, kDipStrikeRightHand), 1 - kStatedBeside,
                {ReasonOf(dip), ReasonOf(*azimuth), "an azimuth may be that of the strike"});
        }
    }
}

void Suggester::AddStrikes(const AnglePair& pair, bool isRightHand) {
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
    AddSecondaryData(choice, reasons);
    Add(choice, probability, std::move(reasons));
}

/// Directions; strikes and axial trends have azimuths below 180 only.
void Suggester::AddAzimuths(std::size_t place, double probability) {
    constexpr double kWind = 0.93;
    const ColumnEvidence& column = table_.columns[place];
    const bool isWind = Headed(Speed).has_value();
    const bool goesAround = column.most > kHalfTurn || column.quadrants > 0;
    FormatChoice choice = Basis();
    choice.primary = kDirections;
    SetColumn(choice, kSlotDirection, place);
    choice.isQuadrant = column.IsMostly(column.quadrants);
    choice.plotDataKind = goesAround || isWind ? kPolarLines : kLines;
    choice.kindIsStated = true;
    std::vector<std::string> reasons = {ReasonOf(place), "there is no dip and no plunge"};
    if (isWind) {
        reasons.emplace_back("a speed stands beside it");
    } else {
        reasons.emplace_back(goesAround ? "azimuths go around: directions"
                                        : "azimuths only below 180: strikes or axial trends");
    }
    Add(choice, isWind ? std::max(probability, kWind) : probability, std::move(reasons));
}

void Suggester::AddHeadedDirections() {
    constexpr double kTrendAlone = 0.92;
    constexpr double kAzimuthAlone = 0.85;
    constexpr double kUnknownBeside = 0.5;
    // A column of angles without a term may be the dip.
    const bool mayHaveDips = std::ranges::any_of(table_.columns, [](const ColumnEvidence& one) {
        return one.meaning == None && !one.rises && IsDip(one);
    });
    for (const auto& [meaning, probability] :
         {std::pair{Trend, kTrendAlone}, std::pair{Azimuth, kAzimuthAlone},
          std::pair{Strike, kAzimuthAlone}, std::pair{DipDirection, kAzimuthAlone}}) {
        const auto column = Headed(meaning);
        if (column && IsAzimuth(table_.columns[*column])) {
            AddAzimuths(*column, mayHaveDips ? kUnknownBeside : probability);
            return;
        }
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
    // Planes in quadrants are strikes with a sense of dip; without one they are hardly planes.
    const bool isQuadrant = table_.columns[pair.azimuth].quadrants > 0;
    FormatChoice line = PlaneOf(pair, kDipDipDirection);
    line.primary = kPrimaryLine;
    Add(line, isQuadrant ? kLinesInQuadrants : kLinesByOrder, reasons);
    Add(PlaneOf(pair, kDipDipDirection), kPlanesByOrder, reasons);
    Add(PlaneOf(pair, kDipStrikeRightHand), kStrikesByOrder, std::move(reasons));
}

void Suggester::AddTwoPairs(const AnglePair& first, const AnglePair& second) {
    constexpr double kMost = 0.9;
    for (const auto& [convention, turn] :
         {std::pair{kDipDipDirection, 0.0}, std::pair{kDipStrikeRightHand, kSteepest}}) {
        const double share = ShareInPlane(table_.rows, first, second, turn);
        if (share >= kMost) {
            FormatChoice choice = PlaneOf(first, convention);
            SetSecondaryLine(choice, second);
            Add(choice, kInPlane * share,
                {ReasonOf(first.dip), ReasonOf(first.azimuth), ReasonOf(second.dip),
                 ReasonOf(second.azimuth), "the lines lie in the planes within 10 degrees"});
        }
    }
}

void Suggester::AddPairsInCells() {
    for (FormatSuggestion& one : SuggestionsOfPairs(table_, Basis())) {
        Add(std::move(one.choice), one.probability, std::move(one.reasons));
    }
}

/// A column of azimuths without a dip beside it.
void Suggester::AddDirections() {
    constexpr double kOnlyColumn = 0.7;
    constexpr double kAmongOthers = 0.5;
    const auto found = std::ranges::find_if(table_.columns, [](const ColumnEvidence& column) {
        return column.meaning == None && !column.rises && IsAzimuth(column)
               && (column.most > kSteepest || column.quadrants > 0);
    });
    if (found != table_.columns.end()) {
        AddAzimuths(static_cast<std::size_t>(found - table_.columns.begin()),
                    table_.columns.size() == 1 ? kOnlyColumn : kAmongOthers);
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
    if (found_.empty()) {
        AddDirections();
    }
}

/// Formats that do not read most of the rows are no suggestions.
void Suggester::Check() {
    constexpr double kLeastShare = 0.5;
    for (FormatSuggestion& suggestion : found_) {
        suggestion.decimalIsComma = table_.decimalIsComma;
        const double share = ShareRead(lines_, suggestion.choice);
        suggestion.probability *= share < kLeastShare ? 0 : share * share;
    }
    std::ranges::stable_sort(found_, std::ranges::greater(), &FormatSuggestion::probability);
    for (std::size_t i = 1; i < found_.size(); ++i) {
        found_[i].probability = std::min(found_[i].probability, 1 - found_[0].probability);
    }
    std::erase_if(found_, [](const FormatSuggestion& one) { return one.probability <= 0; });
}

} // namespace

std::vector<FormatSuggestion> SuggestFormats(std::span<const std::string> lines,
                                             const SuggestionOptions& options) {
    const std::vector<std::string> sample = SampleOfText(lines);
    if (StatesItsFormat(sample)) {
        return {};
    }
    std::optional<TextTable> table = TableOfText(sample);
    return table ? Suggester(std::move(*table), sample, options).Made()
                 : std::vector<FormatSuggestion>();
}

} // namespace quandrel
