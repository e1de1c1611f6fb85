// SPDX-License-Identifier: MIT

#include "density/plot_density.h"

#include "core/data_format.h"
#include "core/told_step.h"
#include "density/density_levels.h"
#include "density/kernel_width.h"
#include "orientation/direction_vectors.h"
#include "platform/platform.h"
#include "stereo/distinct_lines.h"
#include "stereo/row_bands.h"
#include "stereo/row_drawing.h"
#include "stereo/shown_layers.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace quandrel {

namespace {

/// The half-width of a kernel whose rows do not ask for one, radians.
constexpr double kUsualWidth = kPi / 18;

MeasuredLine LineOf(const NetPlace& place) {
    return {DegToRad(place.plunge), DegToRad(place.trend)};
}

LineSense SenseOf(const PlotRecord& record) {
    const bool isPolar = record.DataKind == kPolarLines && record.AxesTitle.empty();
    return isPolar && record.DensityMethod != kDensityByCone ? LineSense::Directions
                                                             : LineSense::Axes;
}

/// What the rows that are gathered follow from.
struct RowsKey {
    std::uint64_t version = 0;
    std::int32_t last = 0;
    LineSense sense = LineSense::Axes;
    bool isMeasured = false;

    friend bool operator==(const RowsKey&, const RowsKey&) = default;
};

/// The density of a plot, and the rows and choice that it was computed from.
struct KnownDensity {
    RowsKey rowsKey;
    std::unique_ptr<DensityRows> rows;
    std::optional<double> likelyKappa; ///< of these rows, once it was asked for
    bool hasLikelyKappa = false;
    RecordDensityView view;
    std::unique_ptr<PlotDensity> density;
    bool hasEnvelope = false; ///< it was computed, or stopped by the user
    std::optional<DensityEnvelope> envelope;
};

std::unique_ptr<DensityRows> Gathered(const RowLines& lines, LineSense sense) {
    return lines.AreMeasured()
               ? std::make_unique<DensityRows>(lines.measured, std::span<const double>(), sense)
               : std::make_unique<DensityRows>(lines.whole, sense);
}

std::optional<double> LikelyKappaOf(const RowLines& lines, LineSense sense) {
    return lines.AreMeasured() ? LikelyKappa(lines.measured, {}, sense, ThreadsToUse())
                               : LikelyKappa(lines.whole, sense, ThreadsToUse());
}

/// The half-width of the kernel that rows ask for, radians.
double WidthOfKappa(const std::optional<double>& kappa, LineSense sense) {
    return kappa ? HalfWidthOfKappa(*kappa, sense) : kUsualWidth;
}

/// The half-width of a plot's kernel, radians.
double KernelWidthOf(const RecordDensityView& view, const RowLines& lines, KnownDensity& known) {
    if (view.KernelWidth > 0) {
        return DegToRad(view.KernelWidth);
    }
    const LineSense sense = known.rowsKey.sense;
    if (!known.hasLikelyKappa) {
        known.likelyKappa = LikelyKappaOf(lines, sense);
        known.hasLikelyKappa = true;
    }
    return WidthOfKappa(known.likelyKappa, sense);
}

/// The choice of a view, without the width of a kernel.
DensityChoice ChoiceOf(const RecordDensityView& view, LineSense sense) {
    DensityChoice choice;
    choice.method = static_cast<DensityMethod>(view.DensityMethod);
    choice.sense = sense;
    choice.k = view.DensityK;
    return choice;
}

/// Whether a list of layers has levels or colours of densities of the main rows of its own. Only
/// the field has them.
bool HasOwnLayerLevels(const PlotRecord& record) {
    return std::ranges::any_of(record.Layers, [](const FigureLayer& layer) {
        return layer.LayerOf == kLayerOfMainRows && layer.LayerHidden == 0
               && (layer.LayerShow == kShowContours || layer.LayerShow == kShowGridSymbols)
               && (layer.LayerSteps != kAsStyle || layer.LayerPalette != kAsStyle);
    });
}

/// What the density of a plot follows from; bands and palettes are left out.
RecordDensityView Essence(RecordDensityView view) {
    const RecordDensityView first;
    view.ContourPicture = first.ContourPicture;
    view.BandPalette = first.BandPalette;
    view.PaletteReversed = first.PaletteReversed;
    view.BandOpacity = first.BandOpacity;
    view.ShowEnvelope = first.ShowEnvelope;
    view.ShowMaxima = first.ShowMaxima;
    return view;
}

/// Computes the density of the lines of a plot, if it is out of date.
void WorkOutField(Plot& plot, const RowLines& lines) {
    const PlotRecord& record = plot.record;
    auto& known = plot.attachments.Of<KnownDensity>();
    const RowsKey key{plot.table.version, record.NumData, SenseOf(record), lines.AreMeasured()};
    if (!known.rows || known.rowsKey != key) {
        known = {};
        known.rowsKey = key;
        known.rows = Gathered(lines, key.sense);
    }
    const RecordDensityView view = Essence(record);
    if (known.density && known.view == view) {
        return;
    }
    DensityChoice choice = ChoiceOf(view, key.sense);
    if (choice.method == DensityMethod::Kernel) {
        choice.halfWidth = KernelWidthOf(view, lines, known);
    }
    known.view = view;
    known.hasEnvelope = false;
    known.envelope.reset();
    known.density = std::make_unique<PlotDensity>(
        *known.rows, view, FormulaOf(choice, known.rows->Weight()), ThreadsToUse());
}

/// Computes the envelope of a density, unless that was done.
void WorkOutEnvelope(KnownDensity& known, StatusLine* watcher) {
    if (known.hasEnvelope) {
        return;
    }
    known.hasEnvelope = true;
    EvenSampling sampling;
    sampling.wholeDegrees = known.rows->AreWhole();
    sampling.threads = ThreadsToUse();
    ToldStep step(" Please wait - calculating the envelope; Esc stops it", sampling.samples,
                  watcher);
    sampling.onDone = [&step, watcher](int done) {
        step.Reach(done);
        return watcher == nullptr || !watcher->CancelRequested();
    };
    const DensityFormula& formula = known.density->Formula();
    const auto rows = static_cast<std::int64_t>(std::llround(known.rows->Weight()));
    if (const auto maxima = MaximaOfEvenSamples(formula, rows, sampling)) {
        const EnvelopeLevel level = EnvelopeOf(*maxima);
        const double value = known.density->ValueOfSum(level.sum);
        known.envelope = {value, known.density->ValueOfSum(level.sum + level.error) - value,
                          known.density->LinesAbove(level.sum)};
    }
}

/// The bands of the main rows: 1 below the first level, and one more with each level.
RowBands BandsOfRows(const Plot& plot, const PlotDensity& density) {
    const RowTable& table = plot.table;
    RowBands bands;
    bands.ofRow.resize(static_cast<std::size_t>(std::max(plot.record.NumData, 0)) + 1);
    std::vector<std::uint8_t> known(kLineKeys); // of whole degrees; 0 if not yet computed
    const bool isMeasured = ShowsDecimals(plot);
    for (std::size_t place = 0; place < table.size(); ++place) {
        const auto row = static_cast<std::size_t>(table.index[place]);
        const MeasuredLine line{table.plunge[place], table.trend[place]};
        if (row >= bands.ofRow.size() || IsErrorRow(line.plunge)) {
            continue;
        }
        const auto bandOf = [&] {
            return static_cast<std::uint8_t>(1 + density.LevelsReachedAt(line));
        };
        if (isMeasured) {
            bands.ofRow[row] = bandOf();
            continue;
        }
        std::uint8_t& band = known[static_cast<std::size_t>(LineKey(line.plunge, line.trend))];
        band = band == 0 ? bandOf() : band;
        bands.ofRow[row] = band;
    }
    return bands;
}

} // namespace

bool HasDensityChoice(const RecordDensityView& view) {
    return view.DensityMethod != kDensityByCone || UnitShown(view) != DensityUnit::PerCentInCone
           || view.LevelRule != kDoublingLevels || view.ContourPicture != kContourLines;
}

PlotDensity::PlotDensity(DensityRows& rows, const RecordDensityView& view,
                         const DensityFormula& formula, unsigned threads)
    : field_(rows, formula, threads)
    , unit_(UnitShown(view))
    , isCount_(formula.method == DensityMethod::Cone || formula.method == DensityMethod::Kamb)
    , nodes_(field_.AtNodes(threads)) {
    // The rings above the primitive are those of directions that point up.
    const auto above = nodes_.size() - static_cast<std::size_t>(kFieldRings * kFieldTrends);
    nodes_.erase(nodes_.begin(), nodes_.begin() + static_cast<std::ptrdiff_t>(above));
    const auto node = static_cast<int>(std::ranges::max_element(nodes_) - nodes_.begin());
    greatest_ = {
        {static_cast<double>(node / kFieldTrends), static_cast<double>(node % kFieldTrends)},
        ValueOf(formula, unit_, nodes_[static_cast<std::size_t>(node)])};
    if (const std::vector<FieldMaximum> maxima = Maxima();
        !maxima.empty() && maxima.front().value > greatest_.value) {
        greatest_ = maxima.front();
    }
    levels_ = LevelsOf(view, greatest_.value);
    contours_ = ContoursAt(levels_);
}

double PlotDensity::SumAt(const NetPlace& place) const {
    if (!isCount_) {
        return field_.At(LineOf(place));
    }
    // Counts jump from place to place: between the nodes they are taken as rising evenly.
    const double ring = std::clamp(std::floor(place.plunge), 0.0, kFieldRings - 2.0);
    const double trend = std::floor(place.trend);
    const double down = place.plunge - ring;
    const double around = place.trend - trend;
    const auto at = [&](double r, double t) {
        const int node = static_cast<int>(r) * kFieldTrends + static_cast<int>(t) % kFieldTrends;
        return nodes_[static_cast<std::size_t>(node)];
    };
    return std::lerp(std::lerp(at(ring, trend), at(ring, trend + 1), around),
                     std::lerp(at(ring + 1, trend), at(ring + 1, trend + 1), around), down);
}

NetField PlotDensity::OnNet() const {
    return {nodes_, [this](const NetPlace& place) { return SumAt(place); }};
}

double PlotDensity::SumOfLevel(double level) const {
    const double sum = SumOf(Formula(), unit_, level);
    return isCount_ ? std::ceil(sum) - 0.5 : sum;
}

std::vector<PlotDensity::Contour> PlotDensity::ContoursAt(std::span<const double> levels) const {
    const NetField field = OnNet();
    std::vector<Contour> contours;
    for (const double level : levels) {
        const double sum = SumOfLevel(level);
        Contour contour;
        contour.lines = FieldContour(field, sum);
        contour.region = RegionAbove(field, contour.lines, sum);
        contours.push_back(std::move(contour));
    }
    return contours;
}

void PlotDensity::KeepContoursAt(const std::vector<double>& levels) {
    constexpr std::size_t kMostKept = 4;
    if (KeptAt(levels) != nullptr) {
        return;
    }
    if (kept_.size() == kMostKept) {
        kept_.erase(kept_.begin());
    }
    kept_.push_back({levels, ContoursAt(levels)});
}

const std::vector<PlotDensity::Contour>* PlotDensity::KeptAt(std::span<const double> levels) const {
    const auto found = std::ranges::find_if(kept_, [levels](const KeptContours& kept) {
        return std::ranges::equal(kept.levels, levels);
    });
    return found != kept_.end() ? &found->contours : nullptr;
}

double PlotDensity::ValueAt(const MeasuredLine& line) const {
    return ValueOf(Formula(), unit_, field_.At(line));
}

int PlotDensity::ReachedAt(const MeasuredLine& line, std::span<const double> levels) const {
    const double sum = field_.At(line);
    return static_cast<int>(std::ranges::count_if(
        levels, [&](double level) { return sum >= SumOf(Formula(), unit_, level); }));
}

std::vector<FieldMaximum> PlotDensity::Maxima() const {
    const bool areAxes = Formula().sense == LineSense::Axes;
    const double cosine = std::cos(HalfAngleOf(Formula()));
    const double least = levels_.empty() ? 0 : SumOfLevel(levels_.front());
    std::vector<FieldMaximum> maxima;
    for (FieldMaximum maximum : FieldMaxima(OnNet(), areAxes ? NetRim::Joined : NetRim::Open)) {
        const auto isNear = [&](const FieldMaximum& higher) {
            const Direction a = DirectionOf(maximum.place);
            const Direction b = DirectionOf(higher.place);
            const double c = DotProduct(a, b);
            return (areAxes ? std::abs(c) : c) > cosine;
        };
        if (maximum.value >= least && std::ranges::none_of(maxima, isNear)) {
            maxima.push_back(maximum);
        }
    }
    for (FieldMaximum& maximum : maxima) {
        maximum.value = ValueOf(Formula(), unit_, maximum.value);
    }
    return maxima;
}

std::vector<FieldLine> PlotDensity::LinesAbove(double sum) const {
    // Counts that are equal to it are not above it.
    return FieldContour(OnNet(), isCount_ ? std::floor(sum) + 0.5 : sum);
}

double PlotDensity::ValueOfSum(double sum) const {
    return ValueOf(Formula(), unit_, sum);
}

LinesDensity::LinesDensity(const RowLines& lines, LineSense sense, const RecordDensityView& view)
    : rows_(Gathered(lines, sense))
    , view_(Essence(view)) {
    DensityChoice choice = ChoiceOf(view, sense);
    if (choice.method == DensityMethod::Kernel) {
        choice.halfWidth = view.KernelWidth > 0 ? DegToRad(view.KernelWidth)
                                                : WidthOfKappa(LikelyKappaOf(lines, sense), sense);
    }
    density_ = std::make_unique<PlotDensity>(*rows_, view_, FormulaOf(choice, rows_->Weight()),
                                             ThreadsToUse());
}

bool LinesDensity::IsOf(const RecordDensityView& view) const {
    return view_ == Essence(view);
}

void WorkOutDensity(Plot& plot, StatusLine* watcher) {
    const PlotRecord& record = plot.record;
    plot.attachments.Drop<RowBands>();
    // Bands are those of the field, and so are levels of layers.
    const bool needsField = HasDensityChoice(record) || ShowsMainRowsAs(record, kShowBands)
                            || HasOwnLayerLevels(record);
    if (!ShowsDensities(record) || !needsField) {
        plot.attachments.Drop<KnownDensity>();
        return;
    }
    const RowLines& lines = LinesOf(plot);
    if (lines.empty()) {
        plot.attachments.Drop<KnownDensity>();
        return;
    }
    WorkOutField(plot, lines);
    if (record.ShowEnvelope != 0) {
        WorkOutEnvelope(plot.attachments.Of<KnownDensity>(), watcher);
    }
    if (ShowsMainRowsAs(record, kShowBandSymbols)) {
        plot.attachments.Of<RowBands>() = BandsOfRows(plot, *DensityOf(plot));
    }
}

const PlotDensity* DensityOf(const Plot& plot) {
    const auto* const known = plot.attachments.Find<KnownDensity>();
    return known == nullptr ? nullptr : known->density.get();
}

PlotDensity* ChangingDensityOf(Plot& plot) {
    auto* const known = plot.attachments.Find<KnownDensity>();
    return known == nullptr ? nullptr : known->density.get();
}

const DensityEnvelope* EnvelopeOf(const Plot& plot) {
    const auto* const known = plot.attachments.Find<KnownDensity>();
    const bool isShown = known != nullptr && known->envelope && plot.record.ShowEnvelope != 0;
    return isShown ? &*known->envelope : nullptr;
}

} // namespace quandrel
