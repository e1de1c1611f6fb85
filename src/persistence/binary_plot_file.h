// SPDX-License-Identifier: MIT
//
// Plots whole in one file, with the extension .qpx: rows, settings, results, annotations, small
// circles, and the place of the window. The format is told in docs/file_formats.md.
//
// This is the chief header of the folder, which holds all files that the program writes for itself:
// plot files, texts of plots, workspaces, and the open commands. Enters: bytes, which are never
// trusted, or a plot of the store. Leaves: a plot in a slot, or a file that is whole; what fails
// leaves both as they were.

#pragma once

#include "persistence/binary_plot.h"

#include <string>

namespace quandrel {

inline constexpr const char* kBinaryEnding = ".qpx";

/// Writes a slot to a file. What was there stays until the new file is whole. The record is not
/// touched.
///
/// @return empty on success, else why not
[[nodiscard]] std::string SaveBinaryPlot(const std::string& path, int slot);

/// The plot of a file; nothing of it goes into the store. A failure is a text for the user.
[[nodiscard]] Result<BinaryPlot> ReadBinaryPlotFile(const std::string& path);

/// Puts a plot into an empty slot, under the name of its file: all of it, or nothing when memory
/// runs out. The drawing to come counts anew what it needs.
[[nodiscard]] bool StoreBinaryPlot(BinaryPlot plot, const std::string& path, int slot);

/// Loads a file into an empty slot, which stays as it is when anything is wrong with the file.
///
/// @param[out] version  of the file, "9.5", or "Error"
void LoadBinaryPlot(const std::string& path, int slot, std::string& version);

/// What the user is to know of a file once it is open.
struct BinaryPlotRemarks {
    bool hasWeightedRose = false; ///< it asks for a rose that is no more
    std::string laterVersion;     ///< that saved it, empty when it is not later than this one
    bool mixesAxes = false;       ///< it counts over P and T axes together, and opens as points
    bool mixesAxesAsRose = false; ///< it is a rose of P and T axes together, and opens as a net
};

[[nodiscard]] BinaryPlotRemarks RemarksOn(const BinaryPlot& plot);

/// Tells the user, one box for each remark.
void TellRemarks(const BinaryPlotRemarks& remarks);

} // namespace quandrel
