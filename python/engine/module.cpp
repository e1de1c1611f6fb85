// SPDX-License-Identifier: MIT

#include "arrays.h"
#include "quandrel/version.h"

namespace quandrel::python {

std::span<const double> NumbersOf(const Array& array, const char* name) {
    if (array.ndim() != 1) {
        throw py::value_error(std::string(name) + " must be an array of shape (n,)");
    }
    return {array.data(), static_cast<std::size_t>(array.shape(0))};
}

std::span<const double> NumbersOf(const std::optional<Array>& array, const char* name) {
    return array ? NumbersOf(*array, name) : std::span<const double>();
}

} // namespace quandrel::python

PYBIND11_MODULE(_engine, module) {
    using namespace quandrel::python;
    module.doc() = "The engine of Quandrel: orientations in degrees, as arrays.";
    constexpr int kThousand = 1000;
    module.attr("__version__") = std::to_string(quandrel::api::ApiVersion() / kThousand) + "."
                                 + std::to_string(quandrel::api::ApiVersion() % kThousand);
    BindOrientations(module);
    BindNotation(module);
    BindStatistics(module);
    BindNets(module);
    BindSmoothDensities(module);
    BindRegions(module);
    BindTables(module);
    BindClasses(module);
    BindFigures(module);
    BindSummaries(module);
}
