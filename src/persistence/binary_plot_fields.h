// SPDX-License-Identifier: MIT
//
// The fields of a binary plot file in their order: the one list that reader and writer share. The
// present version is written; fields that an earlier version lacks are passed over when reading.
//
// `Stream` is BinaryReader or BinaryWriter. `Plot` is BinaryPlot, or for writing what has its
// members, the record constant.

#pragma once

#include "core/settings.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "persistence/binary_plot.h"
#include "persistence/binary_plot_checks.h"
#include "persistence/binary_row_fields.h"
#include "persistence/binary_stream.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace quandrel {

inline constexpr const char* kBinaryMark = "bin";
inline constexpr std::size_t kShortVersion = 3;
inline constexpr std::size_t kFullVersion = 5;
inline constexpr double kFirstWithFrequency = 9.44;

// The fewest bytes of what is counted.
inline constexpr std::size_t kLeastAnnotation = 16;
inline constexpr std::size_t kNodeBytes = 4;

template <class Stream, class Plot>
class BinaryPlotFields {
public:
    BinaryPlotFields(Stream& stream, Plot& plot)
        : stream_(stream)
        , plot_(plot)
        , record_(plot.record) {}

    /// All fields behind the version.
    void VisitAll() {
        BinaryRowFields(stream_, plot_).VisitAll();
        Densities();
        Statistics();
        EarlierRose();
        if (plot_.version > 70) {
            Place();
        }
        if (plot_.version > 71) {
            LaterStatistics();
        }
        if (plot_.version >= 80) {
            AllAnnotations();
            AllSmallCircles();
        }
        if (plot_.version >= 90) {
            Rose();
            Classes();
        }
        if (plot_.version >= 91) {
            EachShort(record_.LayerVisible);
        }
        if (plot_.version >= 92) {
            LaterRose();
        }
        if (plot_.version >= 94) {
            GridsOfValues();
        }
        if (plot_.version >= 95) {
            AxisItems(6, kLastUserGirdle);
        }
    }

private:
    static constexpr bool kReads = Stream::kReads;

    template <class... Fields>
    void Shorts(Fields&... fields) {
        (stream_.Short(fields), ...);
    }

    template <class... Fields>
    void Longs(Fields&... fields) {
        (stream_.Long(fields), ...);
    }

    template <class... Fields>
    void Singles(Fields&... fields) {
        (stream_.Single(fields), ...);
    }

    template <class... Fields>
    void Doubles(Fields&... fields) {
        (stream_.Double(fields), ...);
    }

    template <class... Fields>
    void Texts(Fields&... fields) {
        (stream_.Text(fields), ...);
    }

    template <class Array>
    void EachShort(Array& fields) {
        for (auto& field : fields) {
            stream_.Short(field);
        }
    }

    template <class Rows>
    void EachDouble(Rows& rows) {
        for (auto& row : rows) {
            for (auto& field : row) {
                stream_.Double(field);
            }
        }
    }

    void AxisItems(std::size_t first, std::size_t last) {
        for (std::size_t item = first; item <= last; ++item) {
            for (auto& value : record_.AxisItems[item]) {
                stream_.Value(value);
            }
        }
    }

    void Densities() {
        Singles(record_.PointDensityMax, record_.GridDensityMax);
        Longs(record_.DensityCount);
        Shorts(record_.GridSize, record_.NumContours);
        if constexpr (kReads) {
            RequirePossibleGrid(stream_, record_);
            if (stream_.HasFailed()) {
                return;
            }
            if (record_.GridSize > 0) {
                record_.DensityGrid =
                    std::make_unique<Table<std::int32_t, kGridNodes, kGridNodes>>();
            }
        }
        for (std::size_t i = 0; i <= LastNode() && record_.GridSize > 0; ++i) {
            for (std::size_t j = 0; j <= LastNode(); ++j) {
                GridCount(i, j);
            }
        }
        EachShort(record_.ContourLevels);
    }

    [[nodiscard]] std::size_t LastNode() const {
        return static_cast<std::size_t>(record_.GridSize);
    }

    void GridCount(std::size_t i, std::size_t j) {
        if constexpr (kReads) {
            stream_.Short((*record_.DensityGrid)[i][j]);
        } else {
            // Kept: greater counts are cut to what the field holds. A reader counts anew.
            constexpr std::int32_t kMost = std::numeric_limits<std::int16_t>::max();
            const std::int32_t count = record_.DensityGrid ? (*record_.DensityGrid)[i][j] : 0;
            stream_.Short(std::min(count, kMost));
        }
    }

    /// Rows 1 to 3 of a table of results.
    template <class Results>
    void ResultRows(Results& results) {
        for (std::size_t i = 1; i <= 3; ++i) {
            for (auto& field : results[i]) {
                stream_.Single(field);
            }
        }
    }

    void Statistics() {
        ResultRows(record_.FabricResults);
        Singles(record_.FabricValueF, record_.RoseResultant[kOfAngles], record_.FabricValueA,
                record_.FabricValueB);
        AxisItems(kMeanItem, 5);
        AxisItems(kMeanPlaneItem, kMeanPlaneItem);
    }

    /// The settings of a rose before it had more kinds. Versions from 9.0 on tell most of them once
    /// more in full.
    void EarlierRose() {
        Shorts(record_.RoseShape);
        EarlierRoseType();
        Shorts(record_.RoseEqualArea, record_.RoseDisplay6, record_.RoseDisplay7,
               record_.RoseDisplay8);
        Singles(record_.RoseSectorSize, record_.RoseStartAngle, record_.RoseRangeA[0][kInPerCent],
                record_.RoseRangeB[0][kInPerCent]);
        Shorts(record_.RoseBiasMode);
        RoundedRoseCount();
        Singles(record_.RoseStats[kRoseCount][kRawTotal]);
        Shorts(record_.RoseSamplePlunge, record_.RoseSampleTrend, record_.RoseMinBiasAngle);
        Singles(record_.RoseMeanDir[kOfAngles], record_.RoseVariance, record_.RoseStdDev);
    }

    void EarlierRoseType() {
        if constexpr (kReads) {
            std::int16_t code = 0;
            stream_.Short(code);
            stream_.Require(code >= 0 && code <= kLastEarlierRose);
            plot_.hasWeightedRose = code == kWeightedRose;
            record_.RoseType = RoseTypeOfEarlier(code);
        } else {
            stream_.Short(EarlierOfRoseType(record_.RoseType));
        }
    }

    void RoundedRoseCount() {
        if constexpr (kReads) {
            std::int16_t rounded = 0; // the field behind it has it in full
            stream_.Short(rounded);
        } else {
            const double rounded = RoundToEven(record_.RoseStats[kRoseCount][kRawTotal]);
            const bool fits = rounded >= std::numeric_limits<std::int16_t>::min()
                              && rounded <= std::numeric_limits<std::int16_t>::max();
            stream_.Short(fits ? static_cast<std::int16_t>(rounded) : std::int16_t{0});
        }
    }

    void Place() {
        if constexpr (kReads) {
            std::int32_t state = 0;
            std::array<float, 4> place{};
            stream_.Long(state);
            for (float& value : place) {
                stream_.AnySingle(value);
            }
            plot_.place = PossiblePlace(state, place);
        } else {
            stream_.Long(plot_.place.state);
            for (const std::int32_t value :
                 {plot_.place.top, plot_.place.left, plot_.place.width, plot_.place.height}) {
                stream_.Single(static_cast<float>(value));
            }
        }
    }

    void LaterStatistics() {
        Singles(record_.FabricValueD, record_.FabricValueE);
        Doubles(record_.FabricValueC);
        Shorts(record_.StatsBoxKind);
        ResultRows(record_.EigenResults);
        AxisItems(kGirdleItem, kGirdleItem);
    }

    template <class Mark>
    void AnnotationFields(Mark& mark) {
        Shorts(mark.X, mark.Y, mark.SymbolType, mark.Colour, mark.Size, mark.lineStyle);
        if constexpr (kReads) {
            std::int16_t tag = 0;
            std::int16_t nodes = 0;
            Shorts(tag, nodes);
            mark.Tag = std::to_string(tag);
            stream_.RequireRoom(nodes, kNodeBytes);
            if (!stream_.HasFailed()) {
                mark.LineNodes.resize(static_cast<std::size_t>(nodes));
            }
        } else {
            stream_.Short(static_cast<std::int32_t>(ShortNumberOf(mark.Tag)));
            stream_.Short(static_cast<std::int32_t>(mark.LineNodes.size()));
        }
        for (auto& node : mark.LineNodes) {
            Shorts(node.X, node.Y);
        }
    }

    void AllAnnotations() {
        if constexpr (kReads) {
            std::int32_t count = 0;
            stream_.Long(count);
            stream_.RequireRoom(count, kLeastAnnotation);
            if (stream_.HasFailed() || count == 0) {
                return;
            }
            record_.PlotAnnotations = std::make_unique<Annotations>();
            record_.PlotAnnotations->reserve(static_cast<std::size_t>(count));
            for (std::int32_t i = 0; i < count && !stream_.HasFailed(); ++i) {
                AnnotationFields(record_.PlotAnnotations->emplace_back());
            }
        } else {
            const bool hasSome = record_.PlotAnnotations != nullptr;
            stream_.Long(static_cast<std::int32_t>(hasSome ? record_.PlotAnnotations->size() : 0));
            if (hasSome) {
                for (const Annotation& mark : *record_.PlotAnnotations) {
                    AnnotationFields(mark);
                }
            }
        }
    }

    template <class Circle>
    void SmallCircleFields(Circle& circle) {
        Shorts(circle.LineColour, circle.lineStyle, circle.LineWidth, circle.Visible,
               circle.LastPlotSects);
        Texts(circle.Angle, circle.AxisAz, circle.AxisPl);
    }

    void AllSmallCircles() {
        for (std::size_t i = 1; i < std::tuple_size_v<SmallCircles>; ++i) {
            if constexpr (kReads) {
                SmallCircleFields((*record_.PlotSmallCircles)[i]);
            } else {
                const SmallCircle none;
                SmallCircleFields(record_.PlotSmallCircles ? (*record_.PlotSmallCircles)[i] : none);
            }
        }
    }

    void Rose() {
        Shorts(record_.RoseType);
        Texts(record_.AppNumName, record_.AppNonNumName, record_.RoseScaleType);
        Shorts(record_.RoseHistStyle, record_.RoseSegShape, record_.RoseSectorFraction,
               record_.RoseZeroCircle);
        Doubles(record_.RoseMeanDev, record_.RoseDispersion, record_.RoseSkewness,
                record_.RoseKurtosis, record_.RoseKappa, record_.RoseVariance, record_.RoseStdDev,
                record_.RoseSectorSize, record_.RoseStartAngle);
        Doubles(record_.RoseResultant[kOfAngles], record_.RoseResultant[kOfDoubledAngles],
                record_.RoseMoments[0], record_.RoseMoments[1]);
        EachDouble(record_.RoseRangeA);
        EachDouble(record_.RoseRangeB);
        Doubles(record_.AppendedMin[kOfNumbers], record_.AppendedMin[kOfTexts],
                record_.AppendedMax[kOfNumbers], record_.AppendedMax[kOfTexts]);
        EachDouble(record_.RoseStats);
    }

    /// Column by column.
    template <class Cells>
    void Values(Cells& cells) {
        for (std::size_t column = 0; column < cells[0].size(); ++column) {
            for (auto& row : cells) {
                stream_.Value(row[column]);
            }
        }
    }

    void Classes() {
        Values(record_.DistinctValues);
        Values(record_.ClassTable);
        Shorts(record_.ClassMode);
        Longs(record_.NumClassified);
    }

    void LaterRose() {
        Doubles(record_.RoseMedian);
        Shorts(record_.NumClasses);
        Doubles(record_.ClassWidth, record_.ClassLow, record_.ClassHigh);
        Doubles(record_.RoseMeanDir[kOfAngles], record_.RoseMeanDir[kOfDoubledAngles]);
    }

    void FullVersion() {
        if constexpr (kReads) {
            std::string text;
            stream_.Fixed(text, kFullVersion);
            plot_.fullVersion = WithoutPadding(text);
            // Left blank, the version is that of the beginning.
            const bool isBlank = plot_.fullVersion.empty();
            const std::optional<double> version =
                ReadNumber(isBlank ? plot_.versionText : plot_.fullVersion);
            stream_.Require(version.has_value());
            plot_.hasFrequencyField = version.value_or(0) >= kFirstWithFrequency;
        } else {
            stream_.Fixed(kVersionText);
        }
    }

    /// Both grids, kept for all nodes that a grid can have.
    void GridsOfValues() {
        FullVersion();
        Shorts(plot_.gridCount);
        if constexpr (kReads) {
            stream_.RequireRoom(kGridNodes, std::size_t{kGridNodes} * 2 * sizeof(double));
            if (stream_.HasFailed()) {
                return;
            }
            if (plot_.gridCount != 0) {
                plot_.gridValues = std::make_unique_for_overwrite<GridValues>(); // below, all of it
            }
        }
        for (std::size_t i = 0; i < kGridNodes; ++i) {
            RowOfGrids(i);
        }
        EachDouble(record_.ClassStats);
        if (plot_.hasFrequencyField) {
            Shorts(record_.HasFrequencyColumn);
        }
    }

    /// A row of nodes, the values of both grids beside each other.
    void RowOfGrids(std::size_t i) {
        std::array<double, std::size_t{kGridNodes} * 2> row{};
        if (!plot_.gridValues) {
            stream_.Doubles(row);
            return;
        }
        auto* const means = (*plot_.gridValues)[0][i].data();
        auto* const sums = (*plot_.gridValues)[1][i].data();
        if constexpr (!kReads) {
            for (std::size_t j = 0; j < kGridNodes; ++j) {
                row[2 * j] = means[j];
                row[2 * j + 1] = sums[j];
            }
        }
        stream_.Doubles(row);
        if constexpr (kReads) {
            for (std::size_t j = 0; j < kGridNodes; ++j) {
                means[j] = row[2 * j];
                sums[j] = row[2 * j + 1];
            }
        }
    }

    Stream& stream_;
    Plot& plot_;
    decltype(plot_.record)& record_;
};

} // namespace quandrel
