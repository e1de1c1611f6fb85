// SPDX-License-Identifier: MIT
//
// Writing a file so that at any moment either the old or the new one is there, whole.

#pragma once

#include "core/new_file.h"

#include <string>
#include <string_view>

namespace quandrel {

/// Writes bytes to a file: to a new one first, which is brought to the disk and then takes the
/// place of the old one. On failure the file that was there is untouched and nothing is left beside
/// it. A link stays a link; one that leads to nothing is a failure.
///
/// @return empty on success, else a text for the user that says why
[[nodiscard]] std::string WriteFileAtomically(const std::string& path, std::string_view bytes,
                                              UnderWay underWay = UnderWay::Unnamed);

/// The same for a file that is too large to be held: `make` puts its bytes, in their order. When it
/// gives a reason, nothing is written. It does not throw.
///
/// @return empty on success, else the reason of `make`, or a text for the user
[[nodiscard]] std::string WriteFileAtomically(const std::string& path, const MakeBytes& make,
                                              UnderWay underWay = UnderWay::Unnamed);

} // namespace quandrel
