// SPDX-License-Identifier: MIT
//
// What is told about the preferences.

#pragma once

#include <QString>

namespace quandrel {

/// The text of the preferences' help, in lines.
[[nodiscard]] QString PreferencesHelp();

} // namespace quandrel
