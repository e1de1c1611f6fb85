// SPDX-License-Identifier: MIT
//
// The current data format under its given names. All plots share it while they load. The data
// format dialog and the parameter lines of a file change it.

#pragma once

#include "core/settings_value.h"

namespace quandrel {

/// The kind in which a set of orientations is plotted when it replaces the other set of its rows:
/// planes as planes; lines as lines, or as polar lines when the former set was.
[[nodiscard]] std::int16_t DataKindOfSet(bool holdsPlanes, std::int16_t formerKind);

// Views on the current format.
inline constinit auto& gConventions = gSettings.format.conventions;
inline constinit auto& gFileDelimiter = gSettings.format.delimiter;
inline constinit auto& gPlaneSeparator = gSettings.format.planeSeparator;
inline constinit auto& gLineSeparator = gSettings.format.lineSeparator;
inline constinit auto& gPrimaryDataType = gSettings.format.primary;
inline constinit auto& gSecondaryDataType = gSettings.format.secondary;
inline constinit auto& gFileLineAppended = gSettings.format.lineAppended;
inline constinit auto& gFileNumericAppended = gSettings.format.numericAppended;
inline constinit auto& gFileNonNumericAppended = gSettings.format.nonNumericAppended;
inline constinit auto& gFileAppNumName = gSettings.format.numericName;
inline constinit auto& gFileAppNonNumName = gSettings.format.nonNumericName;
inline constinit auto& gFileColumnSettings = gSettings.format.columns;
inline constinit auto& gPlotDataKind = gSettings.format.plotDataKind;
inline constinit auto& gPlotKind = gSettings.format.plotKind;

/// Whether appended numbers with the other decimal delimiter are converted silently.
inline constinit auto& gConvertDecimals = gSettings.notation.convertDecimals;

/// A snapshot of the settings that a load can change: the format, and the symbols of rows, which
/// the format dialog also sets.
struct FormatBefore {
    FormatSettings format = gSettings.format;
    std::array<SymbolRow, kSymbolRowCount> symbols = gSettings.styles.symbols;

    void PutBack() const;
};

} // namespace quandrel
