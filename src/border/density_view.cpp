// SPDX-License-Identifier: MIT

#include "border/density_view.h"

#include "border/border.h"
#include "density/density_levels.h"
#include "density/density_method.h"

#include <stdexcept>

namespace quandrel::api {

namespace {

constexpr double kLeastHalfWidth = 2; ///< degrees
constexpr double kMostHalfWidth = 60;

} // namespace

RecordDensityView ViewIn(const DensityChoice& choice) {
    RecordDensityView view;
    view.DensityMethod = static_cast<std::int16_t>(
        Within(static_cast<int>(choice.method), kDensityByCone, kDensityByKernel, "method"));
    view.DensityK = Within(choice.k, kSmallestKambK, kLargestKambK, "k");
    view.KernelWidth = choice.halfWidth == 0 ? 0
                                             : Within(choice.halfWidth, kLeastHalfWidth,
                                                      kMostHalfWidth, "half-width");
    if (choice.unit) {
        view.DensityUnit = static_cast<std::int16_t>(*choice.unit);
        if (!HasUnit(static_cast<quandrel::DensityMethod>(view.DensityMethod),
                     static_cast<quandrel::DensityUnit>(view.DensityUnit))) {
            throw std::invalid_argument("the method does not have this unit");
        }
    }
    view.DensityUnit = static_cast<std::int16_t>(UnitShown(view));
    return view;
}

} // namespace quandrel::api
