// SPDX-License-Identifier: MIT

#include "drawing/figure_legend_rose.h"

#include "classify/class_settings.h"
#include "classify/classification.h"
#include "core/data_format.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "rose/bias_weights.h"
#include "rose/figure_rose_fills.h"
#include "rose/figure_rose_mean.h"
#include "rose/figure_rose_scale.h"
#include "rose/rose_furniture.h"
#include "rose/rose_radii.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"
#include "statistics/orientation_notation.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <utility>

namespace quandrel {

namespace {

constexpr const char* kDegree = "\u00b0";
constexpr const char* kEnergyText = "Wind energy (cube of speed \u00d7 frequency)";
constexpr const char* kSpeedText = "Sum of wind speeds";
constexpr const char* kWindFrequencyText = "Wind frequency";

/// What the azimuths of a rose are: "strike", "trend", "direction".
std::string NounOf(const PlotRecord& record) {
    switch (record.DataKind) {
    case kPlanes:
        return "strike";
    case kPolarLines:
        return "direction";
    default:
        return "trend";
    }
}

std::string WithCapital(std::string text) {
    if (!text.empty() && text.front() >= 'a' && text.front() <= 'z') {
        text.front() = static_cast<char>(text.front() - 'a' + 'A');
    }
    return text;
}

/// An azimuth below a full turn, of an axis below half of one, as a text.
std::string AzimuthText(double radians, bool isDirected, bool hasDecimals) {
    const double unit = hasDecimals ? 10 : 1;
    const double period = isDirected ? 360 : 180;
    const double degrees = std::fmod(std::round(RadToDeg(radians) * unit) / unit, period);
    return FormatNumber(degrees, hasDecimals ? "000.0" : "000");
}

/// Makes the legend of one rose.
class RoseLegendMaker {
public:
    RoseLegendMaker(const Plot& plot, const Drawing& drawing)
        : plot_(plot)
        , record_(plot.record)
        , drawing_(drawing)
        , kind_(RoseKindOf(plot.record.RoseType)) {}

    [[nodiscard]] FigureLegend Made() && {
        AddPetals();
        AddClasses();
        AddMean();
        AddNote(kRoseSectors, SectorsText());
        AddNote(kRoseCircles, ScaleText());
        if (HasLayersOfRose(record_.RoseType)) {
            AddNote(kRoseScales, "Each layer to its own scale");
        }
        AddBias();
        return {std::move(entries_), {}};
    }

private:
    /// Adds an entry without a sign. The plot's own words of the entry replace those given.
    ///
    /// @param about    RoseEntryCode
    /// @param numbers  that follow the words
    FigureEntry& Add(std::int16_t about, int index, std::string words,
                     const std::string& numbers = {}) {
        FigureEntry& entry = entries_.emplace_back();
        entry.rose = {about, static_cast<std::int16_t>(index), std::move(words)};
        for (const RoseName& name : record_.RoseNames) {
            if (name.RoseEntry == about && name.RoseIndex == index) {
                entry.rose.RoseWords = name.RoseWords;
            }
        }
        entry.text = entry.rose.RoseWords + numbers;
        return entry;
    }

    void AddNote(std::int16_t about, std::string words) {
        Add(about, 0, std::move(words)).sign = FigureSign::Blank;
    }

    static void GivePatch(FigureEntry& entry, const PetalFill& fill) {
        entry.sign = FigureSign::Patch;
        entry.patch = fill;
    }

    /// The entry of a layer; the petals of a classified top layer have no common fill.
    void AddLayer(int layer, std::string words, const std::string& numbers = {}) {
        FigureEntry& entry = Add(kRosePetals, layer, std::move(words), numbers);
        if (layer != 0 || !HasRoseClasses(record_.RoseType)) {
            GivePatch(entry, FillOfFigureLayer(record_, drawing_, layer));
        }
    }

    [[nodiscard]] std::string CountText() const {
        return ", n = " + FormatNumber(record_.RoseStats[kRoseCount][kRawTotal], "0");
    }

    /// "Strikes of joints", "Directions".
    [[nodiscard]] std::string RowsText() const {
        const std::string& fabric = record_.FabricText;
        return WithCapital(NounOf(record_)) + "s" + (fabric.empty() ? "" : " of " + fabric);
    }

    /// "by strike of joints".
    [[nodiscard]] std::string ByText() const {
        const std::string& fabric = record_.FabricText;
        return " by " + NounOf(record_) + (fabric.empty() ? "" : " of " + fabric);
    }

    [[nodiscard]] std::string ValueName() const {
        return record_.AppNumName.empty() ? "values" : record_.AppNumName;
    }

    [[nodiscard]] bool IsClassDrawn(int classNumber) const {
        return std::ranges::any_of(RoseOf(plot_).wedges, [classNumber](const RoseWedge& wedge) {
            return wedge.classNumber == classNumber;
        });
    }

    void AddPetals();
    void AddClasses();
    void AddMean();
    void AddBias();
    [[nodiscard]] std::string SectorsText() const;
    [[nodiscard]] std::string ScaleText() const;

    const Plot& plot_;
    const PlotRecord& record_;
    const Drawing& drawing_;
    int kind_;
    std::vector<FigureEntry> entries_;
};

void RoseLegendMaker::AddPetals() {
    const std::string count = CountText();
    switch (kind_) {
    case kRoseValue:
        AddLayer(0, "Sum of " + ValueName() + ByText(), count);
        break;
    case kRoseMeanValue:
        AddLayer(0, "Mean " + ValueName() + ByText(), count);
        break;
    case kRoseVariance:
        AddLayer(0, "Standard deviation of " + ValueName() + ByText(), count);
        break;
    case kRoseWindSpeed:
        AddLayer(0, kSpeedText + ByText(), count);
        break;
    case kRoseWindEnergy:
        AddLayer(0, kEnergyText, count);
        break;
    case kRoseOverlaidWind:
        AddLayer(0, kEnergyText, count);
        AddLayer(1, kSpeedText);
        AddLayer(2, kWindFrequencyText);
        break;
    case kRoseValueOverFrequency:
    case kRoseValueOverMean:
        AddLayer(0, "Sum of " + ValueName() + ByText(), count);
        AddLayer(1, kind_ == kRoseValueOverMean ? "Mean " + ValueName() : RowsText());
        break;
    default:
        AddLayer(0, RowsText(), count);
        break;
    }
}

void RoseLegendMaker::AddClasses() {
    const std::optional<ClassColumn> column = RoseClassColumn(record_);
    if (!column || !HasRoseClasses(record_.RoseType)) {
        return;
    }
    const bool areLengths = RoseClassOf(record_.RoseType) == kRoseByLength;
    Add(kRoseClasses, 0, "Classes of " + (areLengths ? record_.AppNumName : record_.AppNonNumName));
    const ClassRule rule = RuleOfClassTable(record_.ClassTable, *column);
    const LimitForm form = LimitFormOf(plot_, *column);
    for (int c = rule.keepLow ? 1 : 2; c <= LastClass(rule); ++c) {
        if (IsClassDrawn(c)) {
            GivePatch(Add(kRoseClass, c, ClassLabel(record_.ClassTable, *column, c, form)),
                      FillOfFigureClass(record_, drawing_, c));
        }
    }
}

/// "Mean direction 143 ± 6° (95%)".
void RoseLegendMaker::AddMean() {
    const std::optional<FigureMean> mean = MeanOfFigure(plot_, drawing_);
    if (!mean || EndsOfMean(plot_, *mean).empty()) {
        return;
    }
    std::string numbers =
        " " + AzimuthText(mean->azimuth, RoseOf(plot_).isDirectional, DecimalsShown(record_) > 0);
    if (mean->halfWidth) {
        const double half = RadToDeg(*mean->halfWidth);
        const bool hasDecimals = DecimalsShown(record_) > 0 || half < 1;
        numbers +=
            " \u00b1 " + FormatNumber(half, hasDecimals ? "0.0" : "0") + kDegree
            + (mean->method == ConfidenceMethod::kBootstrap ? " (95%, bootstrap)" : " (95%)");
    }
    FigureEntry& entry = Add(kRoseMeanLine, 0, "Mean " + NounOf(record_), numbers);
    entry.sign = FigureSign::Line;
    entry.line = LookOfMean(drawing_);
}

/// "Petals by area, 10° sectors".
std::string RoseLegendMaker::SectorsText() const {
    const int sectors = RoseOf(plot_).radii.Sectors();
    std::string text = record_.RoseEqualArea != 0 ? "Petals by area, " : "Petals by length, ";
    text += FormatNumber(record_.RoseSectorSize, "0.##") + kDegree + " sectors";
    if (const double odd = OddSectorOfRose(record_, sectors); odd != 0) {
        text += ", the last " + FormatNumber(odd, "0.##") + kDegree;
    }
    return CountsBothEnds(record_) ? text + ", axes at both ends" : text;
}

/// "Circles every 2%, rim 9.5%". Each layer of an overlaid rose reaches the rim.
std::string RoseLegendMaker::ScaleText() const {
    const FigureScale scale = ScaleOfFigure(plot_);
    const std::string rim = "im " + TextOfScaleValue(scale, scale.rim);
    const std::string text =
        scale.circles.empty()
            ? "R" + rim
            : "Circles every " + TextOfScaleValue(scale, scale.step) + ", r" + rim;
    return HasLayersOfRose(record_.RoseType) ? text + " of the top layer" : text;
}

/// "Weighted against a sampling line 10-090".
void RoseLegendMaker::AddBias() {
    if (!IsRoseBiasCorrected(record_) || record_.RoseBiasMode == kDipOnly) {
        return;
    }
    const std::string line = record_.RoseSamplePlunge < 0
                                 ? "the line of each row"
                                 : "a line " + FormatNumber(record_.RoseSamplePlunge, "00") + "-"
                                       + FormatNumber(record_.RoseSampleTrend, "000");
    AddNote(kRoseWeights, "Weighted for sampling along " + line + ", angles from "
                              + FormatNumber(record_.RoseMinBiasAngle, "0") + kDegree);
}

} // namespace

FigureLegend LegendOfRoseFigure(const Plot& plot, const Drawing& drawing) {
    if (!RoseOf(plot).isShown) {
        return {};
    }
    return RoseLegendMaker(plot, drawing).Made();
}

} // namespace quandrel
