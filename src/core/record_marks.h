// SPDX-License-Identifier: MIT
//
// What is drawn on the net of a plot besides data: annotations, girdles, small circles, boxes.

#pragma once

#include "core/record_fields.h"
#include "core/record_places.h"
#include "core/tagged_value.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quandrel {

inline constexpr int kAxisItems = 11;
inline constexpr int kAxisValues = 7;

/// A vertex of an annotation, in plot units.
struct LineNode {
    std::int16_t X = 0;
    std::int16_t Y = 0;

    QUANDREL_FIELDS(X, Y);
};

/// An annotation: a point, or a polyline when it has nodes. In plot units.
struct Annotation {
    std::int16_t X = 0;
    std::int16_t Y = 0;
    std::int16_t SymbolType = 0;
    std::int16_t Colour = 0;
    std::int16_t Size = 0;
    std::int16_t lineStyle = 0;
    std::string Tag;
    std::vector<LineNode> LineNodes;

    QUANDREL_FIELDS(X, Y, SymbolType, Colour, Size, lineStyle, Tag);
    QUANDREL_FURTHER_FIELDS(LineNodes);
};

using Annotations = std::vector<Annotation>;

/// A cone about an axis. The three orientations are texts, in degrees, as shown in their boxes.
struct SmallCircle {
    std::int16_t LineColour = 0; ///< index of gColourTable
    std::int16_t lineStyle = 0;
    std::int16_t LineWidth = 1;
    std::int16_t Visible = 0;
    std::int16_t LastPlotSects = 0;
    std::string Angle;
    std::string AxisAz;
    std::string AxisPl;

    QUANDREL_FIELDS(LineColour, lineStyle, LineWidth, Visible, LastPlotSects, Angle, AxisAz,
                    AxisPl);
};

/// Sets 1 to 4 belong to the user; set 0 is the plot's permanent one.
using SmallCircles = std::array<SmallCircle, 5>;

/// Indexes of LayerVisible: what is shown around the net.
enum PlotLayer : std::size_t {
    kGirdleLayer = 0,
    kFabricLayer = 1,
    kDescriptionLayer = 2,
    kLegendLayer = 3,
    kNumberLayer = 4,
    kStatisticsLayer = 5,
};

/// The annotations.
struct RecordAnnotations {
    std::int16_t ShowAnnotations = 0;
    std::unique_ptr<Annotations> PlotAnnotations;

    QUANDREL_FIELDS(ShowAnnotations);
    QUANDREL_FURTHER_FIELDS(PlotAnnotations);
};

/// Girdles and axes, and small circles.
struct RecordGirdles {
    Table<TaggedValue, kAxisItems, kAxisValues> AxisItems;
    std::unique_ptr<SmallCircles> PlotSmallCircles;

    QUANDREL_FIELDS(AxisItems);
    QUANDREL_FURTHER_FIELDS(PlotSmallCircles);
};

/// What is shown around the net.
struct RecordLayers {
    std::array<std::int16_t, 6> LayerVisible{};

    QUANDREL_FIELDS(LayerVisible);
};

} // namespace quandrel
