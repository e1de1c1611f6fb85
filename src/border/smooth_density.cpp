// SPDX-License-Identifier: MIT

#include "quandrel/smooth_density.h"

#include "border/border.h"
#include "border/density_view.h"
#include "border/row_lines.h"
#include "density/density_levels.h"
#include "density/even_maxima.h"
#include "density/kernel_width.h"
#include "density/plot_density.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <stdexcept>

namespace quandrel::api {

namespace {

/// The half-width of a kernel whose lines do not ask for one, degrees.
constexpr double kUsualHalfWidth = 10;

std::vector<MeasuredLine> LinesIn(std::span<const Line> lines) {
    std::vector<MeasuredLine> in(lines.size());
    std::ranges::transform(lines, in.begin(), MeasuredIn);
    return in;
}

quandrel::DensityChoice ChoiceIn(const DensityChoice& choice, std::span<const MeasuredLine> lines,
                                 std::span<const double> weights) {
    quandrel::DensityChoice in;
    in.method = static_cast<quandrel::DensityMethod>(choice.method);
    in.sense = choice.sense == Sense::kDirections && choice.method != DensityMethod::kCone
                   ? LineSense::Directions
                   : LineSense::Axes;
    in.k = choice.k;
    in.halfWidth = DegToRad(choice.halfWidth);
    if (choice.method == DensityMethod::kKernel && choice.halfWidth == 0) {
        const auto kappa = LikelyKappa(lines, weights, in.sense, std::max(choice.threads, 1U));
        in.halfWidth = kappa ? HalfWidthOfKappa(*kappa, in.sense) : DegToRad(kUsualHalfWidth);
    }
    return in;
}

std::vector<Line> Out(const FieldLine& line) {
    std::vector<Line> out;
    for (const NetPlace& place : line.vertices) {
        out.push_back({place.plunge, place.trend < 360 ? place.trend : 0});
    }
    if (line.isClosed && !out.empty()) {
        out.push_back(out.front());
    }
    return out;
}

std::vector<std::vector<Line>> Out(std::span<const FieldLine> lines) {
    std::vector<std::vector<Line>> out;
    std::ranges::transform(lines, std::back_inserter(out),
                           [](const FieldLine& line) { return Out(line); });
    return out;
}

DensityPlace Out(const FieldMaximum& maximum) {
    const double trend = maximum.place.trend;
    return {{maximum.place.plunge, trend < 360 ? trend : 0}, maximum.value};
}

} // namespace

struct SmoothDensity::Field {
    DensityRows rows;
    PlotDensity density;
    unsigned threads;

    Field(DensityRows gathered, const RecordDensityView& view,
          const quandrel::DensityChoice& choice, unsigned threadCount)
        : rows(std::move(gathered))
        , density(rows, view, FormulaOf(choice, rows.Weight()), threadCount)
        , threads(threadCount) {}
};

SmoothDensity::SmoothDensity(std::span<const Line> lines, const DensityChoice& choice,
                             std::span<const double> weights) {
    if (!weights.empty()) {
        SameLength(lines.size(), weights.size(), "lines and weights");
        NotNegative(weights, "weight");
    }
    const RecordDensityView view = ViewIn(choice);
    const std::vector<MeasuredLine> in = LinesIn(lines);
    const unsigned threads = std::max(choice.threads, 1U);
    const quandrel::DensityChoice wanted = ChoiceIn(choice, in, weights);
    DensityRows rows(in, weights, wanted.sense);
    if (!(rows.Weight() > 0)) {
        throw std::invalid_argument("there are no lines");
    }
    field_ = std::make_unique<Field>(std::move(rows), view, wanted, threads);
}

SmoothDensity::SmoothDensity(SmoothDensity&&) noexcept = default;
SmoothDensity& SmoothDensity::operator=(SmoothDensity&&) noexcept = default;
SmoothDensity::~SmoothDensity() = default;

DensityUnit SmoothDensity::Unit() const {
    return static_cast<DensityUnit>(field_->density.Unit());
}

double SmoothDensity::HalfAngle() const {
    return RadToDeg(HalfAngleOf(field_->density.Formula()));
}

double SmoothDensity::At(const Line& line) const {
    return field_->density.ValueAt(MeasuredIn(line));
}

void SmoothDensity::At(std::span<const Line> lines, std::span<double> densities) const {
    SameLength(lines.size(), densities.size(), "lines and densities");
    std::ranges::transform(lines, densities.begin(), [this](const Line& line) { return At(line); });
}

DensityPlace SmoothDensity::Greatest() const {
    return Out(field_->density.Greatest());
}

std::vector<double> SmoothDensity::UsualLevels() const {
    const std::span<const double> levels = field_->density.Levels();
    return {levels.begin(), levels.end()};
}

std::vector<SphereContour> SmoothDensity::Contours(std::span<const double> levels) const {
    for (const double level : levels) {
        if (!(Finite(level, "level") > 0)) {
            throw std::invalid_argument("a contour level is not above 0");
        }
    }
    std::vector<SphereContour> contours;
    for (const PlotDensity::Contour& contour : field_->density.ContoursAt(levels)) {
        contours.push_back({levels[contours.size()], Out(contour.lines)});
    }
    return contours;
}

std::vector<DensityPlace> SmoothDensity::Maxima() const {
    std::vector<DensityPlace> maxima;
    std::ranges::transform(field_->density.Maxima(), std::back_inserter(maxima),
                           [](const FieldMaximum& maximum) { return Out(maximum); });
    return maxima;
}

SignificantDensity SmoothDensity::Significant(std::uint64_t seed) const {
    const PlotDensity& density = field_->density;
    EvenSampling sampling;
    sampling.seed = seed;
    sampling.wholeDegrees = field_->rows.AreWhole();
    sampling.threads = field_->threads;
    const auto rows = static_cast<std::int64_t>(std::llround(field_->rows.Weight()));
    const auto maxima = MaximaOfEvenSamples(density.Formula(), rows, sampling);
    const EnvelopeLevel level = EnvelopeOf(maxima.value());
    const double value = density.ValueOfSum(level.sum);
    return {value, density.ValueOfSum(level.sum + level.error) - value,
            Out(density.LinesAbove(level.sum))};
}

} // namespace quandrel::api
