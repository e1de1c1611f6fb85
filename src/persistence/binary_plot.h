// SPDX-License-Identifier: MIT
//
// A plot between the store and a binary plot file: read whole and found good before anything of it
// goes into the store.

#pragma once

#include "core/plot_record.h"
#include "core/plot_store.h"
#include "core/result.h"
#include "core/style_tables.h"
#include "platform/window_place.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// A row of the data columns, as the columns hold it.
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

/// What a binary plot file holds.
struct BinaryPlot {
    int version = 0;                 ///< ten times the version: 70, 71, ... 95
    bool hasFrequencyField = false;  ///< versions from 9.44 on
    std::string versionText;         ///< "9.5"
    std::string fullVersion;         ///< "9.51", without blanks; empty before 9.4 or left blank
    bool isLater = false;            ///< saved by a version later than this one
    PlotRecord record;               ///< what the file does not tell is that of an empty plot
    std::vector<BinaryRow> rows;     ///< the main rows, then those of the overlays
    std::vector<std::string> texts;  ///< appended texts of the main rows, or empty
    ErrorLines errorLines;           ///< of rows that are no data
    std::vector<std::int32_t> table; ///< rows in the order of the row table, as the file tells it
    std::int16_t gridCount = 0;
    std::unique_ptr<GridValues> gridValues; ///< of a grid count other than 0
    std::optional<WindowPlace> place;       ///< of the window, where the file tells a possible one
    bool hasWeightedRose = false;           ///< a weighting that is no more
};

inline constexpr const char* kNoMemoryForPlot = "There is not enough memory for it.";

/// The plot that a file's bytes hold.
///
/// Every version from 7.0 on is read; a file of a later version than this one is read as one of
/// this. A file that is damaged, or holds what no plot can have, is a failure. Memory taken is at
/// most a small multiple of the bytes. What a version does not tell is as in NewPlotRecord.
[[nodiscard]] Result<BinaryPlot> ReadBinaryPlot(std::string_view bytes);

/// The version that saved a file, in full where the file tells it so.
[[nodiscard]] std::string VersionToTell(const BinaryPlot& plot);

/// A slot as the bytes of a binary plot file of the present version; a failure when a text or an
/// overlay is too large for it.
[[nodiscard]] Result<std::string> BinaryPlotBytes(int slot);

} // namespace quandrel
