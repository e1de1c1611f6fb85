// SPDX-License-Identifier: MIT
//
// Who asks for a drawing, and why.

#pragma once

#include "core/replot.h"
#include "drawing/plot_driver.h"

#include <vector>

namespace quandrel {

/// Writes down all requests to draw plots while it lives; they are met as ever.
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
