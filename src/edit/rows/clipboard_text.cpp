// SPDX-License-Identifier: MIT

#include "edit/rows/clipboard_text.h"

#include "core/data_format.h"
#include "core/letter_case.h"
#include "core/measured_rows.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "edit/marks/annotation_text.h"
#include "edit/selection/selected_intersections.h"
#include "input/parameter_line.h"
#include "input/place_columns.h"
#include "orientation/angles.h"
#include "orientation/degrees_text.h"
#include "orientation/number_text.h"
#include "platform/platform.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace quandrel {

namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr double kFullTurn = 360;

/// A text as a field: characters that would end a field become blanks. A text that begins with a
/// quote is put in quotes, with its own quotes doubled, as readers remove quotes around a field.
std::string FieldOfText(std::string_view text) {
    std::string field(text);
    std::replace_if(
        field.begin(), field.end(), [](char c) { return c == '\t' || c == '\r' || c == '\n'; },
        ' ');
    if (field.empty() || field.front() != '"') {
        return field;
    }
    std::string quoted = "\"";
    for (const char c : field) {
        quoted.append(c == '"' ? 2 : 1, c);
    }
    return quoted + "\"";
}

/// An orientation among others, with at least two digits, so that columns line up.
std::string FieldPairText(Attitude pair, bool present) {
    constexpr const char* kFormat = "00.######";
    return present ? FormatNumber(pair.dip, kFormat) + "\t" + FormatNumber(pair.azimuth, kFormat)
                   : "\t";
}

std::string PairText(Attitude pair, bool present) {
    return present ? DegreesText(pair.dip) + "\t" + DegreesText(pair.azimuth) : "\t";
}

/// A place on the map as two further fields, empty for none.
std::string PlaceFields(const std::optional<MapPlace>& place) {
    return place ? "\t" + CoordinateText(place->x) + "\t" + CoordinateText(place->y) : "\t\t";
}

/// The kind of the overlays that all rows of a list belong to; nothing when they differ, or the
/// list has main rows.
std::optional<std::int16_t> CommonOverlayKind(const PlotRecord& record,
                                              std::span<const std::int32_t> rows) {
    std::optional<std::int16_t> common;
    for (const std::int32_t row : rows) {
        const auto overlay = static_cast<std::size_t>(OverlayOfRow(record, row));
        if (overlay == 0
            || common.value_or(record.OverlayKind[overlay]) != record.OverlayKind[overlay]) {
            return std::nullopt;
        }
        common = record.OverlayKind[overlay];
    }
    return common;
}

std::int16_t DataKindOfOverlay(std::int16_t kind) {
    return kind <= kOverlayPoles        ? std::int16_t{kPlanes}
           : kind == kOverlayPolarLines ? std::int16_t{kPolarLines}
                                        : std::int16_t{kLines};
}

/// The text of the rows of one plot.
class RowWriter {
public:
    RowWriter(int slot, std::span<const std::int32_t> rows, CopiedFields fields)
        : slot_(slot)
        , plot_(PlotOf(slot))
        , record_(plot_.record)
        , rows_(rows)
        , isFull_(fields == CopiedFields::All && record_.PlotSymbolMode != kBetaIntersections) {
        items_.T = record_.DataKind;
        items_.N = record_.PlotKind;
        items_.one = record_.PrimaryFormat;
        if (record_.PlotSymbolMode == kBetaIntersections) {
            items_.T = kLines;
            items_.one = kPrimaryLine;
        } else {
            ChooseKind();
        }
        NameFields();
    }

    /// The text of lines instead of the rows, for a plot that draws intersections.
    [[nodiscard]] std::string TextWith(std::span<const Direction> lines) const {
        std::string text = ClipboardHead() + BuildParameterText(items_, isFull_);
        AddLines(text, lines);
        return text;
    }

    [[nodiscard]] std::string Text() const {
        if (record_.PlotSymbolMode == kBetaIntersections) {
            return TextWith(IntersectionsBetween(slot_, rows_));
        }
        std::string text = ClipboardHead() + BuildParameterText(items_, isFull_);
        for (const std::int32_t row : rows_) {
            if (row >= 1 && row <= record_.NumLoadedData
                && OrientationShown(slot_, row).dip != kErrorRow) {
                text += isFull_ ? FullLine(row) : PointOf(row);
                text += kLineEnd;
            }
        }
        return text;
    }

private:
    [[nodiscard]] bool IsDirections() const {
        return items_.one.value_or(std::int16_t{kDirections}) <= kDirections;
    }

    /// Chooses the kind of data that the text states.
    void ChooseKind() {
        const std::optional<std::int16_t> overlays = CommonOverlayKind(record_, rows_);
        if (overlays && record_.ShowSecondary == 0 && !IsDirections()) {
            items_.T = DataKindOfOverlay(*overlays);
            items_.one = items_.T == kPlanes ? kPrimaryPlane : kPrimaryLine;
        } else if (overlays && !isFull_) {
            items_.T = DataKindOfOverlay(*overlays);
        }
        writesPlanes_ = items_.T == kPlanes;
        primaryIsPlane_ =
            items_.one == kPrimaryPlane || (record_.ShowSecondary == 0 && items_.T == kPlanes);
    }

    void NameFields() {
        items_.two = record_.SecondaryFormat;
        items_.S = record_.ShowSecondary != 0;
        items_.A = record_.HasAppendedLine != 0;
        items_.L = record_.HasAppendedNumeric != 0;
        items_.W = record_.HasAppendedText != 0;
        items_.F =
            record_.HasAppendedNumeric != 0 ? std::optional(record_.AppNumName) : std::nullopt;
        items_.D =
            record_.HasAppendedText != 0 ? std::optional(record_.AppNonNumName) : std::nullopt;
        hasPlaces_ = HasMapPlaces(plot_);
        items_.G = hasPlaces_ ? std::optional(true) : std::nullopt;
    }

    /// A row in its plotted form.
    [[nodiscard]] std::string PointOf(std::int32_t row) const {
        const Attitude shown = MeasuredShown(plot_, row);
        if (IsDirections()) {
            return DegreesText(shown.azimuth);
        }
        const bool isPlane = IsPlottedAsPole(record_, OverlayOfRow(record_, row));
        return PairText(isPlane == writesPlanes_ ? shown : PoleInDegrees(shown), true);
    }

    /// The primary orientation, then the secondary one, in the form of the main rows' columns.
    [[nodiscard]] std::pair<Attitude, Attitude> BothOf(std::int32_t row) const {
        Attitude primary = MeasuredAttitude(plot_.rows, RowAngles::Primary, row);
        Attitude secondary = MeasuredAttitude(plot_.rows, RowAngles::Secondary, row);
        const int overlay = OverlayOfRow(record_, row);
        if (overlay > 0 && record_.SecondaryFormat != kNoSecondary && record_.ShowSecondary != 0) {
            std::swap(primary, secondary);
        } else if (overlay > 0 && IsPlottedAsPole(record_, overlay) != primaryIsPlane_) {
            primary = PoleInDegrees(primary);
        }
        return {primary, secondary};
    }

    [[nodiscard]] std::string FullLine(std::int32_t row) const {
        const auto [primary, secondary] = BothOf(row);
        std::string line = IsDirections() ? DegreesText(primary.azimuth)
                                          : FieldPairText(primary, primary.dip != kErrorRow);
        if (record_.SecondaryFormat != kNoSecondary) {
            line += "\t" + FieldPairText(secondary, secondary.dip != kErrorRow);
        }
        if (record_.HasAppendedLine != 0) {
            line += "\t"
                    + FieldPairText(MeasuredAttitude(plot_.rows, RowAngles::Line, row),
                                    gAppLineDip(slot_, row) != kInvalidAppendedLine);
        }
        if (record_.HasAppendedNumeric != 0) {
            const float number = gAppNumeric(slot_, row);
            line += "\t" + (number == kInvalidNumber ? std::string() : TextOf(number));
        }
        if (record_.HasAppendedText != 0) {
            line += "\t" + FieldOfText(gAppText(slot_, row));
        }
        return line + (hasPlaces_ ? PlaceFields(MapPlaceOf(plot_.rows, row)) : std::string());
    }

    void AddLines(std::string& text, std::span<const Direction> lines) const {
        for (const Direction& line : lines) {
            double plunge = 0;
            double trend = 0;
            CosinesToLine(line, plunge, trend);
            const Attitude exact{RadToDeg(plunge), RadToDeg(trend)};
            Attitude shown =
                record_.UseDecimals != 0 ? ToMicrodegree(exact) : RoundedAttitude(exact, true);
            shown.azimuth = shown.azimuth == kFullTurn ? 0 : shown.azimuth;
            text += PairText(shown, true) + kLineEnd;
        }
    }

    int slot_;
    const Plot& plot_;
    const PlotRecord& record_;
    std::span<const std::int32_t> rows_;
    bool isFull_;
    ParameterItems items_;
    bool writesPlanes_ = false;
    bool primaryIsPlane_ = false;
    bool hasPlaces_ = false; ///< any row has a place on the map
};

} // namespace

ClipboardKind KindOfClipboardText(std::string_view text) {
    if (text.empty()) {
        return ClipboardKind::Empty;
    }
    if (EqualWithoutCase(text.substr(0, kCompanionTextStart.size()), kCompanionTextStart)) {
        return ClipboardKind::Companion;
    }
    switch (KindOfAnnotationText(text)) {
    case AnnotationTextKind::Foreign:
        return ClipboardKind::Foreign;
    case AnnotationTextKind::Marks:
        return ClipboardKind::Marks;
    default:
        return ClipboardKind::OwnRows;
    }
}

ClipboardKind KindOfClipboard() {
    return KindOfClipboardText(gPlatform.clipboard->Text().value_or(""));
}

bool HasFurtherFields(int slot) {
    const PlotRecord& record = RecordOf(slot);
    return record.SecondaryFormat != kNoSecondary || record.HasAppendedLine != 0
           || record.HasAppendedNumeric != 0 || record.HasAppendedText != 0
           || HasMapPlaces(PlotOf(slot));
}

std::string TextOfIntersections(int slot, std::span<const Direction> lines) {
    return RowWriter(slot, {}, CopiedFields::Points).TextWith(lines);
}

std::string TextOfRows(int slot, std::span<const std::int32_t> rows, CopiedFields fields) {
    return RowWriter(slot, rows, fields).Text();
}

} // namespace quandrel
