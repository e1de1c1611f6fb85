// SPDX-License-Identifier: MIT
//
// Confidence regions and tests.

#include "arrays.h"
#include "quandrel/region.h"
#include "quandrel/row_tests.h"

#include <thread>

namespace quandrel::python {

namespace {

using api::Line;
using api::Region;
using api::RowTest;

std::optional<std::pair<double, double>> PairOf(const std::optional<Line>& line) {
    return line ? std::optional(std::pair(line->plunge, line->trend)) : std::nullopt;
}

Region RegionOfLines(const Array& lines, const std::string& about, const std::string& method,
                     double level, const std::optional<Array>& counts, int resamples,
                     std::uint64_t seed) {
    api::RegionChoice choice;
    choice.about = RegionAboutOf(about);
    choice.method = RegionMethodOf(method);
    choice.level = level;
    choice.resamples = resamples;
    choice.seed = seed;
    choice.threads = std::max(std::thread::hardware_concurrency(), 1U);
    const auto rows = RowsOf<Line>(lines, "lines");
    const auto weights = NumbersOf(counts, "counts");
    std::optional<Region> region;
    {
        const py::gil_scoped_release release;
        region = api::RegionOf(rows, choice, weights);
    }
    if (!region) {
        throw py::value_error("there are no lines");
    }
    return *region;
}

api::Sense SenseOf(bool areAxes) {
    return areAxes ? api::Sense::kAxes : api::Sense::kDirections;
}

/// The tests of lines (n, 2) or azimuths (n,), of one sample or two.
std::vector<RowTest> TestsOf(const Array& rows, const std::optional<Array>& other, bool areAxes,
                             int tries, std::int32_t seed) {
    const api::TestChoice choice = {tries, seed};
    const api::Sense sense = SenseOf(areAxes);
    const auto run = [&](const auto& viewOf) {
        const auto first = viewOf(rows, "rows");
        if (!other) {
            const py::gil_scoped_release release;
            return api::TestsOf(first, sense, choice);
        }
        const auto second = viewOf(*other, "other");
        const py::gil_scoped_release release;
        return api::TestsOf(first, second, sense, choice);
    };
    if (rows.ndim() == 1) {
        return run([](const Array& array, const char* name) { return NumbersOf(array, name); });
    }
    return run([](const Array& array, const char* name) { return RowsOf<Line>(array, name); });
}

} // namespace

api::RegionAbout RegionAboutOf(const std::string& name) {
    return NamedValue<api::RegionAbout>(name, {{"axis", api::RegionAbout::kPrincipalAxis},
                                               {"girdle", api::RegionAbout::kGirdlePole},
                                               {"mean", api::RegionAbout::kMeanDirection}});
}

api::RegionMethod RegionMethodOf(const std::string& name) {
    using api::RegionMethod;
    return NamedValue<RegionMethod>(name, {{"auto", RegionMethod::kAutomatic},
                                           {"fisher", RegionMethod::kFisherCone},
                                           {"ellipse", RegionMethod::kDirectionEllipse},
                                           {"watson", RegionMethod::kWatsonCone},
                                           {"prentice", RegionMethod::kAxisEllipse},
                                           {"bingham", RegionMethod::kBingham},
                                           {"bootstrap", RegionMethod::kBootstrap}});
}

void BindRegions(py::module_& module) {
    using namespace py::literals;
    py::class_<Region>(module, "Region",
                       "A confidence region; angles in degrees. Made by region().")
        .def_readonly("is_given", &Region::isGiven,
                      "False where the conditions of the method are not met")
        .def_readonly("reason", &Region::reason, "why it is not given, or an empty text")
        .def_readonly("method", &Region::method, "such as 'cone of Watson'")
        .def_readonly("count", &Region::count, "n, the sum of the counts")
        .def_property_readonly(
            "centre", [](const Region& region) { return PairOf(region.centre); },
            "plunge and trend, or None")
        .def_readonly("semi_axes", &Region::semiAxes, "two angles, the longer first, or None")
        .def_property_readonly(
            "towards", [](const Region& region) { return PairOf(region.towards); },
            "plunge and trend of the direction of the longer semi-axis, or None")
        .def_property_readonly(
            "outline", [](const Region& region) { return ArrayOf<Line>(region.outline); },
            "(m, 2), plunge and trend, closed; empty without bounds")
        .def_readonly("symmetry", &Region::symmetry,
                      "probability of rotational symmetry about the centre, or None")
        .def_readonly("resamples", &Region::resamples, "of a bootstrap");
    py::class_<RowTest>(module, "RowTest", "A test or an estimate. Made by tests().")
        .def_readonly("name", &RowTest::name)
        .def_readonly("symbol", &RowTest::symbol, "of the statistic, or an empty text")
        .def_readonly("statistic", &RowTest::statistic, "a number or None")
        .def_readonly("probability", &RowTest::probability,
                      "of such a statistic under the hypothesis, or None")
        .def_readonly("sentence", &RowTest::sentence, "the result in words")
        .def("__repr__", [](const RowTest& test) {
            return "<RowTest " + test.name + ": " + test.sentence + ">";
        });
    module.def(
        "region", RegionOfLines, "lines"_a, "about"_a = "axis", "method"_a = "auto",
        "level"_a = 0.95, "counts"_a = py::none(), "resamples"_a = 2000, "seed"_a = 1,
        "The confidence region of a principal axis or of a mean direction.\n\n"
        "lines: (n, 2), plunge and trend in degrees; about: 'axis' (of the greatest "
        "eigenvalue), 'girdle' (of the least, such as a fold axis) or 'mean' (of directions); "
        "method: 'auto', 'fisher', 'ellipse' (both of means), 'watson', 'prentice', 'bingham' "
        "(of axes) or 'bootstrap'; level: above 0 and below 1; counts: (n,), how often each "
        "counts; resamples: 2000 to 10000.\nReturns a Region. Raises ValueError without lines "
        "and for a method that does not fit.\nSources: Fisher, Lewis, Embleton (1987), "
        "Statistical Analysis of Spherical Data; Prentice (1984), Biometrika 71; Bingham (1974), "
        "Annals of Statistics 2.");
    module.def("tests", TestsOf, "rows"_a, "other"_a = py::none(), "axes"_a = true,
               "tries"_a = 9999, "seed"_a = 20261122,
               "Statistical tests of lines or of azimuths, of one sample or of two.\n\n"
               "rows, other: (n, 2), plunge and trend, or (n,), azimuths, in degrees; axes: False "
               "where both ends differ; tries, seed: of simulated probabilities, 99 to 99999.\n"
               "Returns a list of RowTest: uniformity, symmetry, cluster or girdle, models; of two "
               "samples equal means and, of azimuths, equal distributions.");
}

} // namespace quandrel::python
