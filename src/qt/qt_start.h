// SPDX-License-Identifier: MIT
//
// What has to be set right after a Qt application object was made.

#pragma once

namespace quandrel {

/// Numbers are written and read with a decimal point whatever the user's region: the application
/// object takes over the region's rules for the C library, this takes those for numbers back.
void UseNeutralNumbers();

/// True when the region's decimal delimiter is a comma.
[[nodiscard]] bool QtDecimalIsComma();

} // namespace quandrel
