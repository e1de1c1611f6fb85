// SPDX-License-Identifier: MIT
//
// The density of a plot by its own choice of method, unit and levels.
//
// Plots that keep the first choice, the counting cone in per cent with doubling levels as lines,
// show the counts of grid_density.h and point_density.h. All others show the field of this header,
// in all modes. The record's fields of densities stay those of the counting cone.

#pragma once

#include "core/plot.h"
#include "density/density_field.h"
#include "density/density_rows.h"
#include "density/even_maxima.h"
#include "density/field_contours.h"
#include "density/field_maxima.h"
#include "platform/status_line.h"
#include "stereo/distinct_lines.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace quandrel {

/// Whether a plot has a choice of its own, and so shows the field.
[[nodiscard]] bool HasDensityChoice(const RecordDensityView& view);

/// The density of the main rows of a plot. Values are in the unit that the plot shows.
class PlotDensity {
public:
    /// @param rows  must outlive the density
    PlotDensity(DensityRows& rows, const RecordDensityView& view, const DensityFormula& formula,
                unsigned threads);

    [[nodiscard]] const DensityFormula& Formula() const { return field_.Formula(); }

    [[nodiscard]] DensityUnit Unit() const { return unit_; }

    [[nodiscard]] double ValueAt(const MeasuredLine& line) const;

    /// The greatest density at a place of the net, and that place.
    [[nodiscard]] const FieldMaximum& Greatest() const { return greatest_; }

    /// Levels, ascending.
    [[nodiscard]] std::span<const double> Levels() const { return levels_; }

    /// How many levels a place reaches.
    [[nodiscard]] int LevelsReachedAt(const MeasuredLine& line) const {
        return ReachedAt(line, levels_);
    }

    /// How many of any levels a place reaches.
    [[nodiscard]] int ReachedAt(const MeasuredLine& line, std::span<const double> levels) const;

    /// The contours of all levels, and the regions within them, in the order of the levels.
    struct Contour {
        std::vector<FieldLine> lines;
        std::vector<std::vector<NetPlace>> region; ///< to be filled by the even-odd rule
    };

    [[nodiscard]] std::span<const Contour> Contours() const { return contours_; }

    /// The same at any levels, which are traced at each call. 5 ms for each level.
    [[nodiscard]] std::vector<Contour> ContoursAt(std::span<const double> levels) const;

    /// Traces contours at further levels and keeps them, of up to four sets of levels.
    void KeepContoursAt(const std::vector<double>& levels);

    /// The contours that are kept of some levels; null for others.
    [[nodiscard]] const std::vector<Contour>* KeptAt(std::span<const double> levels) const;

    /// The outlines of where the sum of weights exceeds a value, and this value in the unit. Around
    /// greater counts they run half-way to the next whole number, as contours do.
    [[nodiscard]] std::vector<FieldLine> LinesAbove(double sum) const;
    [[nodiscard]] double ValueOfSum(double sum) const;

    /// The local maxima on the net that reach the first level, highest first; of those within the
    /// cone of the method, or the half-width of a kernel, about each other only the highest.
    [[nodiscard]] std::vector<FieldMaximum> Maxima() const;

private:
    [[nodiscard]] double SumAt(const NetPlace& place) const;
    [[nodiscard]] NetField OnNet() const;
    [[nodiscard]] double SumOfLevel(double level) const;

    DensityField field_;
    DensityUnit unit_;
    bool isCount_; ///< sums are whole numbers of rows: contours run half-way between them
    std::vector<double> nodes_; ///< sums at whole degrees of the net
    FieldMaximum greatest_;
    std::vector<double> levels_;
    std::vector<Contour> contours_;

    struct KeptContours {
        std::vector<double> levels;
        std::vector<Contour> contours;
    };

    std::vector<KeptContours> kept_; ///< at further levels, the latest last
};

/// The density of some lines, with the rows that it is computed from.
class LinesDensity {
public:
    /// @param lines  not empty
    /// @param sense  of axes, the signs of plunges are ignored
    /// @param view   of which the colours do not count
    LinesDensity(const RowLines& lines, LineSense sense, const RecordDensityView& view);

    [[nodiscard]] const PlotDensity& Density() const { return *density_; }

    [[nodiscard]] PlotDensity& Density() { return *density_; }

    /// Whether another view would give the same density.
    [[nodiscard]] bool IsOf(const RecordDensityView& view) const;

private:
    std::unique_ptr<DensityRows> rows_;
    RecordDensityView view_;
    std::unique_ptr<PlotDensity> density_;
};

/// The outline of significant density: where it exceeds what as many even rows reach anywhere with
/// a probability of 5%.
struct DensityEnvelope {
    double level = 0; ///< in the unit of the density
    double error = 0; ///< by the chance of the simulation, in this unit
    std::vector<FieldLine> lines;
};

/// Computes the density of a plot with a choice of its own, if it is out of date, and keeps it with
/// the plot; drops it from others. Its envelope, which takes some seconds for many rows, is
/// computed when it is to be shown; if the user stops that, there is none until the rows or the
/// method change.
///
/// @param watcher  the status line, or null
void WorkOutDensity(Plot& plot, StatusLine* watcher);

/// The density that WorkOutDensity computed; null without one.
[[nodiscard]] const PlotDensity* DensityOf(const Plot& plot);

/// The same, to keep further contours in.
[[nodiscard]] PlotDensity* ChangingDensityOf(Plot& plot);

/// Its envelope, if the plot shows it; null without one.
[[nodiscard]] const DensityEnvelope* EnvelopeOf(const Plot& plot);

} // namespace quandrel
