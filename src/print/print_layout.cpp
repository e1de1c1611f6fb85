// SPDX-License-Identifier: MIT

#include "print/print_layout.h"

#include "orientation/number_text.h"
#include "print/page_places.h"

#include <algorithm>
#include <optional>

namespace quandrel {

namespace {

constexpr double kUnitsAbout = 1.1; ///< half the side of a net's square, in radii

/// Finds space for legend and texts of plots that the user has placed: clear of all nets, and of
/// the texts of the previous plots.
void PlaceAllTexts(PrintLayout& layout) {
    const PageRect area = FittingArea(layout.paper);
    for (std::size_t i = 0; i < layout.plots.size(); ++i) {
        std::vector<PageRect> others;
        for (std::size_t k = 0; k < layout.plots.size(); ++k) {
            if (k != i) {
                others.push_back(NetSquare(layout.plots[k]));
            }
            if (k < i) {
                others.push_back(layout.plots[k].texts);
            }
        }
        layout.plots[i].texts = RoomBeside(NetSquare(layout.plots[i]), area, others);
    }
}

void PutInto(PlotOnPage& plot, const PlotPlaces& places) {
    plot.radius = places.net.width / 2 / kUnitsAbout;
    plot.centreX = places.net.left + places.net.width / 2;
    plot.centreY = places.net.top + places.net.height / 2;
    plot.texts = places.texts;
}

} // namespace

double MillimetresIn(PageUnits units) {
    return units == PageUnits::Inches ? 25.4 : 10;
}

std::string LengthText(double millimetres, PageUnits units, std::string_view format) {
    return FormatNumber(millimetres / MillimetresIn(units), format);
}

bool TakeLength(const std::string& text, PageUnits units, std::string_view format,
                double& millimetres) {
    if (text == LengthText(millimetres, units, format)) {
        return true;
    }
    const std::optional<double> length = ReadNumber(text);
    if (length) {
        millimetres = *length * MillimetresIn(units);
    }
    return length.has_value();
}

double MostRadius(const Sheet& paper) {
    return std::max(std::max(paper.width, paper.height) / 2, kLeastRadius);
}

PageRect NetSquare(const PlotOnPage& plot) {
    const double half = kUnitsAbout * plot.radius;
    return {plot.centreX - half, plot.centreY - half, 2 * half, 2 * half};
}

PageRect FittingArea(const Sheet& paper) {
    constexpr double kRim = 10;
    const double rim =
        std::min(std::max(paper.margin, kRim), std::min(paper.width, paper.height) / 4);
    return {rim, rim, paper.width - 2 * rim, paper.height - 2 * rim};
}

std::vector<int> PlotsOverEdge(const PrintLayout& layout) {
    constexpr double kRounding = 0.05; // millimetres; boxes show no more
    std::vector<int> slots;
    for (const PlotOnPage& plot : layout.plots) {
        const double room = plot.radius - kRounding;
        if (plot.centreX < room || layout.paper.width - plot.centreX < room || plot.centreY < room
            || layout.paper.height - plot.centreY < room) {
            slots.push_back(plot.slot);
        }
    }
    return slots;
}

std::string OverEdgeText(const std::vector<int>& slots) {
    std::string numbers;
    for (std::size_t i = 0; i < slots.size(); ++i) {
        numbers += i == 0 ? "" : i + 1 == slots.size() ? " and " : ", ";
        numbers += std::to_string(slots[i]);
    }
    if (slots.empty()) {
        return {};
    }
    return (slots.size() == 1 ? "Plot " + numbers + " reaches" : "Plots " + numbers + " reach")
           + " over the edge of the paper";
}

void FitToPage(PrintLayout& layout) {
    layout.fitsPage = true;
    const std::vector<PlotPlaces> places =
        FittedPlaces(FittingArea(layout.paper), layout.plots.size());
    for (std::size_t i = 0; i < layout.plots.size(); ++i) {
        PutInto(layout.plots[i], places[i]);
    }
}

std::size_t SelectPlot(PrintLayout& layout, int slot) {
    const auto found = std::ranges::find(layout.plots, slot, &PlotOnPage::slot);
    if (found != layout.plots.end()) {
        return static_cast<std::size_t>(found - layout.plots.begin());
    }
    const PageRect area = FittingArea(layout.paper);
    PlotOnPage plot;
    plot.slot = slot;
    plot.centreX = layout.paper.width / 2;
    plot.centreY = layout.paper.height / 2;
    plot.radius = std::max(std::min(area.width, area.height) / 4 / kUnitsAbout, kLeastRadius);
    layout.plots.push_back(plot);
    if (layout.fitsPage) {
        FitToPage(layout);
    } else {
        PlaceAllTexts(layout);
    }
    return layout.plots.size() - 1;
}

void RemovePlot(PrintLayout& layout, std::size_t index) {
    if (index >= layout.plots.size()) {
        return;
    }
    layout.plots.erase(layout.plots.begin() + static_cast<std::ptrdiff_t>(index));
    if (layout.fitsPage) {
        FitToPage(layout);
    } else {
        PlaceAllTexts(layout);
    }
}

void MovePlot(PrintLayout& layout, std::size_t index, double centreX, double centreY) {
    PlotOnPage& plot = layout.plots.at(index);
    plot.centreX = std::clamp(centreX, 0.0, layout.paper.width);
    plot.centreY = std::clamp(centreY, 0.0, layout.paper.height);
    layout.fitsPage = false;
    PlaceAllTexts(layout);
}

void SizePlot(PrintLayout& layout, std::size_t index, double radius) {
    layout.plots.at(index).radius = std::clamp(radius, kLeastRadius, MostRadius(layout.paper));
    layout.fitsPage = false;
    PlaceAllTexts(layout);
}

void TakePaper(PrintLayout& layout, const Sheet& paper) {
    if (layout.paper == paper) {
        return;
    }
    layout.paper = paper;
    if (layout.fitsPage) {
        FitToPage(layout);
        return;
    }
    for (PlotOnPage& plot : layout.plots) {
        plot.radius = std::min(plot.radius, MostRadius(paper));
        plot.centreX = std::min(plot.centreX, paper.width);
        plot.centreY = std::min(plot.centreY, paper.height);
    }
    PlaceAllTexts(layout);
}

} // namespace quandrel
