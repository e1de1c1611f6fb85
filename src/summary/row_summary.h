// SPDX-License-Identifier: MIT
//
// Summaries of rows: what results need of any number of rows, in constant memory.
//
// This is the chief header of the folder. A summary counts rows by their whole degrees, and adds up
// exactly what moments need of the measured angles, so that summaries of parts, merged in any
// order, are the summary of the whole, byte for byte. They are made of texts (summary_text.h) or of
// arrays, kept in files (summary_file.h), and their results are those of rows (summary_results.h).
//
// Input: orientations with appended numbers. Output: counts by cell, sums, histograms.

#pragma once

#include "core/format_settings.h"
#include "orientation/attitude.h"
#include "summary/exact_sum.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// What the rows of a summary are. Only summaries of the same rows are merged.
struct SummaryKind {
    std::int16_t primary = kPrimaryPlane; ///< PrimaryFormatCode
    bool isWeighted = false;              ///< the appended number says how often a row counts

    friend bool operator==(const SummaryKind&, const SummaryKind&) = default;
};

/// A row: an orientation in degrees, and the appended number if there is one.
struct SummaryRow {
    Attitude measured; ///< dip -90 to 90, azimuth 0 to 360
    std::optional<float> number;
};

/// Sums over unit vectors v of lines, or of the poles of planes, north, east, down, and over their
/// azimuths a: those of trends, dip directions or directions.
struct MomentSums {
    /// ll, mm, nn, lm, ln, mn of v.
    std::array<ExactSum, 6> products;

    /// Of v by its lower end, and of the lower ends of those that point up.
    std::array<ExactSum, 3> downward;
    std::array<ExactSum, 3> upward;

    /// cos a, sin a, cos 2a, sin 2a, cos 4a, sin 4a.
    std::array<ExactSum, 6> azimuths;

    /// Adds a row, `times` as often. A factor that is not 1 multiplies what is added, rounded.
    void Add(const Attitude& measured, bool isPlane, std::uint64_t times, double factor = 1);
    void Add(const MomentSums& other);

    friend bool operator==(const MomentSums&, const MomentSums&) = default;
};

/// Appended numbers: how many there are, their range, sum and histogram.
struct NumberSummary {
    /// Bins are the first 13 bits of a number: its sign, its exponent, and four bits more, so that
    /// they are at most a sixteenth of their numbers wide.
    static constexpr std::size_t kBins = 8192;

    std::uint64_t count = 0;
    float least = 0; ///< of all; 0 without any
    float greatest = 0;
    ExactSum sum;
    ExactSum squares;
    std::vector<std::uint64_t> bins = std::vector<std::uint64_t>(kBins);

    void Add(const std::optional<float>& number);
    void Add(const NumberSummary& other);

    friend bool operator==(const NumberSummary&, const NumberSummary&) = default;
};

/// The bin of a number.
[[nodiscard]] std::size_t BinOf(float number);

/// The numbers of a bin: from the first, inclusive, away from 0 to the second, exclusive.
[[nodiscard]] std::array<double, 2> LimitsOfBin(std::size_t bin);

/// Lines of texts.
struct LineCounts {
    std::uint64_t read = 0;
    std::uint64_t blank = 0;   ///< blank ones, comments, parameters, headings
    std::uint64_t invalid = 0; ///< that should be rows and are not

    friend bool operator==(const LineCounts&, const LineCounts&) = default;
};

class RowSummary {
public:
    explicit RowSummary(const SummaryKind& kind);

    [[nodiscard]] const SummaryKind& Kind() const { return kind_; }

    [[nodiscard]] bool IsPlane() const { return kind_.primary == kPrimaryPlane; }

    /// Adds a row. O(1).
    void Add(const SummaryRow& row);

    /// Adds a row in whole degrees, without a number. A few nanoseconds.
    ///
    /// @param key  LineKeyOfDegrees of its dip and azimuth, 0 to 360
    void AddWhole(int key) { ++whole_[static_cast<std::size_t>(key)]; }

    void AddLines(const LineCounts& lines);

    /// Adds another summary.
    ///
    /// @return empty, or why it does not fit
    [[nodiscard]] std::string Merge(const RowSummary& other);

    [[nodiscard]] std::uint64_t Rows() const;

    [[nodiscard]] const LineCounts& Lines() const { return lines_; }

    [[nodiscard]] const NumberSummary& Numbers() const { return numbers_; }

    /// Rows by the number of their whole degrees: kLineKeys numbers.
    [[nodiscard]] std::vector<std::uint64_t> Cells() const;

    /// The weights of the rows in a cell; only in a weighted summary.
    [[nodiscard]] const std::vector<FloatSum>& Weights() const { return weights_; }

    /// Rows whose measured angles have decimals.
    [[nodiscard]] std::uint64_t RowsWithDecimals() const;

    /// The sums of all rows, each once; in a weighted summary as often as its weight.
    [[nodiscard]] MomentSums Moments() const;
    [[nodiscard]] MomentSums WeightedMoments() const;

    /// The total of the weights.
    [[nodiscard]] double TotalWeight() const;

    /// What a file keeps.
    struct Parts {
        SummaryKind kind;
        LineCounts lines;
        std::vector<std::uint64_t> cells;
        std::uint64_t rowsWithDecimals = 0;
        MomentSums moments;
        NumberSummary numbers;
        std::vector<FloatSum> weights; ///< of cells; empty unless weighted
        MomentSums weightedMoments;
    };

    [[nodiscard]] Parts AllParts() const;
    [[nodiscard]] static RowSummary OfParts(Parts parts);

    friend bool operator==(const RowSummary& one, const RowSummary& other);

private:
    SummaryKind kind_;
    LineCounts lines_;
    std::vector<std::uint64_t> whole_;   ///< rows in whole degrees by cell, not yet in the moments
    std::vector<std::uint64_t> between_; ///< rows by cell that are in the moments
    std::uint64_t rowsWithDecimals_ = 0;
    MomentSums moments_; ///< of the rows in between_
    NumberSummary numbers_;
    std::vector<FloatSum> weights_;
    MomentSums weightedMoments_;
};

} // namespace quandrel
