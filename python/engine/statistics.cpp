// SPDX-License-Identifier: MIT
//
// Statistics of fabrics and of azimuths, roses.

#include "arrays.h"
#include "quandrel/circular.h"
#include "quandrel/fabric.h"
#include "quandrel/rose.h"

#include <algorithm>
#include <thread>

namespace quandrel::python {

namespace {

using api::Line;
using api::Sense;

Sense SenseOf(bool areAxes) {
    return areAxes ? Sense::kAxes : Sense::kDirections;
}

api::Fabric FabricOf(const Array& lines, const std::optional<Array>& counts, bool axes) {
    const auto rows = RowsOf<Line>(lines, "lines");
    const auto weights = NumbersOf(counts, "counts");
    std::optional<api::Fabric> fabric;
    {
        const py::gil_scoped_release release;
        fabric = api::FabricOf(rows, weights, SenseOf(axes));
    }
    if (!fabric) {
        throw py::value_error("there are no lines");
    }
    return *fabric;
}

py::tuple EigenvectorsOf(const Array& rows) {
    const unsigned threads = std::max(std::thread::hardware_concurrency(), 1U);
    std::optional<api::PrincipalAxes> axes;
    if (rows.ndim() == 2 && rows.shape(1) == 3) {
        const auto vectors = RowsOf<api::Vector>(rows, "rows");
        const py::gil_scoped_release release;
        axes = api::PrincipalAxesOf(vectors, threads);
    } else {
        const auto lines = RowsOf<Line>(rows, "rows");
        const py::gil_scoped_release release;
        axes = api::PrincipalAxesOf(lines, threads);
    }
    if (!axes) {
        throw py::value_error("there are no lines");
    }
    return py::make_tuple(Array(3, axes->eigenvalues.data()), ArrayOf<Line>(axes->axes));
}

Array OrientationTensor(const Array& lines, const std::optional<Array>& weights) {
    const auto tensor =
        api::OrientationTensorOf(RowsOf<Line>(lines, "lines"), NumbersOf(weights, "weights"));
    if (!tensor) {
        throw py::value_error("there are no lines");
    }
    return ArrayOf<std::array<double, 3>>(*tensor);
}

std::optional<std::pair<double, double>> PairOf(const std::optional<Line>& line) {
    return line ? std::optional(std::pair(line->plunge, line->trend)) : std::nullopt;
}

api::CircularStatistics CircularOf(const Array& azimuths, bool axes,
                                   const std::optional<Array>& weights) {
    const auto numbers = NumbersOf(azimuths, "azimuths");
    const auto counts = NumbersOf(weights, "weights");
    std::optional<api::CircularStatistics> statistics;
    {
        const py::gil_scoped_release release;
        statistics = api::CircularStatisticsOf(numbers, SenseOf(axes), counts);
    }
    if (!statistics) {
        throw py::value_error("there are no azimuths");
    }
    return *statistics;
}

py::dict RoseOf(const Array& azimuths, double sectorSize, double start, bool axes) {
    const api::Rose rose =
        api::RoseOf(NumbersOf(azimuths, "azimuths"),
                    {.sectorSize = sectorSize, .start = start, .sense = SenseOf(axes)});
    const auto n = static_cast<py::ssize_t>(rose.sectors.size());
    Array from(n);
    Array size(n);
    Array count(n);
    Array length(n);
    for (py::ssize_t i = 0; i < n; ++i) {
        const api::RoseSector& sector = rose.sectors[static_cast<std::size_t>(i)];
        from.mutable_at(i) = sector.from;
        size.mutable_at(i) = sector.size;
        count.mutable_at(i) = sector.count;
        length.mutable_at(i) = sector.length;
    }
    py::dict result;
    result["from"] = from;
    result["size"] = size;
    result["count"] = count;
    result["length"] = length;
    return result;
}

void BindFabric(py::module_& module) {
    using api::Fabric;
    py::class_<Fabric>(module, "Fabric",
                       "Statistics of lines as axes; angles in degrees. Made by fabric().")
        .def_readonly("count", &Fabric::count, "n, the sum of the counts")
        .def_property_readonly(
            "eigenvalues", [](const Fabric& fabric) { return Array(3, fabric.eigenvalues.data()); },
            "(3,), E1 <= E2 <= E3; their sum is 1")
        .def_property_readonly(
            "axes", [](const Fabric& fabric) { return ArrayOf<Line>(fabric.axes); },
            "(3, 2), plunge and trend of the principal axes, in the same order")
        .def_property_readonly(
            "mean_of_axes", [](const Fabric& fabric) { return PairOf(fabric.meanOfAxes); },
            "plunge and trend of the mean of the lines as downward vectors, or None")
        .def_readonly("resultant_length_of_axes", &Fabric::resultantLengthOfAxes, "R/n, 0 to 1")
        .def_readonly("log_ratio_12", &Fabric::logRatio12, "ln(E2/E1), or None")
        .def_readonly("log_ratio_23", &Fabric::logRatio23, "ln(E3/E2), or None")
        .def_readonly("gamma", &Fabric::gamma, "shape, or None")
        .def_readonly("zeta", &Fabric::zeta, "strength, ln(E3/E1), or None")
        .def_readonly("cone_angle", &Fabric::coneAngle,
                      "half-angle of the 95% cone of the principal axis, or None")
        .def_property_readonly(
            "mean",
            [](const Fabric& fabric) {
                return fabric.fisher ? PairOf(fabric.fisher->mean) : std::nullopt;
            },
            "plunge and trend of the mean of directions, or None")
        .def_property_readonly(
            "kappa",
            [](const Fabric& fabric) {
                return fabric.fisher ? fabric.fisher->kappa : std::nullopt;
            },
            "Fisher's precision of directions, (n - 1) / (n - R), or None");
}

void BindCircular(py::module_& module) {
    using api::CircularStatistics;
    py::class_<CircularStatistics>(module, "Circular",
                                   "Statistics of azimuths in degrees. Made by circular().\n"
                                   "Source: Fisher (1993), Statistical Analysis of Circular Data.")
        .def_readonly("count", &CircularStatistics::count, "n")
        .def_readonly("mean", &CircularStatistics::meanDirection, "0 to 360, of axes to 180")
        .def_property_readonly(
            "resultant_length",
            [](const CircularStatistics& one) { return one.resultantLength[0]; }, "R, 0 to 1")
        .def_readonly("variance", &CircularStatistics::variance, "0 to 1")
        .def_readonly("standard_deviation", &CircularStatistics::standardDeviation, "degrees")
        .def_readonly("kappa", &CircularStatistics::kappa, "von Mises concentration")
        .def_property_readonly(
            "median", [](const CircularStatistics& one) { return one.median.median; }, "degrees")
        .def_property_readonly(
            "rayleigh_probability",
            [](const CircularStatistics& one) { return one.rayleigh.probability; },
            "that azimuths without a preferred direction have such a resultant")
        .def_property_readonly(
            "kuiper_probability",
            [](const CircularStatistics& one) { return one.kuiper.probability; },
            "that even azimuths have such a range");
}

} // namespace

void BindStatistics(py::module_& module) {
    using namespace py::literals;
    BindFabric(module);
    BindCircular(module);
    module.def("fabric", FabricOf, "lines"_a, "counts"_a = py::none(), "axes"_a = true,
               "Principal axes and statistics of lines.\n\n"
               "lines: (n, 2), plunge and trend in degrees (poles of planes: poles_of_planes); "
               "counts: (n,), how often each counts; axes: False for lines with a sense, which "
               "also have Fisher's statistics.\nReturns a Fabric. Raises ValueError without "
               "lines.");
    module.def(
        "eigenvectors", EigenvectorsOf, "rows"_a,
        "Eigenvalues and axes of the orientation tensor.\n\n"
        "rows: (n, 2), plunge and trend in degrees, or (n, 3), vectors of any length: north, "
        "east, down.\nReturns the eigenvalues (3,), E1 <= E2 <= E3, and the plunges and "
        "trends of their axes (3, 2). Raises ValueError without lines.\n"
        "Source: Scheidegger (1965), USGS Prof. Paper 525-C.");
    module.def("orientation_tensor", OrientationTensor, "lines"_a, "weights"_a = py::none(),
               "The orientation tensor of lines, the mean of v v^T.\n\n"
               "lines: (n, 2), plunge and trend in degrees; weights: (n,).\n"
               "Returns (3, 3): north, east, down.");
    module.def("circular", CircularOf, "azimuths"_a, "axes"_a = false, "weights"_a = py::none(),
               "Statistics of azimuths.\n\nazimuths: (n,), degrees; axes: whether both ends "
               "count; weights: (n,).\nReturns a Circular. Raises ValueError without azimuths.");
    module.def("rose", RoseOf, "azimuths"_a, "sector_size"_a = 10.0, "start"_a = 0.0,
               "axes"_a = true,
               "Azimuths counted in sectors.\n\nazimuths: (n,), degrees; sector_size: 1 to 360; "
               "start: azimuth at which the first sector begins; axes: whether both ends "
               "count.\nReturns a dict of arrays: from, size, count, length (1 is the longest "
               "petal).");
}

} // namespace quandrel::python
