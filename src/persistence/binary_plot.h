// SPDX-License-Identifier: MIT
//
// A plot between the store and a binary plot file: it is read completely and validated before
// anything is stored.

#pragma once

#include "core/map_places.h"
#include "core/measured_rows.h"
#include "core/plot_record.h"
#include "core/plot_store.h"
#include "core/result.h"
#include "core/style_tables.h"
#include "persistence/picture_block.h"
#include "persistence/plot_extension.h"
#include "platform/window_place.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// A row with the values of the data columns.
struct BinaryRow {
    std::int32_t dip = 0;
    std::int32_t azimuth = 0;
    std::int32_t density = 0;
    std::int32_t order = 0;
    SymbolCode code = 0;
    std::int32_t dip2 = 0;
    std::int32_t azimuth2 = 0;
    std::int32_t lineDip = 0;
    std::int32_t lineAzimuth = 0;
    float number = 0;
};

/// The contents of a binary plot file.
struct BinaryPlot {
    int version = 0;                 ///< ten times the version: 70, 71, ... 95
    bool hasFrequencyField = false;  ///< versions from 9.44 on
    std::string versionText;         ///< "9.5"
    std::string fullVersion;         ///< "9.51", without blanks; empty before 9.4 or if blank
    bool isLater = false;            ///< saved by a later version than this one
    PlotRecord record;               ///< fields missing in the file are those of an empty plot
    std::vector<BinaryRow> rows;     ///< the main rows, followed by those of the overlays
    std::vector<std::string> texts;  ///< appended texts of the main rows, or empty
    ErrorLines errorLines;           ///< of error rows
    std::vector<std::int32_t> table; ///< rows in the order of the file's row table
    std::int16_t gridCount = 0;
    std::unique_ptr<GridValues> gridValues; ///< if the grid count is not 0
    std::optional<WindowPlace> place;       ///< of the window, if the file has a valid one
    bool hasWeightedRose = false;           ///< uses a weighting that no longer exists

    std::array<MeasuredColumns, kRowAngles.size()> measured; ///< by RowAngles
    MapColumns mapPlaces;
    bool hasCellRows = false;                  ///< main rows are cells (stereo/cell_rows.h)
    std::optional<PictureView> pictureView;    ///< of a plot in a picture
    std::vector<ExtensionBlock> unknownBlocks; ///< of the file's extension
    std::vector<std::string> leftOut; ///< what is damaged in the extension, a sentence each
};

/// Gives an orientation of a row its measured angles. Throws std::bad_alloc.
///
/// @param row       from 1
/// @param measured  dip -90 to 90, azimuth 0 to 360 degrees
void SetMeasured(BinaryPlot& plot, RowAngles which, std::int32_t row, const Attitude& measured);

inline constexpr const char* kNoMemoryForPlot = "There is not enough memory for it.";

/// The plot in a file's bytes.
///
/// Every version from 7.0 on is read; a file of a later version than this one is read as one of
/// this version. A file that is damaged, or holds values that no plot can have, is a failure.
/// Memory use is at most a small multiple of the bytes. Fields missing in a version are as in
/// NewPlotRecord.
[[nodiscard]] Result<BinaryPlot> ReadBinaryPlot(std::string_view bytes);

/// The version that saved a file, in full if the file gives it.
[[nodiscard]] std::string VersionToTell(const BinaryPlot& plot);

/// A slot as the bytes of a binary plot file of the present version; a failure when a text or an
/// overlay is too large for the file.
[[nodiscard]] Result<std::string> BinaryPlotBytes(int slot);

/// A plot as those bytes for a picture of it: with the names of its data without their paths, and
/// with the place of a new window instead of that of its own.
[[nodiscard]] Result<std::string> PlotBytesForPicture(const Plot& plot);

} // namespace quandrel
