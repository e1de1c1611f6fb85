// SPDX-License-Identifier: MIT

#include "rose/rose_count.h"

#include "orientation/angles.h"
#include "rose/circular_statistics.h"
#include "rose/shown_azimuths.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace quandrel {

namespace {

constexpr std::int32_t kSteepestUpward = -90; ///< a lower appended plunge is invalid
constexpr double kNoSpeed = std::numeric_limits<double>::quiet_NaN();

bool IsWind(int kind) {
    return kind >= kRoseWindSpeed && kind <= kRoseOverlaidWind;
}

bool HasEnergy(int kind) {
    return kind == kRoseWindEnergy || kind == kRoseOverlaidWind;
}

bool IsRoseValue(double value) {
    return std::abs(value) <= kLargestRoseValue; // false for NaN
}

/// A row for counting.
struct RoseRow {
    double count = 1; ///< n', observations
    double value = 0; ///< v
    double speed = 0;
    double windFrequency = 0;
};

/// Sums over the rows of an azimuth. Sectors and trigonometric sums are made from these
/// at the end, which is faster and more accurate than row by row.
struct AzimuthSums {
    double count = 0;
    double weightedCount = 0; ///< n' w
    double value = 0;
    double weightedValue = 0; ///< v w
    double observedValue = 0; ///< n' v w
    double speed = 0;
    double energy = 0;
    double windFrequency = 0;
};

/// Weighted mean and sum of squares about it, updated value by value.
class RunningSpread {
public:
    void Add(double value, double weight) {
        if (weight == 0) {
            return;
        }
        weight_ += weight;
        const double step = value - mean_;
        mean_ += step * weight / weight_;
        // By rounding the mean can pass the value, by less than a digit.
        squares_ += std::max(weight * step * (value - mean_), 0.0);
    }

    /// @param count  observations, above 1
    [[nodiscard]] double Deviation(double count) const {
        return weight_ > 0 ? std::sqrt(squares_ / weight_ * (count / (count - 1))) : 0;
    }

private:
    double weight_ = 0;
    double mean_ = 0;
    double squares_ = 0;
};

class RoseCounter {
public:
    RoseCounter(const RoseCountSettings& settings, const RoseRows& rows);

    void CountRows();

    /// The tables, after all rows are counted.
    [[nodiscard]] RoseTables Finish();

private:
    void CountRow(std::size_t row);
    [[nodiscard]] std::optional<RoseRow> ReadRow(std::size_t row) const;
    [[nodiscard]] std::optional<double> WeightOf(std::size_t row);
    void Add(const RoseRow& row, std::size_t azimuth, int classNumber, double weight);
    void AddToSector(const RoseRow& row, int sector, int classNumber, double weight);
    void ListAngle(double count, double angle);
    void ListRow(const RoseRow& row, double angle, double weight);
    void AddTotals(const AzimuthSums& sums);
    void AddAzimuth(const AzimuthSums& sums, int sector);
    void AddTrigSums(const AzimuthSums& sums, double angle);
    void FinishMeans();
    void FinishTotals();

    const RoseCountSettings& settings_;
    const RoseRows& rows_;
    BiasWeights weights_;
    bool isWeighted_;
    bool isGrouped_;
    bool needsNumber_;
    bool hasValues_;
    bool listsAngles_ = true;
    bool listsRows_ = true;
    RoseTables tables_;
    ShownAzimuths shown_;
    std::vector<AzimuthSums> azimuths_; ///< these and the next two as the azimuths of shown_
    std::vector<CountedSectors> sectorsOf_;
    std::vector<double> radians_;        ///< of the folded azimuth
    std::vector<RunningSpread> spreads_; ///< by sector
    std::vector<double> observedValues_; ///< by sector: sums of n' v w
};

RoseCounter::RoseCounter(const RoseCountSettings& settings, const RoseRows& rows)
    : settings_(settings)
    , rows_(rows)
    , weights_(settings.bias)
    , isWeighted_(settings.kind <= kRoseMeanValue && settings.bias.mode != kNoBias)
    , isGrouped_(settings.grouped && !rows.numbers.empty())
    , needsNumber_(!rows.numbers.empty()
                   && (settings.grouped
                       || (settings.kind != kRoseFrequency && settings.kind != kRoseWindSpeed)))
    , hasValues_(!rows.numbers.empty() || IsWind(settings.kind))
    , shown_(settings, rows)
    , azimuths_(shown_.Different().size()) {
    const auto sectors = static_cast<std::size_t>(settings.layout.sectors);
    tables_.sectors = RoseSectorTable(settings.layout.sectors, settings.classes);
    tables_.stats.resize(sectors + 1);
    spreads_.resize(sectors + 1);
    observedValues_.resize(sectors + 1);
    for (const double degrees : shown_.Different()) {
        sectorsOf_.push_back(SectorsOfAxis(settings.layout, degrees));
        radians_.push_back(DegToRad(FoldedAzimuth(degrees, settings.layout.directional)));
    }
}

void RoseCounter::CountRows() {
    tables_.angles.reserve(std::min(rows_.dips.size(), static_cast<std::size_t>(kMostListedAngles))
                           + 1);
    for (std::size_t row = 0; row < rows_.dips.size(); ++row) {
        if (rows_.dips[row] != kErrorRow) {
            CountRow(row);
        }
    }
}

void RoseCounter::CountRow(std::size_t row) {
    const int classNumber = rows_.classes.empty() ? 1 : rows_.classes[row];
    const std::size_t azimuth = shown_.PlaceOf(row);
    const std::optional<RoseRow> read = ReadRow(row);
    const std::optional<double> weight = isWeighted_ ? WeightOf(row) : 1.0;
    if (!read || !weight || classNumber == kNoClassValue) {
        ++tables_.leftOut;
    } else if (classNumber > 0) {
        Add(*read, azimuth, std::min(classNumber, settings_.classes), *weight);
        ++tables_.rowsCounted;
        ListAngle(read->count, radians_[azimuth]);
        ListRow(*read, radians_[azimuth], *weight);
    }
}

/// The values of a row; empty when a required one is not valid.
std::optional<RoseRow> RoseCounter::ReadRow(std::size_t row) const {
    RoseRow read;
    const float number = rows_.numbers.empty() ? 0.0F : rows_.numbers[row];
    const bool isNumber = number != kInvalidNumber && std::isfinite(number);
    if (needsNumber_ && !isNumber) {
        return std::nullopt;
    }
    if (isGrouped_) {
        read.count = std::trunc(static_cast<double>(number));
    }
    read.value = isNumber ? static_cast<double>(number) : 0;
    if (IsWind(settings_.kind)) {
        read.speed = rows_.textNumbers.empty() ? kNoSpeed : rows_.textNumbers[row];
        read.value = read.speed;
    }
    if (HasEnergy(settings_.kind)) {
        read.windFrequency = static_cast<double>(number);
        read.value = read.speed * read.speed * read.speed * read.windFrequency;
    }
    const bool isUsable = read.count >= 0 && IsRoseValue(read.value) && IsRoseValue(read.speed);
    return isUsable ? std::optional(read) : std::nullopt;
}

/// Empty for a row whose own sample line is not valid.
std::optional<double> RoseCounter::WeightOf(std::size_t row) {
    DegreeLine line = settings_.sampleLine;
    if (settings_.bias.ownLines) {
        line = {rows_.linePlunges[row], rows_.lineTrends[row]};
        if (line.plunge < kSteepestUpward) {
            return std::nullopt;
        }
    }
    if (rows_.measured.empty()) {
        return weights_({rows_.dips[row], rows_.azimuths[row]}, line);
    }
    const bool hasMeasuredLine = settings_.bias.ownLines && !rows_.measuredLines.empty();
    return weights_.Measured(rows_.measured[row], hasMeasuredLine
                                                      ? rows_.measuredLines[row]
                                                      : Attitude{line.plunge, line.trend});
}

void RoseCounter::Add(const RoseRow& row, std::size_t azimuth, int classNumber, double weight) {
    AzimuthSums& sums = azimuths_[azimuth];
    const CountedSectors& sectors = sectorsOf_[azimuth];
    AddToSector(row, sectors.first, classNumber, weight);
    if (sectors.second != 0) {
        AddToSector(row, sectors.second, classNumber, weight);
    }
    sums.count += row.count;
    sums.weightedCount += row.count * weight;
    if (!hasValues_) {
        return;
    }
    const double weightedValue = row.value * weight;
    sums.value += row.value;
    sums.weightedValue += weightedValue;
    sums.observedValue += row.count * weightedValue;
    if (IsWind(settings_.kind)) {
        sums.speed += row.speed;
        sums.energy += HasEnergy(settings_.kind) ? row.value : 0;
        sums.windFrequency += row.windFrequency;
    }
}

void RoseCounter::AddToSector(const RoseRow& row, int sector, int classNumber, double weight) {
    // Kept: classes count rows, where the whole of a sector counts observations.
    tables_.sectors(sector, classNumber, kRoseFrequencyLayer) += weight;
    if (hasValues_) {
        tables_.sectors(sector, classNumber, kRoseValueLayer) += row.value * weight;
        spreads_[static_cast<std::size_t>(sector)].Add(row.value, row.count * weight);
    }
}

void RoseCounter::ListAngle(double count, double angle) {
    std::vector<double>& angles = tables_.angles;
    if (!listsAngles_) {
        return;
    }
    if (static_cast<double>(angles.size() - 1) + count > kMostListedAngles) {
        listsAngles_ = false;
        angles.assign(1, 0.0);
        angles.shrink_to_fit();
    } else {
        angles.insert(angles.end(), static_cast<std::size_t>(count), angle);
    }
}

void RoseCounter::ListRow(const RoseRow& row, double angle, double weight) {
    if (!listsRows_ || row.count == 0) {
        return;
    }
    listsRows_ =
        tables_.rows.size() < kMostListedRows && row.count <= static_cast<double>(kMostListedRows);
    if (listsRows_) {
        const auto count = static_cast<std::size_t>(row.count);
        tables_.rows.push_back({angle, count, weight, row.value * weight});
    } else {
        tables_.rows.clear();
    }
}

/// Adds the terms of the count, of the sum of values, and so on, to the row of a sector.
void AddColumns(const AzimuthSums& sums, std::array<double, 7>& stats) {
    stats[kRoseCount] += sums.count;
    stats[kRoseValueSum] += sums.value;
    stats[kRoseSpeedSum] += sums.speed;
    stats[kRoseEnergySum] += sums.energy;
    stats[kRoseWindFrequencySum] += sums.windFrequency;
}

void RoseCounter::AddTotals(const AzimuthSums& sums) {
    AddColumns(sums, tables_.stats[kAllSectors]);
    tables_.sectors(0, 0, kRoseValueLayer) += sums.weightedCount;
    tables_.sectors(0, 1, kRoseValueLayer) += sums.weightedValue;
}

void RoseCounter::AddAzimuth(const AzimuthSums& sums, int sector) {
    const auto place = static_cast<std::size_t>(sector);
    AddColumns(sums, tables_.stats[place]);
    tables_.sectors(sector, 0, kRoseFrequencyLayer) += sums.weightedCount;
    tables_.sectors(sector, 0, kRoseValueLayer) += sums.weightedValue;
    observedValues_[place] += sums.observedValue;
}

void RoseCounter::AddTrigSums(const AzimuthSums& sums, double angle) {
    const TrigSums terms = TrigTermsOf(angle, settings_.layout.directional ? AngleSense::kDirected
                                                                           : AngleSense::kAxial);
    for (std::size_t term = 0; term < terms.size(); ++term) {
        tables_.trigSums[kRoseFrequencyLayer][term] += sums.weightedCount * terms[term];
        tables_.trigSums[kRoseValueLayer][term] += sums.weightedValue * terms[term];
    }
}

RoseTables RoseCounter::Finish() {
    for (std::size_t azimuth = 0; azimuth < azimuths_.size(); ++azimuth) {
        const AzimuthSums& sums = azimuths_[azimuth];
        const CountedSectors& sectors = sectorsOf_[azimuth];
        AddTotals(sums);
        AddAzimuth(sums, sectors.first);
        if (sectors.second != 0) {
            AddAzimuth(sums, sectors.second);
        }
        AddTrigSums(sums, radians_[azimuth]);
        if (sums.weightedCount > 0) {
            tables_.azimuths.push_back({radians_[azimuth], sums.weightedCount});
        }
    }
    if (tables_.stats[kAllSectors][kRoseCount] > 0) {
        FinishMeans();
        FinishTotals();
    }
    return std::move(tables_);
}

void RoseCounter::FinishMeans() {
    // Petals of means are shares of their sum, in which opposite petals count once.
    const double ends = settings_.layout.bothEnds ? 2 : 1;
    for (std::size_t sector = 1; sector < tables_.stats.size(); ++sector) {
        std::array<double, 7>& stats = tables_.stats[sector];
        const double weightedCount =
            tables_.sectors(static_cast<int>(sector), 0, kRoseFrequencyLayer);
        if (weightedCount > 0) {
            stats[kRoseMean] = observedValues_[sector] / weightedCount;
        }
        if (stats[kRoseCount] > 1) {
            stats[kRoseDeviation] = spreads_[sector].Deviation(stats[kRoseCount]);
        }
        tables_.stats[kAllSectors][kRoseMean] += stats[kRoseMean] / ends;
        tables_.stats[kAllSectors][kRoseDeviation] += stats[kRoseDeviation] / ends;
    }
}

void RoseCounter::FinishTotals() {
    const auto largest = [this](std::size_t column) {
        double most = 0;
        for (std::size_t sector = 1; sector < tables_.stats.size(); ++sector) {
            most = std::max(most, tables_.stats[sector][column]);
        }
        return most;
    };
    const auto largestWhole = [this](RoseLayer layer) {
        double most = 0;
        for (int sector = 1; sector <= tables_.sectors.Sectors(); ++sector) {
            most = std::max(most, tables_.sectors(sector, 0, layer));
        }
        return most;
    };
    const std::array<double, 7>& sums = tables_.stats[kAllSectors];
    const double mostValue = largestWhole(kRoseValueLayer);
    tables_.totals[kRoseCount] = {sums[kRoseCount], tables_.sectors(0, 0, kRoseValueLayer),
                                  largestWhole(kRoseFrequencyLayer)};
    tables_.totals[kRoseValueSum] = {sums[kRoseValueSum], tables_.sectors(0, 1, kRoseValueLayer),
                                     mostValue};
    for (const std::size_t column : {kRoseMean, kRoseDeviation}) {
        tables_.totals[column] = {sums[column], sums[column], largest(column)};
    }
    if (settings_.kind == kRoseWindSpeed || settings_.kind == kRoseOverlaidWind) {
        const double sum = sums[kRoseSpeedSum];
        tables_.totals[kRoseSpeedSum] = {sum, sum, largest(kRoseSpeedSum)};
    }
    if (HasEnergy(settings_.kind)) {
        const double energy = sums[kRoseEnergySum];
        const double frequency = sums[kRoseWindFrequencySum];
        tables_.totals[kRoseEnergySum] = {energy, energy, mostValue};
        tables_.totals[kRoseWindFrequencySum] = {frequency, frequency,
                                                 largest(kRoseWindFrequencySum)};
    }
}

} // namespace

RoseTables CountRoseRows(const RoseCountSettings& settings, const RoseRows& rows) {
    RoseCounter counter(settings, rows);
    counter.CountRows();
    return counter.Finish();
}

} // namespace quandrel
