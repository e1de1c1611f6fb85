// SPDX-License-Identifier: MIT
//
// What the engine needs of a plot window: two surfaces, its texts, its position.

#pragma once

#include "platform/surface.h"
#include "platform/window_place.h"

#include <string>

namespace quandrel {

/// The texts around the drawing.
enum class PlotBox { NumberOfData, Fabric, Description, StatsNormal, StatsAdvanced };

class PlotForm {
public:
    virtual ~PlotForm() = default;

    /// The surface of the net, in plot scale.
    [[nodiscard]] virtual Surface& PlotSurface() = 0;

    /// The surface of the legend, in logical pixels from its top left corner: y runs from 0 at the
    /// top down to minus the height.
    [[nodiscard]] virtual Surface& LegendSurface() = 0;

    virtual void SetCaption(const std::string& caption) = 0;

    /// Shows a text. The plot keeps it; it is never read back from the window.
    virtual void SetBoxText(PlotBox box, const std::string& text) = 0;

    /// The position of the window.
    [[nodiscard]] virtual WindowPlace Place() const = 0;

    /// Moves the window. A position that the screen does not have is ignored.
    virtual void SetPlace(const WindowPlace& place) = 0;

    /// Moves the window to the right of another plot's.
    virtual void PlaceBeside(const PlotForm& neighbour) = 0;

    /// Called at the end of a drawing: the contents of the surfaces may now be shown.
    virtual void Show() = 0;

    /// Brings the window to the front and makes it the active one, before a question about its
    /// plot.
    virtual void Raise() = 0;

    /// Closes the window without asking.
    virtual void Close() = 0;
};

} // namespace quandrel
