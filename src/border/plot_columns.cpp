// SPDX-License-Identifier: MIT

#include "border/plot_columns.h"

#include "border/border.h"
#include "core/appended_range.h"
#include "core/new_record.h"
#include "core/plot_rows.h"
#include "input/data_rows.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace quandrel::api {

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr double kMostRows = 1e9;

double DipOf(const Plane& plane) {
    return plane.dip;
}

double DipOf(const Line& line) {
    return line.plunge;
}

template <class Orientation>
Orientation OrientationOut(const Attitude& attitude) {
    return IsKnown(attitude) ? Orientation{attitude.dip, attitude.azimuth}
                             : Orientation{kNone, kNone};
}

void AddOut(bool isPlane, const Attitude& attitude, std::vector<Plane>& planes,
            std::vector<Line>& lines) {
    if (isPlane) {
        planes.push_back(OrientationOut<Plane>(attitude));
    } else {
        lines.push_back(OrientationOut<Line>(attitude));
    }
}

/// An orientation of a row as it was measured; not known where it is missing.
///
/// @param whole  in whole degrees, its dip `missing` where there is none
Attitude MeasuredOut(const BinaryPlot& plot, RowAngles which, std::size_t place, Attitude whole,
                     std::int32_t missing = kErrorRow) {
    const MeasuredColumns& measured = plot.measured[static_cast<std::size_t>(which)];
    const auto row = static_cast<std::int32_t>(place) + 1;
    if (whole.dip == missing) {
        return {kErrorRow, 0};
    }
    return measured.Has(row) ? ToMicrodegree(measured.At(row)) : whole;
}

bool IsPlaneOverlay(std::int16_t kind) {
    return kind <= kOverlayPoles;
}

/// Rows `first` to before `first + count` of a file: the columns that main and overlay rows share.
PlotRows RowsOut(BinaryPlot& plot, std::size_t first, std::int32_t count, bool arePlanes) {
    const std::int16_t secondary = plot.record.SecondaryFormat;
    PlotRows rows;
    for (std::size_t i = first; i < first + static_cast<std::size_t>(count); ++i) {
        const BinaryRow& row = plot.rows[i];
        const bool isRow = row.dip != kErrorRow;
        AddOut(arePlanes, MeasuredOut(plot, RowAngles::Primary, i, {row.dip, row.azimuth}),
               rows.planes, rows.lines);
        if (secondary != kNoSecondary) {
            const Attitude second = {isRow ? row.dip2 : kErrorRow, row.azimuth2};
            AddOut(secondary == kSecondaryPlane, MeasuredOut(plot, RowAngles::Secondary, i, second),
                   rows.secondPlanes, rows.secondLines);
        }
        if (!isRow) {
            rows.unread.push_back(
                {i - first, std::move(plot.errorLines[static_cast<std::int32_t>(i) + 1])});
        }
    }
    return rows;
}

void AppendedOut(BinaryPlot& plot, PlotRows& rows) {
    const auto count = static_cast<std::size_t>(plot.record.NumData);
    for (std::size_t i = 0; i < count; ++i) {
        const BinaryRow& row = plot.rows[i];
        const bool isRow = row.dip != kErrorRow;
        if (plot.record.HasAppendedLine != 0) {
            const Attitude line = {isRow ? row.lineDip : kInvalidAppendedLine, row.lineAzimuth};
            rows.appendedLines.push_back(OrientationOut<Line>(
                MeasuredOut(plot, RowAngles::Line, i, line, kInvalidAppendedLine)));
        }
        if (plot.record.HasAppendedNumeric != 0) {
            rows.numbers.push_back(
                isRow && row.number != kInvalidNumber ? static_cast<double>(row.number) : kNone);
        }
    }
    rows.texts = std::move(plot.texts);
}

/// Requires each column to be empty or to have all rows, and returns the number of rows.
std::int32_t LengthOf(const PlotRows& rows, bool arePlanes) {
    const std::size_t count = arePlanes ? rows.planes.size() : rows.lines.size();
    if (!(arePlanes ? rows.lines.empty() : rows.planes.empty())) {
        throw std::invalid_argument("rows are planes and lines at once");
    }
    const auto require = [count](std::size_t length, std::string_view names) {
        if (length != 0) {
            SameLength(length, count, names);
        }
    };
    require(rows.secondPlanes.size() + rows.secondLines.size(), "rows and second orientations");
    require(rows.appendedLines.size(), "rows and appended lines");
    require(rows.numbers.size(), "rows and numbers");
    require(rows.texts.size(), "rows and texts");
    return static_cast<std::int32_t>(Within(static_cast<double>(count), 0, kMostRows, "rows"));
}

/// A checked orientation, in whole degrees and as it was given; dips of kErrorRow for NaN.
struct OrientationToStore {
    Attitude whole{kErrorRow, 0};
    Attitude measured{kErrorRow, 0};
};

OrientationToStore OrientationIn(double dip, double azimuth, bool isPlane) {
    if (std::isnan(dip)) {
        return {};
    }
    const Attitude measured =
        ToMicrodegree({Within(dip, -90, 90, "dip or plunge"), Within(azimuth, 0, 360, "azimuth")});
    return {RoundedAttitude(measured, isPlane), measured};
}

OrientationToStore At(const std::vector<Plane>& planes, const std::vector<Line>& lines,
                      std::size_t i) {
    if (i < planes.size()) {
        return OrientationIn(planes[i].dip, planes[i].dipDirection, true);
    }
    return i < lines.size() ? OrientationIn(lines[i].plunge, lines[i].trend, false)
                            : OrientationToStore();
}

/// Stores the decimals of an orientation of a row, if it has some.
void AddDecimals(BinaryPlot& plot, RowAngles which, std::size_t place,
                 const OrientationToStore& orientation) {
    if (orientation.measured != orientation.whole) {
        SetMeasured(plot, which, static_cast<std::int32_t>(place) + 1, orientation.measured);
    }
}

/// Adds checked rows to a plot for writing: the columns that main and overlay rows share.
void AddRows(const PlotRows& rows, int overlay, const Styles& styles, BinaryPlot& plot) {
    const std::size_t begin = plot.rows.size();
    const std::size_t count = std::max(rows.planes.size(), rows.lines.size());
    for (std::size_t i = 0; i < count; ++i) {
        const OrientationToStore first = At(rows.planes, rows.lines, i);
        const OrientationToStore second = At(rows.secondPlanes, rows.secondLines, i);
        const Attitude& primary = first.whole;
        const bool isUpward = primary.dip < 0 && primary.dip != kErrorRow;
        BinaryRow row;
        row.dip = WholeDegree(primary.dip);
        row.azimuth = WholeDegree(primary.azimuth);
        row.order = static_cast<std::int32_t>(begin + i) + 1;
        row.code = CodeOfNewRow(styles, plot.record, overlay, isUpward);
        row.dip2 = WholeDegree(second.whole.dip);
        row.azimuth2 = WholeDegree(second.whole.azimuth);
        row.lineDip = kInvalidAppendedLine;
        row.number = kInvalidNumber;
        plot.rows.push_back(row);
        AddDecimals(plot, RowAngles::Primary, begin + i, first);
        AddDecimals(plot, RowAngles::Secondary, begin + i, second);
    }
    for (const UnreadRow& unread : rows.unread) {
        const std::size_t place = begin + unread.row;
        if (unread.row >= count || plot.rows[place].dip != kErrorRow) {
            throw std::invalid_argument("a row marked as unread holds data");
        }
        if (!unread.text.empty()) {
            plot.errorLines[static_cast<std::int32_t>(place) + 1] = unread.text;
        }
    }
}

float NumberIn(double number) {
    return std::isnan(number)
               ? kInvalidNumber
               : static_cast<float>(Within(number, -std::numeric_limits<float>::max(),
                                           std::numeric_limits<float>::max(), "number"));
}

/// Adds the appended columns of the main rows.
void AddAppended(const PlotRows& rows, BinaryPlot& plot) {
    AppendedRange range;
    for (std::size_t i = 0; i < plot.rows.size(); ++i) {
        BinaryRow& row = plot.rows[i];
        const bool isRow = row.dip != kErrorRow;
        if (isRow && i < rows.appendedLines.size()) {
            const Line& line = rows.appendedLines[i];
            const OrientationToStore held = OrientationIn(line.plunge, line.trend, false);
            row.lineDip = IsKnown(held.whole) ? WholeDegree(held.whole.dip) : kInvalidAppendedLine;
            row.lineAzimuth = WholeDegree(held.whole.azimuth);
            AddDecimals(plot, RowAngles::Line, i, held);
        }
        if (isRow && i < rows.numbers.size()) {
            row.number = NumberIn(rows.numbers[i]);
            TrackNumber(range, row.number);
        }
        if (isRow && i < rows.texts.size()) {
            TrackText(range, rows.texts[i]);
        }
    }
    MergeAppendedRange(plot.record, range);
    plot.texts = rows.texts;
}

/// The checked lengths of all arrays.
RowCounts CountsIn(const Plot& plot) {
    if (plot.overlays.size() > kMostOverlays) {
        throw std::invalid_argument("there are more than 20 overlays");
    }
    RowCounts counts;
    counts.main = LengthOf(plot.rows, plot.primary == Primary::kPlanes);
    counts.all = counts.main;
    const auto isNan = [](const auto& orientation) { return std::isnan(DipOf(orientation)); };
    counts.valid = counts.main
                   - static_cast<std::int32_t>(std::ranges::count_if(plot.rows.planes, isNan)
                                               + std::ranges::count_if(plot.rows.lines, isNan));
    for (const PlotOverlay& overlay : plot.overlays) {
        const auto k = static_cast<std::size_t>(++counts.overlayRows[kOverlayCount]);
        counts.overlayKind[k] = static_cast<std::int16_t>(overlay.kind);
        counts.overlayRows[k] = LengthOf(overlay.rows, IsPlaneOverlay(counts.overlayKind[k]));
        if (counts.overlayRows[k] > static_cast<std::int32_t>(kMostOverlayRows)) {
            throw std::invalid_argument("an overlay has more than 32767 rows");
        }
        counts.all += counts.overlayRows[k];
    }
    return counts;
}

/// The record of a plot, its counts checked.
PlotRecord RecordIn(const Plot& plot, const Settings& settings) {
    PlotRecord record = NewPlotRecord(settings);
    record.PlotKind = static_cast<std::int16_t>(plot.kind);
    record.DataKind = static_cast<std::int16_t>(plot.drawnAs);
    record.PlotSymbolMode = static_cast<std::int16_t>(plot.rowsAs);
    record.PrimaryFormat = static_cast<std::int16_t>(plot.primary);
    record.SecondaryFormat = static_cast<std::int16_t>(plot.secondary);
    record.ShowSecondary = plot.showsSecondary ? kTrue : std::int16_t{0};
    record.UseDecimals = plot.usesDecimals ? kTrue : std::int16_t{0};
    record.PlotFormulas = static_cast<std::int16_t>(plot.formulas);
    record.AxesTitle = plot.axesTitle;
    record.FabricText = plot.fabric;
    record.DescriptionText = plot.description;
    record.AppNumName = plot.numberName;
    record.AppNonNumName = plot.textName;
    record.HasFrequencyColumn = plot.numberIsFrequency ? kTrue : std::int16_t{0};
    record.HasAppendedLine = plot.rows.appendedLines.empty() ? std::int16_t{0} : kTrue;
    record.HasAppendedNumeric = plot.rows.numbers.empty() ? std::int16_t{0} : kTrue;
    record.HasAppendedText = plot.rows.texts.empty() ? std::int16_t{0} : kTrue;
    SetCounts(record, CountsIn(plot));
    return record;
}

} // namespace

Plot PlotOut(BinaryPlot plot) {
    const PlotRecord& record = plot.record;
    Plot out;
    out.kind = static_cast<PlotKind>(record.PlotKind);
    out.drawnAs = static_cast<DrawnAs>(record.DataKind);
    out.rowsAs = record.PlotSymbolMode == kPointSymbolsToo
                     ? RowsAs::kPoints
                     : static_cast<RowsAs>(record.PlotSymbolMode);
    out.primary = static_cast<Primary>(std::max(record.PrimaryFormat, std::int16_t{kDirections}));
    out.secondary = static_cast<Secondary>(record.SecondaryFormat);
    out.showsSecondary = record.ShowSecondary != 0;
    out.axesTitle = record.AxesTitle;
    out.fabric = record.FabricText;
    out.description = record.DescriptionText;
    out.numberName = record.AppNumName;
    out.textName = record.AppNonNumName;
    out.numberIsFrequency = record.HasFrequencyColumn != 0;
    out.usesDecimals = record.UseDecimals != 0;
    out.formulas = static_cast<PlotFormulas>(record.PlotFormulas);
    out.version = VersionToTell(plot);
    out.leftOut = plot.leftOut;
    out.rows = RowsOut(plot, 0, record.NumData, out.primary == Primary::kPlanes);
    auto first = static_cast<std::size_t>(record.NumData);
    for (std::size_t k = 1; k <= static_cast<std::size_t>(record.OverlayRows[kOverlayCount]); ++k) {
        const std::int16_t kind = record.OverlayKind[k];
        out.overlays.push_back({static_cast<OverlayKind>(kind),
                                RowsOut(plot, first, record.OverlayRows[k], IsPlaneOverlay(kind))});
        first += static_cast<std::size_t>(record.OverlayRows[k]);
    }
    AppendedOut(plot, out.rows);
    return out;
}

BinaryPlot PlotIn(const Plot& plot) {
    Settings settings;
    settings.styles = StartStyles();
    BinaryPlot wanted;
    wanted.record = RecordIn(plot, settings);
    const bool hasPlanes = plot.secondary == Secondary::kPlane;
    const bool hasLines = plot.secondary != Secondary::kNone && !hasPlanes;
    const auto count = static_cast<std::size_t>(wanted.record.NumData);
    SameLength(hasPlanes ? count : 0, plot.rows.secondPlanes.size(), "rows and second planes");
    SameLength(hasLines ? count : 0, plot.rows.secondLines.size(), "rows and second lines");
    AddRows(plot.rows, 0, settings.styles, wanted);
    AddAppended(plot.rows, wanted);
    int overlay = 0;
    for (const PlotOverlay& further : plot.overlays) {
        AddRows(further.rows, ++overlay, settings.styles, wanted);
    }
    wanted.hasFrequencyField = true;
    return wanted;
}

} // namespace quandrel::api
