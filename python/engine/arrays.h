// SPDX-License-Identifier: MIT
//
// Arrays of Python as spans of the engine's values, without copies where they hold doubles in rows.
//
// The module quandrel for Python, over the library's interface (include/quandrel). Its functions
// take and give arrays; exceptions of the library become ValueError. Long computations release the
// interpreter's lock: the arrays of their arguments must not change meanwhile.
// Input: arrays and texts of Python. Output: arrays, and values of the library.

#pragma once

#include "quandrel/net.h"
#include "quandrel/region.h"
#include "quandrel/smooth_density.h"

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace quandrel::python {

namespace py = pybind11;

/// An array of doubles in the order of C; others are converted.
using Array = py::array_t<double, py::array::c_style | py::array::forcecast>;

/// How many doubles a value has.
template <class Row>
inline constexpr std::size_t kWidth = sizeof(Row) / sizeof(double);

/// The rows of an array of shape (n, width) as values.
template <class Row>
[[nodiscard]] std::span<const Row> RowsOf(const Array& array, const char* name) {
    if (array.ndim() != 2 || static_cast<std::size_t>(array.shape(1)) != kWidth<Row>) {
        throw py::value_error(std::string(name) + " must be an array of shape (n, "
                              + std::to_string(kWidth<Row>) + ")");
    }
    return {reinterpret_cast<const Row*>(array.data()), static_cast<std::size_t>(array.shape(0))};
}

/// The numbers of an array of shape (n,); none for an array that is not given.
[[nodiscard]] std::span<const double> NumbersOf(const Array& array, const char* name);
[[nodiscard]] std::span<const double> NumbersOf(const std::optional<Array>& array,
                                                const char* name);

/// A new array of shape (n, width).
template <class Row>
[[nodiscard]] Array NewRows(std::size_t n) {
    return Array({static_cast<py::ssize_t>(n), static_cast<py::ssize_t>(kWidth<Row>)});
}

/// The rows of a new array, to be written.
template <class Row>
[[nodiscard]] std::span<Row> RowsIn(Array& array) {
    return {reinterpret_cast<Row*>(array.mutable_data()), static_cast<std::size_t>(array.shape(0))};
}

/// Values as a new array of shape (n, width).
template <class Row>
[[nodiscard]] Array ArrayOf(std::span<const Row> rows) {
    Array array = NewRows<Row>(rows.size());
    std::copy(rows.begin(), rows.end(), RowsIn<Row>(array).begin());
    return array;
}

/// Applies `function(from, to)` to the rows of an array without the interpreter's lock.
template <class From, class To, class Function>
[[nodiscard]] Array Mapped(const Array& array, const char* name, const Function& function) {
    const std::span<const From> from = RowsOf<From>(array, name);
    Array result = NewRows<To>(from.size());
    const std::span<To> to = RowsIn<To>(result);
    const py::gil_scoped_release release;
    function(from, to);
    return result;
}

/// The value of a name in a list. Raises ValueError, which lists the names.
template <class Value>
[[nodiscard]] Value NamedValue(const std::string& name,
                               std::initializer_list<std::pair<const char*, Value>> all) {
    std::string names;
    for (const auto& [known, value] : all) {
        if (name == known) {
            return value;
        }
        names += std::string(names.empty() ? "" : ", ") + known;
    }
    throw py::value_error("'" + name + "' is not one of " + names);
}

[[nodiscard]] api::Projection ProjectionOf(const std::string& name);
[[nodiscard]] api::RegionAbout RegionAboutOf(const std::string& name);
[[nodiscard]] api::RegionMethod RegionMethodOf(const std::string& name);
[[nodiscard]] api::DensityChoice DensityChoiceOf(const std::string& method, bool areAxes, double k,
                                                 double halfWidth,
                                                 const std::optional<std::string>& unit);

void BindOrientations(py::module_& module);
void BindNotation(py::module_& module);
void BindStatistics(py::module_& module);
void BindNets(py::module_& module);
void BindSmoothDensities(py::module_& module);
void BindRegions(py::module_& module);
void BindTables(py::module_& module);
void BindClasses(py::module_& module);
void BindFigures(py::module_& module);
void BindSummaries(py::module_& module);

} // namespace quandrel::python
