// SPDX-License-Identifier: MIT

#include "density/density_levels.h"

#include "orientation/number_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace quandrel {

namespace {

constexpr std::size_t kMostDoublings = 9;

/// The round steps of which a range has four levels or more: 1, 2 or 5 times a power of ten.
double RoundStep(double range) {
    constexpr double kFewestLevels = 4;
    const double widest = range / kFewestLevels;
    const double power = std::pow(10.0, std::floor(std::log10(widest)));
    for (const double digit : {5.0, 2.0}) {
        if (digit * power <= widest) {
            return digit * power;
        }
    }
    return power;
}

std::vector<double> DoublingLevels(double first, double greatest) {
    std::vector<double> levels;
    for (double level = first; level <= greatest && levels.size() < kMostDoublings; level *= 2) {
        levels.push_back(level);
    }
    return levels;
}

std::vector<double> EvenLevels(double step, double greatest) {
    std::vector<double> levels;
    const double last = std::min(std::floor(greatest / step), double{kMostLevels});
    for (int k = 1; k <= static_cast<int>(last); ++k) {
        levels.push_back(k * step);
    }
    return levels;
}

bool IsDeviation(DensityUnit unit) {
    return unit == DensityUnit::Sigma || unit == DensityUnit::Deviation;
}

std::string ShortNumber(double value) {
    return FormatNumber(value, "0.####");
}

} // namespace

std::optional<std::vector<double>> LevelsOfText(std::string_view text) {
    constexpr std::string_view kBetween = ",; \t";
    std::vector<double> levels;
    for (std::size_t start = text.find_first_not_of(kBetween); start != std::string_view::npos;
         start = text.find_first_not_of(kBetween, start)) {
        const std::size_t end = std::min(text.find_first_of(kBetween, start), text.size());
        const std::optional<double> level = ReadNumber(text.substr(start, end - start));
        if (!level || !(*level > 0) || std::ranges::find(levels, *level) != levels.end()) {
            return std::nullopt;
        }
        levels.push_back(*level);
        start = end;
    }
    if (levels.empty() || levels.size() > kMostLevels) {
        return std::nullopt;
    }
    std::ranges::sort(levels);
    return levels;
}

DensityUnit UnitShown(const RecordDensityView& view) {
    const auto method = static_cast<DensityMethod>(view.DensityMethod);
    const auto unit = static_cast<DensityUnit>(view.DensityUnit);
    if (HasUnit(method, unit)) {
        return unit;
    }
    switch (method) {
    case DensityMethod::Cone:
        return DensityUnit::PerCentInCone;
    case DensityMethod::Kernel:
        return DensityUnit::MultiplesOfUniform;
    default:
        return DensityUnit::Sigma;
    }
}

std::vector<double> LevelsOf(const RecordDensityView& view, double greatest) {
    if (!(greatest > 0) || !std::isfinite(greatest)) {
        return {};
    }
    switch (view.LevelRule) {
    case kEvenLevels:
        return EvenLevels(view.LevelStep > 0 ? view.LevelStep : RoundStep(greatest), greatest);
    case kLevelsByHand: {
        std::vector<double> levels =
            LevelsOfText(view.LevelsByHand).value_or(std::vector<double>());
        std::erase_if(levels, [greatest](double level) { return level > greatest; });
        return levels;
    }
    default:
        return DoublingLevels(IsDeviation(UnitShown(view)) ? 2 : 1, greatest);
    }
}

std::vector<double> LevelsInBands(double greatest, int bands) {
    constexpr double kLeastShare = 0.9;
    constexpr double kRounding = 1e-9; // a step that is round already stays
    if (!(greatest > 0) || !std::isfinite(greatest)) {
        return {};
    }
    const double widest = greatest / (bands + 1);
    double unit = std::pow(10.0, std::floor(std::log10(widest)));
    double digits = std::floor(widest / unit + kRounding);
    if (digits * unit < kLeastShare * widest) {
        unit /= 10;
        digits = std::floor(widest / unit + kRounding);
    }
    std::vector<double> levels;
    for (int k = 1; k <= bands; ++k) {
        // Below 1, a quotient has the nearest value to the decimal number that is shown.
        levels.push_back(unit < 1 ? k * digits / std::round(1 / unit) : k * digits * unit);
    }
    return levels;
}

std::string TextInUnit(double value, DensityUnit unit) {
    const std::string number = ShortNumber(value);
    switch (unit) {
    case DensityUnit::PerCentInCone:
        return number + "%";
    case DensityUnit::Counts:
        return number + (value == 1 ? " row" : " rows");
    case DensityUnit::Sigma:
        return number + " sigma";
    case DensityUnit::Deviation:
        return number + " s.d.";
    case DensityUnit::MultiplesOfUniform:
        break;
    }
    return number + " x uniform";
}

std::string NameOfUnit(DensityUnit unit) {
    switch (unit) {
    case DensityUnit::PerCentInCone:
        return "Per cent in the cone";
    case DensityUnit::Counts:
        return "Rows in the cone";
    case DensityUnit::Sigma:
        return "Sigma";
    case DensityUnit::Deviation:
        return "Standard deviations from uniform";
    case DensityUnit::MultiplesOfUniform:
        break;
    }
    return "Multiples of uniform";
}

std::string NameOfMethod(const DensityFormula& formula, double k) {
    static constexpr std::array<const char*, 5> kNames = {"Counting cone", "Kamb", "Kamb, linear",
                                                          "Kamb, squared", "Kamb, exponential"};
    if (formula.method == DensityMethod::Kernel) {
        return "Kernel, half-width " + FormatNumber(RadToDeg(HalfAngleOf(formula)), "0.0") + "°";
    }
    const std::string name = kNames.at(static_cast<std::size_t>(formula.method));
    return formula.method == DensityMethod::Cone ? name : name + ", k = " + ShortNumber(k);
}

} // namespace quandrel
