// SPDX-License-Identifier: MIT
//
// The levels of a density in the unit that a plot shows.

#pragma once

#include "core/record_density_view.h"
#include "density/density_method.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// Levels from a text: numbers above 0, separated by commas, semicolons or blanks, in any order and
/// each once. Nothing when a part is not such a number, or there are none or more than kMostLevels.
[[nodiscard]] std::optional<std::vector<double>> LevelsOfText(std::string_view text);

/// The unit in which a plot shows densities: its own if the method has it, else the first unit of
/// the method.
[[nodiscard]] DensityUnit UnitShown(const RecordDensityView& view);

/// The levels of a plot's rule below the greatest density, ascending.
///
/// Doubling levels begin at 1, or at 2 in units of deviations; even ones at their step, of which a
/// round one gives four to nine levels.
///
/// @param greatest  in the unit shown
[[nodiscard]] std::vector<double> LevelsOf(const RecordDensityView& view, double greatest);

/// Even levels that leave a number of bands up to the greatest density, ascending. Their step is
/// rounded down to one digit, or to two where that shortens it by more than a tenth.
///
/// @param greatest  levels of one that is not above 0 are none
/// @param bands     1 to kMostLevels
[[nodiscard]] std::vector<double> LevelsInBands(double greatest, int bands);

/// A value of a unit with its name: "4 sigma", "2 x uniform", "3%".
[[nodiscard]] std::string TextInUnit(double value, DensityUnit unit);

/// The unit in words, for a legend: "Multiples of uniform".
[[nodiscard]] std::string NameOfUnit(DensityUnit unit);

/// The method in words with what was chosen of it: "Kamb, k = 3", "Kernel, half-width 9.5°".
///
/// @param formula  of the rows
/// @param k        of Kamb's methods
[[nodiscard]] std::string NameOfMethod(const DensityFormula& formula, double k);

} // namespace quandrel
