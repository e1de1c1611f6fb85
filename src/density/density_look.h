// SPDX-License-Identifier: MIT
//
// The levels and colours in which a density is drawn: those of the layer, of the plot, or of the
// style, in this order.

#pragma once

#include "core/plot_record.h"
#include "density/plot_density.h"
#include "stereo/drawing.h"
#include "stereo/figure_lines.h"

#include <span>
#include <vector>

namespace quandrel {

/// The colour of the band above a level, by the palette of a view.
///
/// @param level   from 0
/// @param levels  how many the plot has
[[nodiscard]] Colour ColourOfBand(const Styles& styles, const RecordDensityView& view, int level,
                                  int levels);

struct DensityLook {
    std::vector<double> levels;   ///< ascending, in the unit of the density
    std::vector<Colour> bands;    ///< of the bands above them
    RecordDensityView view;       ///< of the plot, with the palette in force
    double opacity = 1;           ///< of the bands
    bool hasOwnLevels = false;    ///< the levels are not those that the density has
    bool hasOwnPalette = false;   ///< of the layer
    bool areLinesOfBands = false; ///< contours are the borders of bands of the same data
};

/// The look of a density in the layer of a drawing; without a layer, of the main rows.
///
/// The number of even steps is that of the layer, or of the layer that fills the bands of the same
/// data. A plot with the first rule of levels takes the steps of the style where it has bands; any
/// other rule is the choice of the plot. A layer with a colour and without a palette has bands from
/// nearly white to this colour.
[[nodiscard]] DensityLook LookOfDensity(const PlotRecord& record, const Drawing& drawing,
                                        const PlotDensity& density);

/// The levels that a layer or a style gives a density, LookOfDensity's if they are not those that
/// the density has; else empty.
[[nodiscard]] std::vector<double> OwnLevelsOf(const PlotRecord& record, const FigureStyle& figure,
                                              const FigureLayer& layer, const PlotDensity& density);

/// The contours of a density at the levels of a look: kept ones, or traced now.
class LookContours {
public:
    LookContours(const PlotDensity& density, const DensityLook& look);
    LookContours(const LookContours&) = delete;
    LookContours& operator=(const LookContours&) = delete;

    [[nodiscard]] std::span<const PlotDensity::Contour> All() const { return all_; }

private:
    std::vector<PlotDensity::Contour> own_;
    std::span<const PlotDensity::Contour> all_;
};

/// The look of the contour of a level: of the layer, of contours over bands in the style, or of the
/// tables. In a style with a palette, levels with the style of the first run have the colours of
/// the palette's darker half.
///
/// @param level  from 0
[[nodiscard]] LineLook LookOfContour(const Surface& surface, const Drawing& drawing,
                                     const DensityLook& look, int level);

/// The same of the contours of a plot's counts (density/contours.h).
///
/// @param levels  how many the plot has
[[nodiscard]] LineLook LookOfCountContour(const Surface& surface, const Drawing& drawing,
                                          const PlotRecord& record, int level, int levels);

} // namespace quandrel
