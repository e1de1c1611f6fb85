// SPDX-License-Identifier: MIT

#include "rotation/rotate_data.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "core/row_room.h"
#include "input/data_rows.h"
#include "orientation/angles.h"
#include "platform/platform.h"
#include "rotation/rotation_undo.h"
#include "rotation/turned_rows.h"
#include "stereo/row_positions.h"
#include "stereo/row_sense.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace quandrel {

namespace {

constexpr const char* kWaitText = "Please wait - rotating data";

/// Shows a text on the status line until the end of a block.
class StatusWord {
public:
    explicit StatusWord(std::string_view text) { gPlatform.status->SetText(text); }

    ~StatusWord() { gPlatform.status->SetText(""); }

    StatusWord(const StatusWord&) = delete;
    StatusWord& operator=(const StatusWord&) = delete;
};

/// A row that is drawn in the style of its sense gets that of its new sense.
void FollowSense(std::int32_t row, bool wasUp, std::vector<SymbolChange>& changes) {
    const bool isUp = IsStyledUpward(ActivePlot(), row);
    if (wasUp == isUp) {
        return;
    }
    const int overlay = OverlayOfRow(ActiveRecord(), row);
    SymbolCode& base = gDataSymbolBase.At(gActivePlot, row);
    SymbolCode& drawn = gDataSymbol.At(gActivePlot, row);
    if (base != CodeOfNewRow(ActiveRecord(), overlay, wasUp)) {
        return;
    }
    SymbolChange change{row, drawn, base, 0, CodeOfNewRow(ActiveRecord(), overlay, isUp)};
    change.drawn = drawn == base ? change.base : drawn;
    drawn = change.drawn;
    base = change.base;
    changes.push_back(change);
}

using Attitudes = std::vector<Attitude>;

/// The last row of a set that has cells. Rows after the end of a column have no values, and stay
/// so.
std::int32_t LastRowOf(const PlotRows& rows, RowAngles which, const Attitudes& turned) {
    return std::min(static_cast<std::int32_t>(turned.size()), RowCountOf(rows, which)) - 1;
}

/// Throws std::bad_alloc, with no row changed.
void MakeRoomForDecimals(PlotRows& rows, RowAngles which, const Attitudes& whole,
                         const Attitudes& measured) {
    const std::int32_t last = LastRowOf(rows, which, whole);
    if (whole != measured && last > 0 && !MakeRoomForMeasured(rows, which, last)) {
        throw std::bad_alloc();
    }
}

void StoreColumns(PlotRows& rows, RowAngles which, const Attitudes& whole,
                  const Attitudes& measured) {
    const std::int32_t last = LastRowOf(rows, which, whole);
    for (std::int32_t row = 1; row <= last; ++row) {
        const auto place = static_cast<std::size_t>(row);
        if (whole[place] != WholeAttitude(rows, which, row)) {
            SetWholeAttitude(rows, which, row, whole[place]);
        }
        (void)SetDecimals(rows, which, row, measured[place]); // there is room
    }
}

/// Which rows of gActivePlot point upward, by point index.
std::vector<bool> UpwardRows() {
    std::vector<bool> upward(static_cast<std::size_t>(ActiveRecord().NumLoadedData) + 1);
    for (std::size_t row = 1; row < upward.size(); ++row) {
        upward[row] = IsStyledUpward(ActivePlot(), static_cast<std::int32_t>(row));
    }
    return upward;
}

const Attitudes& SetOf(const TurnedRows& rows, RowAngles which) {
    switch (which) {
    case RowAngles::Secondary:
        return rows.secondary;
    case RowAngles::Line:
        return rows.appended;
    case RowAngles::Primary:
        break;
    }
    return rows.primary;
}

/// Throws std::bad_alloc, with no row changed.
void StoreRows(const TurnedRows& whole, const TurnedRows& measured,
               std::vector<SymbolChange>& changes) {
    PlotRows& rows = ActivePlot().rows;
    const std::vector<bool> wereUp = UpwardRows();
    changes.reserve(wereUp.size());
    for (const RowAngles which : kRowAngles) {
        MakeRoomForDecimals(rows, which, SetOf(whole, which), SetOf(measured, which));
    }
    for (const RowAngles which : kRowAngles) {
        StoreColumns(rows, which, SetOf(whole, which), SetOf(measured, which));
    }
    for (std::size_t row = 1; row < wereUp.size(); ++row) {
        FollowSense(static_cast<std::int32_t>(row), wereUp[row], changes);
    }
    changes.shrink_to_fit();
}

/// The orientation of a row that would be shown.
Attitude ShownAfter(const PlotRecord& record, const TurnedRows& rows, std::int32_t row) {
    const auto place = static_cast<std::size_t>(row);
    const bool showsSecondary =
        record.ShowSecondary != 0 && row <= record.NumData && !rows.secondary.empty();
    return showsSecondary && rows.primary[place].dip != kErrorRow ? rows.secondary[place]
                                                                  : rows.primary[place];
}

std::string Rows(std::int32_t count) {
    return std::to_string(count) + (count == 1 ? " row" : " rows");
}

} // namespace

std::string NoteOnRotation(const RotationReport& report) {
    std::string note;
    if (report.withoutAxis > 0) {
        note = Rows(report.withoutAxis) + " without a valid appended line";
    }
    if (report.withoutPlane > 0) {
        note += (note.empty() ? "" : " and ") + Rows(report.withoutPlane)
                + " of overlays that are not planes";
    }
    if (note.empty()) {
        return note;
    }
    const bool isOne = report.withoutAxis + report.withoutPlane == 1;
    return note + (isOne ? " was" : " were") + " left unrotated.";
}

RotationReport RotateData(std::int16_t state, const RotationSettings& settings) {
    const BusyPointer busy(*gPlatform.status);
    const StatusWord word(kWaitText);
    RotationSettings wanted = settings;
    wanted.operation = std::abs(state);
    wanted.forceIntoBeds = state < 0;
    PlotRecord& record = ActiveRecord();
    const Rotation rotation = RotationOf(wanted);
    const TurnedRows rows = TurnRows(gActivePlot, rotation, AngleColumns::Whole);
    const TurnedRows measured = TurnRows(gActivePlot, rotation, AngleColumns::Measured);
    RotationMemory memory = RememberRows(gActivePlot);
    StoreRows(rows, measured, memory.symbols);
    record.RotationState = state;
    record.Modified = kModifiedByRotation;
    RebuildRowTable(gActivePlot);
    KeepForUndo(std::move(memory));
    return {rows.turned, rows.withoutAxis, rows.withoutPlane};
}

std::optional<RotationRefusal> ApplyRotation(const RotationSettings& settings,
                                             RotationReport& report) {
    report = {};
    if (gBusy || !IsOpenSlot(gActivePlot)) {
        return RotationRefusal{RotationField::Plot, "No plot can be rotated now."};
    }
    if (std::optional<RotationRefusal> refusal = CheckRotation(settings)) {
        return refusal;
    }
    try {
        report = RotateData(RotationStateOf(settings), settings);
    } catch (const std::bad_alloc&) {
        return RotationRefusal{RotationField::Plot,
                               "There is not enough memory to rotate these data."};
    }
    ReplotActivePlot(true);
    return std::nullopt;
}

std::vector<PreviewedRow> PreviewRotation(const RotationSettings& settings) {
    std::vector<PreviewedRow> preview;
    if (!IsOpenSlot(gActivePlot)) {
        return preview;
    }
    const PlotRecord& record = ActiveRecord();
    if (record.PlotKind == kRose || CheckRotation(settings)) {
        return preview;
    }
    const TurnedRows rows =
        TurnRows(gActivePlot, RotationOf(settings),
                 record.UseDecimals != 0 ? AngleColumns::Measured : AngleColumns::Whole);
    preview.reserve(static_cast<std::size_t>(record.NumLoadedData));
    for (std::int32_t row = 1; row <= record.NumLoadedData; ++row) {
        const PlottedRow plotted =
            PlottedOrientation(record.PlotKind, IsPlottedAsPole(record, OverlayOfRow(record, row)),
                               row, ShownAfter(record, rows, row));
        if (!IsErrorRow(plotted.plunge)) {
            preview.push_back(
                {row, {static_cast<double>(plotted.x), static_cast<double>(plotted.y)}});
        }
    }
    return preview;
}

} // namespace quandrel
