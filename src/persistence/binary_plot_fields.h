// SPDX-License-Identifier: MIT
//
// The fields of a binary plot file in order, with their names: the single list for reader, writer
// and dump. The present version is written; when reading, fields that an earlier version does not
// have are skipped.
//
// `Stream` is as in binary_field_walk.h. `Plot` is BinaryPlot, or a type with its members: with a
// constant record for writing, without room for rows for a dump.

#pragma once

#include "core/settings.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "persistence/binary_field_walk.h"
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
#include <span>
#include <string>
#include <utility>

namespace quandrel {

inline constexpr const char* kBinaryMark = "bin";
inline constexpr std::size_t kShortVersion = 3;
inline constexpr std::size_t kFullVersion = 5;
inline constexpr double kFirstWithFrequency = 9.44;
inline constexpr int kLastEarlierGirdle = 5; ///< of the user, before version 9.5

// The least number of bytes of a counted item.
inline constexpr std::size_t kLeastAnnotation = 16;
inline constexpr std::size_t kNodeBytes = 4;

#define FIELD(name)                                                                                \
    Named {                                                                                        \
#name, record_.name                                                                        \
    }

template <class Stream, class Plot>
class BinaryPlotFields : private BinaryFieldWalk<Stream> {
public:
    BinaryPlotFields(Stream& stream, Plot& plot)
        : BinaryFieldWalk<Stream>(stream)
        , plot_(plot)
        , record_(plot.record) {}

    /// All fields after the version.
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
            Shorts(FIELD(LayerVisible));
        }
        if (plot_.version >= 92) {
            LaterRose();
        }
        if (plot_.version >= 94) {
            GridsOfValues();
        }
        if (plot_.version >= 95) {
            AxisItems(kLastEarlierGirdle + 1, kLastUserGirdle);
        }
    }

private:
    using Walk = BinaryFieldWalk<Stream>;
    using Walk::Array;
    using Walk::Columns;
    using Walk::Doubles;
    using Walk::HasFailed;
    using Walk::kLists;
    using Walk::kReads;
    using Walk::Longs;
    using Walk::Name;
    using Walk::Object;
    using Walk::Shorts;
    using Walk::Singles;
    using Walk::stream_;
    using Walk::Texts;

    void AxisItems(std::size_t first, std::size_t last) {
        for (std::size_t item = first; item <= last; ++item) {
            this->RowOfValues(FIELD(AxisItems), item);
        }
    }

    void Densities() {
        Singles(FIELD(PointDensityMax), FIELD(GridDensityMax));
        Longs(FIELD(DensityCount));
        Shorts(FIELD(GridSize), FIELD(NumContours));
        if constexpr (kReads) {
            RequirePossibleGrid(stream_, record_);
            if (HasFailed()) {
                return;
            }
            if (record_.GridSize > 0) {
                record_.DensityGrid =
                    std::make_unique<Table<std::int32_t, kGridNodes, kGridNodes>>();
            }
        }
        if (record_.GridSize > 0) {
            Name("DensityGrid");
            GridCounts(static_cast<std::size_t>(record_.GridSize));
        }
        Shorts(FIELD(ContourLevels));
    }

    void GridCounts(std::size_t last) {
        Array([&] {
            for (std::size_t i = 0; i <= last; ++i) {
                Array([&] {
                    for (std::size_t j = 0; j <= last; ++j) {
                        GridCount(i, j);
                    }
                });
            }
        });
    }

    void GridCount(std::size_t i, std::size_t j) {
        if constexpr (kReads) {
            stream_.Short((*record_.DensityGrid)[i][j]);
        } else {
            // Kept: greater counts are cut to what the field holds. A reader counts again.
            constexpr std::int32_t kMost = std::numeric_limits<std::int16_t>::max();
            const std::int32_t count = record_.DensityGrid ? (*record_.DensityGrid)[i][j] : 0;
            stream_.Short(std::min(count, kMost));
        }
    }

    /// Rows 1 to 3 of a table of results.
    template <class Results>
    void ResultRows(Named<Results> table) {
        auto rows = std::span(table.value).template subspan<1, 3>();
        Singles(Named{table.name, rows});
    }

    void Statistics() {
        ResultRows(FIELD(FabricResults));
        Singles(FIELD(FabricValueF));
        Earlier([this] { Singles(Named{"RoseResultant", record_.RoseResultant[kOfAngles]}); });
        Singles(FIELD(FabricValueA), FIELD(FabricValueB));
        AxisItems(kMeanItem, kLastEarlierGirdle);
        AxisItems(kMeanPlaneItem, kMeanPlaneItem);
    }

    /// Versions from 9.0 on repeat what the body visits, in full.
    template <class Body>
    void Earlier(const Body& body) {
        if constexpr (kLists) {
            stream_.BeginEarlier();
        }
        body();
        if constexpr (kLists) {
            stream_.End();
        }
    }

    /// The settings of a rose before it had more kinds.
    void EarlierRose() {
        Shorts(FIELD(RoseShape));
        Earlier([this] { EarlierRoseType(); });
        Shorts(FIELD(RoseEqualArea), FIELD(RoseDisplay6), FIELD(RoseDisplay7), FIELD(RoseDisplay8));
        Earlier([this] {
            Singles(FIELD(RoseSectorSize), FIELD(RoseStartAngle),
                    Named{"RoseRangeA", record_.RoseRangeA[kTopRoseLayer][kInPerCent]},
                    Named{"RoseRangeB", record_.RoseRangeB[kTopRoseLayer][kInPerCent]});
        });
        Shorts(FIELD(RoseBiasMode));
        Earlier([this] {
            RoundedRoseCount();
            Singles(Named{"RoseStats", record_.RoseStats[kRoseCount][kRawTotal]});
        });
        Shorts(FIELD(RoseSamplePlunge), FIELD(RoseSampleTrend), FIELD(RoseMinBiasAngle));
        Earlier([this] {
            Singles(Named{"RoseMeanDir", record_.RoseMeanDir[kOfAngles]}, FIELD(RoseVariance),
                    FIELD(RoseStdDev));
        });
        if constexpr (kLists) {
            stream_.PutEarlier("earlierRose");
        }
    }

    void EarlierRoseType() {
        Name("RoseType");
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
        Name("RoseStatsRounded");
        if constexpr (kReads) {
            std::int16_t rounded = 0; // the next field has the full value
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
            Name("window");
            Object([this] { ReadPlace(); });
        } else {
            stream_.Long(plot_.place.state);
            for (const std::int32_t value :
                 {plot_.place.top, plot_.place.left, plot_.place.width, plot_.place.height}) {
                stream_.Single(static_cast<float>(value));
            }
        }
    }

    void ReadPlace() {
        std::int32_t state = 0;
        std::array<float, 4> place{};
        Longs(Named{"state", state});
        for (std::size_t i = 0; const char* const name : {"top", "left", "width", "height"}) {
            Name(name);
            stream_.AnySingle(place[i++]);
        }
        plot_.place = PossiblePlace(state, place);
    }

    void LaterStatistics() {
        Singles(FIELD(FabricValueD), FIELD(FabricValueE));
        Doubles(FIELD(FabricValueC));
        Shorts(FIELD(StatsBoxKind));
        ResultRows(FIELD(EigenResults));
        AxisItems(kGirdleItem, kGirdleItem);
    }

    template <class Mark>
    void AnnotationFields(Mark& mark) {
        Shorts(Named{"X", mark.X}, Named{"Y", mark.Y}, Named{"SymbolType", mark.SymbolType},
               Named{"Colour", mark.Colour}, Named{"Size", mark.Size},
               Named{"lineStyle", mark.lineStyle});
        if constexpr (kReads) {
            std::int16_t tag = 0;
            std::int16_t nodes = 0;
            Shorts(Named{"Tag", tag});
            stream_.Short(nodes);
            mark.Tag = std::to_string(tag);
            stream_.RequireRoom(nodes, kNodeBytes);
            if (!HasFailed()) {
                mark.LineNodes.resize(static_cast<std::size_t>(nodes));
            }
        } else {
            stream_.Short(static_cast<std::int32_t>(ShortNumberOf(mark.Tag)));
            stream_.Short(static_cast<std::int32_t>(mark.LineNodes.size()));
        }
        Name("LineNodes");
        Array([&] {
            for (auto& node : mark.LineNodes) {
                Array([&] {
                    stream_.Short(node.X);
                    stream_.Short(node.Y);
                });
            }
        });
    }

    void AllAnnotations() {
        if constexpr (kReads) {
            std::int32_t count = 0;
            stream_.Long(count);
            stream_.RequireRoom(count, kLeastAnnotation);
            if (!HasFailed() && count > 0) {
                record_.PlotAnnotations = std::make_unique<Annotations>();
                record_.PlotAnnotations->resize(static_cast<std::size_t>(count));
            }
        } else {
            stream_.Long(static_cast<std::int32_t>(
                record_.PlotAnnotations ? record_.PlotAnnotations->size() : 0));
        }
        Name("annotations");
        Array([this] {
            if (record_.PlotAnnotations) {
                for (auto& mark : *record_.PlotAnnotations) {
                    Object([&] { AnnotationFields(mark); });
                }
            }
        });
    }

    template <class Circle>
    void SmallCircleFields(Circle& circle) {
        Shorts(Named{"LineColour", circle.LineColour}, Named{"lineStyle", circle.lineStyle},
               Named{"LineWidth", circle.LineWidth}, Named{"Visible", circle.Visible},
               Named{"LastPlotSects", circle.LastPlotSects});
        Texts(Named{"Angle", circle.Angle}, Named{"AxisAz", circle.AxisAz},
              Named{"AxisPl", circle.AxisPl});
    }

    void AllSmallCircles() {
        SmallCircles none;
        auto& circles = record_.PlotSmallCircles ? *record_.PlotSmallCircles : none;
        Name("smallCircles");
        Array([&] {
            for (std::size_t i = 1; i < circles.size(); ++i) {
                Object([&] { SmallCircleFields(circles[i]); });
            }
        });
    }

    void Rose() {
        Shorts(FIELD(RoseType));
        Texts(FIELD(AppNumName), FIELD(AppNonNumName), FIELD(RoseScaleType));
        Shorts(FIELD(RoseHistStyle), FIELD(RoseSegShape), FIELD(RoseSectorFraction),
               FIELD(RoseZeroCircle));
        Doubles(FIELD(RoseMeanDev), FIELD(RoseDispersion), FIELD(RoseSkewness), FIELD(RoseKurtosis),
                FIELD(RoseKappa), FIELD(RoseVariance), FIELD(RoseStdDev), FIELD(RoseSectorSize),
                FIELD(RoseStartAngle));
        Doubles(FIELD(RoseResultant), FIELD(RoseMoments), FIELD(RoseRangeA), FIELD(RoseRangeB),
                FIELD(AppendedMin), FIELD(AppendedMax), FIELD(RoseStats));
    }

    void Classes() {
        Columns(FIELD(DistinctValues));
        Columns(FIELD(ClassTable));
        Shorts(FIELD(ClassMode));
        Longs(FIELD(NumClassified));
    }

    void LaterRose() {
        Doubles(FIELD(RoseMedian));
        Shorts(FIELD(NumClasses));
        Doubles(FIELD(ClassWidth), FIELD(ClassLow), FIELD(ClassHigh), FIELD(RoseMeanDir));
    }

    void FullVersion() {
        Name("fullVersion");
        if constexpr (kReads) {
            std::string text;
            stream_.Fixed(text, kFullVersion);
            plot_.fullVersion = WithoutPadding(text);
            // If blank, the version is that of the file's head.
            const bool isBlank = plot_.fullVersion.empty();
            const std::optional<double> version =
                ReadNumber(isBlank ? plot_.versionText : plot_.fullVersion);
            stream_.Require(version.has_value());
            plot_.hasFrequencyField = version.value_or(0) >= kFirstWithFrequency;
        } else {
            stream_.Fixed(kVersionText);
        }
    }

    /// Both grids, stored for the largest possible number of nodes.
    void GridsOfValues() {
        FullVersion();
        Shorts(Named{"gGridCount", plot_.gridCount});
        if constexpr (kReads) {
            stream_.RequireRoom(kGridNodes, std::size_t{kGridNodes} * 2 * sizeof(double));
            if (HasFailed()) {
                return;
            }
            if (plot_.gridCount != 0) {
                plot_.gridValues = std::make_unique_for_overwrite<GridValues>(); // filled below
            }
        }
        for (std::size_t i = 0; i < kGridNodes; ++i) {
            RowOfGrids(i);
        }
        Doubles(FIELD(ClassStats));
        if (plot_.hasFrequencyField) {
            Shorts(FIELD(HasFrequencyColumn));
        }
    }

    /// A row of nodes, with the values of both grids side by side.
    void RowOfGrids(std::size_t i) {
        std::array<double, std::size_t{kGridNodes} * 2> row{};
        Name("gGridValues");
        if (!plot_.gridValues) {
            stream_.Doubles(row);
            return;
        }
        auto* const means = (*plot_.gridValues)[kMeanLayer][i].data();
        auto* const sums = (*plot_.gridValues)[kCumulativeLayer][i].data();
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

    Plot& plot_;
    decltype(plot_.record)& record_;
};

#undef FIELD

} // namespace quandrel
