// SPDX-License-Identifier: MIT
//
// The copy of an unsaved plot: a binary plot file with the plot's names at its end, after its
// fields and its extension, where readers of binary plot files do not look.

#pragma once

#include "core/result.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace quandrel {

/// A 64-bit hash of everything in a plot that a copy keeps: the fields that the parts of the record
/// name, the columns, the appended texts and the texts of error rows. Densities and grids, which
/// drawings compute from the rows, are left out. O(rows).
[[nodiscard]] std::uint64_t FingerprintOf(int slot);

/// A slot as a copy; fails when it cannot be a binary plot file, or memory runs out.
[[nodiscard]] Result<std::string> RecoveryCopyBytes(int slot);

struct RecoveredPlot {
    std::filesystem::path file;
    int slot = 0;        ///< 0 when it could not be opened
    std::string problem; ///< the reason
};

/// Opens a copy as a plot with unsaved data, with its previous title and paths. The file stays. A
/// binary plot file without names gives a plot without a path.
[[nodiscard]] RecoveredPlot OpenRecoveryCopy(const std::filesystem::path& file);

} // namespace quandrel
