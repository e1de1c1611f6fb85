// SPDX-License-Identifier: MIT
//
// Tables of texts in a stated format.

#include "arrays.h"
#include "quandrel/suggest.h"
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

/// A text in the format that it states, or in the one that is sure.
Table ReadSure(const std::string& text) {
    std::optional<api::Result<TableFormat>> format;
    {
        const py::gil_scoped_release release;
        format = api::SureFormat(text);
    }
    if (!*format) {
        throw py::value_error(format->Error());
    }
    const py::gil_scoped_release release;
    return api::ReadTable(text, **format);
}

std::string Decoded(const py::bytes& bytes) {
    return api::DecodedText(std::string(bytes));
}

/// A table of the columns of arrays; none of them is parsed.
Table TableOf(const std::optional<Array>& planes, const std::optional<Array>& lines,
              const std::optional<Array>& number, const std::vector<std::string>& text) {
    Table table;
    if (planes) {
        const auto rows = RowsOf<api::Plane>(*planes, "planes");
        table.planes.assign(rows.begin(), rows.end());
    }
    if (lines) {
        const auto rows = RowsOf<api::Line>(*lines, "lines");
        table.lines.assign(rows.begin(), rows.end());
    }
    const std::size_t count = planes ? table.planes.size() : table.lines.size();
    const auto numbers = NumbersOf(number, "number");
    table.numbers.assign(numbers.begin(), numbers.end());
    table.texts = text;
    const bool fit = (!planes || !lines || table.lines.size() == count)
                     && (table.numbers.empty() || table.numbers.size() == count)
                     && (text.empty() || text.size() == count);
    if (!fit) {
        throw py::value_error("the columns differ in length");
    }
    for (std::size_t row = 1; row <= count; ++row) {
        table.lineNumbers.push_back(row);
    }
    return table;
}

Table ReadBytes(const py::bytes& bytes, const TableFormat& format) {
    return ReadText(Decoded(bytes), format);
}

/// Column 0 or 1 of planes, or of lines, as a view of the table.
template <auto Rows>
py::object ViewOf(const py::object& self, std::size_t column) {
    auto& rows = self.cast<Table&>().*Rows;
    if (rows.empty()) {
        return py::none();
    }
    constexpr auto kStride = static_cast<py::ssize_t>(sizeof(rows.front()));
    const auto* const first = reinterpret_cast<const double*>(rows.data()) + column;
    py::array_t<double> view({static_cast<py::ssize_t>(rows.size())}, {kStride}, first, self);
    view.attr("setflags")(py::arg("write") = false);
    return view;
}

/// Unit vectors of the lines, or of the poles of the planes.
py::object VectorsOf(const Table& table) {
    if (table.planes.empty() && table.lines.empty()) {
        return py::none();
    }
    std::vector<api::Line> poles(table.planes.size());
    api::PolesOf(table.planes, poles);
    const std::span<const api::Line> lines = table.planes.empty() ? table.lines : poles;
    Array vectors = NewRows<api::Vector>(lines.size());
    api::VectorsOf(lines, RowsIn<api::Vector>(vectors));
    return vectors;
}

std::vector<std::pair<std::size_t, std::string>> RefusedOf(const Table& table) {
    std::vector<std::pair<std::size_t, std::string>> refused;
    for (const api::RefusedLine& line : table.refused) {
        refused.emplace_back(line.lineNumber, line.reason);
    }
    return refused;
}

TableFormat FormatOf(const std::string& primary, const std::string& secondary, int convention,
                     bool quadrant, const std::string& delimiter, const std::vector<int>& columns,
                     bool heading, bool line, bool number, bool text, bool comma, bool upperEnds,
                     bool missing) {
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
    format.decimalIsComma = comma;
    format.trendsNameUpperEnds = upperEnds;
    format.secondaryMayBeMissing = missing;
    return format;
}

} // namespace

void BindTables(py::module_& module) {
    using namespace py::literals;
    py::class_<TableFormat>(module, "Format", "What the columns of a text hold.")
        .def(
            py::init(&FormatOf), py::kw_only(), "primary"_a = "planes", "secondary"_a = "none",
            "convention"_a = 1, "quadrant"_a = false, "delimiter"_a = "\t",
            "columns"_a = std::vector<int>(), "heading"_a = false, "line"_a = false,
            "number"_a = false, "text"_a = false, "comma"_a = false, "upper_ends"_a = false,
            "missing"_a = false,
            "primary: 'planes', 'lines' or 'directions'; secondary: 'none', 'pitch', 'trend', "
            "'line', 'plane' or 'angle'; convention: 1 dip, dip direction; 2 dip direction, "
            "dip; 3 strike, dip, sense; 4 dip, sense, strike; 5 dip, right-hand strike; 6 "
            "right-hand strike, dip; delimiter: a character, empty for any; columns: zero-based "
            "columns of dip or plunge, direction, sense, the same of the second orientation, "
            "plunge and trend of an appended line, number, text; heading: the first line holds "
            "headings; line, number, text: what is appended to each row; comma: the comma is the "
            "decimal delimiter where a number has both; upper_ends: trends beside negative plunges "
            "name the upper end; missing: rows may leave their second line or plane empty.")
        .def_property_readonly(
            "primary",
            [](const TableFormat& format) {
                constexpr const char* kNames[] = {"", "directions", "planes", "lines"};
                return kNames[static_cast<std::size_t>(format.primary)];
            })
        .def_property_readonly(
            "convention",
            [](const TableFormat& format) { return static_cast<int>(format.convention); })
        .def_readonly("heading", &TableFormat::hasHeading)
        .def(py::self == py::self);
    py::class_<api::SuggestedFormat>(module, "SuggestedFormat",
                                     "A format that a text may have. Made by suggest_formats().")
        .def_readonly("format", &api::SuggestedFormat::format)
        .def_readonly("probability", &api::SuggestedFormat::probability, "0 to 1")
        .def_readonly("reasons", &api::SuggestedFormat::reasons, "a list of phrases")
        .def_readonly("number_name", &api::SuggestedFormat::numberName)
        .def_readonly("text_name", &api::SuggestedFormat::textName);
    py::class_<Table>(module, "Table", "Rows of a text. Made by read().")
        .def_property_readonly("line_number", LineNumbersOf, "(n,), from 1")
        .def_property_readonly(
            "dip", [](const py::object& self) { return ViewOf<&Table::planes>(self, 0); },
            "(n,), degrees, a view of planes; None for lines")
        .def_property_readonly(
            "dip_direction", [](const py::object& self) { return ViewOf<&Table::planes>(self, 1); },
            "(n,), degrees, a view of planes; None for lines")
        .def_property_readonly(
            "plunge", [](const py::object& self) { return ViewOf<&Table::lines>(self, 0); },
            "(n,), degrees, a view of lines; None for planes")
        .def_property_readonly(
            "trend", [](const py::object& self) { return ViewOf<&Table::lines>(self, 1); },
            "(n,), degrees, a view of lines; None for planes")
        .def_property_readonly("xyz", VectorsOf,
                               "(n, 3), unit vectors of the lines, or of the poles of the planes: "
                               "north, east, down")
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
    module.def("read_sure", ReadSure, "text"_a);
    module.def("decoded", Decoded, "data"_a);
    module.def("suggest_text", api::SuggestFormats, "text"_a);
    module.def("from_arrays", TableOf, "planes"_a = py::none(), "lines"_a = py::none(),
               "number"_a = py::none(), "text"_a = std::vector<std::string>(),
               "A table of arrays, as read() makes one of a text.\n\n"
               "planes: (n, 2), dip and dip direction, or None; lines: (n, 2), plunge and trend, "
               "or None; number: (n,); text: n texts.\nReturns a Table. Raises ValueError where "
               "columns differ in length.");
}

} // namespace quandrel::python
