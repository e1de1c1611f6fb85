// SPDX-License-Identifier: MIT
//
// The rows of a table of the map session as rows of a plot.

#pragma once

#include <string>

namespace quandrel {

/// Plots the rows of a table through the data format dialog, which shows it as a file with tabs and
/// named columns, and links them. Rows of the table that are no data become error rows, as lines of
/// a file do, and are not linked; those that the session cannot fetch are left out. All failures
/// are told. Does nothing without a link.
///
/// @param table    a table of the session, or "Selection": its rows are linked to those of the
///                 table that they come from
/// @param command  kNewCommand: a new plot. kBlankCommand: the active plot if it is empty, else a
///                 new one. kMergeCommand: the active plot, whose top overlay takes the rows if
///                 there is one; one that is linked already is refused
/// @return the command, or kLoadError when nothing came of it
std::string PasteMITable(const std::string& table, const std::string& command);

} // namespace quandrel
