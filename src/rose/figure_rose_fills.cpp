// SPDX-License-Identifier: MIT

#include "rose/figure_rose_fills.h"

#include "classify/class_settings.h"
#include "classify/classification.h"
#include "density/palettes.h"
#include "platform/colour_space.h"
#include "rose/rose_sectors.h"
#include "rose/rose_wedges.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace quandrel {

namespace {

constexpr int kRowsOfClasses = 12;

bool IsAtStart(const Styles& styles, int row) {
    static const Styles start = StartStyles();
    const auto place = static_cast<std::size_t>(row);
    return styles.symbols[place] == start.symbols[place];
}

PetalFill FillOfTables(const Styles& styles, const RoseFill& fill) {
    return {TableColour(styles, fill.colour), fill.pattern};
}

/// The palette of a style (BandStyle::palette).
Palette PaletteOf(const FigureStyle& figure) {
    return figure.bands.palette > 0 ? static_cast<Palette>(figure.bands.palette - 1)
                                    : Palette::Cool;
}

/// The colour of a place among so many, hatched after the last one.
PetalFill Hatched(Colour colour, bool isFirstTime) {
    return {colour, isFirstTime ? kSolidFill : kUpwardHatch};
}

/// From low to high numbers.
PetalFill FillOfRange(const FigureStyle& figure, int place, int classes) {
    const Palette palette = PaletteOf(figure);
    const int steps = std::clamp(classes, kLeastPaletteSteps, BestPaletteSteps(palette));
    return Hatched(PaletteColour(palette, place % steps, steps), place < steps);
}

/// The colours of sets but black, in which outlines would be lost.
PetalFill FillOfName(const FigureStyle& figure, int place) {
    std::vector<Colour> colours = figure.symbols.setColours;
    std::erase(colours, kBlack);
    if (colours.empty()) {
        return {figure.roses.fill, kSolidFill};
    }
    const auto count = static_cast<int>(colours.size());
    return Hatched(colours[static_cast<std::size_t>(place % count)], place < count);
}

} // namespace

bool HasFigureRoses(const Drawing& drawing) {
    return FigureOf(drawing).roses.outlineWidth > 0;
}

PetalFill FillOfFigureClass(const PlotRecord& record, const Drawing& drawing, int classNumber) {
    const int row = kFirstRoseClassStyle + std::max(classNumber - 1, 0) % kRowsOfClasses;
    const std::optional<ClassColumn> column = RoseClassColumn(record);
    if (!column || !IsAtStart(drawing.styles, row)) {
        return FillOfTables(drawing.styles, FillOfRoseClass(drawing.styles, classNumber));
    }
    const ClassRule rule = RuleOfClassTable(record.ClassTable, *column);
    const int lowest = rule.keepLow ? 1 : 2; // class 1 is below the first limit
    const int place = std::max(classNumber - lowest, 0);
    if (*column == kNameClasses) {
        return FillOfName(FigureOf(drawing), place);
    }
    return FillOfRange(FigureOf(drawing), place, LastClass(rule) - lowest + 1);
}

bool HasLayersOfRose(int roseType) {
    const int kind = RoseKindOf(roseType);
    return kind == kRoseOverlaidWind || kind == kRoseValueOverFrequency
           || kind == kRoseValueOverMean;
}

PetalFill FillOfFigureLayer(const PlotRecord& record, const Drawing& drawing, int layer) {
    constexpr double kStep = 24; // of lightness, from layer to layer; the middle one has the fill
    const int row = layer <= 0 ? kRoseStyle : kOverlaidRoseStyle - layer;
    if (!IsAtStart(drawing.styles, row)) {
        return FillOfTables(drawing.styles, FillOfRoseLayer(drawing.styles, layer));
    }
    const Colour fill = FigureOf(drawing).roses.fill;
    if (!HasLayersOfRose(record.RoseType) || layer == 1) {
        return {fill, kSolidFill};
    }
    LabColour other = LabOf(fill);
    other.lightness = std::clamp(other.lightness + kStep * (layer - 1), 0.0, 100.0);
    return {ColourOfLab(other), kSolidFill};
}

PetalFill FillOfFigureWedge(const PlotRecord& record, const Drawing& drawing,
                            const RoseWedge& wedge) {
    return wedge.classNumber == 0 ? FillOfFigureLayer(record, drawing, wedge.layer)
                                  : FillOfFigureClass(record, drawing, wedge.classNumber);
}

Colour OutlineOfPetals(const Styles& styles) {
    return TableColour(styles, styles.symbols[kRoseBackgroundStyle][kPlaceSymbol]);
}

void UseFill(Surface& surface, const Drawing& drawing, const PetalFill& fill) {
    DrawState state = surface.State();
    state.drawStyle = kSolidLine;
    state.widthInPoints = FigureOf(drawing).roses.outlineWidth;
    state.fillColour = fill.colour;
    state.fillStyle = fill.pattern;
    surface.SetState(state);
}

} // namespace quandrel
