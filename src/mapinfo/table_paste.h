// SPDX-License-Identifier: MIT
//
// Rows of a table of the map session as rows of a plot.

#pragma once

#include <string>

namespace quandrel {

/// Plots the rows of a table through the data format dialog, which shows it as a file with tabs and
/// named columns, and links them. Rows of the table without data become error rows, as lines of a
/// file do, and are not linked; rows that the session cannot fetch are left out. Reports all
/// failures. Does nothing without a link.
///
/// @param table    a table of the session, or "Selection": its rows are linked to the rows of the
///                 table that they come from
/// @param command  kNewCommand: a new plot. kBlankCommand: the active plot if it is empty, else a
///                 new one. kMergeCommand: the active plot, or its top overlay if it has overlays;
///                 a plot that is linked already is refused
/// @return the command, or kLoadError when nothing was pasted
std::string PasteMITable(const std::string& table, const std::string& command);

} // namespace quandrel
