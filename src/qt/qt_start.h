// SPDX-License-Identifier: MIT
//
// Settings to make right after a Qt application object has been created.

#pragma once

namespace quandrel {

/// Makes numbers use a decimal point in any region: the application object sets the C library to
/// the region's rules; this restores neutral rules for numbers.
void UseNeutralNumbers();

/// True when the region's decimal delimiter is a comma.
[[nodiscard]] bool QtDecimalIsComma();

} // namespace quandrel
