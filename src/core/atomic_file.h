// SPDX-License-Identifier: MIT
//
// Writing a file so that at any moment either the old or the new one stands there, whole.

#pragma once

#include <string>
#include <string_view>

namespace quandrel {

/// Writes bytes to a file: to a temporary file beside it first, brought to the disk, then renamed
/// over it. On failure the file that was there is untouched and nothing is left beside it.
///
/// @return empty on success, else a text for the user that says why
[[nodiscard]] std::string WriteFileAtomically(const std::string& path, std::string_view bytes);

} // namespace quandrel
