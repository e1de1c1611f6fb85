// SPDX-License-Identifier: MIT
//
// The secondary data of a plot: as the plotted set, as an overlay over the primary data, as slip
// arrows. All procedures work on gActivePlot.

#pragma once

namespace quandrel {

/// Symbol buttons of the secondary data, behind those of the drawing modes.
enum SecondaryButton : int {
    kOverlaySecondary = 7, ///< after the buttons of the drawing modes
    kSlipArrowsAlone,
    kSlipArrowsOnPlanes,
    kSlipArrowsOnPoles,
};

/// Ways to show slip arrows. NumSymbolsInPlot is one more than the one in force.
enum SlipArrowOption : int { kArrowsAlone = 0, kArrowsOnPlanes = 1, kArrowsOnPoles = 2 };

/// Plots the other set of the rows, as what it is. Does nothing without a secondary set, or in a
/// plot with overlays.
void ToggleSecondaryData();

/// Lays the secondary data over the primary data as an overlay, behind those that are there, and
/// draws the plot. Tells when the secondary data are the plotted set already.
///
/// The overlay has a row for each main row, in their order; one that lacks either orientation is an
/// error row.
void MakeSecondaryOverlay();

/// Lays the secondary data over the primary data, or takes them off again, with all overlays that
/// were laid over them.
void SetOverlaySecondary(bool on);

/// Copies the secondary data into their overlay once more, after a change of the main rows. Does
/// not draw. An overlay that lies below others keeps its rows when the main rows have become more
/// or fewer.
void RefreshSecondaryOverlay();

/// Shows the rows as slip arrows: at the slip lines alone, at the slip lines with the planes as
/// great circles, or at the poles of the planes. Asks where rows of another kind have to stand for
/// faults, or an overlay is in the way; nothing changes when the user cancels.
///
/// @param option  a SlipArrowOption
void SetSlipArrows(int option);

/// Ends the slip arrows that a button stands for.
///
/// Kept: after the arrows on planes, the planes stay great circles and their lines stay, as an
/// overlay like any other; after the others the rows are drawn as symbols.
void ReleaseSlipArrows(int option);

/// True when a button of the secondary data is down.
[[nodiscard]] bool IsSecondaryButtonDown(int button);

/// Presses or releases a button of the secondary data. Does nothing while a long loop runs, in a
/// rose, or in a plot without rows or a secondary set.
void SetSecondaryButton(int button, bool down);

} // namespace quandrel
