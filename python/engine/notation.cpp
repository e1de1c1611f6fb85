// SPDX-License-Identifier: MIT
//
// Orientations as texts, and lines in planes.

#include "quandrel/notation.h"

#include "arrays.h"
#include "quandrel/intersections.h"
#include "quandrel/net.h"

namespace quandrel::python {

namespace {

using api::Line;
using api::Plane;

double AzimuthOfText(const std::string& text) {
    const std::optional<double> azimuth = api::AzimuthOfText(text);
    if (!azimuth) {
        throw py::value_error("'" + text + "' is not an azimuth");
    }
    return *azimuth;
}

double DipDirectionOfStrike(double strike, const std::optional<std::string>& sense) {
    if (!sense) {
        return api::DipDirectionOf(strike);
    }
    const std::optional<double> direction = api::DipDirectionOf(strike, *sense);
    if (!direction) {
        throw py::value_error("'" + *sense + "' is not a sense of dip of this strike");
    }
    return *direction;
}

std::string PlaneText(double dip, double dipDirection, int convention, bool quadrant) {
    if (convention < 1 || convention > 6) {
        throw py::value_error("convention must be 1 to 6");
    }
    const api::PlaneStyle style = {static_cast<api::PlaneConvention>(convention), quadrant, "/"};
    return api::TextOf(Plane{dip, dipDirection}, style);
}

std::string LineText(double plunge, double trend, bool trendFirst, bool quadrant) {
    const api::LineStyle style = {trendFirst ? api::LineConvention::kTrendPlunge
                                             : api::LineConvention::kPlungeTrend,
                                  quadrant, "/"};
    return api::TextOf(Line{plunge, trend}, style);
}

/// One line for each plane and angle.
template <class LineAt>
Array LinesInPlanes(const Array& planes, const Array& angles, const LineAt& lineAt) {
    const auto rows = RowsOf<Plane>(planes, "planes");
    const auto numbers = NumbersOf(angles, "angles");
    if (rows.size() != numbers.size()) {
        throw py::value_error("planes and angles differ in length");
    }
    Array lines = NewRows<Line>(rows.size());
    std::transform(rows.begin(), rows.end(), numbers.begin(), RowsIn<Line>(lines).begin(), lineAt);
    return lines;
}

Array PlanesThrough(const Array& a, const Array& b) {
    const auto first = RowsOf<Line>(a, "a");
    const auto second = RowsOf<Line>(b, "b");
    if (first.size() != second.size()) {
        throw py::value_error("a and b differ in length");
    }
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    Array planes = NewRows<Plane>(first.size());
    std::transform(first.begin(), first.end(), second.begin(), RowsIn<Plane>(planes).begin(),
                   [](const Line& one, const Line& other) {
                       return api::PlaneThrough(one, other).value_or(Plane{kNone, kNone});
                   });
    return planes;
}

Array LinesAtPoints(const Array& points, const std::string& projection) {
    const api::Projection kind = ProjectionOf(projection);
    return Mapped<api::NetPoint, Line>(points, "points", [kind](auto from, auto to) {
        std::transform(from.begin(), from.end(), to.begin(), [kind](const api::NetPoint& point) {
            return api::LineAtPoint(point, kind);
        });
    });
}

} // namespace

void BindNotation(py::module_& module) {
    using namespace py::literals;
    module.def("azimuth_of_text", AzimuthOfText, "text"_a,
               "The azimuth of a text in degrees: '120', 'N30E', 'SSW'.\n\n"
               "Raises ValueError for any other text.");
    module.def("dip_direction_of_strike", DipDirectionOfStrike, "strike"_a, "sense"_a = py::none(),
               "The dip direction in degrees on the side of a sense of dip ('SE'), or by the "
               "right-hand rule.\n\nRaises ValueError for a sense along the strike.");
    module.def("plane_text", PlaneText, "dip"_a, "dip_direction"_a, "convention"_a = 1,
               "quadrant"_a = false,
               "A plane as a text in whole degrees, in one of the conventions of Format: '45/120', "
               "'030/45E', in quadrant notation 'N30E/45E'.");
    module.def("line_text", LineText, "plunge"_a, "trend"_a, "trend_first"_a = false,
               "quadrant"_a = false,
               "A line as a text in whole degrees: '30/045', with the trend first '045/30', in "
               "quadrant notation '30/N45E'.");
    module.def(
        "lines_at_pitch",
        [](const Array& planes, const Array& pitches) {
            return LinesInPlanes(planes, pitches, api::LineAtPitch);
        },
        "planes"_a, "pitches"_a,
        "Lines in planes by their pitch (rake).\n\n"
        "planes: (n, 2), dip and dip direction; pitches: (n,), degrees in the plane, 0 to 360, "
        "downward from the strike by the right-hand rule.\n"
        "Returns (n, 2), plunge and trend; plunges are negative above a pitch of 180.");
    module.def(
        "lines_at_trend",
        [](const Array& planes, const Array& trends) {
            return LinesInPlanes(planes, trends, api::LineAtTrend);
        },
        "planes"_a, "trends"_a,
        "Lines in planes by their trend: apparent dips.\n\n"
        "planes: (n, 2), dip and dip direction; trends: (n,), degrees.\n"
        "Returns (n, 2), plunge (0 to 90) and trend.");
    module.def("planes_through", PlanesThrough, "a"_a, "b"_a,
               "Planes through two lines, pair by pair.\n\na, b: (n, 2), plunge and trend.\n"
               "Returns (n, 2), dip and dip direction; NaN where lines are parallel.");
    module.def("lines_at_points", LinesAtPoints, "points"_a, "projection"_a = "equal area",
               "Lines at positions on the net.\n\n"
               "points: (n, 2), east and north in radii of the net.\n"
               "Returns (n, 2), plunge and trend in degrees. Inverse: project.");
}

} // namespace quandrel::python
