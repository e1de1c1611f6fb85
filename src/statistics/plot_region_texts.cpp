// SPDX-License-Identifier: MIT

#include "statistics/plot_region_texts.h"

#include "orientation/number_text.h"
#include "statistics/fabric_kernels.h"
#include "statistics/region_texts.h"
#include "stereo/symbols.h"

#include <algorithm>

namespace quandrel {

namespace {

constexpr const char* kStopped = "Stopped by the user.";
constexpr const char* kNoMean = "Only polar lines have a mean direction here.";
constexpr double kLeastLength = 0.5; ///< below it, a centre is missing

/// " at 35.2 - 120.0 (plunge - trend)"; empty without a centre.
std::string CentreText(const ConfidenceRegion& region) {
    if (LengthOf(region.centre) < kLeastLength) {
        return {};
    }
    double plunge = 0;
    double trend = 0;
    DirectedLine(region.centre, plunge, trend);
    return " at " + FormatNumber(RadToDeg(plunge), "0.0") + " - "
           + FormatNumber(RadToDeg(trend), "0.0") + " (plunge - trend)";
}

RegionText TextOf(const PlotRecord& record, const PlotRegion& region) {
    RegionText text;
    text.name = NameOfPlotRegion(record, region);
    if (!region.chosen) {
        text.lines[0] = kStopped;
        return text;
    }
    const ConfidenceRegion& values = region.chosen->region;
    text.name += CentreText(values);
    text.lines = RegionTexts(values, record.RegionDespite != 0 ? RefusedRegions::Shown
                                                               : RefusedRegions::Hidden);
    return text;
}

/// Why a region is not drawn, or is doubtful; empty for one that is given.
std::string DoubtOf(const PlotRegion& region) {
    return region.chosen ? ReasonText(region.chosen->region) : "stopped by the user";
}

} // namespace

std::string NameOfPlotRegion(const PlotRecord& record, const PlotRegion& region) {
    ConfidenceRegion named;
    named.target = region.target;
    named.level = record.RegionLevel / 100.0;
    return (region.rows.empty() ? std::string() : region.rows + ": ") + NameOfRegion(named);
}

std::vector<RegionText> TextsOfRegions(const Plot& plot) {
    std::vector<RegionText> texts;
    bool hasMean = false;
    for (const PlotRegion& region : RegionsOfPlot(plot)) {
        texts.push_back(TextOf(plot.record, region));
        hasMean = hasMean || region.target == RegionTarget::MeanDirection;
    }
    if ((plot.record.RegionsAbout & kRegionOfMean) != 0 && !hasMean) {
        const PlotRegion none{{}, RegionTarget::MeanDirection, {}};
        texts.push_back({NameOfPlotRegion(plot.record, none), {kNoMean, ""}});
    }
    return texts;
}

std::string TextOfRegions(const Plot& plot, const char* lineEnd) {
    if (plot.record.PlotKind == kRose) {
        return {};
    }
    std::string text;
    for (const RegionText& region : TextsOfRegions(plot)) {
        text += region.name + lineEnd;
        for (const std::string& line : region.lines) {
            text += line.empty() ? line : line + lineEnd;
        }
    }
    return text;
}

std::vector<LegendLine> RegionLegendLines(const Plot& plot, const Styles& styles) {
    const AxisStyle& style = styles.axes[kSmallCircleStyle];
    const SymbolCode code =
        MakeSymbolCode(style[kStyleColour], style[kStyleLine], style[kStyleWidth]);
    std::vector<LegendLine> lines;
    for (const PlotRegion& region : RegionsOfPlot(plot)) {
        const std::string name = NameOfPlotRegion(plot.record, region);
        if (IsShown(plot.record, region)) {
            lines.push_back({LegendSample::Line, code, name});
        } else {
            lines.push_back({LegendSample::Indent, 0, name});
        }
        if (const std::string doubt = DoubtOf(region); !doubt.empty()) {
            lines.push_back({LegendSample::Indent, 0, "(" + doubt + ")"});
        }
    }
    return lines;
}

} // namespace quandrel
