// SPDX-License-Identifier: MIT
//
// Conversions, rotations, intersections and kinematic axes.

#include "arrays.h"
#include "quandrel/intersections.h"
#include "quandrel/kinematics.h"
#include "quandrel/orientation.h"
#include "quandrel/rotation.h"

#include <vector>

namespace quandrel::python {

namespace {

using api::Line;
using api::Plane;
using api::Vector;

/// The value of an array of two numbers.
template <class Pair>
Pair PairOf(const std::array<double, 2>& numbers) {
    return {numbers[0], numbers[1]};
}

Array PolesOfPlanes(const Array& planes) {
    return Mapped<Plane, Line>(planes, "planes",
                               [](auto from, auto to) { api::PolesOf(from, to); });
}

Array PlanesOfPoles(const Array& poles) {
    return Mapped<Line, Plane>(poles, "poles", [](auto from, auto to) {
        std::transform(from.begin(), from.end(), to.begin(), api::PlaneOfPole);
    });
}

Array VectorsOfLines(const Array& lines) {
    return Mapped<Line, Vector>(lines, "lines",
                                [](auto from, auto to) { api::VectorsOf(from, to); });
}

Array LinesOfVectors(const Array& vectors) {
    return Mapped<Vector, Line>(vectors, "vectors",
                                [](auto from, auto to) { api::LinesOf(from, to); });
}

Array RotatedLines(const Array& lines, const std::array<double, 2>& axis, double angle) {
    return Mapped<Line, Line>(lines, "lines", [&](auto from, auto to) {
        api::RotateLines(from, PairOf<Line>(axis), angle, to);
    });
}

Array RotatedPlanes(const Array& planes, const std::array<double, 2>& axis, double angle) {
    return Mapped<Plane, Plane>(planes, "planes", [&](auto from, auto to) {
        api::RotatePlanes(from, PairOf<Line>(axis), angle, to);
    });
}

Array UnfoldedLines(const Array& lines, const Array& beds, const std::array<double, 2>& foldAxis) {
    const auto planes = RowsOf<Plane>(beds, "beds");
    if (lines.ndim() == 2 && static_cast<std::size_t>(lines.shape(0)) != planes.size()) {
        throw py::value_error("lines and beds must have the same length");
    }
    return Mapped<Line, Line>(lines, "lines", [&](auto from, auto to) {
        for (std::size_t i = 0; i < from.size(); ++i) {
            to[i] = api::UnfoldedLine(from[i], planes[i], PairOf<Line>(foldAxis));
        }
    });
}

Array Intersections(const Array& a, const Array& b) {
    const auto others = RowsOf<Plane>(b, "b");
    if (a.ndim() == 2 && static_cast<std::size_t>(a.shape(0)) != others.size()) {
        throw py::value_error("a and b must have the same length");
    }
    return Mapped<Plane, Line>(a, "a",
                               [&](auto from, auto to) { api::IntersectionsOf(from, others, to); });
}

Array BetaIntersections(const Array& planes) {
    const auto rows = RowsOf<Plane>(planes, "planes");
    std::vector<Line> lines;
    {
        const py::gil_scoped_release release;
        lines = api::BetaIntersections(rows);
    }
    return ArrayOf<Line>(lines);
}

py::tuple KinematicAxes(const Array& planes, const Array& slips, double tolerance) {
    const auto faults = RowsOf<Plane>(planes, "planes");
    const auto lines = RowsOf<Line>(slips, "slips");
    if (faults.size() != lines.size()) {
        throw py::value_error("planes and slips must have the same length");
    }
    Array p = NewRows<Line>(faults.size());
    Array t = NewRows<Line>(faults.size());
    const auto shortening = RowsIn<Line>(p);
    const auto extension = RowsIn<Line>(t);
    {
        const py::gil_scoped_release release;
        for (std::size_t i = 0; i < faults.size(); ++i) {
            const api::Fault fault{faults[i], lines[i]};
            api::KinematicAxes axes;
            api::FindKinematicAxes({&fault, 1}, tolerance, {&axes, 1});
            shortening[i] = axes.p;
            extension[i] = axes.t;
        }
    }
    return py::make_tuple(p, t);
}

} // namespace

void BindOrientations(py::module_& module) {
    using namespace py::literals;
    module.def("poles_of_planes", PolesOfPlanes, "planes"_a,
               "Poles of planes.\n\nplanes: (n, 2), dip and dip direction in degrees.\n"
               "Returns (n, 2), plunge and trend. Inverse: planes_of_poles.");
    module.def("planes_of_poles", PlanesOfPoles, "poles"_a,
               "Planes of poles.\n\npoles: (n, 2), plunge and trend in degrees.\n"
               "Returns (n, 2), dip and dip direction. Inverse: poles_of_planes.");
    module.def("vectors_of_lines", VectorsOfLines, "lines"_a,
               "Unit vectors of lines.\n\nlines: (n, 2), plunge and trend in degrees.\n"
               "Returns (n, 3): north, east, down. Inverse: lines_of_vectors.");
    module.def("lines_of_vectors", LinesOfVectors, "vectors"_a,
               "Lines along vectors.\n\nvectors: (n, 3), north, east and down, of any length.\n"
               "Returns (n, 2), plunge (-90 to 90) and trend in degrees.");
    module.def("rotate_lines", RotatedLines, "lines"_a, "axis"_a, "angle"_a,
               "Lines rotated about an axis, clockwise looking down its plunge.\n\n"
               "lines: (n, 2), plunge and trend; axis: plunge and trend; angle: degrees.\n"
               "Returns (n, 2). The opposite angle is the inverse.");
    module.def("rotate_planes", RotatedPlanes, "planes"_a, "axis"_a, "angle"_a,
               "Planes rotated about an axis, clockwise looking down its plunge.\n\n"
               "planes: (n, 2), dip and dip direction; axis: plunge and trend; angle: degrees.\n"
               "Returns (n, 2), dips 0 to 90. The opposite angle is the inverse.");
    module.def("unfold_lines", UnfoldedLines, "lines"_a, "beds"_a, "fold_axis"_a,
               "Lines after unfolding the beds that they lie in, the plunge of the fold axis "
               "first.\n\nlines: (n, 2), plunge and trend; beds: (n, 2), dip and dip direction, "
               "negative dips for overturned beds; fold_axis: plunge and trend.\n"
               "Returns (n, 2), plunge and trend in degrees.");
    module.def("intersections", Intersections, "a"_a, "b"_a,
               "Intersection lines of planes, pair by pair.\n\n"
               "a, b: (n, 2), dip and dip direction in degrees.\n"
               "Returns (n, 2), plunge and trend; NaN where planes are parallel.");
    module.def("beta_intersections", BetaIntersections, "planes"_a,
               "Intersection lines of each pair of planes.\n\n"
               "planes: (n, 2), dip and dip direction in degrees.\n"
               "Returns (m, 2), plunge and trend, without pairs of parallel planes.");
    module.def("kinematic_axes", KinematicAxes, "planes"_a, "slips"_a, "tolerance"_a = 10.0,
               "Shortening (P) and extension (T) axes of faults.\n\n"
               "planes: (n, 2), dip and dip direction; slips: (n, 2), plunge and trend of the "
               "line along which the hanging wall moved, negative plunges upward; tolerance: "
               "greatest angle of a slip line to its plane, degrees.\n"
               "Returns two arrays (n, 2), plunge and trend; NaN for a fault without axes.\n"
               "Source: Marrett and Allmendinger (1990), J. Struct. Geol. 12.");
}

} // namespace quandrel::python
