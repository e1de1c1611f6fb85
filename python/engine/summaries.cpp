// SPDX-License-Identifier: MIT
//
// Summaries of any number of rows.

#include "arrays.h"
#include "quandrel/summary.h"

#include <thread>

namespace quandrel::python {

namespace {

using api::Line;
using api::Plane;
using api::Primary;
using api::Summary;

constexpr const char* kKinds[] = {"", "directions", "planes", "lines"};

Summary NewSummary(const std::string& kind, bool weighted) {
    return Summary(NamedValue<Primary>(kind, {{"directions", Primary::kDirections},
                                              {"planes", Primary::kPlanes},
                                              {"lines", Primary::kLines}}),
                   weighted);
}

void AddRows(Summary& summary, const Array& rows, const std::optional<Array>& numbers) {
    const auto given = NumbersOf(numbers, "numbers");
    if (summary.Kind() == Primary::kPlanes) {
        const auto planes = RowsOf<Plane>(rows, "rows");
        const py::gil_scoped_release release;
        summary.Add(planes, given);
        return;
    }
    if (rows.ndim() == 1) {
        std::vector<Line> lines;
        for (const double azimuth : NumbersOf(rows, "rows")) {
            lines.push_back({0, azimuth});
        }
        const py::gil_scoped_release release;
        summary.Add(lines, given);
        return;
    }
    const auto lines = RowsOf<Line>(rows, "rows");
    const py::gil_scoped_release release;
    summary.Add(lines, given);
}

template <class Value>
Value Got(api::Result<Value> result) {
    if (!result) {
        throw py::value_error(result.Error());
    }
    return std::move(*result);
}

std::uint64_t AddFile(Summary& summary, const std::string& path, const api::TableFormat& format) {
    const unsigned threads = std::max(std::thread::hardware_concurrency(), 1U);
    const auto add = [&] {
        const py::gil_scoped_release release;
        return summary.AddFile(path, format, threads);
    };
    return Got(add());
}

py::tuple AxesOf(const Summary& summary) {
    const auto axes = summary.Axes();
    if (!axes) {
        throw py::value_error("the summary has no rows");
    }
    return py::make_tuple(Array(3, axes->eigenvalues.data()), ArrayOf<Line>(axes->axes));
}

py::dict DirectionsOf(const Summary& summary) {
    const auto directions = summary.Directions();
    if (!directions) {
        throw py::value_error("the summary has no rows");
    }
    py::dict dict;
    dict["mean"] =
        directions->mean
            ? py::object(py::make_tuple(directions->mean->plunge, directions->mean->trend))
            : py::object(py::none());
    dict["resultant"] = directions->resultant;
    dict["kappa"] = directions->kappa;
    return dict;
}

py::tuple AzimuthsOf(const Summary& summary, bool axes) {
    const auto mean = summary.Azimuths(axes ? api::Sense::kAxes : api::Sense::kDirections);
    if (!mean) {
        throw py::value_error("the summary has no rows");
    }
    return py::make_tuple(mean->mean, mean->length);
}

py::dict NumbersIn(const Summary& summary) {
    const api::SummaryNumbers numbers = summary.Numbers();
    py::dict dict;
    dict["count"] = numbers.count;
    dict["least"] = numbers.least;
    dict["greatest"] = numbers.greatest;
    dict["sum"] = numbers.sum;
    dict["sum_of_squares"] = numbers.sumOfSquares;
    dict["histogram"] = ArrayOf<api::SummaryNumbers::Bin>(numbers.bins);
    return dict;
}

/// A copy by way of its bytes: for other processes, and for copies.
py::tuple PickledOf(const Summary& summary) {
    return py::make_tuple(py::bytes(summary.Bytes()));
}

Summary OfPickled(const py::tuple& state) {
    return Got(Summary::Read(state[0].cast<std::string>()));
}

} // namespace

void BindSummaries(py::module_& module) {
    using namespace py::literals;
    py::class_<Summary>(module, "Summary",
                        "A summary of any number of rows: counts by whole degrees, and sums of "
                        "measured angles without rounding errors. Made by summarise(); parts add "
                        "up in any order.")
        .def(py::init(&NewSummary), "kind"_a = "planes", "weighted"_a = false,
             "kind: 'planes', 'lines' or 'directions'; weighted: the number of a row says how "
             "often it counts.")
        .def("add", AddRows, "rows"_a, "numbers"_a = py::none(),
             "Adds rows.\n\nrows: (n, 2), dip and dip direction, or plunge and trend; (n,) for "
             "azimuths of directions. Rows of NaN count as refused lines. numbers: (n,), appended "
             "numbers.\nRaises ValueError for angles out of range; nothing is added then.")
        .def(
            "add_file", AddFile, "path"_a, "format"_a,
            "Adds the rows of a text file of any length, in constant memory, on all processors.\n\n"
            "format: a Format of the same kind of rows.\nReturns the number of rows. Raises "
            "ValueError for a file that cannot be read.")
        .def(
            "merge", [](Summary& summary, const Summary& other) { Got(summary.Merge(other)); },
            "other"_a, "Adds another summary. Raises ValueError for one of other rows.")
        .def("__add__",
             [](const Summary& one, const Summary& other) {
                 Summary sum = one;
                 Got(sum.Merge(other));
                 return sum;
             })
        .def("__eq__",
             [](const Summary& one, const Summary& other) { return one.Bytes() == other.Bytes(); })
        .def("__len__", &Summary::Rows)
        .def_property_readonly(
            "kind",
            [](const Summary& summary) { return kKinds[static_cast<std::size_t>(summary.Kind())]; })
        .def_property_readonly("is_weighted", &Summary::IsWeighted)
        .def_property_readonly("rows", &Summary::Rows)
        .def_property_readonly("weight", &Summary::Weight,
                               "the total of the weights, or the number of rows")
        .def_property_readonly("refused", &Summary::RefusedLines,
                               "the number of lines without data")
        .def_property_readonly(
            "cells",
            [](const Summary& summary) { return ArrayOf<api::SummaryCell>(summary.Cells()); },
            "(n, 4): dip or plunge, azimuth, rows and weight of each cell of whole degrees")
        .def(
            "eigenvectors", AxesOf,
            "Eigenvalues (3,), E1 <= E2 <= E3, and their axes (3, 2), of the lines or the poles of "
            "the planes, as measured. Raises ValueError without rows.")
        .def("directions", DirectionsOf,
             "Fisher's statistics of lines or poles as directions: a dict of mean (plunge and "
             "trend, or None), resultant and kappa.")
        .def(
            "azimuths", AzimuthsOf, "axes"_a = true,
            "The mean azimuth (of trends, strikes or directions) in degrees, or None, and the mean "
            "resultant length.")
        .def_property_readonly("numbers", NumbersIn,
                               "a dict of count, least, greatest, sum, sum_of_squares, and "
                               "histogram (m, 3): first, end, count of each bin")
        .def(
            "bytes", [](const Summary& summary) { return py::bytes(summary.Bytes()); },
            "The bytes of a summary file (.qsum).")
        .def_static(
            "read", [](const py::bytes& bytes) { return Got(Summary::Read(std::string(bytes))); },
            "data"_a, "The summary of such bytes. Raises ValueError for others.")
        .def(py::pickle(&PickledOf, &OfPickled));
}

} // namespace quandrel::python
