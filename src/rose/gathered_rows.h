// SPDX-License-Identifier: MIT
//
// The columns of a plot that its rose counts.

#pragma once

#include "classify/class_rule.h"
#include "rose/rose_count.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quandrel {

/// The azimuths that a rose counts: as the plot shows them, or as they were measured whether it
/// uses decimals or not.
enum class RosePrecision { Shown, Measured };

/// The columns of the main rows of a plot that a rose with some settings needs.
class GatheredRows {
public:
    /// @param record  the settings, and the description of the columns
    GatheredRows(const Plot& plot, const PlotRecord& record,
                 RosePrecision precision = RosePrecision::Shown);

    GatheredRows(const GatheredRows&) = delete;
    GatheredRows& operator=(const GatheredRows&) = delete;

    [[nodiscard]] const RoseRows& Rows() const { return rows_; }

private:
    void GatherOrientations(const PlotRecord& record);
    void GatherMeasuredLines();
    void ReadTexts();
    void Classify(const ClassRule& rule);
    [[nodiscard]] int ClassOfRow(const ClassRule& rule, std::size_t row);
    [[nodiscard]] int RememberedClass(const ClassRule& rule, std::string_view text);

    const Plot& plot_;
    bool isMeasured_;
    std::size_t count_;
    RoseRows rows_;
    std::vector<Attitude> measured_;
    std::vector<Attitude> measuredLines_;
    std::vector<std::int32_t> dips_;
    std::vector<std::int32_t> azimuths_;
    std::vector<float> numbers_;
    std::vector<double> textNumbers_;
    std::vector<std::int16_t> classes_;
    std::vector<std::int32_t> linePlunges_;
    std::vector<std::int32_t> lineTrends_;
    std::unordered_map<std::string_view, int> classOfText_;
};

} // namespace quandrel
