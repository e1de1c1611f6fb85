// SPDX-License-Identifier: MIT
//
// The help text of the preferences.

#pragma once

#include <QString>

namespace quandrel {

/// The help text of the preferences, in lines.
[[nodiscard]] QString PreferencesHelp();

} // namespace quandrel
