// SPDX-License-Identifier: MIT

#include "rose/gathered_rows.h"

#include "core/appended_number.h"
#include "rose/rose_tables.h"
#include "stereo/distinct_lines.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <span>

namespace quandrel {

namespace {

/// The number of distinct texts whose classes are cached.
constexpr std::size_t kRememberedNames = 1000;

bool DrawsWind(const PlotRecord& record) {
    const int kind = RoseKindOf(record.RoseType);
    return kind >= kRoseWindSpeed && kind <= kRoseOverlaidWind;
}

/// Cells 1 to `count` of a column. They are copied to `storage` where the column has fewer rows.
template <class T>
std::span<const T> RowsOf(const RowColumn<T>& column, std::size_t count, std::vector<T>& storage) {
    const std::span<const T> cells = column.Rows();
    if (cells.size() > count) {
        return cells.subspan(1, count);
    }
    storage.assign(count, T{});
    if (cells.size() > 1) {
        std::copy(cells.begin() + 1, cells.end(), storage.begin());
    }
    return storage;
}

/// Whether a rose of a plot counts measured azimuths. A bias correction does so too where only the
/// sample lines of the rows have decimals.
bool IsMeasured(const Plot& plot, const PlotRecord& record, RosePrecision precision) {
    const bool mayBe = precision == RosePrecision::Measured || plot.record.UseDecimals != 0;
    const bool hasOwnLines =
        IsRoseBiasCorrected(record) && record.RoseSamplePlunge == kOwnSampleLine;
    return mayBe
           && (HasMeasuredLines(plot) || (hasOwnLines && plot.rows.measuredLine.RowCount() > 0));
}

} // namespace

GatheredRows::GatheredRows(const Plot& plot, const PlotRecord& record, RosePrecision precision)
    : plot_(plot)
    , isMeasured_(IsMeasured(plot, record, precision))
    , count_(static_cast<std::size_t>(std::max(record.NumData, 0))) {
    GatherOrientations(record);
    if (record.HasAppendedNumeric != 0) {
        rows_.numbers = RowsOf(plot.rows.number, count_, numbers_);
    }
    if (record.HasAppendedLine != 0) {
        rows_.linePlunges = RowsOf(plot.rows.lineDip, count_, linePlunges_);
        rows_.lineTrends = RowsOf(plot.rows.lineAzimuth, count_, lineTrends_);
        GatherMeasuredLines();
    }
    const std::optional<ClassColumn> column = RoseClassColumn(record);
    if (DrawsWind(record) || column == kTextNumberClasses) {
        ReadTexts();
    }
    if (column) {
        Classify(RuleOfClassTable(record.ClassTable, *column));
    }
}

void GatheredRows::GatherOrientations(const PlotRecord& record) {
    // Rows of a child plot may be marked as missing; the columns alone do not show this.
    if (record.ShowSecondary == 0 && record.KinematicState == 0 && !isMeasured_) {
        rows_.dips = RowsOf(plot_.rows.dip, count_, dips_);
        rows_.azimuths = RowsOf(plot_.rows.azimuth, count_, azimuths_);
        return;
    }
    dips_.resize(count_);
    azimuths_.resize(count_);
    measured_.resize(isMeasured_ ? count_ : 0);
    for (std::size_t row = 0; row < count_; ++row) {
        const auto index = static_cast<std::int32_t>(row) + 1;
        const Attitude shown =
            isMeasured_ ? MeasuredShown(plot_, index) : OrientationShown(plot_, index);
        dips_[row] = WholeDegree(shown.dip);
        azimuths_[row] = WholeDegree(shown.azimuth);
        if (isMeasured_) {
            measured_[row] = shown;
        }
    }
    rows_.dips = dips_;
    rows_.azimuths = azimuths_;
    rows_.measured = measured_;
}

void GatheredRows::GatherMeasuredLines() {
    if (!isMeasured_) {
        return;
    }
    for (std::size_t row = 0; row < count_; ++row) {
        measuredLines_.push_back(
            MeasuredAttitude(plot_.rows, RowAngles::Line, static_cast<std::int32_t>(row) + 1));
    }
    rows_.measuredLines = measuredLines_;
}

void GatheredRows::ReadTexts() {
    textNumbers_.resize(count_);
    for (std::size_t row = 0; row < count_; ++row) {
        textNumbers_[row] = ParseAppendedNumber(plot_.rows.text(static_cast<std::int32_t>(row) + 1))
                                .value_or(std::numeric_limits<double>::quiet_NaN());
    }
    rows_.textNumbers = textNumbers_;
}

void GatheredRows::Classify(const ClassRule& rule) {
    classes_.resize(count_);
    for (std::size_t row = 0; row < count_; ++row) {
        classes_[row] = static_cast<std::int16_t>(ClassOfRow(rule, row));
    }
    rows_.classes = classes_;
}

int GatheredRows::ClassOfRow(const ClassRule& rule, std::size_t row) {
    switch (rule.column) {
    case kNumberClasses: {
        const float number = rows_.numbers.empty() ? kInvalidNumber : rows_.numbers[row];
        if (number == kInvalidNumber) {
            return rule.keepLow ? 1 : kNoClassValue; // an unknown value is in the low class
        }
        return ClassOfNumber(rule, static_cast<double>(number));
    }
    case kTextNumberClasses:
        return std::isnan(textNumbers_[row]) ? kNoClassValue
                                             : ClassOfNumber(rule, textNumbers_[row]);
    default:
        return RememberedClass(rule, plot_.rows.text(static_cast<std::int32_t>(row) + 1));
    }
}

/// The class of a name. Results are cached, because there are usually few distinct names and
/// comparing is slow.
int GatheredRows::RememberedClass(const ClassRule& rule, std::string_view text) {
    const auto known = classOfText_.find(text);
    if (known != classOfText_.end()) {
        return known->second;
    }
    const int classNumber = ClassOfName(rule, text);
    if (classOfText_.size() < kRememberedNames) {
        classOfText_.emplace(text, classNumber);
    }
    return classNumber;
}

} // namespace quandrel
