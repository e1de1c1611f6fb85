// SPDX-License-Identifier: MIT

#include "quandrel/summary.h"

#include "border/border.h"
#include "border/table_format.h"
#include "statistics/fabric_kernels.h"
#include "summary/summary_file.h"
#include "summary/summary_results.h"
#include "summary/summary_text.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <stdexcept>

namespace quandrel::api {

namespace {

Attitude AttitudeIn(double dip, double azimuth) {
    return ToMicrodegree(
        {Within(dip, -90, 90, "dip or plunge"), WithinTurn(Finite(azimuth, "azimuth"))});
}

double DipOf(const Plane& plane) {
    return plane.dip;
}

double DipOf(const Line& line) {
    return line.plunge;
}

double AzimuthOf(const Plane& plane) {
    return plane.dipDirection;
}

double AzimuthOf(const Line& line) {
    return line.trend;
}

std::optional<float> NumberIn(double number) {
    return std::isnan(number) ? std::nullopt
                              : std::optional(static_cast<float>(
                                  Within(number, -std::numeric_limits<float>::max(),
                                         std::numeric_limits<float>::max(), "number")));
}

/// Checks all rows, then adds them.
template <class Row>
void AddRows(std::span<const Row> rows, std::span<const double> numbers, RowSummary& summary) {
    if (!numbers.empty()) {
        SameLength(rows.size(), numbers.size(), "rows and numbers");
    }
    RowSummary added(summary.Kind());
    LineCounts lines;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        ++lines.read;
        if (std::isnan(DipOf(rows[i]))) {
            ++lines.invalid;
            continue;
        }
        added.Add({AttitudeIn(DipOf(rows[i]), AzimuthOf(rows[i])),
                   numbers.empty() ? std::nullopt : NumberIn(numbers[i])});
    }
    added.AddLines(lines);
    static_cast<void>(summary.Merge(added)); // of the same kind
}

Line AxisOut(const Direction& axis) {
    RadianLine line;
    AxisToLine(axis, line.plunge, line.trend);
    return LineOut(line.plunge, line.trend);
}

std::optional<Line> DirectionOut(const std::optional<Direction>& direction) {
    if (!direction) {
        return std::nullopt;
    }
    RadianLine line;
    DirectedLine(*direction, line.plunge, line.trend);
    return LineOut(line.plunge, line.trend);
}

} // namespace

Summary::Summary(Primary primary, bool isWeighted)
    : summary_(std::make_unique<RowSummary>(
        SummaryKind{static_cast<std::int16_t>(
                        Within(static_cast<int>(primary), kDirections, kPrimaryLine, "primary")),
                    isWeighted})) {}

Summary::Summary(std::unique_ptr<RowSummary> summary)
    : summary_(std::move(summary)) {}

Summary::Summary(const Summary& other)
    : summary_(std::make_unique<RowSummary>(*other.summary_)) {}

Summary::Summary(Summary&&) noexcept = default;

Summary& Summary::operator=(const Summary& other) {
    return *this = Summary(other);
}

Summary& Summary::operator=(Summary&&) noexcept = default;
Summary::~Summary() = default;

void Summary::Add(std::span<const Plane> planes, std::span<const double> numbers) {
    if (!summary_->IsPlane()) {
        throw std::invalid_argument("the summary is not of planes");
    }
    AddRows(planes, numbers, *summary_);
}

void Summary::Add(std::span<const Line> lines, std::span<const double> numbers) {
    if (summary_->IsPlane()) {
        throw std::invalid_argument("the summary is of planes");
    }
    AddRows(lines, numbers, *summary_);
}

Result<std::uint64_t> Summary::AddFile(const std::string& path, const TableFormat& format,
                                       unsigned threads) {
    if (static_cast<std::int16_t>(format.primary) != summary_->Kind().primary) {
        return Failure{"The summary is of other rows than the format."};
    }
    RowSummary added(summary_->Kind());
    const SummaryFormat in = {LineFormatIn(format), format.hasHeading, summary_->Kind().isWeighted};
    std::string error = SummariseFile(path, in, std::max(threads, 1U), added);
    if (error.empty()) {
        error = summary_->Merge(added);
    }
    return error.empty() ? Result<std::uint64_t>(added.Rows()) : Failure{std::move(error)};
}

Result<std::uint64_t> Summary::Merge(const Summary& other) {
    std::string error = summary_->Merge(*other.summary_);
    return error.empty() ? Result<std::uint64_t>(Rows()) : Failure{std::move(error)};
}

Primary Summary::Kind() const {
    return static_cast<Primary>(summary_->Kind().primary);
}

bool Summary::IsWeighted() const {
    return summary_->Kind().isWeighted;
}

std::uint64_t Summary::Rows() const {
    return summary_->Rows();
}

double Summary::Weight() const {
    return IsWeighted() ? summary_->TotalWeight() : static_cast<double>(Rows());
}

std::uint64_t Summary::RefusedLines() const {
    return summary_->Lines().invalid;
}

std::vector<SummaryCell> Summary::Cells() const {
    std::vector<SummaryCell> cells;
    for (const quandrel::SummaryCell& cell : CellsOf(*summary_)) {
        cells.push_back({static_cast<double>(cell.dip), static_cast<double>(cell.azimuth),
                         static_cast<double>(cell.rows), cell.weight});
    }
    return cells;
}

std::optional<PrincipalAxes> Summary::Axes() const {
    const auto fabric = quandrel::FabricOf(*summary_);
    if (!fabric) {
        return std::nullopt;
    }
    PrincipalAxes axes;
    axes.eigenvalues = fabric->axes.values;
    std::ranges::transform(fabric->axes.axes, axes.axes.begin(), AxisOut);
    return axes;
}

std::optional<FisherStatistics> Summary::Directions() const {
    const auto fabric = quandrel::FabricOf(*summary_);
    if (!fabric) {
        return std::nullopt;
    }
    FisherStatistics statistics;
    statistics.mean = DirectionOut(fabric->mean);
    statistics.resultant = fabric->length * fabric->count;
    statistics.kappa = fabric->kappa;
    return statistics;
}

std::optional<Summary::MeanAzimuth> Summary::Azimuths(Sense sense) const {
    const auto circular = quandrel::CircularOf(*summary_, sense == Sense::kAxes);
    if (!circular) {
        return std::nullopt;
    }
    return MeanAzimuth{circular->mean ? std::optional(AzimuthOut(*circular->mean)) : std::nullopt,
                       circular->length};
}

SummaryNumbers Summary::Numbers() const {
    const NumberSummary& held = summary_->Numbers();
    SummaryNumbers numbers{held.count,
                           static_cast<double>(held.least),
                           static_cast<double>(held.greatest),
                           held.sum.Value(),
                           held.squares.Value(),
                           {}};
    for (const HistogramBin& bin : HistogramOf(held)) {
        numbers.bins.push_back({bin.first, bin.end, static_cast<double>(bin.count)});
    }
    return numbers;
}

std::string Summary::Bytes() const {
    return SummaryBytes(*summary_);
}

Result<Summary> Summary::Read(std::string_view bytes) {
    quandrel::Result<RowSummary> summary = SummaryOfBytes(bytes);
    if (!summary) {
        return Failure{summary.Error()};
    }
    return Summary(std::make_unique<RowSummary>(std::move(*summary)));
}

} // namespace quandrel::api
