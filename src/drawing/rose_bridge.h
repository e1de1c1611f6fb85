// SPDX-License-Identifier: MIT
//
// The rose as the working out and the drawing of plots call it.

#pragma once

#include "core/plot.h"
#include "core/replot.h"
#include "stereo/drawing.h"

namespace quandrel {

void WorkOutRose(Plot& plot, ReplotCause cause);
void DrawRose(const Plot& plot, const Drawing& drawing);

} // namespace quandrel
