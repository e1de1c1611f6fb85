// SPDX-License-Identifier: MIT
//
// Rows for tests of drawings, put directly into the store.

#pragma once

#include "core/plot_store.h"
#include "orientation/angles.h"
#include "platform/scripted/recording_surface.h"
#include "stereo/row_positions.h"

#include <vector>

namespace quandrel {

/// What has been drawn on a surface since it was cleared.
inline std::vector<DrawOperation> DrawnOn(const RecordingSurface& surface) {
    std::vector<DrawOperation> drawn = surface.Operations();
    std::erase_if(drawn, [](const DrawOperation& operation) {
        return operation.kind == DrawOperation::Kind::Clear;
    });
    return drawn;
}

/// Adds a main row to the active plot, which must not have overlays.
inline void AddRow(std::int32_t dip, std::int32_t azimuth, SymbolCode code = CodeOfStyleRow(0)) {
    PlotRecord& record = ActiveRecord();
    const std::int32_t row = ++record.NumLoadedData;
    record.NumData = row;
    record.NumValidData += dip != kErrorRow ? 1 : 0;
    int secondary = 0;
    GrowDataColumns(secondary, row);
    gDataDip.At(gActivePlot, row) = dip;
    gDataAz.At(gActivePlot, row) = azimuth;
    gDataSymbol.At(gActivePlot, row) = code;
    gDataSymbolBase.At(gActivePlot, row) = code;
    StoreRowPosition(gActivePlot, static_cast<std::size_t>(row) - 1, row, {dip, azimuth},
                     IsPlottedAsPole(record, 0));
    record.RowsChanged = kTrue;
}

/// Adds an overlay with one row to the active plot.
inline void AddOverlay(std::int16_t kind, std::int32_t dip, std::int32_t azimuth, SymbolCode code) {
    PlotRecord& record = ActiveRecord();
    const auto overlay = static_cast<std::size_t>(++record.OverlayRows[kOverlayCount]);
    record.OverlayRows[overlay] = 1;
    record.OverlayKind[overlay] = kind;
    const std::int32_t row = ++record.NumLoadedData;
    int secondary = 0;
    GrowDataColumns(secondary, row);
    gDataDip.At(gActivePlot, row) = dip;
    gDataAz.At(gActivePlot, row) = azimuth;
    gDataSymbol.At(gActivePlot, row) = code;
    StoreRowPosition(gActivePlot, static_cast<std::size_t>(row) - 1, row, {dip, azimuth},
                     IsPlottedAsPole(record, static_cast<int>(overlay)));
}

} // namespace quandrel
