// SPDX-License-Identifier: MIT

#include "rose/rose_wedges.h"

#include "core/plot_store.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "rose/rose_furniture.h"
#include "rose/rose_radii.h"
#include "rose/rose_sectors.h"
#include "stereo/draw_target.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr int kWedgeRow = 16;      // style of petals without classes
constexpr int kBackgroundRow = 17; // blank, and in the second place the colour of outlines
constexpr int kFirstClassRow = 24;
constexpr int kClassFills = 12;
constexpr int kTopLayerRow = 38;

constexpr double kBlankWidth = 3; // pen and margin wipe the outline of what is blanked
constexpr double kBlankMargin = 5;

RoseFill FillOfRow(int row) {
    const SymbolRow& style = gSymbolTable.at(static_cast<std::size_t>(row));
    const int pattern = style[kPlaceSymbol];
    const bool isPattern = pattern >= kSolidFill && pattern <= kDiagonalCrossHatch;
    return {style[kPlaceColour], isPattern ? pattern : static_cast<int>(kSolidFill)};
}

Colour OutlineColour() {
    return TableColour(gSymbolTable[kBackgroundRow][kPlaceSymbol]);
}

/// White is that of the paper, and a window has its own colour for paper.
Colour BlankColour() {
    const Colour blank = TableColour(gSymbolTable[kBackgroundRow][kPlaceColour]);
    return blank == kWhite ? PlotBackground(DrawingInForce()) : blank;
}

/// A wedge between two angles that are not wrapped.
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

/// Makes the wedges of one sector after the other.
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
    WedgePainter(Surface& surface, const RoseWedgeSettings& settings, const RoseRadiiTable& radii)
        : surface_(surface)
        , settings_(settings)
        , sectors_(radii.Sectors())
        , classes_(radii.Classes()) {}

    void Draw(std::span<const RoseWedge> wedges) {
        if (settings_.stepped && classes_ > 1) {
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
        const RoseFill fill = wedge.classNumber == 0 ? FillOfRoseLayer(wedge.layer)
                                                     : FillOfRoseClass(wedge.classNumber);
        if (wedge.classNumber != 0 && fill.pattern != kSolidFill) {
            // A pattern would let the class below it through.
            Use(BlankColour(), kSolidFill, 1);
            surface_.Wedge({}, wedge.radius, wedge.start, wedge.end, BlankColour());
        }
        Use(TableColour(fill.colour), fill.pattern, 1);
        surface_.Wedge({}, wedge.radius, wedge.start, wedge.end, OutlineColour());
    }

    /// Classes that differ in width. An inner one must not lie on the outer ones, whose colour
    /// would show beside it: each is a part of a ring, and below it the sector is blank.
    void DrawSteps(std::span<const RoseWedge> wedges) {
        // All sectors first, as a blank wipes a little of what lies beside it. The one of the
        // outermost class blanks for those inside too.
        for (std::size_t i = 0; i < wedges.size(); ++i) {
            const std::size_t before = settings_.mirror ? 2 : 1;
            if (i < before || wedges[i - before].sector != wedges[i].sector) {
                BlankSector(wedges[i]);
            }
        }
        for (std::size_t i = 0; i < wedges.size(); ++i) {
            const RoseFill fill = FillOfRoseClass(wedges[i].classNumber);
            Use(TableColour(fill.colour), fill.pattern, 1);
            surface_.Polygon(RingPart(wedges[i], InnerRadius(wedges, i)), OutlineColour());
        }
    }

    /// Blanks the sector of a class below it.
    void BlankSector(const RoseWedge& wedge) {
        const RoseWedge sector =
            WedgeBetween(SpanOfSector(settings_, sectors_, wedge.sector), wedge.radius);
        const RoseWedge blank = wedge.mirror ? MirrorOf(sector) : sector;
        Use(BlankColour(), kSolidFill, kBlankWidth);
        surface_.Wedge({}, std::max(blank.radius - kBlankMargin, 0.0), blank.start, blank.end,
                       BlankColour());
    }

    /// Where a class begins: at the outer radius of the next one inside, or at the zero circle.
    [[nodiscard]] double InnerRadius(std::span<const RoseWedge> wedges, std::size_t i) const {
        for (std::size_t inner = i + 1;
             inner < wedges.size() && wedges[inner].sector == wedges[i].sector; ++inner) {
            if (wedges[inner].mirror == wedges[i].mirror) {
                return wedges[inner].radius;
            }
        }
        return settings_.zeroRadius;
    }

    /// The corners of a wedge from a radius on.
    [[nodiscard]] static std::vector<Point> RingPart(const RoseWedge& wedge, double innerRadius) {
        constexpr double kStep = kPi / 360; // arcs are true to 0.01 units
        const double turn = WrappedAngle(wedge.end - wedge.start);
        const double sweep = wedge.start == wedge.end ? kTwoPi : turn;
        const int steps = static_cast<int>(std::ceil(sweep / kStep));
        std::vector<Point> corners;
        const auto add = [&](double radius, int step) {
            const double angle = wedge.start + sweep * step / steps;
            corners.push_back({radius * std::cos(angle), radius * std::sin(angle)});
        };
        for (int step = 0; step <= steps; ++step) {
            add(wedge.radius, step);
        }
        for (int step = innerRadius > 0 ? steps : 0; step >= 0; --step) {
            add(innerRadius, step);
        }
        return corners;
    }

    Surface& surface_;
    const RoseWedgeSettings& settings_;
    int sectors_;
    int classes_;
};

RoseWedgeSettings SettingsOfLayer(const PlotRecord& record, int layer) {
    RoseWedgeSettings settings;
    settings.startMath = gRoseStartMath;
    settings.sectorSize = record.RoseSectorSize;
    settings.oddSectorSize = OddSectorOfRose(record, gRoseRadii->Sectors());
    settings.fraction =
        FractionOfLayer(std::clamp<int>(record.RoseSectorFraction, 1, 100) / 100.0, layer);
    settings.zeroRadius = ZeroRadiusOfRose(record);
    settings.stepped = record.RoseSegShape == 1;
    settings.mirror = !gRoseDirectional && !CountsBothEnds(record);
    settings.layer = layer;
    return settings;
}

/// The outlines of the lower layers, in their colours, so that each can be read below the others.
void DrawLowerOutlines(Surface& surface) {
    DrawState state = surface.State();
    state.fillStyle = kNoFill;
    surface.SetState(state);
    for (const RoseWedge& wedge : ActiveRose().wedges) {
        if (wedge.layer > 0) {
            surface.Wedge({}, wedge.radius, wedge.start, wedge.end,
                          TableColour(FillOfRoseLayer(wedge.layer).colour));
        }
    }
}

void DrawBlanks(Surface& surface, const PlotRecord& record) {
    DrawState state = surface.State();
    state.drawWidth = 1;
    state.fillStyle = kSolidFill;
    state.fillColour = BlankColour();
    surface.SetState(state);
    const double zeroRadius = ZeroRadiusOfRose(record);
    if (zeroRadius >= 1) {
        surface.Circle({}, zeroRadius, OutlineColour());
    }
    if (IsHalfRose(record.RoseShape)) {
        const RoseArc hidden = HiddenArc(record.RoseShape);
        surface.Wedge({}, kNetRadius, hidden.start, hidden.end, BlankColour());
        // The longest petals have the outer half of their outline beyond the circle.
        state.drawWidth = kBlankWidth;
        surface.SetState(state);
        surface.Arc({}, kNetRadius, hidden.start, hidden.end, BlankColour());
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

RoseFill FillOfRoseClass(int classNumber) {
    const int place = std::max(classNumber - 1, 0);
    RoseFill fill = FillOfRow(kFirstClassRow + place % kClassFills);
    if (place >= kClassFills) {
        fill.pattern = fill.pattern == kUpwardHatch ? kDownwardHatch : kUpwardHatch;
    }
    return fill;
}

RoseFill FillOfRoseLayer(int layer) {
    return FillOfRow(layer <= 0 ? kWedgeRow : kTopLayerRow - std::min(layer, 2));
}

double FractionOfLayer(double fraction, int layer) {
    constexpr double kLeast = 0.01;
    return layer == 1 ? std::max(fraction - 0.25, kLeast) : fraction;
}

void DrawRoseWedges(int /*style*/, int layer) {
    const PlotRecord& record = ActiveRecord();
    const int drawn = layer < 0 || layer > 2 ? 0 : layer;
    Surface& surface = PlotSurface();
    const SavedState saved(surface);
    const RoseWedgeSettings settings = SettingsOfLayer(record, drawn);
    const std::vector<RoseWedge> wedges = WedgesOfRose(gRoseRadii, settings);
    std::vector<RoseWedge>& all = ActiveRose().wedges;
    WedgePainter(surface, settings, gRoseRadii).Draw(wedges);
    all.insert(all.end(), wedges.begin(), wedges.end());
    if (drawn == 0) {
        DrawLowerOutlines(surface);
        DrawBlanks(surface, record);
    }
}

} // namespace quandrel
