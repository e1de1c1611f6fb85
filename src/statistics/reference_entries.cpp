// SPDX-License-Identifier: MIT

#include "statistics/reference_entries.h"

#include "core/plot_formulas.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "statistics/fabric_kernels.h"
#include "statistics/fabric_statistics.h"
#include "statistics/orientation_notation.h"

#include <array>
#include <charconv>
#include <utility>
#include <vector>

namespace quandrel {

namespace {

/// The shortest digits that read back as the value; "inf" for an infinite one.
template <class Number>
std::string AllDigits(Number value) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return std::string(digits.data(), end);
}

// The formats of the texts. Angles are in radians.

std::string Whole(double value) {
    return FormatNumber(value, "0");
}

std::string Fixed(double value) {
    return FormatNumber(value, "Fixed");
}

std::string ThreeDecimals(double value) {
    return FormatNumber(value, "0.000");
}

std::string FixedDegrees(double radians) {
    return Fixed(RadToDeg(radians));
}

std::string TenthOfDegree(double radians) {
    return TextOfAngle(radians, 1);
}

std::string TenthOfAzimuth(double radians) {
    return TextOfAzimuth(radians, 1);
}

/// The formats of the normal text.
struct NormalFormat {
    std::string (*angle)(double) = RadToDegText;
    std::string (*azimuth)(double) = WholeAzimuthText;
};

NormalFormat NormalFormatOf(const PlotRecord& record) {
    return DecimalsShown(record) == 0 ? NormalFormat()
                                      : NormalFormat{TenthOfDegree, TenthOfAzimuth};
}

/// One place in the texts that shows the number of an entry.
struct Printing {
    std::string (*text)(double) = nullptr;
    double number = 0; ///< printed in rounded form
};

using Printings = std::vector<Printing>;

/// The printed forms of an axis, 1 to 3: none where the texts print it as undetermined.
Printings OfAxis(const PlotRecord& record, std::size_t axis, Printings printings) {
    return IsAxisDetermined(record, axis) ? std::move(printings) : Printings();
}

/// The printed forms of a number: none where the textbook's formulas print it as undetermined.
Printings OfNumber(Formulas formulas, double number, Printings printings) {
    const bool isWord = formulas == Formulas::Textbook && number == kFailedResult;
    return isWord ? Printings() : std::move(printings);
}

/// Collects entries, and records where the texts print something else.
class EntryList {
public:
    /// @param value  in the unit of the printed forms
    void Add(std::string name, std::optional<double> value, const Printings& printings = {}) {
        ReferenceLine entry{std::move(name), value, {}};
        for (const auto& [text, number] : printings) {
            const std::string printed = text(number);
            if (!value || text(*value) != printed) {
                entry.printed += (entry.printed.empty() ? "" : ", ") + printed;
            }
        }
        entries_.push_back(std::move(entry));
    }

    /// @param radians  as in the printed forms; the entry is in degrees
    void AddAngle(std::string name, std::optional<double> radians,
                  const Printings& printings = {}) {
        Add(std::move(name), radians, printings);
        if (radians) {
            entries_.back().value = RadToDeg(*radians);
        }
    }

    /// A value that the texts print as words.
    void AddBesideWords(std::string name, std::optional<double> value, std::string words) {
        entries_.push_back({std::move(name), value, std::move(words)});
    }

    [[nodiscard]] std::vector<ReferenceLine> Take() { return std::move(entries_); }

private:
    std::vector<ReferenceLine> entries_;
};

/// A line or a plane, radians, or empty.
struct Pair {
    std::optional<double> first;
    std::optional<double> azimuth;
};

Pair LineOfAxis(const ReferenceStatistics& statistics, std::size_t axis) {
    if (!statistics.hasAxis.at(axis - 1)) {
        return {};
    }
    double plunge = 0;
    double trend = 0;
    AxisToLine(statistics.axes.at(axis - 1), plunge, trend);
    return {plunge, trend};
}

Pair PlaneOfPole(const Pair& pole) {
    if (!pole.first) {
        return {};
    }
    double dip = 0;
    double dipDirection = 0;
    PoleOfPlane(*pole.first, *pole.azimuth, dip, dipDirection);
    return {dip, dipDirection};
}

Pair PrintedAxis(const PlotRecord& record, std::size_t axis) {
    if (!IsAxisDetermined(record, axis)) {
        return {};
    }
    const AxisLine line = FabricAxis(record, axis);
    return {line.plunge, line.trend};
}

/// A printed pair with a number of decimals.
AxisLine SettledPair(int decimals, const Pair& printed) {
    AxisLine settled{*printed.first, *printed.azimuth};
    SettleForPrint(decimals, settled.plunge, settled.trend);
    return settled;
}

/// A pair that the advanced text prints with two decimals and the normal one with those of a plot.
///
/// @param printed  empty where the texts print it as undetermined
void AddPair(EntryList& list, const std::array<std::string, 2>& names, const Pair& value,
             const Pair& printed, const PlotRecord& record) {
    if (!printed.first) {
        list.AddAngle(names[0], value.first);
        list.AddAngle(names[1], value.azimuth);
        return;
    }
    const AxisLine fixed = SettledPair(2, printed);
    const AxisLine normal = SettledPair(DecimalsShown(record), printed);
    const NormalFormat format = NormalFormatOf(record);
    list.AddAngle(names[0], value.first,
                  {{FixedDegrees, fixed.plunge}, {format.angle, normal.plunge}});
    list.AddAngle(names[1], value.azimuth,
                  {{FixedDegrees, fixed.trend}, {format.azimuth, normal.trend}});
}

void AddEigenvalues(EntryList& list, const ReferenceStatistics& statistics,
                    const PlotRecord& record) {
    for (std::size_t axis = kLeastAxis; axis <= kGreatestAxis; ++axis) {
        const std::string number = std::to_string(axis);
        const double value = statistics.eigenvalues.at(axis - 1);
        const auto printed = static_cast<double>(record.FabricResults.at(axis)[kEigenvalue]);
        list.Add("eigenvalue " + number, value, {{ThreeDecimals, printed}});
        list.Add("n x eigenvalue " + number, statistics.count * value,
                 {{ThreeDecimals, statistics.count * printed}});
    }
}

void AddComponents(EntryList& list, const ReferenceStatistics& statistics, std::size_t axis,
                   const PlotRecord& record) {
    const std::string name = "axis " + std::to_string(axis);
    const Direction& direction = statistics.axes.at(axis - 1);
    const auto add = [&](const char* component, double value, std::size_t row) {
        list.Add(
            name + component, statistics.hasAxis.at(axis - 1) ? std::optional(value) : std::nullopt,
            OfAxis(record, axis,
                   {{ThreeDecimals, static_cast<double>(record.FabricResults.at(row).at(axis))}}));
    };
    add(" north", direction.l, kNorthOfAxis);
    add(" east", direction.m, kEastOfAxis);
    add(" down", direction.n, kDownOfAxis);
}

void AddAxes(EntryList& list, const ReferenceStatistics& statistics, const PlotRecord& record) {
    for (std::size_t axis = kLeastAxis; axis <= kGreatestAxis; ++axis) {
        AddComponents(list, statistics, axis, record);
    }
    const Pair least = LineOfAxis(statistics, kLeastAxis);
    const Pair middle = LineOfAxis(statistics, kMiddleAxis);
    const Pair greatest = LineOfAxis(statistics, kGreatestAxis);
    const Pair printedLeast = PrintedAxis(record, kLeastAxis);
    const Pair printedGreatest = PrintedAxis(record, kGreatestAxis);
    const NormalFormat format = NormalFormatOf(record);
    list.AddAngle("axis 1 plunge", least.first,
                  OfAxis(record, kLeastAxis, {{format.angle, printedLeast.first.value_or(0)}}));
    list.AddAngle("axis 1 trend", least.azimuth,
                  OfAxis(record, kLeastAxis, {{format.azimuth, printedLeast.azimuth.value_or(0)}}));
    list.AddAngle("axis 2 plunge", middle.first);
    list.AddAngle("axis 2 trend", middle.azimuth);
    AddPair(list, {"axis 3 plunge", "axis 3 trend"}, greatest, printedGreatest, record);
    const Pair normal = PlaneOfPole(greatest);
    const Pair printedNormal = PlaneOfPole(printedGreatest);
    list.AddAngle("plane normal to axis 3, dip", normal.first,
                  OfAxis(record, kGreatestAxis, {{FixedDegrees, printedNormal.first.value_or(0)}}));
    list.AddAngle(
        "plane normal to axis 3, dip direction", normal.azimuth,
        OfAxis(record, kGreatestAxis, {{FixedDegrees, printedNormal.azimuth.value_or(0)}}));
    AddPair(list, {"girdle dip", "girdle dip direction"}, PlaneOfPole(least),
            PlaneOfPole(printedLeast), record);
}

void AddShape(EntryList& list, const ReferenceStatistics& statistics, const PlotRecord& record) {
    const Formulas formulas = FormulasInForce(record);
    const auto printed = [&record, formulas](std::size_t row, std::size_t place) {
        const auto number = static_cast<double>(record.EigenResults.at(row).at(place));
        return OfNumber(formulas, number, {{Fixed, number}});
    };
    list.Add("ln(E2/E1)", statistics.logRatio12, printed(kMiddleToLeast, kLogRatio));
    list.Add("ln(E3/E2)", statistics.logRatio23, printed(kGreatestToMiddle, kLogRatio));
    list.Add("gamma", statistics.gamma, printed(kGamma, kShapeNumber));
    list.Add("zeta", statistics.zeta, printed(kZeta, kShapeNumber));
}

/// The statistic that decides what the texts say, with 32-bit precision.
std::optional<double> PrintedSymmetryStatistic(double count, const PlotRecord& record) {
    const float statistic = record.EigenResults[kSymmetryStatistic][kLogRatio];
    // The results when a difference of eigenvalues counts as 0.
    const double least = 2 * count * kLeastEigenvalue * kLeastEigenvalue;
    return static_cast<double>(statistic) < least ? 0 : ReadNumber(AllDigits(statistic));
}

void AddPrincipalAxis(EntryList& list, const ReferenceStatistics& statistics,
                      const PlotRecord& record) {
    list.Add("fourth moment", statistics.fourthMoment);
    const Formulas formulas = FormulasInForce(record);
    const bool isTextbook = formulas == Formulas::Textbook;
    const auto name = [](const char* what, bool isPrinted) {
        return std::string("symmetry statistic, ") + what
               + (isPrinted ? " (printed judgement)" : "");
    };
    list.Add(name("1 - 2 E3 + m4", isTextbook), statistics.symmetryStatistic);
    list.Add(name("1 - E3 + m4", !isTextbook), PrintedSymmetryStatistic(statistics.count, record));
    list.Add("symmetry limit", kSymmetryLimit);
    const double error = record.FabricValueC;
    if (error == kNotSymmetric) {
        list.AddBesideWords("spherical standard error", statistics.standardError,
                            "non-symmetric distribution");
        list.AddAngle("95% cone semi-angle", statistics.coneAngle);
    } else {
        list.Add("spherical standard error", statistics.standardError,
                 OfNumber(formulas, error, {{ThreeDecimals, error}}));
        const double sine = ConeFactor(formulas) * error;
        list.AddAngle(
            "95% cone semi-angle", statistics.coneAngle,
            OfNumber(formulas, sine < 1 ? error : kFailedResult, {{FixedDegrees, ArcSin(sine)}}));
    }
    const auto& ellipse = statistics.ellipse;
    list.AddAngle("95% ellipse major semi-axis",
                  ellipse ? std::optional(ellipse->major) : std::nullopt);
    list.AddAngle("95% ellipse minor semi-axis",
                  ellipse ? std::optional(ellipse->minor) : std::nullopt);
}

/// A mean direction as the texts print it.
void AddMean(EntryList& list, const std::string& what, const Pair& mean, double length,
             const PlotRecord& record) {
    if (HasMeanDirection(record)) {
        AddPair(
            list, {what + " mean plunge", what + " mean trend"}, mean,
            {static_cast<double>(record.FabricValueA), static_cast<double>(record.FabricValueB)},
            record);
    } else {
        list.AddAngle(what + " mean plunge", mean.first);
        list.AddAngle(what + " mean trend", mean.azimuth);
    }
    const double printed = record.RoseResultant[kOfAngles];
    list.Add(what + " R/n", length, {{ThreeDecimals, printed}, {Fixed, printed}});
    list.Add(what + " variance", 1 - length, {{ThreeDecimals, 1 - printed}, {Fixed, 1 - printed}});
}

Pair MeanPair(double plunge, double trend) {
    return plunge == kNoDirection ? Pair{} : Pair{plunge, trend};
}

void AddMeans(EntryList& list, const ReferenceStatistics& statistics, const PlotRecord& record) {
    const Pair axial = MeanPair(statistics.axialPlunge, statistics.axialTrend);
    if (!statistics.fisher) {
        AddMean(list, "axial", axial, statistics.axialResultantLength, record);
        return;
    }
    list.AddAngle("axial mean plunge", axial.first);
    list.AddAngle("axial mean trend", axial.azimuth);
    list.Add("axial R/n", statistics.axialResultantLength);
    const FisherStatistics& fisher = *statistics.fisher;
    AddMean(list, "Fisher", MeanPair(fisher.plunge, fisher.trend),
            fisher.resultant / statistics.count, record);
    list.Add("Fisher R", fisher.resultant);
    list.Add("Fisher kappa", fisher.kappa);
    list.Add("Fisher kappa, maximum likelihood", fisher.kappaMaximumLikelihood);
}

} // namespace

std::vector<ReferenceLine> ReferenceEntries(const ReferenceStatistics& statistics,
                                            const PlotRecord& record) {
    EntryList list;
    list.Add("n", statistics.count, {{Whole, static_cast<double>(record.NumValidData)}});
    AddEigenvalues(list, statistics, record);
    AddAxes(list, statistics, record);
    AddShape(list, statistics, record);
    AddPrincipalAxis(list, statistics, record);
    AddMeans(list, statistics, record);
    return list.Take();
}

} // namespace quandrel
