// SPDX-License-Identifier: MIT
//
// Markers, great circles and filled rings on a picture of 1000 pixels.

#include "orientation/angles.h"
#include "orientation/projection.h"
#include "qt/painter_surface.h"
#include "stereo/symbols.h"

#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

namespace quandrel {
namespace {

constexpr int kSide = 1000;

/// A surface over a fresh image, in the scale of a plot.
struct Picture {
    Picture() {
        image.fill(Qt::white);
        surface.SetUserScale(kPlotScale);
    }

    QImage image{kSide, kSide, QImage::Format_RGB32};
    QPainter painter{&image};
    PainterSurface surface{painter, QRectF(0, 0, kSide, kSide), 1, Medium::Raster};
};

std::vector<Point> RandomPlaces(std::int64_t count) {
    std::mt19937 random(20251121);
    std::vector<Point> places;
    while (static_cast<std::int64_t>(places.size()) < count) {
        const double x = static_cast<double>(random() % 2001) - 1000;
        const double y = static_cast<double>(random() % 2001) - 1000;
        if (x * x + y * y <= 1000000) {
            places.push_back({x, y});
        }
    }
    return places;
}

void Markers(benchmark::State& state, int symbol, int size) {
    Picture picture;
    const std::vector<Point> places = RandomPlaces(state.range(0));
    const Glyph glyph = GlyphOfSymbol(symbol, size, 0);
    for (auto _ : state) {
        picture.surface.Markers(glyph, kBlack, places);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// Rows of alternating styles reach the surface one by one.
void MarkersOneByOne(benchmark::State& state) {
    Picture picture;
    const std::vector<Point> places = RandomPlaces(state.range(0));
    const Glyph glyphs[] = {GlyphOfSymbol(2, 3, 0), GlyphOfSymbol(5, 3, 0)};
    for (auto _ : state) {
        for (std::size_t i = 0; i < places.size(); ++i) {
            picture.surface.Markers(glyphs[i % 2], kBlack, std::span(&places[i], 1));
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

std::vector<GreatCircle> RandomArcs(std::int64_t count) {
    std::mt19937 random(20251121);
    std::vector<GreatCircle> arcs;
    for (std::int64_t i = 0; i < count; ++i) {
        const double plunge = static_cast<double>(2 + random() % 88) * kPi / 180;
        const double trend = static_cast<double>(random() % 360) * kPi / 180;
        arcs.push_back(GreatCircleArc(1, plunge, trend));
    }
    return arcs;
}

void DrawArcs(benchmark::State& state, Surface& surface, const DrawState& pen) {
    const std::vector<GreatCircle> arcs = RandomArcs(state.range(0));
    surface.SetState(pen);
    for (auto _ : state) {
        for (const GreatCircle& arc : arcs) {
            surface.Arc({arc.cx, arc.cy}, arc.radius, arc.start, arc.end, kBlack);
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void GreatCircles(benchmark::State& state, double width, int style) {
    Picture picture;
    DrawState pen;
    pen.drawWidth = width;
    pen.drawStyle = style;
    DrawArcs(state, picture.surface, pen);
}

void TranslucentGreatCircles(benchmark::State& state) {
    Picture picture;
    DrawState pen;
    pen.lineOpacity = 0.5;
    DrawArcs(state, picture.surface, pen);
}

void ClippedGreatCircles(benchmark::State& state) {
    Picture picture;
    const CircleClip clip(picture.surface, {0, 0}, 1000);
    DrawArcs(state, picture.surface, {});
}

/// A ring about most of the net, with a hole.
void RingWithHole(benchmark::State& state, double opacity, int fillStyle) {
    Picture picture;
    std::vector<std::vector<Point>> rings(2);
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        const double angle = 2 * kPi * static_cast<double>(i) / static_cast<double>(state.range(0));
        rings[0].push_back({900 * std::cos(angle), 900 * std::sin(angle)});
        rings[1].push_back({500 * std::cos(angle), 500 * std::sin(angle)});
    }
    DrawState fill;
    fill.fillStyle = fillStyle;
    fill.fillOpacity = opacity;
    picture.surface.SetState(fill);
    for (auto _ : state) {
        picture.surface.Path(rings, kBlack);
    }
}

void RingSizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(1000)->Unit(benchmark::kMillisecond);
}

void MarkerSizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
}

void ArcSizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(Markers, Pixels, kPixelSymbol, 1)->Apply(MarkerSizes);
BENCHMARK_CAPTURE(Markers, SmallCircles, 2, 1)->Apply(MarkerSizes);
BENCHMARK_CAPTURE(Markers, Squares, 3, 2)->Apply(MarkerSizes);
BENCHMARK_CAPTURE(Markers, OpenCircles, 5, 3)->Apply(MarkerSizes);
BENCHMARK(MarkersOneByOne)->Apply(MarkerSizes);
BENCHMARK_CAPTURE(GreatCircles, Thin, 1.0, kSolidLine)->Apply(ArcSizes);
BENCHMARK_CAPTURE(GreatCircles, Thick, 2.0, kSolidLine)->Apply(ArcSizes);
BENCHMARK_CAPTURE(GreatCircles, Dashed, 1.0, kDashedLine)->Apply(ArcSizes);
BENCHMARK(TranslucentGreatCircles)->Apply(ArcSizes);
BENCHMARK(ClippedGreatCircles)->Apply(ArcSizes);
BENCHMARK_CAPTURE(RingWithHole, Opaque, 1.0, kSolidFill)->Apply(RingSizes);
BENCHMARK_CAPTURE(RingWithHole, Translucent, 0.5, kSolidFill)->Apply(RingSizes);
BENCHMARK_CAPTURE(RingWithHole, Hatched, 1.0, kCrossHatch)->Apply(RingSizes);
BENCHMARK_CAPTURE(RingWithHole, HatchedTranslucent, 0.5, kCrossHatch)->Apply(RingSizes);

} // namespace
} // namespace quandrel
