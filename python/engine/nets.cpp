// SPDX-License-Identifier: MIT
//
// The net, densities and their contours.

#include "arrays.h"
#include "quandrel/density.h"
#include "quandrel/net.h"

#include <vector>

namespace quandrel::python {

namespace {

using api::Line;
using api::NetPoint;
using api::Projection;

Array Project(const Array& lines, const std::string& projection) {
    const Projection kind = ProjectionOf(projection);
    return Mapped<Line, NetPoint>(
        lines, "lines", [kind](auto from, auto to) { api::ProjectLines(from, kind, to); });
}

Array TraceOfPlane(double dip, double dipDirection, const std::string& projection) {
    return ArrayOf<NetPoint>(api::TraceOfPlane({dip, dipDirection}, ProjectionOf(projection)));
}

std::vector<Array> Arrays(const std::vector<api::NetLine>& lines) {
    std::vector<Array> arrays;
    arrays.reserve(lines.size());
    for (const api::NetLine& line : lines) {
        arrays.push_back(ArrayOf<NetPoint>(line));
    }
    return arrays;
}

std::vector<Array> TraceOfCone(const std::array<double, 2>& axis, double halfAngle,
                               const std::string& projection) {
    return Arrays(api::TraceOfCone({axis[0], axis[1]}, halfAngle, ProjectionOf(projection)));
}

api::DensityField Density(const Array& lines, const std::string& projection, int gridSize) {
    const auto rows = RowsOf<Line>(lines, "lines");
    const Projection kind = ProjectionOf(projection);
    const py::gil_scoped_release release;
    return api::DensityFieldOf(rows, kind, gridSize);
}

/// The counts of a field, which keeps them.
py::array_t<std::int32_t> CountsOf(const py::object& self) {
    const auto& field = self.cast<const api::DensityField&>();
    const auto n = static_cast<py::ssize_t>(field.nodes);
    py::array_t<std::int32_t> counts({n, n}, field.counts.data(), self);
    counts.attr("setflags")(py::arg("write") = false);
    return counts;
}

py::dict ContoursOf(const api::DensityField& field, const std::optional<Array>& levels) {
    const std::vector<double> usual = levels ? std::vector<double>() : api::UsualLevels(field);
    const std::span<const double> wanted =
        levels ? NumbersOf(*levels, "levels") : std::span<const double>(usual);
    py::dict contours;
    for (const api::Contour& contour : api::ContoursOf(field, wanted)) {
        contours[py::float_(contour.level)] = Arrays(contour.lines);
    }
    return contours;
}

} // namespace

Projection ProjectionOf(const std::string& name) {
    return NamedValue<Projection>(
        name, {{"equal area", Projection::kEqualArea}, {"equal angle", Projection::kEqualAngle}});
}

void BindNets(py::module_& module) {
    using namespace py::literals;
    py::class_<api::DensityField>(module, "DensityField",
                                  "Counts of lines around the nodes of a grid over the net. Made "
                                  "by density().")
        .def_readonly("lines", &api::DensityField::lines, "number of lines counted")
        .def_readonly("first", &api::DensityField::first,
                      "east of the first column and north of the first row, radii of the net")
        .def_readonly("step", &api::DensityField::step, "distance between neighbours, radii")
        .def_property_readonly("counts", CountsOf,
                               "(nodes, nodes): [i, j], i from west to east, j from south to north")
        .def_property_readonly("greatest", api::GreatestDensity, "per cent of the lines")
        .def("contours", ContoursOf, "levels"_a = py::none(),
             "Contours at levels in per cent of the lines, the usual ones without levels.\n\n"
             "Returns a dict: level to a list of arrays (m, 2), east and north in radii.");
    module.def("project", Project, "lines"_a, "projection"_a = "equal area",
               "Positions of lines on the lower hemisphere.\n\n"
               "lines: (n, 2), plunge and trend in degrees; projection: 'equal area' or 'equal "
               "angle'.\nReturns (n, 2), east and north in radii of the net.");
    module.def("trace_of_plane", TraceOfPlane, "dip"_a, "dip_direction"_a,
               "projection"_a = "equal area",
               "The great circle of a plane as an array (m, 2), east and north in radii.");
    module.def("trace_of_cone", TraceOfCone, "axis"_a, "half_angle"_a,
               "projection"_a = "equal area",
               "The small circle of a cone as a list of arrays (m, 2), east and north in radii.");
    module.def("density", Density, "lines"_a, "projection"_a = "equal area", "grid_size"_a = 50,
               "Counts of lines within a cone of 1% of the hemisphere around the nodes of a "
               "grid.\n\nlines: (n, 2), plunge and trend in degrees, counted as axes; grid_size: "
               "nodes across the net.\nReturns a DensityField.");
}

} // namespace quandrel::python
