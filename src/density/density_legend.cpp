// SPDX-License-Identifier: MIT

#include "density/density_legend.h"

#include "density/cone_counts.h"
#include "density/contour_levels.h"
#include "density/contours.h"
#include "density/draw_density.h"
#include "density/grid_density.h"
#include "density/plot_density.h"
#include "density/point_density.h"
#include "orientation/number_text.h"
#include "stereo/distinct_lines.h"
#include "stereo/shown_layers.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

namespace quandrel {

namespace {

/// A band of symbols: densities from `bound` up to that of the next band.
struct Band {
    int number = 1;
    double bound = 0; ///< per cent
};

constexpr int kLastBand = kLastBandSymbol - kFirstBandSymbol + 1;

/// The kinds of densities that a plot shows.
struct DensitiesShown {
    bool points = false;
    bool gridSymbols = false;
    bool bands = false;
    bool contours = false;

    [[nodiscard]] bool Any() const { return points || gridSymbols || bands || contours; }
};

DensitiesShown ShownBy(const PlotRecord& record) {
    DensitiesShown shown;
    shown.points = ShowsMainRowsAs(record, kShowBandSymbols);
    shown.gridSymbols = ShowsMainRowsAs(record, kShowGridSymbols);
    shown.bands = ShowsMainRowsAs(record, kShowBands);
    shown.contours = ShowsMainRowsAs(record, kShowContours);
    return shown;
}

/// Bands of rows after the first that two or more of n rows can reach.
std::vector<Band> PointBands(std::int32_t n, double most) {
    const double unit = DensityOfOneRow(n);
    const double base = std::max(std::floor(unit), 1.0);
    std::vector<Band> bands;
    if (2 * unit < base && most > 1.5 * unit) {
        bands.push_back({2, unit});
    }
    double bound = base;
    for (int number = 3; number <= kLastBand && bound <= most; ++number, bound *= 2) {
        // A band wider than the density of one row can contain some count; it must end above two.
        if (bound > unit) {
            bands.push_back({number, bound});
        }
    }
    return bands;
}

/// Bands of the grid's nodes after the first.
std::vector<Band> GridBands(std::int32_t n, double most) {
    std::vector<Band> bands;
    double bound = GridBandBase(n);
    for (int number = 2; number <= kLastBand && bound <= most; ++number, bound *= 2) {
        bands.push_back({number, bound});
    }
    return bands;
}

SymbolCode CodeOfBand(const Styles& styles, int number) {
    return CodeOfStyleRow(styles, kFirstBandSymbol + number - 1);
}

/// The percentages of a column, with two decimals, or with as many as give the smallest one above 0
/// two digits. None reads 0.00.
class PerCentText {
public:
    explicit PerCentText(double least)
        : format_("Fixed") {
        constexpr double kLeastOfTwoDecimals = 0.01;
        if (least > 0 && least < kLeastOfTwoDecimals) {
            const double power = std::floor(std::log10(least));
            format_ = "0." + std::string(static_cast<std::size_t>(1 - power), '0');
        }
    }

    std::string operator()(double perCent) const { return FormatNumber(perCent, format_) + "%"; }

private:
    std::string format_;
};

void AddBands(std::vector<LegendLine>& lines, const Styles& styles,
              const std::vector<Band>& bands) {
    if (bands.empty()) {
        return;
    }
    const PerCentText text(bands.front().bound);
    for (const Band& band : bands) {
        lines.push_back(
            {LegendSample::Symbol, CodeOfBand(styles, band.number), " > " + text(band.bound)});
    }
}

void AddContours(std::vector<LegendLine>& lines, const Styles& styles, const PlotRecord& record) {
    const PerCentText text(record.ContourLevels.front());
    for (int k = 0; k < record.NumContours; ++k) {
        const AxisStyle style = ContourStyleOf(styles, k);
        const int level = record.ContourLevels.at(static_cast<std::size_t>(k));
        lines.push_back({LegendSample::Line,
                         MakeSymbolCode(style[kStyleColour], style[kStyleLine], style[kStyleWidth]),
                         " > " + text(level)});
    }
}

/// The density of one point, with the symbol of an isolated point if there are any.
LegendLine OnePointLine(const Styles& styles, const DensitiesShown& shown, std::int32_t n) {
    const double unit = DensityOfOneRow(n);
    const bool hasSymbol = shown.points || (shown.gridSymbols && unit < GridBandBase(n))
                           || (shown.contours && styles.showIsolatedPts != 0);
    return {hasSymbol ? LegendSample::Symbol : LegendSample::Indent,
            hasSymbol ? CodeOfBand(styles, kIsolatedBand) : 0,
            " 1 pt. (" + PerCentText(unit)(unit) + ")"};
}

} // namespace

std::vector<LegendLine> BandLegendLines(const Plot& plot, const Styles& styles) {
    const PlotRecord& record = plot.record;
    const DensitiesShown shown = ShownBy(record);
    if (const PlotDensity* density = DensityOf(plot); shown.Any() && density != nullptr) {
        return FieldLegendLines(plot, styles, *density);
    }
    const std::int32_t n = shown.Any() ? CountOfMainRows(plot) : 0;
    std::vector<LegendLine> lines;
    if (n < 1) {
        return lines;
    }
    const double most = shown.points ? record.PointDensityMax : record.GridDensityMax;
    lines.push_back(OnePointLine(styles, shown, n));
    if (shown.points) {
        AddBands(lines, styles, PointBands(n, most));
    }
    if (shown.gridSymbols) {
        AddBands(lines, styles, GridBands(n, most));
    }
    if (shown.contours) {
        AddContours(lines, styles, record);
    }
    lines.push_back({LegendSample::Indent, 0, "(Max. =" + PerCentText(most)(most) + ")"});
    return lines;
}

} // namespace quandrel
