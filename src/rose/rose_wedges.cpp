// SPDX-License-Identifier: MIT

#include "rose/rose_wedges.h"

#include "core/plot_store.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "rose/rose_furniture.h"
#include "rose/rose_radii.h"
#include "rose/rose_sectors.h"
#include "rose/wedge_shapes.h"
#include "stereo/window_drawing.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace quandrel {

namespace {

constexpr int kClassFills = 12;
constexpr int kLowestLayer = 2;

constexpr double kBlankWidth = 3; // pen and margin, which a blank erases of outlines
constexpr double kBlankMargin = 5;

RoseFill FillOfRow(const Styles& styles, int row) {
    const SymbolRow& style = styles.symbols.at(static_cast<std::size_t>(row));
    const int pattern = style[kPlaceSymbol];
    const bool isPattern = pattern >= kSolidFill && pattern <= kDiagonalCrossHatch;
    return {style[kPlaceColour], isPattern ? pattern : static_cast<int>(kSolidFill)};
}

Colour OutlineColour(const Styles& styles) {
    return TableColour(styles, styles.symbols[kRoseBackgroundStyle][kPlaceSymbol]);
}

/// White is the paper's white; a window has its own paper colour.
Colour BlankColour(const Drawing& drawing) {
    const Styles& styles = drawing.styles;
    const Colour blank = TableColour(styles, styles.symbols[kRoseBackgroundStyle][kPlaceColour]);
    return blank == kWhite ? PlotBackground(drawing) : blank;
}

/// A wedge between two unwrapped angles.
RoseWedge WedgeBetween(RoseSpan span, double radius) {
    RoseWedge wedge;
    wedge.start = WrappedAngle(span.start);
    const bool isWhole = span.end - span.start > kTwoPi - 1e-9;
    wedge.end = isWhole ? wedge.start : WrappedAngle(span.end);
    wedge.radius = radius;
    return wedge;
}

RoseWedge MirrorOf(RoseWedge wedge) {
    const bool isWhole = wedge.start == wedge.end;
    wedge.start = WrappedAngle(wedge.start + kPi);
    wedge.end = isWhole ? wedge.start : WrappedAngle(wedge.end + kPi);
    wedge.mirror = true;
    return wedge;
}

/// The span of a class that is narrower by steps on both sides.
RoseSpan SpanOfClass(RoseSpan sector, int classNumber, int classes) {
    const double step = (sector.end - sector.start) / (2 * classes - 1);
    const double inset = (classes - classNumber) * step;
    return {sector.start + inset, sector.end - inset};
}

/// Makes the wedges of one sector after another.
class WedgeMaker {
public:
    WedgeMaker(const RoseRadiiTable& radii, const RoseWedgeSettings& settings)
        : radii_(radii)
        , settings_(settings) {}

    std::vector<RoseWedge> Make() {
        for (int sector = 1; sector <= radii_.Sectors(); ++sector) {
            if (radii_(sector, 0) > 0) {
                AddSector(sector);
            }
        }
        return std::move(wedges_);
    }

private:
    void AddSector(int sector) {
        const RoseSpan span = SpanOfSector(settings_, radii_.Sectors(), sector);
        double radius = settings_.zeroRadius + radii_(sector, 0);
        const int classes = radii_.Classes();
        if (classes == 1) {
            Add(span, radius, sector, 0);
            return;
        }
        for (int c = classes; c >= 1 && radius > settings_.zeroRadius; --c) {
            if (radii_(sector, c) != 0) {
                Add(settings_.stepped ? SpanOfClass(span, c, classes) : span, radius, sector, c);
                radius -= radii_(sector, c);
            }
        }
    }

    void Add(RoseSpan span, double radius, int sector, int classNumber) {
        RoseWedge wedge = WedgeBetween(span, radius);
        wedge.sector = sector;
        wedge.classNumber = classNumber;
        wedge.layer = settings_.layer;
        wedges_.push_back(wedge);
        if (settings_.mirror) {
            wedges_.push_back(MirrorOf(wedge));
        }
    }

    const RoseRadiiTable& radii_;
    const RoseWedgeSettings& settings_;
    std::vector<RoseWedge> wedges_;
};

/// Draws the wedges of a layer.
class WedgePainter {
public:
    /// @param sectors  of the rose
    WedgePainter(const Drawing& drawing, const RoseWedgeSettings& settings, int sectors)
        : surface_(drawing.plot)
        , styles_(drawing.styles)
        , blank_(BlankColour(drawing))
        , outline_(OutlineColour(drawing.styles))
        , settings_(settings)
        , sectors_(sectors) {}

    void Draw(std::span<const RoseWedge> wedges) {
        if (settings_.stepped && !wedges.empty() && wedges.front().classNumber != 0) {
            DrawSteps(wedges);
            return;
        }
        for (const RoseWedge& wedge : wedges) {
            DrawWedge(wedge);
        }
    }

private:
    void Use(Colour fill, int pattern, double width) {
        DrawState state = surface_.State();
        state.drawStyle = kSolidLine;
        state.drawWidth = width;
        state.fillColour = fill;
        state.fillStyle = pattern;
        surface_.SetState(state);
    }

    void DrawWedge(const RoseWedge& wedge) {
        const RoseFill fill = wedge.classNumber == 0 ? FillOfRoseLayer(styles_, wedge.layer)
                                                     : FillOfRoseClass(styles_, wedge.classNumber);
        if (wedge.classNumber != 0 && fill.pattern != kSolidFill) {
            // A pattern would let the class beneath show through.
            Use(blank_, kSolidFill, 1);
            surface_.Wedge({}, wedge.radius, wedge.start, wedge.end, blank_);
        }
        Use(TableColour(styles_, fill.colour), fill.pattern, 1);
        surface_.Wedge({}, wedge.radius, wedge.start, wedge.end, outline_);
    }

    /// Classes that differ in width. An inner class must not be drawn over the outer ones, whose
    /// colour would show beside it: each is a part of a ring, and the sector is blank inside it.
    void DrawSteps(std::span<const RoseWedge> wedges) {
        // All blanks come first, because a blank erases a little beside it. The blank of the
        // outermost class covers the inner classes too.
        for (std::size_t i = 0; i < wedges.size(); ++i) {
            const std::size_t before = settings_.mirror ? 2 : 1;
            if (i < before || wedges[i - before].sector != wedges[i].sector) {
                BlankSector(wedges[i]);
            }
        }
        for (std::size_t i = 0; i < wedges.size(); ++i) {
            const RoseFill fill = FillOfRoseClass(styles_, wedges[i].classNumber);
            Use(TableColour(styles_, fill.colour), fill.pattern, 1);
            const double inner = InnerRadiusOf(wedges, i, settings_.zeroRadius);
            surface_.Polygon(CornersOfRingPart(wedges[i], inner), outline_);
        }
    }

    /// Blanks the part of the sector inside a class.
    void BlankSector(const RoseWedge& wedge) {
        const RoseWedge sector =
            WedgeBetween(SpanOfSector(settings_, sectors_, wedge.sector), wedge.radius);
        const RoseWedge blank = wedge.mirror ? MirrorOf(sector) : sector;
        Use(blank_, kSolidFill, kBlankWidth);
        surface_.Wedge({}, std::max(blank.radius - kBlankMargin, 0.0), blank.start, blank.end,
                       blank_);
    }

    Surface& surface_;
    const Styles& styles_;
    Colour blank_;
    Colour outline_;
    const RoseWedgeSettings& settings_;
    int sectors_;
};

RoseWedgeSettings SettingsOfLayer(const Plot& plot, int layer) {
    const PlotRecord& record = plot.record;
    const PlotRose& rose = RoseOf(plot);
    RoseWedgeSettings settings;
    settings.startMath = rose.startMath;
    settings.sectorSize = record.RoseSectorSize;
    settings.oddSectorSize = OddSectorOfRose(record, rose.radii.Sectors());
    settings.fraction =
        FractionOfLayer(std::clamp<int>(record.RoseSectorFraction, 1, 100) / 100.0, layer);
    settings.zeroRadius = ZeroRadiusOfRose(record);
    settings.stepped = record.RoseSegShape == 1;
    settings.mirror = !rose.isDirectional && !CountsBothEnds(record);
    settings.layer = layer;
    return settings;
}

/// The outlines of the lower layers, in their colours, so that each remains visible.
void DrawLowerOutlines(const PlotRose& rose, const Drawing& drawing) {
    DrawState state = drawing.plot.State();
    state.fillStyle = kNoFill;
    drawing.plot.SetState(state);
    for (const RoseWedge& wedge : rose.wedges) {
        if (wedge.layer > 0) {
            const RoseFill fill = FillOfRoseLayer(drawing.styles, wedge.layer);
            drawing.plot.Wedge({}, wedge.radius, wedge.start, wedge.end,
                               TableColour(drawing.styles, fill.colour));
        }
    }
}

void DrawBlanks(const PlotRecord& record, const Drawing& drawing) {
    Surface& surface = drawing.plot;
    const Colour blank = BlankColour(drawing);
    DrawState state = surface.State();
    state.drawWidth = 1;
    state.fillStyle = kSolidFill;
    state.fillColour = blank;
    surface.SetState(state);
    const double zeroRadius = ZeroRadiusOfRose(record);
    if (zeroRadius >= 1) {
        surface.Circle({}, zeroRadius, OutlineColour(drawing.styles));
    }
    if (IsHalfRose(record.RoseShape)) {
        const RoseArc hidden = HiddenArc(record.RoseShape);
        surface.Wedge({}, kNetRadius, hidden.start, hidden.end, blank);
        // The longest petals have the outer half of their outline outside the circle.
        state.drawWidth = kBlankWidth;
        surface.SetState(state);
        surface.Arc({}, kNetRadius, hidden.start, hidden.end, blank);
    }
}

/// Draws the wedges of a layer, and after those of layer 0 the parts on top of all.
void DrawLayer(const Plot& plot, int layer, std::span<const RoseWedge> wedges,
               const Drawing& drawing) {
    const PlotRose& rose = RoseOf(plot);
    const SavedState saved(drawing.plot);
    const RoseWedgeSettings settings = SettingsOfLayer(plot, layer);
    WedgePainter(drawing, settings, rose.radii.Sectors()).Draw(wedges);
    if (layer == 0) {
        DrawLowerOutlines(rose, drawing);
        DrawBlanks(plot.record, drawing);
    }
}

bool Covers(const RoseWedge& wedge, double angle) {
    if (wedge.start == wedge.end) {
        return true;
    }
    return WrappedAngle(angle - wedge.start) <= WrappedAngle(wedge.end - wedge.start);
}

} // namespace

RoseSpan SpanOfSector(const RoseWedgeSettings& settings, int sectors, int sector) {
    const double edge = settings.startMath + (sector - 1) * settings.sectorSize;
    const bool isOdd = sector == sectors && settings.oddSectorSize != 0;
    const double size = isOdd ? settings.startMath + 360 - edge : settings.sectorSize;
    double gap = size * (1 - settings.fraction) / 2;
    if (isOdd) {
        // Kept: a gap of whole degrees, where it leaves the wedge at least one.
        const double wedge = RoundToEven(settings.oddSectorSize * settings.fraction);
        const double wholeGap = RoundToEven((settings.oddSectorSize - wedge) / 2);
        gap = size - 2 * wholeGap >= 1 ? wholeGap : gap;
    }
    return {DegToRad(edge + gap), DegToRad(edge + size - gap)};
}

std::vector<RoseWedge> WedgesOfRose(const RoseRadiiTable& radii,
                                    const RoseWedgeSettings& settings) {
    return WedgeMaker(radii, settings).Make();
}

const RoseWedge* WedgeAt(std::span<const RoseWedge> wedges, Point at) {
    const double radius = std::hypot(at.x, at.y);
    const double angle = WrappedAngle(std::atan2(at.y, at.x));
    for (std::size_t i = wedges.size(); i-- > 0;) {
        if (radius <= wedges[i].radius && Covers(wedges[i], angle)) {
            return &wedges[i];
        }
    }
    return nullptr;
}

RoseFill FillOfRoseClass(const Styles& styles, int classNumber) {
    const int place = std::max(classNumber - 1, 0);
    RoseFill fill = FillOfRow(styles, kFirstRoseClassStyle + place % kClassFills);
    if (place >= kClassFills) {
        fill.pattern = fill.pattern == kUpwardHatch ? kDownwardHatch : kUpwardHatch;
    }
    return fill;
}

RoseFill FillOfRoseLayer(const Styles& styles, int layer) {
    return FillOfRow(styles,
                     layer <= 0 ? kRoseStyle : kOverlaidRoseStyle - std::min(layer, kLowestLayer));
}

double FractionOfLayer(double fraction, int layer) {
    constexpr double kLeast = 0.01;
    return layer == 1 ? std::max(fraction - 0.25, kLeast) : fraction;
}

void AddRoseWedges(Plot& plot, int layer) {
    PlotRose& rose = RoseOf(plot);
    const std::vector<RoseWedge> wedges = WedgesOfRose(rose.radii, SettingsOfLayer(plot, layer));
    rose.wedges.insert(rose.wedges.end(), wedges.begin(), wedges.end());
}

void DrawRoseWedges(const Plot& plot, const Drawing& drawing) {
    const std::vector<RoseWedge>& wedges = RoseOf(plot).wedges;
    auto first = wedges.begin();
    for (int layer = kLowestLayer; layer >= 0; --layer) {
        // The layers follow one another, the lowest first.
        const auto end = std::find_if(
            first, wedges.end(), [layer](const RoseWedge& wedge) { return wedge.layer < layer; });
        DrawLayer(plot, layer, {first, end}, drawing);
        first = end;
    }
}

void DrawRoseWedges(int /*style*/, int layer) {
    const int drawn = layer < 0 || layer > kLowestLayer ? 0 : layer;
    const std::vector<RoseWedge>& wedges = ActiveRose().wedges;
    const std::size_t before = wedges.size();
    AddRoseWedges(ActivePlot(), drawn);
    DrawLayer(ActivePlot(), drawn, std::span(wedges).subspan(before), WindowDrawing(gActivePlot));
}

} // namespace quandrel
