// SPDX-License-Identifier: MIT
//
// A complete plot in one file, with the extension .qpx: rows, settings, results, annotations, small
// circles, and the place of the window. docs/file_formats.md describes the format.
//
// This folder holds all files that the program writes for itself: plot files, texts of plots,
// workspaces, and the open commands.
// Input: bytes, which are never trusted, or a plot of the store.
// Output: a plot in a slot, or a complete file. A failure leaves both unchanged.

#pragma once

#include "persistence/binary_plot.h"

#include <string>
#include <vector>

namespace quandrel {

inline constexpr const char* kBinaryEnding = ".qpx";

/// Writes a slot to a file. An old file stays until the new one is complete. The record is not
/// changed.
///
/// @return empty on success, else the reason
[[nodiscard]] std::string SaveBinaryPlot(const std::string& path, int slot);

/// Reads the plot of a file without changing the store. A failure is a text for the user.
[[nodiscard]] Result<BinaryPlot> ReadBinaryPlotFile(const std::string& path);

/// Puts a plot into an empty slot, under the name of its file: all of it, or nothing when memory
/// runs out. The next drawing recounts what it needs.
[[nodiscard]] bool StoreBinaryPlot(BinaryPlot plot, const std::string& path, int slot);

/// As StoreBinaryPlot, for the plot of a picture. It has no file of its own, so that a save asks
/// for a name. Its window has the name of the picture, at the place of a new one. Its data have the
/// names that they had, as files in the picture: "/a/figure.svg/beds.txt", which cannot be opened.
///
/// @param picture  the path of the picture
[[nodiscard]] bool StorePlotOfPicture(BinaryPlot plot, const std::string& picture, int slot);

/// Loads a file into an empty slot, which is unchanged when anything is wrong with the file.
///
/// @param[out] version  of the file, "9.5", or "Error"
void LoadBinaryPlot(const std::string& path, int slot, std::string& version);

/// What the user should know about a file after it is opened.
struct BinaryPlotRemarks {
    bool hasWeightedRose = false;     ///< it uses a rose that no longer exists
    std::string laterVersion;         ///< that saved it, empty when it is not later than this one
    bool mixesAxes = false;           ///< it counts over P and T axes together, and opens as points
    bool mixesAxesAsRose = false;     ///< it is a rose of P and T axes together, and opens as a net
    std::vector<std::string> leftOut; ///< what is damaged in its extension, a sentence each
};

[[nodiscard]] BinaryPlotRemarks RemarksOn(const BinaryPlot& plot);

/// Shows the user one message box for each remark.
void TellRemarks(const BinaryPlotRemarks& remarks);

} // namespace quandrel
