// SPDX-License-Identifier: MIT
//
// Points added by hand to the active plot: rows on the data layer, marks on the annotation layer.

#pragma once

#include "core/plot_record.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace quandrel {

/// Adds a point at a position on the net, on the layer being edited. Does nothing outside the net
/// and on a rose; a position on the primitive is on the net.
///
/// A point has the decimals of its position. On the data layer the right button makes an upward
/// line, or a plane with a negative dip, at the same position. Without overlays, a point in a plot
/// of planes is the pole of the plane that is added.
///
/// @param button  kLeftMouseButton or kRightMouseButton
/// @param x,y     plot units
void AddStereoPoint(int button, double x, double y);

/// A row added by hand, in degrees. It is measured: it keeps six decimals.
struct DegreesByHand {
    double dip = 0;     ///< of a plane, or the plunge of a line: negative when it points up
    double azimuth = 0; ///< dip direction or trend
    /// In whole degrees a negative dip that rounds to 0 leaves the azimuth as it is. Else it is
    /// that of a line, which turns.
    bool keepsAzimuth = false;
};

/// Whether a row can be added to gActivePlot: not to a rose, not over intersections (with a
/// message), and not while a long loop runs. Asks first when the plot would lose its link to a
/// table or to its parent plot.
[[nodiscard]] bool MayAddRow();

/// Stores a row after the others of gActivePlot, once MayAddRow has allowed it, and ends the links
/// that it breaks. Over overlays the row is a polar line of the top overlay, if that was made by
/// hand, or else of a new one; the same applies over secondary data, which have no row without a
/// primary orientation. Secondary and appended values are missing. Neither undoable nor drawn.
///
/// @return false when no row was added: another overlay is not possible, which is reported, or
///         memory ran out
[[nodiscard]] bool StoreRowByHand(DegreesByHand row);

/// MayAddRow and StoreRowByHand, undoable and drawn.
/// @return false when no row was added
bool AddRowByHand(DegreesByHand row);

/// AddRowByHand for two texts of degrees.
bool AddPointToPlot(const std::string& dipText, const std::string& azText);

/// True for an overlay of points added by hand.
[[nodiscard]] bool IsOverlayMadeByHand(const PlotRecord& record, int overlay);

/// The top overlay of a plot that takes rows added by hand or pasted; it is made if necessary.
/// Nothing, with a message, when there are too many.
[[nodiscard]] std::optional<int> OverlayForAddedRows(PlotRecord& record);

} // namespace quandrel
