// SPDX-License-Identifier: MIT
//
// Densities as continuous fields.

#include "arrays.h"
#include "quandrel/smooth_density.h"

#include <thread>

namespace quandrel::python {

namespace {

using api::DensityPlace;
using api::Line;
using api::SmoothDensity;

SmoothDensity DensityOf(const Array& lines, const std::string& method, bool areAxes, double k,
                        double halfWidth, const std::optional<std::string>& unit,
                        const std::optional<Array>& weights) {
    const api::DensityChoice choice = DensityChoiceOf(method, areAxes, k, halfWidth, unit);
    const auto rows = RowsOf<Line>(lines, "lines");
    const auto numbers = NumbersOf(weights, "weights");
    const py::gil_scoped_release release;
    return SmoothDensity(rows, choice, numbers);
}

Array DensitiesAt(const SmoothDensity& density, const Array& lines) {
    const auto rows = RowsOf<Line>(lines, "lines");
    Array values(static_cast<py::ssize_t>(rows.size()));
    const std::span<double> into(values.mutable_data(), rows.size());
    const py::gil_scoped_release release;
    density.At(rows, into);
    return values;
}

std::vector<Array> ArraysOf(const std::vector<std::vector<Line>>& lines) {
    std::vector<Array> arrays;
    arrays.reserve(lines.size());
    for (const std::vector<Line>& line : lines) {
        arrays.push_back(ArrayOf<Line>(line));
    }
    return arrays;
}

py::dict ContoursOf(const SmoothDensity& density, const std::optional<Array>& levels) {
    const std::vector<double> usual = levels ? std::vector<double>() : density.UsualLevels();
    const std::span<const double> wanted =
        levels ? NumbersOf(*levels, "levels") : std::span<const double>(usual);
    std::vector<api::SphereContour> contours;
    {
        const py::gil_scoped_release release;
        contours = density.Contours(wanted);
    }
    py::dict result;
    for (const api::SphereContour& contour : contours) {
        result[py::float_(contour.level)] = ArraysOf(contour.lines);
    }
    return result;
}

/// Places as rows of plunge, trend and density.
Array MaximaOf(const SmoothDensity& density) {
    const std::vector<DensityPlace> maxima = density.Maxima();
    return ArrayOf<DensityPlace>(maxima);
}

py::tuple SignificantOf(const SmoothDensity& density, std::uint64_t seed) {
    api::SignificantDensity significant;
    {
        const py::gil_scoped_release release;
        significant = density.Significant(seed);
    }
    return py::make_tuple(significant.level, ArraysOf(significant.lines));
}

} // namespace

api::DensityChoice DensityChoiceOf(const std::string& method, bool areAxes, double k,
                                   double halfWidth, const std::optional<std::string>& unit) {
    using api::DensityMethod;
    using api::DensityUnit;
    api::DensityChoice choice;
    choice.method =
        NamedValue<DensityMethod>(method, {{"cone", DensityMethod::kCone},
                                           {"kamb", DensityMethod::kKamb},
                                           {"kamb linear", DensityMethod::kKambLinear},
                                           {"kamb square", DensityMethod::kKambSquare},
                                           {"kamb exponential", DensityMethod::kKambExponential},
                                           {"kernel", DensityMethod::kKernel}});
    choice.sense = areAxes ? api::Sense::kAxes : api::Sense::kDirections;
    choice.k = k;
    choice.halfWidth = halfWidth;
    if (unit) {
        choice.unit =
            NamedValue<DensityUnit>(*unit, {{"percent", DensityUnit::kPerCentInCone},
                                            {"counts", DensityUnit::kCounts},
                                            {"sigma", DensityUnit::kSigma},
                                            {"deviation", DensityUnit::kDeviation},
                                            {"uniform", DensityUnit::kMultiplesOfUniform}});
    }
    choice.threads = std::max(std::thread::hardware_concurrency(), 1U);
    return choice;
}

void BindSmoothDensities(py::module_& module) {
    using namespace py::literals;
    py::class_<SmoothDensity>(module, "SmoothDensity",
                              "A density of lines as a continuous field. Made by "
                              "smooth_density().")
        .def_property_readonly("half_angle", &SmoothDensity::HalfAngle,
                               "of the cone, or where the weight is half of its greatest, degrees")
        .def_property_readonly(
            "greatest",
            [](const SmoothDensity& density) {
                const DensityPlace greatest = density.Greatest();
                return py::make_tuple(greatest.at.plunge, greatest.at.trend, greatest.density);
            },
            "plunge, trend and density of the densest place")
        .def_property_readonly("levels", &SmoothDensity::UsualLevels,
                               "the levels that the program draws at first")
        .def("at", DensitiesAt, "lines"_a,
             "Densities about lines.\n\nlines: (m, 2), plunge and trend in degrees.\n"
             "Returns (m,), in the unit of the density.")
        .def("contours", ContoursOf, "levels"_a = py::none(),
             "Contours at levels, the usual ones without levels.\n\n"
             "Returns a dict: level to a list of arrays (m, 2), plunge and trend in degrees; "
             "project() puts them on a net.")
        .def("maxima", MaximaOf,
             "The local maxima, highest first: an array (m, 3) of plunge, trend and density.")
        .def("significant", SignificantOf, "seed"_a = 950,
             "The envelope of significant density: where it exceeds what as many even lines reach "
             "anywhere with a probability of 5%.\n\n"
             "Returns the level and a list of arrays (m, 2), plunge and trend in degrees. 999 "
             "samples are simulated, which takes some seconds for many lines.");
    module.def("smooth_density", DensityOf, "lines"_a, "method"_a = "kernel", "axes"_a = true,
               "k"_a = 3.0, "half_width"_a = 0.0, "unit"_a = py::none(), "weights"_a = py::none(),
               "The density of lines by one of six methods, as a continuous field.\n\n"
               "lines: (n, 2), plunge and trend in degrees; method: 'kernel', 'kamb', 'kamb "
               "linear', 'kamb square', 'kamb exponential' or 'cone'; axes: False where both ends "
               "differ; k: of Kamb's methods; half_width: of the kernel in degrees, 2 to 60, 0 for "
               "the most likely one; unit: 'uniform', 'sigma', 'deviation', 'counts' or "
               "'percent', the first of the method without; weights: (n,).\n"
               "Returns a SmoothDensity. Raises ValueError without lines.\n"
               "Sources: Kamb (1959), J. Geophys. Res. 64; Vollmer (1995), Computers & "
               "Geosciences 21; Fisher, Lewis, Embleton (1987), ch. 3.");
}

} // namespace quandrel::python
