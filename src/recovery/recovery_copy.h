// SPDX-License-Identifier: MIT
//
// The copy of an unsaved plot: a binary plot file with the plot's names behind its last field,
// where readers of binary plot files do not look.

#pragma once

#include "core/result.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace quandrel {

/// A number that is another one, but for a chance of 2^-64, once anything of a plot is changed that
/// a copy keeps. What drawings work out from the rows is left out where it is large. O(rows).
[[nodiscard]] std::uint64_t FingerprintOf(int slot);

/// A slot as a copy; a failure where it cannot be a binary plot file, or memory runs out.
[[nodiscard]] Result<std::string> RecoveryCopyBytes(int slot);

struct RecoveredPlot {
    std::filesystem::path file;
    int slot = 0;        ///< 0 when it could not be opened
    std::string problem; ///< why not
};

/// Opens a copy as a plot with unsaved data, under its former title and paths. The file stays. A
/// binary plot file without names gives a plot that has no path.
[[nodiscard]] RecoveredPlot OpenRecoveryCopy(const std::filesystem::path& file);

} // namespace quandrel
