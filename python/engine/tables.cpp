// SPDX-License-Identifier: MIT
//
// Tables of texts in a stated format.

#include "arrays.h"
#include "quandrel/table.h"

#include <pybind11/operators.h>

namespace quandrel::python {

namespace {

using api::Primary;
using api::Secondary;
using api::Table;
using api::TableFormat;

template <class Row>
py::object ColumnOf(const std::vector<Row>& rows) {
    return rows.empty() ? py::object(py::none()) : py::object(ArrayOf<Row>(rows));
}

py::object NumbersOfTable(const Table& table) {
    return table.numbers.empty() ? py::object(py::none())
                                 : py::object(Array(static_cast<py::ssize_t>(table.numbers.size()),
                                                    table.numbers.data()));
}

py::array_t<std::int64_t> LineNumbersOf(const Table& table) {
    py::array_t<std::int64_t> numbers(static_cast<py::ssize_t>(table.lineNumbers.size()));
    std::copy(table.lineNumbers.begin(), table.lineNumbers.end(), numbers.mutable_data());
    return numbers;
}

Table ReadText(const std::string& text, const TableFormat& format) {
    const py::gil_scoped_release release;
    return api::ReadTable(text, api::FormatOfText(text, format));
}

Table ReadBytes(const py::bytes& bytes, const TableFormat& format) {
    return ReadText(api::DecodedText(std::string(bytes)), format);
}

std::vector<std::pair<std::size_t, std::string>> RefusedOf(const Table& table) {
    std::vector<std::pair<std::size_t, std::string>> refused;
    for (const api::RefusedLine& line : table.refused) {
        refused.emplace_back(line.lineNumber, line.reason);
    }
    return refused;
}

template <class Value>
Value NamedValue(const std::string& name,
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

TableFormat FormatOf(const std::string& primary, const std::string& secondary, int convention,
                     bool quadrant, const std::string& delimiter, const std::vector<int>& columns,
                     bool heading, bool line, bool number, bool text) {
    TableFormat format;
    format.primary = NamedValue<Primary>(primary, {{"directions", Primary::kDirections},
                                                   {"planes", Primary::kPlanes},
                                                   {"lines", Primary::kLines}});
    format.secondary = NamedValue<Secondary>(secondary, {{"none", Secondary::kNone},
                                                         {"pitch", Secondary::kPitch},
                                                         {"trend", Secondary::kTrend},
                                                         {"line", Secondary::kLine},
                                                         {"plane", Secondary::kPlane},
                                                         {"angle", Secondary::kAngle}});
    if (convention < 1 || convention > 6) {
        throw py::value_error("convention must be 1 to 6");
    }
    format.convention = static_cast<api::PlaneConvention>(convention);
    format.isQuadrant = quadrant;
    if (delimiter.size() > 1) {
        throw py::value_error("delimiter must be one character, or empty for any");
    }
    format.delimiter = delimiter.empty() ? api::kAnyDelimiter : delimiter.front();
    api::TableColumns& slots = format.columns;
    int* const all[] = {&slots.dip,        &slots.direction,       &slots.sense,
                        &slots.secondDip,  &slots.secondDirection, &slots.secondSense,
                        &slots.linePlunge, &slots.lineTrend,       &slots.number,
                        &slots.text};
    if (columns.size() > std::size(all)) {
        throw py::value_error("there are at most ten columns");
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        *all[i] = columns[i];
    }
    format.hasHeading = heading;
    format.hasLine = line;
    format.hasNumber = number;
    format.hasText = text;
    return format;
}

} // namespace

void BindTables(py::module_& module) {
    using namespace py::literals;
    py::class_<TableFormat>(module, "Format", "What the columns of a text hold.")
        .def(py::init(&FormatOf), py::kw_only(), "primary"_a = "planes", "secondary"_a = "none",
             "convention"_a = 1, "quadrant"_a = false, "delimiter"_a = "\t",
             "columns"_a = std::vector<int>(), "heading"_a = false, "line"_a = false,
             "number"_a = false, "text"_a = false,
             "primary: 'planes', 'lines' or 'directions'; secondary: 'none', 'pitch', 'trend', "
             "'line', 'plane' or 'angle'; convention: 1 dip, dip direction; 2 dip direction, "
             "dip; 3 strike, dip, sense; 4 dip, sense, strike; 5 dip, right-hand strike; 6 "
             "right-hand strike, dip; delimiter: a character, empty for any; columns: zero-based "
             "columns of dip or plunge, direction, sense, the same of the second orientation, "
             "plunge and trend of an appended line, number, text; heading: the first line holds "
             "headings; line, number, text: what is appended to each row.")
        .def(py::self == py::self);
    py::class_<Table>(module, "Table", "Rows of a text. Made by read().")
        .def_property_readonly("line_number", LineNumbersOf, "(n,), from 1")
        .def_property_readonly(
            "planes", [](const Table& table) { return ColumnOf(table.planes); },
            "(n, 2), dip and dip direction in degrees; None for lines")
        .def_property_readonly(
            "lines", [](const Table& table) { return ColumnOf(table.lines); },
            "(n, 2), plunge and trend; directions have the plunge 0; None for planes")
        .def_property_readonly("second_planes",
                               [](const Table& table) { return ColumnOf(table.secondPlanes); })
        .def_property_readonly("second_lines",
                               [](const Table& table) { return ColumnOf(table.secondLines); })
        .def_property_readonly("appended_lines",
                               [](const Table& table) { return ColumnOf(table.appendedLines); })
        .def_property_readonly("number", NumbersOfTable, "(n,), NaN where missing, or None")
        .def_readonly("text", &Table::texts, "a list of n texts, or an empty one")
        .def_readonly("heading", &Table::heading, "the line of headings")
        .def_property_readonly("refused", RefusedOf, "a list of (line number, reason)")
        .def("__len__", [](const Table& table) { return table.lineNumbers.size(); });
    module.def("read_text", ReadText, "text"_a, "format"_a);
    module.def("read_bytes", ReadBytes, "data"_a, "format"_a);
}

} // namespace quandrel::python
