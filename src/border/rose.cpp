// SPDX-License-Identifier: MIT

#include "quandrel/rose.h"

#include "border/border.h"
#include "orientation/projection.h"
#include "rose/rose_count.h"
#include "rose/rose_radii.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace quandrel::api {

namespace {

/// Azimuths as whole degrees.
std::vector<std::int32_t> WholeAzimuths(std::span<const double> azimuths) {
    if (azimuths.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        throw std::invalid_argument("too many azimuths to count");
    }
    std::vector<std::int32_t> whole(azimuths.size());
    std::ranges::transform(azimuths, whole.begin(), [](double azimuth) {
        const double turned = RadToDeg(AzimuthIn(azimuth, "azimuth"));
        return static_cast<std::int32_t>(RoundToEven(turned));
    });
    return whole;
}

int MeasureIn(RoseMeasure measure) {
    switch (measure) {
    case RoseMeasure::kSum:
        return kRoseValue;
    case RoseMeasure::kMean:
        return kRoseMeanValue;
    case RoseMeasure::kDeviation:
        return kRoseVariance;
    default:
        return kRoseFrequency;
    }
}

RoseTables Count(std::span<const double> azimuths, std::span<const double> values,
                 const SectorLayout& layout) {
    const std::vector<std::int32_t> whole = WholeAzimuths(azimuths);
    const std::vector<std::int32_t> level(whole.size());
    RoseRows rows;
    rows.dips = level;
    rows.azimuths = whole;
    rows.textNumbers = values;
    RoseCountSettings settings;
    settings.layout = layout;
    // Only wind speeds are summed as 64-bit numbers.
    settings.kind = values.empty() ? kRoseFrequency : kRoseWindSpeed;
    return CountRoseRows(settings, rows);
}

RoseRadiiTable RadiiOf(const RoseTables& tables, const RoseOptions& options,
                       const SectorDivision& division) {
    RoseRadiiSettings settings;
    settings.measure = MeasureIn(options.measure);
    settings.equalArea = options.hasEqualAreas;
    settings.sectorSize = division.size;
    settings.oddSectorSize = division.oddSize;
    return RadiiOfRose(tables.sectors, tables.stats, tables.totals, settings).radii;
}

/// The sectors of the kernel in clockwise order. The kernel numbers them counter-clockwise from the
/// start, except for the first sector, which is clockwise of the start.
std::vector<int> ClockwiseSectors(int sectors) {
    std::vector<int> order = {1};
    for (int sector = sectors; sector > 1; --sector) {
        order.push_back(sector);
    }
    return order;
}

/// The sector with the counts of a given sector: of a pair of opposite sectors only one is filled.
int FilledSector(const RoseTables& tables, const SectorLayout& layout, int sector) {
    const int half = layout.sectors / 2;
    const int opposite = sector > half ? sector - half : sector + half;
    const auto count = [&tables](int s) {
        return tables.stats[static_cast<std::size_t>(s)][kRoseCount];
    };
    return layout.pairs && count(opposite) > count(sector) ? opposite : sector;
}

RoseSector SectorOut(const RoseTables& tables, const RoseRadiiTable& radii, int sector) {
    const std::array<double, 7>& stats = tables.stats[static_cast<std::size_t>(sector)];
    RoseSector out;
    out.count = stats[kRoseCount];
    out.sum = stats[kRoseValueSum];
    out.mean = stats[kRoseMean];
    out.deviation = stats[kRoseDeviation];
    out.length = radii(sector, 0) / kNetRadius;
    return out;
}

void RequireValid(std::span<const double> azimuths, const RoseOptions& options,
                  std::span<const double> values) {
    Within(options.sectorSize, 1, 360, "sector size");
    if (!values.empty()) {
        SameLength(azimuths.size(), values.size(), "azimuths and values");
        for (const double value : values) {
            Within(value, -kLargestRoseValue, kLargestRoseValue, "value");
        }
    } else if (options.measure != RoseMeasure::kCount && !azimuths.empty()) {
        throw std::invalid_argument("the measure of a rose needs values");
    }
}

} // namespace

Rose RoseOf(std::span<const double> azimuths, const RoseOptions& options,
            std::span<const double> values) {
    RequireValid(azimuths, options, values);
    const SectorDivision division = DivideCircle(options.sectorSize);
    const double start = AzimuthOut(AzimuthIn(options.start, "start"));
    const SectorLayout layout = LayOutSectors(division, start, options.sense == Sense::kDirections);
    const RoseTables tables = Count(azimuths, values, layout);
    const RoseRadiiTable radii = RadiiOf(tables, options, division);
    Rose rose;
    rose.count = static_cast<std::int32_t>(azimuths.size());
    double from = start;
    for (const int sector : ClockwiseSectors(layout.sectors)) {
        RoseSector out = SectorOut(tables, radii, FilledSector(tables, layout, sector));
        const bool isOdd = division.oddSize != 0 && sector == layout.sectors;
        out.size = isOdd ? division.oddSize : division.size;
        out.from = from < 360 ? from : from - 360;
        from = out.from + out.size;
        rose.sectors.push_back(out);
    }
    return rose;
}

double TerzaghiWeightOf(double angle, double least) {
    return TerzaghiWeight(DegToRad(Within(angle, 0, 90, "angle")),
                          DegToRad(Within(least, 0, 90, "least angle")));
}

} // namespace quandrel::api
