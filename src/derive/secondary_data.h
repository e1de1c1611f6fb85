// SPDX-License-Identifier: MIT
//
// The secondary data of a plot: as the plotted set, as an overlay over the primary data, as slip
// arrows. All procedures work on gActivePlot.

#pragma once

namespace quandrel {

/// Symbol buttons of the secondary data, after those of the drawing modes.
enum SecondaryButton : int {
    kOverlaySecondary = 7, ///< after the buttons of the drawing modes
    kSlipArrowsAlone,
    kSlipArrowsOnPlanes,
    kSlipArrowsOnPoles,
};

/// Ways to show slip arrows. NumSymbolsInPlot is one more than the one in force.
enum SlipArrowOption : int { kArrowsAlone = 0, kArrowsOnPlanes = 1, kArrowsOnPoles = 2 };

/// Plots the other set of the rows, as its own kind. Does nothing without a secondary set, or in a
/// plot with overlays.
void ToggleSecondaryData();

/// Adds the secondary data as an overlay, after the existing ones, and draws the plot. Reports when
/// the secondary data are the plotted set already.
///
/// The overlay has a row for each main row, in the same order; a row that lacks either orientation
/// is an error row.
void MakeSecondaryOverlay();

/// Adds the overlay of the secondary data, or removes it together with all overlays above it.
void SetOverlaySecondary(bool on);

/// Copies the secondary data into their overlay again, after a change of the main rows. Does not
/// draw. An overlay below others keeps its rows when the number of main rows has changed.
void RefreshSecondaryOverlay();

/// Shows the rows as slip arrows: at the slip lines alone, at the slip lines with the planes as
/// great circles, or at the poles of the planes. Asks when rows of another kind would be used as
/// faults, or an overlay would be lost; nothing changes when the user cancels.
///
/// @param option  a SlipArrowOption
void SetSlipArrows(int option);

/// Ends the slip arrows of a button.
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
