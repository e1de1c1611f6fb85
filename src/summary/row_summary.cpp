// SPDX-License-Identifier: MIT

#include "summary/row_summary.h"

#include "stereo/distinct_lines.h"
#include "stereo/line_cosines.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <numeric>

namespace quandrel {

namespace {

constexpr int kTrends = 361;
constexpr unsigned kBinShift = 19;

Attitude AttitudeOfKey(int key) {
    return {key / kTrends - 90, key % kTrends};
}

int KeyOf(const Attitude& whole) {
    return LineKeyOfDegrees(WholeDegree(whole.dip), WholeDegree(whole.azimuth));
}

/// What a row adds to the sums, in the order of MomentSums.
struct RowTerms {
    std::array<double, 6> products;
    std::array<double, 3> downward;
    std::array<double, 6> azimuths;
};

RowTerms TermsOf(const Attitude& measured, bool isPlane) {
    const LineCosines of =
        CosinesOf({DegToRad(std::abs(measured.dip)), DegToRad(measured.azimuth)});
    const double c = of.cosineTrend;
    const double s = of.sineTrend;
    // The pole of a plane plunges at right angles to its dip, away from the dip direction.
    const double level = isPlane ? -of.sinePlunge : of.cosinePlunge;
    const double l = level * c;
    const double m = level * s;
    const double n = isPlane ? of.cosinePlunge : of.sinePlunge;
    const double c2 = (c - s) * (c + s);
    const double s2 = 2 * s * c;
    const double c4 = (c2 - s2) * (c2 + s2);
    const double s4 = 2 * s2 * c2;
    return {{l * l, m * m, n * n, l * m, l * n, m * n}, {l, m, n}, {c, s, c2, s2, c4, s4}};
}

template <std::size_t N>
void AddTerms(const std::array<double, N>& terms, std::uint64_t times, double factor,
              std::array<ExactSum, N>& sums) {
    for (std::size_t i = 0; i < N; ++i) {
        const double term = factor == 1 ? terms[i] : factor * terms[i];
        if (times == 1) {
            sums[i].Add(term);
        } else {
            sums[i].Add(term, times);
        }
    }
}

template <std::size_t N>
void AddSums(const std::array<ExactSum, N>& from, std::array<ExactSum, N>& to) {
    for (std::size_t i = 0; i < N; ++i) {
        to[i].Add(from[i]);
    }
}

void AddCounts(const std::vector<std::uint64_t>& from, std::vector<std::uint64_t>& to) {
    std::transform(from.begin(), from.end(), to.begin(), to.begin(), std::plus<>());
}

/// The weight of a row: 0 where the number is missing or below 0.
float WeightOf(const std::optional<float>& number) {
    return number && *number > 0 ? *number : 0;
}

} // namespace

void MomentSums::Add(const Attitude& measured, bool isPlane, std::uint64_t times, double factor) {
    const RowTerms terms = TermsOf(measured, isPlane);
    AddTerms(terms.products, times, factor, products);
    AddTerms(terms.downward, times, factor, downward);
    if (measured.dip < 0) {
        AddTerms(terms.downward, times, factor, upward);
    }
    AddTerms(terms.azimuths, times, factor, azimuths);
}

void MomentSums::Add(const MomentSums& other) {
    AddSums(other.products, products);
    AddSums(other.downward, downward);
    AddSums(other.upward, upward);
    AddSums(other.azimuths, azimuths);
}

std::size_t BinOf(float number) {
    return std::bit_cast<std::uint32_t>(number) >> kBinShift;
}

std::array<double, 2> LimitsOfBin(std::size_t bin) {
    const auto numberAt = [](std::uint32_t bits) {
        return static_cast<double>(std::bit_cast<float>(bits));
    };
    const auto first = static_cast<std::uint32_t>(bin) << kBinShift;
    return {numberAt(first), numberAt(first + (std::uint32_t{1} << kBinShift))};
}

void NumberSummary::Add(const std::optional<float>& number) {
    if (!number || !std::isfinite(*number)) {
        return;
    }
    const float value = *number == 0 ? 0 : *number; // -0 is 0
    least = count == 0 ? value : std::min(least, value);
    greatest = count == 0 ? value : std::max(greatest, value);
    ++count;
    sum.Add(static_cast<double>(value));
    squares.Add(static_cast<double>(value) * static_cast<double>(value));
    ++bins[BinOf(value)];
}

void NumberSummary::Add(const NumberSummary& other) {
    if (other.count > 0) {
        least = count == 0 ? other.least : std::min(least, other.least);
        greatest = count == 0 ? other.greatest : std::max(greatest, other.greatest);
    }
    count += other.count;
    sum.Add(other.sum);
    squares.Add(other.squares);
    AddCounts(other.bins, bins);
}

RowSummary::RowSummary(const SummaryKind& kind)
    : kind_(kind)
    , whole_(kLineKeys)
    , between_(kLineKeys)
    , weights_(kind.isWeighted ? std::size_t{kLineKeys} : 0) {}

void RowSummary::Add(const SummaryRow& row) {
    const Attitude whole = RoundedAttitude(row.measured, IsPlane());
    const auto key = static_cast<std::size_t>(KeyOf(whole));
    const bool isWhole = IsWhole(row.measured);
    numbers_.Add(row.number);
    if (isWhole && !kind_.isWeighted) {
        ++whole_[key];
        return;
    }
    ++between_[key];
    rowsWithDecimals_ += isWhole ? 0 : 1;
    moments_.Add(row.measured, IsPlane(), 1);
    if (kind_.isWeighted) {
        const auto weight = static_cast<double>(WeightOf(row.number));
        weights_[key].Add(weight);
        weightedMoments_.Add(row.measured, IsPlane(), 1, weight);
    }
}

void RowSummary::AddLines(const LineCounts& lines) {
    lines_.read += lines.read;
    lines_.blank += lines.blank;
    lines_.invalid += lines.invalid;
}

std::string RowSummary::Merge(const RowSummary& other) {
    if (kind_ != other.kind_) {
        return "The summaries are of different rows: planes, lines or directions, with weights or "
               "without.";
    }
    AddLines(other.lines_);
    AddCounts(other.whole_, whole_);
    AddCounts(other.between_, between_);
    rowsWithDecimals_ += other.rowsWithDecimals_;
    moments_.Add(other.moments_);
    weightedMoments_.Add(other.weightedMoments_);
    numbers_.Add(other.numbers_);
    for (std::size_t key = 0; key < weights_.size(); ++key) {
        weights_[key].Add(other.weights_[key]);
    }
    return {};
}

std::vector<std::uint64_t> RowSummary::Cells() const {
    std::vector<std::uint64_t> cells = whole_;
    AddCounts(between_, cells);
    return cells;
}

std::uint64_t RowSummary::Rows() const {
    return std::accumulate(whole_.begin(), whole_.end(), std::uint64_t{0})
           + std::accumulate(between_.begin(), between_.end(), std::uint64_t{0});
}

std::uint64_t RowSummary::RowsWithDecimals() const {
    return rowsWithDecimals_;
}

MomentSums RowSummary::Moments() const {
    MomentSums sums = moments_;
    for (int key = 0; key < kLineKeys; ++key) {
        if (const std::uint64_t times = whole_[static_cast<std::size_t>(key)]; times > 0) {
            sums.Add(AttitudeOfKey(key), IsPlane(), times);
        }
    }
    return sums;
}

MomentSums RowSummary::WeightedMoments() const {
    return weightedMoments_;
}

double RowSummary::TotalWeight() const {
    FloatSum total;
    for (const FloatSum& weight : weights_) {
        total.Add(weight);
    }
    return total.Value();
}

RowSummary::Parts RowSummary::AllParts() const {
    return {kind_,     lines_,   Cells(),  rowsWithDecimals_,
            Moments(), numbers_, weights_, weightedMoments_};
}

RowSummary RowSummary::OfParts(Parts parts) {
    RowSummary summary(parts.kind);
    summary.lines_ = parts.lines;
    summary.between_ = std::move(parts.cells);
    summary.rowsWithDecimals_ = parts.rowsWithDecimals;
    summary.moments_ = parts.moments;
    summary.numbers_ = std::move(parts.numbers);
    summary.weights_ = std::move(parts.weights);
    summary.weightedMoments_ = parts.weightedMoments;
    return summary;
}

bool operator==(const RowSummary& one, const RowSummary& other) {
    const RowSummary::Parts a = one.AllParts();
    const RowSummary::Parts b = other.AllParts();
    return a.kind == b.kind && a.lines == b.lines && a.cells == b.cells
           && a.rowsWithDecimals == b.rowsWithDecimals && a.moments == b.moments
           && a.numbers == b.numbers && a.weights == b.weights
           && a.weightedMoments == b.weightedMoments;
}

} // namespace quandrel
