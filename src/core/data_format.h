// SPDX-License-Identifier: MIT
//
// The current data format. All plots share it while they load. The data format dialog and the
// parameter lines of a file change it. plot_store.h has its parts under their given names.

#pragma once

#include "core/settings_value.h"

namespace quandrel {

/// The kind in which a set of orientations is plotted when it replaces the other set of its rows:
/// planes as planes; lines as lines, or as polar lines when the former set was.
[[nodiscard]] std::int16_t DataKindOfSet(bool holdsPlanes, std::int16_t formerKind);

/// A snapshot of the settings that a load can change: the format, and the symbols of rows, which
/// the format dialog also sets.
struct FormatBefore {
    FormatSettings format = gSettings.format;
    std::array<SymbolRow, kSymbolRowCount> symbols = gSettings.styles.symbols;

    void PutBack() const;
};

} // namespace quandrel
