// SPDX-License-Identifier: MIT
//
// Records requests for drawings, and their reasons.

#pragma once

#include "core/replot.h"
#include "drawing/plot_driver.h"

#include <vector>

namespace quandrel {

/// Records all requests to draw plots while it lives; they are carried out as usual.
class DrawingRequests {
public:
    DrawingRequests() {
        ConnectPlotDrawer([this](int slot, ReplotCause cause) {
            causes_.push_back(cause);
            DrawForCause(slot, cause);
        });
    }

    ~DrawingRequests() { ConnectDrawing(); }

    DrawingRequests(const DrawingRequests&) = delete;
    DrawingRequests& operator=(const DrawingRequests&) = delete;

    [[nodiscard]] const std::vector<ReplotCause>& Causes() const { return causes_; }

private:
    std::vector<ReplotCause> causes_;
};

} // namespace quandrel
