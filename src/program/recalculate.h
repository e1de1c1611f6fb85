// SPDX-License-Identifier: MIT
//
// Working a plot out anew at the user's wish.

#pragma once

namespace quandrel {

/// Works everything of gActivePlot out anew and draws it. What was asked and answered of a rose is
/// asked again; overlays of secondary data take over what the rows hold now.
void RecalculateActivePlot();

} // namespace quandrel
