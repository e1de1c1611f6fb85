// SPDX-License-Identifier: MIT
//
// Points set by hand on the active plot: rows on the data layer, marks on the annotation layer.

#pragma once

#include "core/plot_record.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace quandrel {

/// Takes a plot out of the table of linked plots. Set by those who keep links; may be empty.
extern std::function<void(std::int32_t slot)> gRemoveGeoLink;

/// A point at a place of the net, on the layer that is edited. Outside the net, and on a rose,
/// nothing happens; a place on the primitive is on the net.
///
/// On the data layer the right button makes an upward line, or a plane with a negative dip: the
/// point shows at the same place. Without overlays a point of a plot of planes is the pole of the
/// plane that is added.
///
/// @param button  kLeftMouseButton or kRightMouseButton
/// @param x,y     plot units
void AddStereoPoint(int button, double x, double y);

/// A row set by hand, in degrees; a fraction is rounded, halves to even.
struct DegreesByHand {
    double dip = 0;     ///< of a plane, or the plunge of a line: negative where it points up
    double azimuth = 0; ///< dip direction or trend
};

/// Whether a row can be added to gActivePlot: not to a rose, nor over intersections, which is told,
/// nor while a long loop runs. Asks first when the plot would lose its link to a table or to its
/// parent plot.
[[nodiscard]] bool MayAddRow();

/// Stores a row after the others of gActivePlot, once MayAddRow has allowed it, and ends the links
/// that it breaks. Over overlays the row is a polar line of the top overlay, when that was
/// made by hand, or of a new one; so it is over secondary data, which have no row without a primary
/// orientation. Secondary and appended values are missing. Neither kept for undo nor drawn.
///
/// @return false when no row was added: there is no room for another overlay, which is told, or
///         memory ran out
[[nodiscard]] bool StoreRowByHand(DegreesByHand row);

/// MayAddRow and StoreRowByHand, kept for undo and drawn.
/// @return false when no row was added
bool AddRowByHand(DegreesByHand row);

/// AddRowByHand for two texts of degrees.
bool AddPointToPlot(const std::string& dipText, const std::string& azText);

/// True for an overlay of points set by hand.
[[nodiscard]] bool IsOverlayMadeByHand(const PlotRecord& record, int overlay);

/// The overlay on the top of a plot that takes rows added by hand or pasted, made if need be;
/// nothing when there are too many, which is told.
[[nodiscard]] std::optional<int> OverlayForAddedRows(PlotRecord& record);

} // namespace quandrel
