// SPDX-License-Identifier: MIT
//
// The fonts of the settings as widgets take them.

#pragma once

#include "core/settings.h"

#include <QFont>

namespace quandrel {

/// A font of gSettings.styles.fonts; that of the program where no family was chosen.
[[nodiscard]] QFont WidgetFont(const PlotFont& font);

} // namespace quandrel
