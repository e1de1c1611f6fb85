// SPDX-License-Identifier: MIT

#include "rose/rose_radii.h"

#include "core/plot_store.h"
#include "orientation/projection.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

/// The row of RoseStats with total and maximum of a measure.
std::size_t StatsRow(int measure) {
    return static_cast<std::size_t>(measure > kRoseOverlaidWind ? kRoseValue : measure);
}

double TotalOf(const Table<double, 7, 3>& totals, int measure) {
    const std::size_t row = StatsRow(measure);
    return totals[row][row == kRoseFrequency || row == kRoseValue ? kWeightedTotal : kRawTotal];
}

RoseLayer LayerOf(int measure) {
    return measure == kRoseFrequency ? kRoseFrequencyLayer : kRoseValueLayer;
}

double ValueOfSector(const RoseSectorTable& sectors, const RoseSectorStats& stats, int measure,
                     int sector) {
    const std::size_t row = StatsRow(measure);
    return row == kRoseFrequency || row == kRoseValue
               ? sectors(sector, 0, LayerOf(measure))
               : stats[static_cast<std::size_t>(sector)][row];
}

double ScaleOf(double maximum, const RoseRadiiSettings& settings) {
    if (!(maximum > 0)) {
        return 0;
    }
    const double ring = kNetRadius - settings.zeroRadius;
    return settings.equalArea ? (kNetRadius + settings.zeroRadius) * ring / maximum
                              : ring / maximum;
}

/// Length from a given start radius.
double LengthOf(double scaledValue, double base, bool equalArea) {
    return equalArea ? std::sqrt(std::max(scaledValue + base * base, 0.0)) - base : scaledValue;
}

/// Adjusts the smaller last sector to the density of its data. True when lengths have changed.
bool CorrectOddSector(RoseRadiiTable& radii, double& scale, const RoseRadiiSettings& settings) {
    const int last = radii.Sectors();
    if (std::trunc(settings.oddSectorSize) == 0 || !settings.equalArea || last < 1) {
        return false;
    }
    radii(last, 0) *= settings.sectorSize / settings.oddSectorSize;
    // Kept: tried against the whole radius, and shortened to the ring's width.
    if (radii(last, 0) > kNetRadius) {
        const double factor = (kNetRadius - settings.zeroRadius) / radii(last, 0);
        for (int sector = 1; sector <= last; ++sector) {
            radii(sector, 0) *= factor;
        }
        scale *= factor;
    }
    return true;
}

class SegmentFiller {
public:
    SegmentFiller(const RoseSectorTable& sectors, const RoseRadiiSettings& settings, double scale,
                  bool lengthsChanged)
        : sectors_(sectors)
        , settings_(settings)
        , scale_(scale)
        , lengthsChanged_(lengthsChanged) {}

    void Fill(RoseRadiiTable& radii, int sector) const {
        const RoseLayer layer = LayerOf(settings_.measure);
        const double factor = FactorOfValues(sector, layer);
        double base = settings_.zeroRadius;
        double sum = 0;
        for (int c = 1; c <= radii.Classes(); ++c) {
            const double length =
                LengthOf(scale_ * factor * sectors_(sector, c, layer), base, settings_.equalArea);
            radii(sector, c) = length;
            sum += length;
            // Kept: each segment of equal area begins at a whole number.
            base = settings_.equalArea ? std::trunc(base + length) : base;
        }
        if (lengthsChanged_ && sum > 0) {
            for (int c = 1; c <= radii.Classes(); ++c) {
                radii(sector, c) *= radii(sector, 0) / sum;
            }
        }
    }

private:
    /// The factor from the rows of the classes to the observations of their sector.
    [[nodiscard]] double FactorOfValues(int sector, RoseLayer layer) const {
        double sum = 0;
        for (int c = 1; c <= sectors_.Classes(); ++c) {
            sum += sectors_(sector, c, layer);
        }
        return settings_.grouped && sum > 0 ? sectors_(sector, 0, layer) / sum : 1;
    }

    const RoseSectorTable& sectors_;
    const RoseRadiiSettings& settings_;
    double scale_;
    bool lengthsChanged_;
};

} // namespace

RoseRadiiResult RadiiOfRose(const RoseSectorTable& sectors, const RoseSectorStats& stats,
                            const Table<double, 7, 3>& totals, const RoseRadiiSettings& settings) {
    const int n = sectors.Sectors();
    RoseRadiiResult result{RoseRadiiTable(n, settings.classes ? sectors.Classes() : 1),
                           TotalOf(totals, settings.measure)};
    RoseRadiiTable& radii = result.radii;
    const double maximum = totals[StatsRow(settings.measure)][kLargestSector];
    double scale = ScaleOf(maximum, settings);
    for (int sector = 1; sector <= n; ++sector) {
        radii(sector, 0) = LengthOf(scale * ValueOfSector(sectors, stats, settings.measure, sector),
                                    settings.zeroRadius, settings.equalArea);
    }
    const bool lengthsChanged = CorrectOddSector(radii, scale, settings);
    if (settings.classes) {
        const SegmentFiller filler(sectors, settings, scale, lengthsChanged);
        for (int sector = 1; sector <= n; ++sector) {
            filler.Fill(radii, sector);
        }
    }
    radii(0, 0) = maximum;
    radii(0, 1) = scale;
    return result;
}

double LargestPerCent(const Table<double, 7, 3>& totals, int measure) {
    const double total = TotalOf(totals, measure);
    return total != 0 ? totals[StatsRow(measure)][kLargestSector] * 100 / total : 0;
}

int MeasureOfRose(int roseType) {
    switch (RoseKindOf(roseType)) {
    case kRoseOverlaidWind:
        return kRoseWindEnergy;
    case kRoseValueOverFrequency:
    case kRoseValueOverMean:
        return kRoseValue;
    default:
        return IsRoseKind(RoseKindOf(roseType)) ? RoseKindOf(roseType) : kRoseFrequency;
    }
}

bool IsRoseKind(int kind) {
    return kind >= kRoseFrequency && kind <= kRoseValueOverMean;
}

bool HasRoseClasses(int roseType) {
    const int kind = RoseKindOf(roseType);
    return RoseClassOf(roseType) != kRoseUnclassified && kind != kRoseMeanValue
           && kind != kRoseVariance;
}

double ZeroRadiusOfRose(const PlotRecord& record) {
    return std::trunc(std::clamp<int>(record.RoseZeroCircle, 0, 99) * kNetRadius / 100);
}

double OddSectorOfRose(const PlotRecord& record, int sectors) {
    return sectors * record.RoseSectorSize > 360 ? record.RoseOddSectorSize : 0;
}

void WorkOutRadii(Plot& plot, int measure, int singleClass) {
    const PlotRecord& record = plot.record;
    PlotRose& rose = RoseOf(plot);
    RoseRadiiSettings settings;
    settings.measure = measure;
    settings.classes = singleClass <= 0 && HasRoseClasses(record.RoseType);
    settings.equalArea = record.RoseEqualArea != 0;
    settings.grouped = record.HasFrequencyColumn != 0;
    settings.sectorSize = record.RoseSectorSize;
    settings.oddSectorSize = OddSectorOfRose(record, rose.sectors.Sectors());
    settings.zeroRadius = ZeroRadiusOfRose(record);
    RoseRadiiResult result =
        RadiiOfRose(rose.sectors, rose.sectorStats, record.RoseStats, settings);
    rose.radii = std::move(result.radii);
    rose.total = result.total;
}

void RoseRadii(int measure, int singleClass) {
    WorkOutRadii(ActivePlot(), measure, singleClass);
}

} // namespace quandrel
