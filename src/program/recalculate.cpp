// SPDX-License-Identifier: MIT

#include "program/recalculate.h"

#include "derive/secondary_data.h"
#include "rose/rose_sectors.h"
#include "stereo/plot_driver.h"

namespace quandrel {

void RecalculateActivePlot() {
    ForgetAcceptedSectorSize();
    RefreshSecondaryOverlay();
    ReplotActivePlot(true);
}

} // namespace quandrel
