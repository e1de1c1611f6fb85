// SPDX-License-Identifier: MIT

#include "batch/print_command.h"

#include "batch/key_values.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "orientation/number_text.h"
#include "print/print_layout.h"
#include "print/print_run.h"
#include "qt/pdf_printer.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <ostream>

namespace quandrel {

namespace {

const Names kUnits = {{"cms", static_cast<int>(PageUnits::Centimetres)},
                      {"inches", static_cast<int>(PageUnits::Inches)}};
const Names kPapers = {{"a3", QPageSize::A3},
                       {"a4", QPageSize::A4},
                       {"a5", QPageSize::A5},
                       {"legal", QPageSize::Legal},
                       {"letter", QPageSize::Letter}};
const Names kOrientations = {{"landscape", QPageLayout::Landscape},
                             {"portrait", QPageLayout::Portrait}};

/// The arguments of a command.
struct Draft {
    std::string path;
    std::vector<int> plots;
    PageUnits units = PageUnits::Centimetres;
    std::vector<double> sizes;   ///< in the units
    std::vector<double> centres; ///< pairs, in the units
    QPageSize::PageSizeId paper = QPageSize::A4;
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
};

std::string TakeNumbers(const std::string& text, std::vector<double>& numbers) {
    for (const std::string& part : SplitAtCommas(text)) {
        if (std::string error = TakeNumber(part, numbers.emplace_back()); !error.empty()) {
            return error;
        }
    }
    return {};
}

std::string TakePlots(const std::string& text, std::vector<int>& plots) {
    for (const std::string& part : SplitAtCommas(text)) {
        const std::optional<int> slot = WholeNumber(part, 1, HighestSlot());
        if (!slot || !IsOpenSlot(*slot)) {
            return "'" + part + "' is not an open plot";
        }
        if (std::ranges::find(plots, *slot) != plots.end()) {
            return "plot " + part + " is named twice";
        }
        plots.push_back(*slot);
    }
    return {};
}

std::string TakePath(const std::string& text, Draft& draft) {
    if (!draft.path.empty()) {
        return "'" + text + "' is one path too many";
    }
    draft.path = text;
    return {};
}

const Takers<Draft>& PrintTakers() {
    static const Takers<Draft> takers = {
        {"plots", [](auto& v, Draft& d) { return TakePlots(v, d.plots); }},
        {"units", [](auto& v, Draft& d) { return TakeName(kUnits, v, d.units); }},
        {"size", [](auto& v, Draft& d) { return TakeNumbers(v, d.sizes); }},
        {"centre", [](auto& v, Draft& d) { return TakeNumbers(v, d.centres); }},
        {"paper", [](auto& v, Draft& d) { return TakeName(kPapers, v, d.paper); }},
        {"orientation",
         [](auto& v, Draft& d) { return TakeName(kOrientations, v, d.orientation); }},
    };
    return takers;
}

std::string TakeWords(const Command& command, Draft& draft) {
    std::vector<Argument> pairs;
    for (const Argument& argument : command.arguments) {
        if (!argument.name.empty() || PrintTakers().contains(argument.value)) {
            pairs.push_back(argument);
        } else if (std::string error = TakePath(argument.value, draft); !error.empty()) {
            return error;
        }
    }
    if (draft.path.empty()) {
        return "a path is missing";
    }
    if (!HasEnding(draft.path, ".pdf")) {
        return "'" + draft.path + "' does not end in .pdf";
    }
    return TakeArguments(pairs, PrintTakers(), "print", draft);
}

/// Positions the plots as the command says.
std::string LayOut(const Draft& draft, PrintLayout& layout) {
    for (const int slot : draft.plots) {
        SelectPlot(layout, slot);
    }
    const std::size_t count = layout.plots.size();
    if (draft.sizes.size() > 1 && draft.sizes.size() != count) {
        return "size: one value is required, or one for each plot";
    }
    if (!draft.centres.empty() && draft.centres.size() != 2 * count) {
        return "centre: two numbers are required for each plot";
    }
    const double unit = MillimetresIn(draft.units);
    for (std::size_t i = 0; i < count; ++i) {
        if (!draft.sizes.empty()) {
            const double radius = draft.sizes[std::min(i, draft.sizes.size() - 1)] * unit;
            if (!(radius >= kLeastRadius && radius <= MostRadius(layout.paper))) {
                return "size: a net's radius is "
                       + LengthText(kLeastRadius, draft.units, kSizeFormat) + " to "
                       + LengthText(MostRadius(layout.paper), draft.units, kSizeFormat) + " "
                       + kPageUnitNames[static_cast<std::size_t>(draft.units)];
            }
            SizePlot(layout, i, radius);
        }
        if (!draft.centres.empty()) {
            const double x = draft.centres[2 * i] * unit;
            const double y = draft.centres[2 * i + 1] * unit;
            if (!(x >= 0 && x <= layout.paper.width && y >= 0 && y <= layout.paper.height)) {
                return "centre: it is not on the paper";
            }
            MovePlot(layout, i, x, y);
        }
    }
    return {};
}

} // namespace

std::string PrintToFile(const Command& command, std::ostream& log) {
    Draft draft;
    if (std::string error = TakeWords(command, draft); !error.empty()) {
        return error;
    }
    if (draft.plots.empty()) {
        draft.plots = {gActivePlot};
    }
    PdfPrinter printer(PdfPaper(draft.paper, draft.orientation));
    PrintLayout layout;
    layout.paper = printer.Paper();
    layout.units = draft.units;
    if (std::string error = LayOut(draft, layout); !error.empty()) {
        return error;
    }
    if (const std::string note = OverEdgeText(PlotsOverEdge(layout)); !note.empty()) {
        log << "print: " << note << '\n';
    }
    for (const int slot : draft.plots) {
        // The page also shows fields that were set after the plot was last drawn.
        const PlotInWork work(slot);
        ReplotActivePlot(false);
    }
    PrintRun run(layout.plots, printer, draft.path);
    while (run.HasMore()) {
        run.PrintNext();
    }
    if (run.End() == PrintOutcome::Printed) {
        return {};
    }
    const std::string& reason = printer.Failure();
    return "'" + draft.path
           + "' could not be written: " + (reason.empty() ? "the page could not be drawn" : reason);
}

} // namespace quandrel
