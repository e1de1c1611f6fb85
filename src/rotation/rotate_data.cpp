// SPDX-License-Identifier: MIT

#include "rotation/rotate_data.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "input/data_rows.h"
#include "orientation/angles.h"
#include "platform/platform.h"
#include "rotation/rotation_undo.h"
#include "rotation/turned_rows.h"
#include "stereo/row_positions.h"

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

bool PointsUp(Attitude shown) {
    return shown.dip < 0 && shown.dip != kErrorRow;
}

/// A row that is drawn in the style of its sense gets that of its new sense.
void FollowSense(std::int32_t row, bool wasUp, std::vector<SymbolChange>& changes) {
    const bool isUp = PointsUp(OrientationShown(gActivePlot, row));
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

/// Rows after the end of a column have no values, and stay so.
void StoreColumns(const std::vector<Attitude>& turned, RowAngles which) {
    PlotRows& rows = ActivePlot().rows;
    const auto last = static_cast<std::int32_t>(turned.size()) - 1;
    for (std::int32_t row = 1; row <= last && row < RowCountOf(rows, which); ++row) {
        const Attitude& now = turned[static_cast<std::size_t>(row)];
        if (now != WholeAttitude(rows, which, row)) {
            SetWholeAttitude(rows, which, row, now);
        }
    }
}

/// Which rows of gActivePlot point upward, by point index.
std::vector<bool> UpwardRows() {
    std::vector<bool> upward(static_cast<std::size_t>(ActiveRecord().NumLoadedData) + 1);
    for (std::size_t row = 1; row < upward.size(); ++row) {
        upward[row] = PointsUp(OrientationShown(gActivePlot, static_cast<std::int32_t>(row)));
    }
    return upward;
}

void StoreRows(const TurnedRows& rows, std::vector<SymbolChange>& changes) {
    const std::vector<bool> wereUp = UpwardRows();
    changes.reserve(wereUp.size());
    StoreColumns(rows.primary, RowAngles::Primary);
    StoreColumns(rows.secondary, RowAngles::Secondary);
    StoreColumns(rows.appended, RowAngles::Line);
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
    const TurnedRows rows = TurnRows(gActivePlot, RotationOf(wanted));
    RotationMemory memory = RememberRows(gActivePlot);
    StoreRows(rows, memory.symbols);
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
    if (!IsOpenSlot(gActivePlot) || ActiveRecord().PlotKind == kRose || CheckRotation(settings)) {
        return preview;
    }
    const PlotRecord& record = ActiveRecord();
    const TurnedRows rows = TurnRows(gActivePlot, RotationOf(settings));
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
