// SPDX-License-Identifier: MIT

#include "statistics/fabric_statistics.h"

#include "core/data_format.h"
#include "core/plot_formulas.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "statistics/fabric_kernels.h"
#include "statistics/orientation_notation.h"
#include "stereo/distinct_lines.h"

#include <array>

namespace quandrel {

namespace {

/// A mean of directions.
struct MeanDirection {
    double plunge = kNoDirection;
    double trend = kNoDirection;
    double length = 0; ///< R/n
};

/// @param toLine  AxisToLine or DirectedLine
MeanDirection MeanOf(const WeightedDirections& rows,
                     void (*toLine)(const Direction&, double&, double&)) {
    MeanDirection mean;
    const Direction resultant = ResultantOf(rows.directions, rows.weights);
    mean.length = LengthOf(resultant) / TotalWeight(rows.weights);
    if (mean.length < kLeastMeanLength) {
        mean.length = 0;
    } else {
        toLine(resultant, mean.plunge, mean.trend);
    }
    return mean;
}

/// The means; those of polar lines have a sense, the others are in the lower hemisphere.
void StoreMeans(PlotRecord& record, const RowLines& lines, const WeightedDirections& axes) {
    const MeanDirection axial = MeanOf(axes, AxisToLine);
    MeanDirection mean = axial;
    if (record.DataKind == kPolarLines) {
        mean = MeanOf(DirectionsOf(lines, LinePolarity::kDirected), DirectedLine);
    }
    record.FabricValueA = static_cast<float>(mean.plunge);
    record.FabricValueB = static_cast<float>(mean.trend);
    record.FabricValueD = static_cast<float>(axial.plunge);
    record.FabricValueE = static_cast<float>(axial.trend);
    record.FabricValueF = static_cast<float>(1 - mean.length);
    record.RoseResultant[kOfAngles] = mean.length;
}

void StoreTensor(PlotRecord& record, const Matrix3& tensor) {
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            record.FabricResults[row + 1][column + 1] = static_cast<float>(tensor[row][column]);
        }
    }
}

EigenSystem3 SystemOf(const EigenTable& table) {
    EigenSystem3 system;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            system.vectors[row][column] = static_cast<double>(table[row + 1][column + 1]);
        }
        system.values[row] = static_cast<double>(table[row + 1][kEigenvalue]);
    }
    return system;
}

/// Replaces the tensor by its eigenvalues and axes.
void StoreAxes(PlotRecord& record) {
    EigenTable table{};
    JacobiEigen3(record.FabricResults, table);
    const FabricAxes sorted = SortedAxes(SystemOf(table));
    for (std::size_t i = 0; i < 3; ++i) {
        const Direction& axis = sorted.axes[i];
        record.FabricResults[i + 1][kEigenvalue] = static_cast<float>(sorted.values[i]);
        record.FabricResults[kNorthOfAxis][i + 1] = static_cast<float>(axis.l);
        record.FabricResults[kEastOfAxis][i + 1] = static_cast<float>(axis.m);
        record.FabricResults[kDownOfAxis][i + 1] = static_cast<float>(axis.n);
        double plunge = 0;
        double trend = 0;
        AxisToLine(axis, plunge, trend);
        record.EigenResults[i + 1][kAxisPlunge] = static_cast<float>(plunge);
        record.EigenResults[i + 1][kAxisTrend] = static_cast<float>(trend);
    }
}

std::array<double, 3> EigenvaluesOf(const PlotRecord& record) {
    std::array<double, 3> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = static_cast<double>(record.FabricResults[i + 1][kEigenvalue]);
    }
    return values;
}

/// The plane normal to an axis.
void StorePlaneItem(PlotRecord& record, std::size_t item, std::size_t axis) {
    if (!IsAxisDetermined(record, axis)) {
        record.AxisItems[item][kItemText] = std::string(kUndetermined);
        record.AxisItems[item][kItemPlunge] = TaggedValue();
        record.AxisItems[item][kItemTrend] = TaggedValue();
        return;
    }
    const AxisLine pole = FabricAxis(record, axis);
    record.AxisItems[item][kItemText] =
        TextOfPlaneOfPole(pole.plunge, pole.trend, DecimalsShown(record));
    record.AxisItems[item][kItemPlunge] = pole.plunge;
    record.AxisItems[item][kItemTrend] = pole.trend;
}

/// Sets the statistical rows of the axis items; the user decides which of them are shown.
void StoreAxisItems(PlotRecord& record) {
    auto& mean = record.AxisItems[kMeanItem];
    mean[kItemPlunge] = TaggedValue();
    mean[kItemTrend] = TaggedValue();
    if (HasMeanDirection(record)) {
        mean[kItemPlunge] = static_cast<double>(record.FabricValueA);
        mean[kItemTrend] = static_cast<double>(record.FabricValueB);
    }
    StorePlaneItem(record, kMeanPlaneItem, kGreatestAxis);
    StorePlaneItem(record, kGirdleItem, kLeastAxis);
}

/// The sample as in the record, in 32 bits.
AxisSample SampleInRecord(const PlotRecord& record, const WeightedDirections& axes) {
    AxisSample sample;
    sample.count = TotalWeight(axes.weights);
    sample.eigenvalues = EigenvaluesOf(record);
    const Direction greatest = {
        static_cast<double>(record.FabricResults[kNorthOfAxis][kGreatestAxis]),
        static_cast<double>(record.FabricResults[kEastOfAxis][kGreatestAxis]),
        static_cast<double>(record.FabricResults[kDownOfAxis][kGreatestAxis])};
    sample.fourthMoment = FourthMoment(axes.directions, axes.weights, greatest).value_or(0);
    return sample;
}

/// The standard error, or kNotSymmetric. The formulas differ only in the test of symmetry.
double JudgedStandardError(const AxisSample& sample, const WeightedDirections& axes,
                           Formulas formulas) {
    const AxisSample judged =
        formulas == Formulas::Textbook ? AxisSampleOf(axes).value_or(sample) : sample;
    return IsSymmetricAboutAxis(judged, formulas) ? SphericalStandardError(sample) : kNotSymmetric;
}

void Derive(PlotRecord& record, const WeightedDirections& axes, Formulas formulas) {
    const AxisSample sample = SampleInRecord(record, axes);
    const FabricShape shape = ShapeOf(sample.eigenvalues);
    record.EigenResults[kGamma][kShapeNumber] = static_cast<float>(shape.gamma);
    record.EigenResults[kZeta][kShapeNumber] = static_cast<float>(shape.zeta);
    record.EigenResults[kFourthMoment][kShapeNumber] = static_cast<float>(sample.fourthMoment);
    record.EigenResults[kMiddleToLeast][kLogRatio] = static_cast<float>(shape.ratio12);
    record.EigenResults[kGreatestToMiddle][kLogRatio] = static_cast<float>(shape.ratio23);
    record.EigenResults[kSymmetryStatistic][kLogRatio] =
        static_cast<float>(SymmetryStatistic(sample));
    record.FabricValueC = JudgedStandardError(sample, axes, formulas);
}

} // namespace

void ComputeFabricStatistics(Plot& plot, const Styles& styles, Formulas formulas) {
    StoreFabricStatistics(plot.record, StatisticsLinesOf(plot, styles), formulas);
}

void ComputeFabricStatistics() {
    Plot& plot = ActivePlot();
    ComputeFabricStatistics(plot, gSettings.styles, FormulasInForce(plot.record));
}

void StoreFabricStatistics(PlotRecord& record, const RowLines& lines, Formulas formulas) {
    const WeightedDirections axes = DirectionsOf(lines, LinePolarity::kAxial);
    const auto tensor = OrientationTensor(axes.directions, axes.weights);
    if (!tensor) {
        return;
    }
    StoreMeans(record, lines, axes);
    StoreTensor(record, *tensor);
    StoreAxes(record);
    StoreAxisItems(record);
    Derive(record, axes, formulas);
}

void ComputeFabricDerived() {
    Plot& plot = ActivePlot();
    const WeightedDirections axes =
        DirectionsOf(StatisticsLinesOf(plot, gSettings.styles), LinePolarity::kAxial);
    if (!axes.directions.empty()) {
        Derive(plot.record, axes, FormulasInForce(plot.record));
    }
}

double StandardErrorOfActivePlot(Formulas formulas) {
    return StandardErrorOf(ActiveRecord(), StatisticsLinesOf(ActivePlot(), gSettings.styles),
                           formulas);
}

double StandardErrorOf(const PlotRecord& record, const RowLines& lines, Formulas formulas) {
    const WeightedDirections axes = DirectionsOf(lines, LinePolarity::kAxial);
    return axes.directions.empty()
               ? kFailedResult
               : JudgedStandardError(SampleInRecord(record, axes), axes, formulas);
}

bool IsAxisDetermined(const PlotRecord& record, std::size_t axis) {
    return IsAxisDetermined(EigenvaluesOf(record), axis);
}

AxisLine FabricAxis(const PlotRecord& record, std::size_t axis) {
    return {static_cast<double>(record.EigenResults.at(axis)[kAxisPlunge]),
            static_cast<double>(record.EigenResults.at(axis)[kAxisTrend])};
}

bool HasMeanDirection(const PlotRecord& record) {
    return static_cast<double>(record.FabricValueA) != kNoDirection;
}

} // namespace quandrel
