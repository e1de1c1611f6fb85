// SPDX-License-Identifier: MIT
//
// Figures, as documents that the class Figure of the package builds.

#include "arrays.h"
#include "quandrel/figure.h"

#include <cstdio>

namespace quandrel::python {

namespace {

using api::Colour;
using api::Figure;
using api::FigureLayer;
using api::FigurePage;
using api::Line;
using api::Operation;
using api::Plane;
using api::Plot;
using api::PlotKind;

template <class Value>
Value Got(api::Result<Value> result) {
    if (!result) {
        throw py::value_error(result.Error());
    }
    return std::move(*result);
}

PlotKind KindOf(const std::string& name) {
    return NamedValue<PlotKind>(name, {{"equal area", PlotKind::kEqualArea},
                                       {"equal angle", PlotKind::kEqualAngle},
                                       {"rose", PlotKind::kRose}});
}

template <class Row>
std::vector<Row> VectorOf(const Array& rows) {
    const std::span<const Row> all = RowsOf<Row>(rows, "rows");
    return {all.begin(), all.end()};
}

/// The plot of a first set of rows.
Plot PlotOf(const Array& rows, const std::string& what, const std::string& kind, bool decimals) {
    Plot plot;
    plot.kind = KindOf(kind);
    plot.usesDecimals = decimals;
    plot.drawnAs = NamedValue<api::DrawnAs>(what, {{"planes", api::DrawnAs::kPlanes},
                                                   {"lines", api::DrawnAs::kLines},
                                                   {"polar lines", api::DrawnAs::kPolarLines}});
    if (plot.drawnAs == api::DrawnAs::kPlanes) {
        plot.rows.planes = VectorOf<Plane>(rows);
    } else {
        plot.primary =
            plot.kind == PlotKind::kRose ? api::Primary::kDirections : api::Primary::kLines;
        plot.rows.lines = VectorOf<Line>(rows);
    }
    return plot;
}

Figure FigureOf(const Array& rows, const std::string& what, const std::string& kind,
                bool decimals) {
    return Figure(PlotOf(rows, what, kind, decimals));
}

void AddOverlay(Figure& figure, const Array& rows, const std::string& what) {
    api::PlotOverlay overlay;
    overlay.kind =
        NamedValue<api::OverlayKind>(what, {{"great circles", api::OverlayKind::kGreatCircles},
                                            {"poles", api::OverlayKind::kPoles},
                                            {"lines", api::OverlayKind::kLines},
                                            {"polar lines", api::OverlayKind::kPolarLines}});
    const bool arePlanes =
        overlay.kind == api::OverlayKind::kGreatCircles || overlay.kind == api::OverlayKind::kPoles;
    if (arePlanes) {
        overlay.rows.planes = VectorOf<Plane>(rows);
    } else {
        overlay.rows.lines = VectorOf<Line>(rows);
    }
    figure.AddOverlay(overlay);
}

std::string TextOf(Colour colour) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", colour.red, colour.green, colour.blue);
    return text;
}

Colour ColourOf(const std::string& text) {
    unsigned value = 0;
    int read = 0;
    if (text.size() != 7 || std::sscanf(text.c_str(), "#%6x%n", &value, &read) != 1 || read != 7) {
        throw py::value_error("'" + text + "' is not a colour such as #b02030");
    }
    const auto channel = [value](unsigned shift) {
        return static_cast<std::uint8_t>(value >> shift & 0xffU);
    };
    return {channel(16), channel(8), channel(0)};
}

constexpr const char* kPalettes[] = {"levels", "warm", "cool", "diverging", "grey"};
constexpr const char* kDashes[] = {"solid", "dashed", "dotted", "dashdot", "dashdotdot", "none"};

template <std::size_t N>
int PlaceOf(const std::string& name, const char* const (&names)[N]) {
    const auto found = std::find(std::begin(names), std::end(names), name);
    if (found == std::end(names)) {
        throw py::value_error("'" + name + "' is not a name such as '" + names[0] + "'");
    }
    return static_cast<int>(found - std::begin(names));
}

FigureLayer LayerOf(const py::dict& given) {
    FigureLayer layer;
    const py::dict values = given.attr("copy")();
    const auto take = [&values](const char* name, auto set) {
        const py::object value = values.attr("pop")(name, py::none());
        if (!value.is_none()) {
            set(value);
        }
    };
    take("data", [&](auto& value) { layer.data = py::cast<std::string>(value); });
    take("shown", [&](auto& value) { layer.shown = py::cast<std::string>(value); });
    take("hidden", [&](auto& value) { layer.isHidden = py::cast<bool>(value); });
    take("name", [&](auto& value) { layer.name = py::cast<std::string>(value); });
    take("colour", [&](auto& value) { layer.colour = ColourOf(py::cast<std::string>(value)); });
    take("opacity", [&](auto& value) { layer.opacity = py::cast<double>(value); });
    take("symbol", [&](auto& value) { layer.symbol = py::cast<int>(value); });
    take("size", [&](auto& value) { layer.size = py::cast<double>(value); });
    take("width", [&](auto& value) { layer.width = py::cast<double>(value); });
    take("line", [&](auto& value) {
        layer.line = static_cast<api::Dash>(PlaceOf(py::cast<std::string>(value), kDashes));
    });
    take("palette",
         [&](auto& value) { layer.palette = PlaceOf(py::cast<std::string>(value), kPalettes); });
    take("steps", [&](auto& value) { layer.steps = py::cast<int>(value); });
    take("labels", [&](auto& value) { layer.hasLabels = py::cast<bool>(value); });
    if (!values.empty()) {
        throw py::value_error("a layer has no property "
                              + std::string(py::repr(values.begin()->first)));
    }
    return layer;
}

py::dict DictOf(const FigureLayer& layer) {
    py::dict dict;
    const auto put = [&dict](const char* name, const auto& value) {
        if (value) {
            dict[name] = *value;
        }
    };
    dict["data"] = layer.data;
    dict["shown"] = layer.shown;
    if (layer.isHidden) {
        dict["hidden"] = true;
    }
    if (!layer.name.empty()) {
        dict["name"] = layer.name;
    }
    if (layer.colour) {
        dict["colour"] = TextOf(*layer.colour);
    }
    put("opacity", layer.opacity);
    put("symbol", layer.symbol);
    put("size", layer.size);
    put("width", layer.width);
    if (layer.line) {
        dict["line"] = kDashes[static_cast<std::size_t>(*layer.line)];
    }
    if (layer.palette) {
        dict["palette"] = kPalettes[static_cast<std::size_t>(*layer.palette)];
    }
    put("steps", layer.steps);
    put("labels", layer.hasLabels);
    return dict;
}

std::vector<py::dict> LayersOf(const Figure& figure) {
    std::vector<py::dict> layers;
    for (const FigureLayer& layer : figure.Layers()) {
        layers.push_back(DictOf(layer));
    }
    return layers;
}

void SetLayers(Figure& figure, const std::vector<py::dict>& layers) {
    std::vector<FigureLayer> in;
    std::transform(layers.begin(), layers.end(), std::back_inserter(in), LayerOf);
    figure.SetLayers(in);
}

void SetDensities(Figure& figure, const std::string& method, bool axes, double k, double halfWidth,
                  const std::optional<std::string>& unit, const std::vector<double>& levels,
                  bool envelope, bool maxima) {
    figure.SetDensities(
        {DensityChoiceOf(method, axes, k, halfWidth, unit), levels, envelope, maxima});
}

void SetRegions(Figure& figure, const std::vector<std::string>& about, const std::string& method,
                int level, bool ofOverlays, bool refused) {
    api::FigureRegions regions;
    std::transform(about.begin(), about.end(), std::back_inserter(regions.about), RegionAboutOf);
    regions.method = RegionMethodOf(method);
    regions.level = level;
    regions.ofOverlays = ofOverlays;
    regions.showsRefused = refused;
    figure.SetRegions(regions);
}

FigurePage PageOf(double width, double net, double height, const std::string& legend,
                  bool transparent) {
    using Legend = FigurePage::Legend;
    return {width, net, height,
            NamedValue<Legend>(legend, {{"usual", Legend::kUsual},
                                        {"right", Legend::kRight},
                                        {"below", Legend::kBelow},
                                        {"none", Legend::kNone}}),
            transparent};
}

std::string SvgOf(const Figure& figure, double width, double net, double height,
                  const std::string& legend, bool transparent) {
    const FigurePage page = PageOf(width, net, height, legend, transparent);
    const auto draw = [&] {
        const py::gil_scoped_release release;
        return figure.Svg(page);
    };
    return Got(draw());
}

py::tuple StrokeOf(const api::Pen& pen) {
    const double width = pen.points > 0 ? pen.points * 96 / 72 : pen.width;
    return py::make_tuple(TextOf(pen.colour), width, kDashes[static_cast<std::size_t>(pen.dash)],
                          pen.opacity);
}

py::tuple InsideOf(const api::Fill& fill) {
    return py::make_tuple(static_cast<int>(fill.pattern), TextOf(fill.colour), fill.opacity);
}

Array PointsOf(const std::vector<api::Point>& points) {
    static_assert(sizeof(api::Point) == 2 * sizeof(double));
    return ArrayOf<api::Point>(points);
}

py::list MarkerOf(const api::Marker& marker) {
    py::list parts;
    for (const api::MarkerPart& part : marker.parts) {
        parts.append(py::make_tuple(static_cast<int>(part.kind), PointsOf(part.points), part.radius,
                                    StrokeOf(part.pen), InsideOf(part.fill)));
    }
    return parts;
}

/// What drawing code in Python needs of an operation.
py::dict DictOf(const Operation& operation) {
    static constexpr const char* kKinds[] = {"clear", "polyline",  "polygon", "circle",
                                             "arc",   "wedge",     "markers", "text",
                                             "path",  "push clip", "pop clip"};
    py::dict dict;
    dict["kind"] = kKinds[static_cast<std::size_t>(operation.kind)];
    dict["points"] = PointsOf(operation.points);
    dict["radius"] = operation.radius;
    dict["from"] = operation.from;
    dict["sweep"] = operation.sweep;
    dict["pen"] = StrokeOf(operation.pen);
    dict["fill"] = InsideOf(operation.fill);
    if (operation.kind == Operation::Kind::kPath) {
        py::list rings;
        for (const auto& ring : operation.rings) {
            rings.append(PointsOf(ring));
        }
        dict["rings"] = rings;
    }
    if (operation.kind == Operation::Kind::kMarkers) {
        dict["marker"] = MarkerOf(operation.marker);
    }
    if (operation.kind == Operation::Kind::kText) {
        dict["text"] = operation.text;
        dict["font"] = py::make_tuple(operation.font.family, operation.font.points,
                                      operation.font.bold, operation.font.italic);
    }
    return dict;
}

py::tuple OperationsOf(const Figure& figure, double width, double net, double height,
                       const std::string& legend) {
    const FigurePage page = PageOf(width, net, height, legend, false);
    const auto draw = [&] {
        const py::gil_scoped_release release;
        return figure.Operations(page);
    };
    const Figure::Picture picture = Got(draw());
    py::list operations;
    for (const Operation& operation : picture.operations) {
        operations.append(DictOf(operation));
    }
    return py::make_tuple(picture.size.width, picture.size.height, operations);
}

py::dict HeldBy(const Figure& figure) {
    const Plot plot = Got(figure.Rows());
    py::dict rows;
    const auto put = [](const api::PlotRows& from) -> py::object {
        return from.planes.empty() ? py::object(ArrayOf<Line>(from.lines))
                                   : py::object(ArrayOf<Plane>(from.planes));
    };
    rows["fabric"] = plot.fabric;
    rows["description"] = plot.description;
    rows["are_planes"] = plot.primary == api::Primary::kPlanes;
    rows["main"] = put(plot.rows);
    rows["numbers"] =
        Array(static_cast<py::ssize_t>(plot.rows.numbers.size()), plot.rows.numbers.data());
    rows["texts"] = plot.rows.texts;
    py::list overlays;
    for (const api::PlotOverlay& overlay : plot.overlays) {
        overlays.append(put(overlay.rows));
    }
    rows["overlays"] = overlays;
    rows["left_out"] = plot.leftOut;
    return rows;
}

} // namespace

void BindFigures(py::module_& module) {
    using namespace py::literals;
    py::class_<Figure>(module, "FigureDocument", "What a Figure holds: a plot with its looks.")
        .def(py::init(&FigureOf), "rows"_a, "what"_a, "kind"_a = "equal area", "decimals"_a = false)
        .def_static(
            "read", [](const py::bytes& bytes) { return Got(Figure::Read(std::string(bytes))); },
            "data"_a)
        .def("bytes", [](const Figure& figure) { return py::bytes(Got(figure.Bytes())); })
        .def("rows", HeldBy)
        .def("add_overlay", AddOverlay, "rows"_a, "what"_a)
        .def(
            "set_kind",
            [](Figure& figure, const std::string& kind) { figure.SetKind(KindOf(kind)); }, "kind"_a)
        .def_property("style", &Figure::Style, &Figure::SetStyle)
        .def_property("layers", LayersOf, SetLayers)
        .def("set_densities", SetDensities, "method"_a, "axes"_a, "k"_a, "half_width"_a, "unit"_a,
             "levels"_a, "envelope"_a, "maxima"_a)
        .def("set_regions", SetRegions, "about"_a, "method"_a, "level"_a, "of_overlays"_a,
             "refused"_a)
        .def(
            "set_rose",
            [](Figure& figure, double sectorSize, double start, bool equalArea) {
                figure.SetRose({sectorSize, start, equalArea});
            },
            "sector_size"_a, "start"_a, "equal_area"_a)
        .def("svg", SvgOf, "width"_a, "net"_a, "height"_a, "legend"_a, "transparent"_a = false)
        .def("operations", OperationsOf, "width"_a, "net"_a, "height"_a, "legend"_a);
}

} // namespace quandrel::python
