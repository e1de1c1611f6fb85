// SPDX-License-Identifier: MIT
//
// Summaries of any number of rows that add up: counts by whole degrees, and sums of measured angles
// without rounding errors. Summaries of parts, merged in any order, are the summary of the whole.
//
// Angles are degrees.
//
// Example: two parts of a survey.
//
//     namespace qd = quandrel::api;
//     qd::Summary north(qd::Primary::kPlanes);
//     north.Add(std::vector<qd::Plane>{{40, 120}, {38.5, 118}});
//     qd::Summary south(qd::Primary::kPlanes);
//     south.Add(std::vector<qd::Plane>{{41, 125}});
//     static_cast<void>(north.Merge(south));
//     std::cout << north.Rows() << ' ' << north.Cells().size() << '\n'; // -> 3 3
//     std::cout << std::round(north.Axes()->axes[2].plunge) << '\n'; // -> 50
//     std::cout << qd::Summary::Read(north.Bytes())->Rows() << '\n'; // -> 3

#pragma once

#include "quandrel/fabric.h"
#include "quandrel/orientation.h"
#include "quandrel/result.h"
#include "quandrel/table.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

class RowSummary;

} // namespace quandrel

namespace quandrel::api {

/// Rows with the same nearest whole degrees.
struct SummaryCell {
    double dip = 0;     ///< or plunge
    double azimuth = 0; ///< 0 to 360
    double rows = 0;
    double weight = 0; ///< of the rows; their number without weights
};

// An array of n x 4 doubles is a span of these.
static_assert(sizeof(SummaryCell) == 4 * sizeof(double));

/// The appended numbers of a summary.
struct SummaryNumbers {
    std::uint64_t count = 0;
    double least = 0;
    double greatest = 0;
    double sum = 0; ///< rounded once
    double sumOfSquares = 0;

    /// A histogram with bins at most a sixteenth of their numbers wide: from the first, inclusive,
    /// to the end, exclusive (below 0 the other way).
    struct Bin {
        double first = 0;
        double end = 0;
        double count = 0;
    };

    std::vector<Bin> bins; ///< ascending, without empty ones
};

static_assert(sizeof(SummaryNumbers::Bin) == 3 * sizeof(double));

class Summary {
public:
    /// Of no rows.
    ///
    /// @param isWeighted  the number of a row says how often it counts
    explicit Summary(Primary primary, bool isWeighted = false);
    Summary(const Summary& other);
    Summary(Summary&&) noexcept;
    Summary& operator=(const Summary& other);
    Summary& operator=(Summary&&) noexcept;
    ~Summary();

    /// Adds n rows. Only rows of the summary's kind are accepted; directions are lines with the
    /// plunge 0.
    ///
    /// @param numbers  n appended numbers, NaN where there is none, rounded to 32 bits; or empty
    ///
    /// Rows of NaN are counted as lines without data. Throws std::invalid_argument for angles out
    /// of range; no row is added then.
    void Add(std::span<const Plane> planes, std::span<const double> numbers = {});
    void Add(std::span<const Line> lines, std::span<const double> numbers = {});

    /// Adds the rows of a text file of any length, in constant memory.
    ///
    /// @param path     UTF-8
    /// @param threads  1 or more; no result depends on them
    /// @return the number of rows, or why the file could not be read; nothing is added then
    [[nodiscard]] Result<std::uint64_t> AddFile(const std::string& path, const TableFormat& format,
                                                unsigned threads = 1);

    /// Adds another summary.
    ///
    /// @return the number of rows, or why it does not fit: it is of other rows
    [[nodiscard]] Result<std::uint64_t> Merge(const Summary& other);

    [[nodiscard]] Primary Kind() const;
    [[nodiscard]] bool IsWeighted() const;
    [[nodiscard]] std::uint64_t Rows() const;

    /// The total of the weights; the number of rows without weights.
    [[nodiscard]] double Weight() const;

    /// Lines of texts that should have been rows, and rows of NaN.
    [[nodiscard]] std::uint64_t RefusedLines() const;

    /// The cells that hold rows.
    [[nodiscard]] std::vector<SummaryCell> Cells() const;

    /// Principal axes of the lines, or of the poles of the planes, from measured values; nothing
    /// without rows.
    [[nodiscard]] std::optional<PrincipalAxes> Axes() const;

    /// Fisher's statistics of the lines, or poles, as directions; nothing without rows.
    [[nodiscard]] std::optional<FisherStatistics> Directions() const;

    /// A mean azimuth: of trends, strikes of planes, or directions.
    struct MeanAzimuth {
        std::optional<double> mean; ///< 0 to below 360, of axes to below 180
        double length = 0;          ///< mean resultant length, of axes of the doubled angles
    };

    [[nodiscard]] std::optional<MeanAzimuth> Azimuths(Sense sense) const;

    [[nodiscard]] SummaryNumbers Numbers() const;

    /// The bytes of a file (.qsum); equal summaries have equal bytes. Inverse: Read.
    [[nodiscard]] std::string Bytes() const;
    [[nodiscard]] static Result<Summary> Read(std::string_view bytes);

private:
    explicit Summary(std::unique_ptr<RowSummary> summary);
    std::unique_ptr<RowSummary> summary_;
};

} // namespace quandrel::api
