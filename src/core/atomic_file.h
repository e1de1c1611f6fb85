// SPDX-License-Identifier: MIT
//
// Writing a file so that at any moment either the old or the new one stands there, whole.

#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quandrel {

/// Writes bytes to a file: to a temporary file beside it first, brought to the disk, then renamed
/// over it. On failure the file that was there is untouched and nothing is left beside it.
///
/// @return empty on success, else a text for the user that says why
[[nodiscard]] std::string WriteFileAtomically(const std::string& path, std::string_view bytes);

/// Takes the next bytes of a file. False when they could not be written: no more need to come.
using PutBytes = std::function<bool(std::string_view bytes)>;

/// Makes a file's bytes piece by piece.
///
/// @return empty, or why there is no file
using MakeBytes = std::function<std::string(const PutBytes& put)>;

/// The same for a file that is too large to be held: `make` puts its bytes, in their order. When it
/// gives a reason, nothing is written. It does not throw.
///
/// @return empty on success, else the reason of `make`, or a text for the user
[[nodiscard]] std::string WriteFileAtomically(const std::string& path, const MakeBytes& make);

} // namespace quandrel
