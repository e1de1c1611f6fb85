// SPDX-License-Identifier: MIT
//
// Atomic writing of a file: at any moment either the complete old file or the complete new one
// exists.

#pragma once

#include "core/new_file.h"

#include <string>
#include <string_view>

namespace quandrel {

/// Writes bytes to a new file, flushes it to disk and then replaces the old file with it. On
/// failure the old file is untouched and no new file remains. A link is followed and kept; a
/// dangling link is a failure.
///
/// @return empty on success, else the reason as a text for the user
[[nodiscard]] std::string WriteFileAtomically(const std::string& path, std::string_view bytes,
                                              UnderWay underWay = UnderWay::Unnamed);

/// The same for a file that is too large for memory: `make` writes its bytes in order. When `make`
/// returns a reason, nothing is written. It must not throw.
///
/// @return empty on success, else the reason from `make`, or a text for the user
[[nodiscard]] std::string WriteFileAtomically(const std::string& path, const MakeBytes& make,
                                              UnderWay underWay = UnderWay::Unnamed);

} // namespace quandrel
