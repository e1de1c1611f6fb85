// SPDX-License-Identifier: MIT

#include "drawing/format_sample.h"

#include "core/new_record.h"
#include "core/plot_formulas.h"
#include "core/plot_rows.h"
#include "core/plot_style.h"
#include "drawing/draw_plot.h"
#include "drawing/work_out.h"
#include "input/data_line.h"
#include "input/data_rows.h"
#include "input/file_loading.h"
#include "orientation/angles.h"
#include "rose/rose_plot.h"
#include "stereo/great_circles.h"
#include "stereo/net.h"

#include <cmath>
#include <cstdint>

namespace quandrel {

namespace {

constexpr Colour kLitColour{0xd5, 0x5e, 0x00}; ///< vermilion: seen by all, and no colour of rows
constexpr double kLitWidth = 2;                ///< logical pixels
constexpr double kLitRadius = 30;              ///< of the ring around a point, plot units
constexpr int kSampleGrid = 30;

void WorkOutSample(Plot& plot, const Settings& settings) {
    const Formulas formulas = FormulasOf(plot.record, settings.notation.formulas);
    if (plot.record.PlotKind == kRose) {
        WorkOutRoseUnasked(plot, formulas);
    } else {
        WorkOutPlot(plot, {ReplotCause::Rows, settings.styles, formulas, kSampleGrid});
    }
}

/// The place of a row in the table, or nothing for a line that is not a plotted row.
std::optional<PlottedRow> PlaceOf(const FormatSample& sample, std::size_t line) {
    const RowTable& table = sample.plot.table;
    for (std::size_t place = 0; place < table.size(); ++place) {
        const PlottedRow row = table[place];
        if (sample.lines[static_cast<std::size_t>(row.index - 1)] == line
            && !IsErrorRow(row.plunge)) {
            return row;
        }
    }
    return std::nullopt;
}

/// The azimuth of a row in a rose: the strike of a plane, the upper end of a line that points up.
double AzimuthInRose(const PlotRecord& record, const PlottedRow& row) {
    const double turn = record.DataKind == kPlanes                         ? kPi / 2
                        : record.DataKind == kPolarLines && row.plunge < 0 ? kPi
                                                                           : 0;
    return row.trend + turn;
}

/// After which turn a row is the same in a rose: axes count at both ends.
double PeriodInRose(const PlotRecord& record) {
    return record.DataKind == kPolarLines ? 2 * kPi : kPi;
}

Point OnRim(double azimuth) {
    return {kNetRadius * std::sin(azimuth), kNetRadius * std::cos(azimuth)};
}

} // namespace

FormatSample SampleOfLines(std::span<const std::string> lines, const FormatChoice& choice,
                           const Settings& settings) {
    FormatSample sample;
    Settings own = settings;
    own.format = SettingsOf(choice, settings.format);
    Plot& plot = sample.plot;
    plot.record = NewPlotRecord(own);
    SetPlotFormat(plot, own.format);
    PlotRecord& record = plot.record;
    record.PlotKind = own.format.primary <= kDirections ? std::int16_t{kRose} : own.format.plotKind;
    record.PlotSymbolMode = kPointSymbols;
    record.HasFrequencyColumn =
        choice.numericAppended && choice.numberIsFrequency ? kTrue : std::int16_t{0};
    record.ShowSecondary =
        choice.plotSecondary && choice.secondary != kNoSecondary ? kTrue : std::int16_t{0};
    const LineFormat format = LineFormatOf(choice);
    RowTarget target;
    target.secondaryFormat = choice.secondary;
    bool headingIsDue = choice.columnHeadings;
    for (std::size_t i = 0; i < lines.size() && sample.lines.size() < kSampleRows; ++i) {
        const ParsedRow row = ParseLine(lines[i], format);
        if (headingIsDue && !IsOfHead(row.status)) {
            headingIsDue = false;
        } else if (row.status == LineStatus::Row) {
            RowFaults faults;
            if (!StoreDataRow(plot, row, target, faults)) {
                break; // no memory: the sample shows what there was room for
            }
            sample.lines.push_back(i);
        }
    }
    WorkOutSample(plot, settings);
    return sample;
}

void DrawSample(const FormatSample& sample, Surface& surface, Surface& legend,
                const Styles& styles) {
    Drawing drawing{surface, legend, styles, DrawnFor::Window};
    drawing.figure = StyleOfPlot(sample.plot.record);
    DrawPlot(sample.plot, drawing);
}

void DrawRowOfLine(const FormatSample& sample, Surface& surface, const Styles& styles,
                   std::size_t line) {
    const std::optional<PlottedRow> row = PlaceOf(sample, line);
    if (!row) {
        return;
    }
    const SavedState saved(surface);
    DrawState state = surface.State();
    state.drawWidth = kLitWidth;
    state.drawStyle = kSolidLine;
    state.fillStyle = kNoFill;
    surface.SetState(state);
    const PlotRecord& record = sample.plot.record;
    if (record.PlotKind == kRose) {
        const double azimuth = AzimuthInRose(record, *row);
        const bool isAxis = record.DataKind != kPolarLines;
        surface.Line(isAxis ? OnRim(azimuth + kPi) : Point{0, 0}, OnRim(azimuth), kLitColour);
        return;
    }
    if (record.DataKind == kPlanes) {
        Drawing drawing{surface, surface, styles, DrawnFor::Sample};
        drawing.figure = StyleOfPlot(record);
        DrawPlane(drawing, record.PlotKind, row->plunge, row->trend, kLitColour);
    }
    surface.Circle({static_cast<double>(row->x), static_cast<double>(row->y)}, kLitRadius,
                   kLitColour);
}

std::optional<std::size_t> LineAt(const FormatSample& sample, Point at, double reach) {
    const RowTable& table = sample.plot.table;
    const PlotRecord& record = sample.plot.record;
    const bool isRose = record.PlotKind == kRose;
    std::optional<std::size_t> nearest;
    double least = reach;
    for (std::size_t place = 0; place < table.size(); ++place) {
        const PlottedRow row = table[place];
        if (IsErrorRow(row.plunge)) {
            continue;
        }
        const double away =
            isRose ? std::abs(std::remainder(std::atan2(at.x, at.y) - AzimuthInRose(record, row),
                                             PeriodInRose(record)))
                         * std::hypot(at.x, at.y)
                   : std::hypot(at.x - row.x, at.y - row.y);
        if (away <= least) {
            least = away;
            nearest = sample.lines[static_cast<std::size_t>(row.index - 1)];
        }
    }
    return nearest;
}

} // namespace quandrel
