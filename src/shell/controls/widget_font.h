// SPDX-License-Identifier: MIT
//
// The fonts of the settings as QFont values.

#pragma once

#include "core/settings.h"

#include <QFont>

namespace quandrel {

/// A font of gSettings.styles.fonts; the program's own font if no family was chosen.
[[nodiscard]] QFont WidgetFont(const PlotFont& font);

} // namespace quandrel
