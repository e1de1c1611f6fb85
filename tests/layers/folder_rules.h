// SPDX-License-Identifier: MIT
//
// The rules of the tree: which folder of src/ may include from which.

#pragma once

#include <map>
#include <set>
#include <string>

namespace quandrel {

using Folders = std::set<std::string>;

/// Each folder with the folders that it may include from. Its own is always allowed.
[[nodiscard]] const std::map<std::string, Folders>& AllowedIncludes();

} // namespace quandrel
