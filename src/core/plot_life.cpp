// SPDX-License-Identifier: MIT

#include "core/plot_life.h"

#include "core/messages.h"
#include "core/plot_store.h"

#include <memory>
#include <string>

namespace quandrel {

bool PrepareNewPlotWindow() {
    const int slot = FindFreePlotSlot();
    if (slot < 0) {
        const std::string open = std::to_string(CountOpenPlots());
        Tell("You have too many plot windows already open to complete this operation. \n"
             "You now have "
                 + open
                 + " plots open which is the maximum number currently available.\n"
                   "Go to the Preferences folder (Edit...Preferences... menu) "
                   "to increase this maximum (up to 99), or close one of the existing plots.",
             Icon::Exclamation);
        return false;
    }
    gActivePlot = slot;
    ResetPlotRecord(slot);
    return true;
}

void ClosePlot(int slot) {
    // When a window closes, another one comes into focus.
    const bool wasActive = gActivePlot == slot;
    std::unique_ptr<PlotForm>& form = gPlotForm.at(static_cast<std::size_t>(slot));
    if (form != nullptr) {
        form->Close();
    }
    form.reset();
    ReleasePlotSlot(slot);
    if (!wasActive) {
        return;
    }
    gActivePlot = 0;
    for (int other = HighestSlot(); other >= 1 && gActivePlot == 0; --other) {
        gActivePlot = IsOpenSlot(other) ? other : 0;
    }
}

} // namespace quandrel
