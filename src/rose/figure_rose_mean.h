// SPDX-License-Identifier: MIT
//
// The mean direction of a rose in the style of a figure: a line in the accent colour from the
// centre to the rim, with a head for a direction and through both ends for an axis, and the arc of
// its confidence on the rim.

#pragma once

#include "core/plot.h"
#include "rose/rose_confidence.h"
#include "stereo/drawing.h"
#include "stereo/figure_lines.h"

#include <optional>
#include <vector>

namespace quandrel {

/// The mean that a figure shows.
struct FigureMean {
    double azimuth = 0;              ///< radians, of an axis below pi
    std::optional<double> halfWidth; ///< of the 95% interval that is shown, radians
    ConfidenceMethod method = ConfidenceMethod::kByDispersion; ///< of the interval
};

/// Whether Rayleigh's test of the azimuths that a rose counts, each once, rejects at 5% that they
/// are uniform. O(n), or O(1) for frequencies without a bias correction.
[[nodiscard]] bool IsMeanSignificant(const Plot& plot);

/// The mean of a rose whose results are worked out, with its interval where both are switched on
/// (RoseDisplay7, RoseDisplay8); empty without one, and where the style wants it only if it is
/// significant and it is not.
[[nodiscard]] std::optional<FigureMean> MeanOfFigure(const Plot& plot, const Drawing& drawing);

/// The azimuths of the ends of a mean in the part that the rose shows, radians.
[[nodiscard]] std::vector<double> EndsOfMean(const Plot& plot, const FigureMean& mean);

/// The line of the mean.
[[nodiscard]] LineLook LookOfMean(const Drawing& drawing);

void DrawFigureMean(const Plot& plot, const Drawing& drawing);

} // namespace quandrel
