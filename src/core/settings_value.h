// SPDX-License-Identifier: MIT
//
// The user's settings as one value. settings.h reads and saves them; globals with given names are
// views on them.

#pragma once

#include "core/styles.h"

namespace quandrel {

struct Settings {
    Styles styles;
};

/// The settings in force.
extern Settings gSettings;

} // namespace quandrel
