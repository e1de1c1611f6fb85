// SPDX-License-Identifier: MIT

#include "rose/rose_legend.h"

#include "classify/class_settings.h"
#include "classify/classification.h"
#include "core/letter_case.h"
#include "orientation/number_text.h"
#include "rose/bias_weights.h"
#include "rose/rose_radii.h"
#include "rose/rose_wedges.h"

#include <algorithm>

namespace quandrel {

namespace {

constexpr std::size_t kLabelLength = 12;
constexpr int kStepped = 1;

LegendLine TextLine(std::string text) {
    return {LegendSample::None, 0, std::move(text)};
}

/// The first characters of a text; multi-byte characters stay whole.
std::string FirstCharacters(std::string_view text, std::size_t count) {
    std::size_t end = 0;
    while (end < text.size()) {
        const bool begins = (static_cast<unsigned char>(text[end]) & 0xc0U) != 0x80U;
        if (begins && count-- == 0) {
            break;
        }
        ++end;
    }
    return std::string(text.substr(0, end));
}

/// A sample of a fill, `percent` of the full width.
LegendLine PatchLine(RoseFill fill, std::string text, int percent = 0) {
    return {LegendSample::Patch, MakeSymbolCode(fill.colour, fill.pattern, percent),
            std::move(text)};
}

/// The line of a layer. The petals of a classified top layer do not have a common fill.
LegendLine LayerLine(const PlotRecord& record, const Styles& styles, int layer, std::string text) {
    if (layer == 0 && HasRoseClasses(record.RoseType)) {
        return {LegendSample::Indent, 0, std::move(text)};
    }
    return PatchLine(FillOfRoseLayer(styles, layer), std::move(text));
}

std::string FrequencyTitle(const PlotRecord& record) {
    if (IsRoseBiasCorrected(record) && record.RoseBiasMode != kDipOnly) {
        return "Weighted Frequency-Azimuth";
    }
    return record.HasFrequencyColumn != 0 ? "Data Frequency-Azimuth (grouped)"
                                          : "Data Frequency-Azimuth";
}

std::string SampleLineText(const PlotRecord& record) {
    if (record.RoseSamplePlunge < 0) {
        return "appended line";
    }
    return FormatNumber(record.RoseSamplePlunge, "#0") + "-"
           + FormatNumber(record.RoseSampleTrend, "000");
}

/// Width of the patch of a class, per cent; 0 is the full width.
int PatchWidth(const PlotRecord& record, int classNumber, int classes) {
    if (record.RoseSegShape != kStepped || classNumber >= classes) {
        return 0;
    }
    return std::max(100 * (2 * classNumber - 1) / (2 * classes - 1), 1);
}

} // namespace

std::string RoseValueLabel(std::string_view name) {
    const std::string lower = LowerCase(std::string(name));
    if (lower == "weighting") {
        return "Wghted freq";
    }
    if (lower == "wind frequency" || lower == "mean wind frequency") {
        return "Wind freq";
    }
    if (lower == "raw wind speed" || lower == "mean wind speed") {
        return "Wind speed";
    }
    return FirstCharacters(name, kLabelLength);
}

std::vector<LegendLine> RoseTitleLines(const PlotRecord& record, const Styles& styles) {
    const std::string name = RoseValueLabel(record.AppNumName);
    switch (RoseKindOf(record.RoseType)) {
    case kRoseValue:
        return {TextLine(name + "- Azimuth")};
    case kRoseMeanValue:
        return {TextLine("Mean " + name + " - Azimuth"), TextLine("[" + name + " Means/sector]")};
    case kRoseVariance:
        return {TextLine(name + " variance-Azimuth"),
                TextLine("[standard deviation of " + name + "/sector]")};
    case kRoseWindSpeed:
        return {TextLine("Mean Wind Speed-Azimuth"), TextLine("[sum of speeds/sector]")};
    case kRoseWindEnergy:
        return {TextLine("Wind Energy Frequency"),
                TextLine("[Mean Wind Speed^3 x Mean Frequency]")};
    case kRoseOverlaidWind:
        return {TextLine("Overlayed Wind Rose"),
                LayerLine(record, styles, 0, "Wind Energy x mean freq [top]"),
                LayerLine(record, styles, 1, "Mean Wind Speed [middle]"),
                {LegendSample::Indent, 0, "[sum of speeds/sector]"},
                LayerLine(record, styles, 2, "Mean Wind Frequency [base]")};
    case kRoseValueOverFrequency:
        return {LayerLine(record, styles, 0, name),
                LayerLine(record, styles, 1, "overlayed on Data frequency")};
    case kRoseValueOverMean:
        return {LayerLine(record, styles, 0, name),
                LayerLine(record, styles, 1, "overlayed on Mean " + name)};
    default:
        return {TextLine(FrequencyTitle(record))};
    }
}

std::vector<LegendLine> RoseBiasLines(const PlotRecord& record) {
    if (!IsRoseBiasCorrected(record)) {
        return {};
    }
    if (record.RoseBiasMode == kDipOnly) {
        return {TextLine("Dip only: no correction")};
    }
    const char* const angle =
        record.RoseBiasMode == kSpaceAngle ? "[3-D] angle with" : "strike angle with";
    return {TextLine("Linear sample line"), TextLine("bias-correction using"), TextLine(angle),
            TextLine("sample line: " + SampleLineText(record)),
            TextLine(" [Min.angle used = " + FormatNumber(record.RoseMinBiasAngle, "#0") + "° ]")};
}

std::vector<LegendLine> RoseClassLines(const Plot& plot, const Styles& styles) {
    const PlotRecord& record = plot.record;
    const std::optional<ClassColumn> column = RoseClassColumn(record);
    std::vector<LegendLine> lines;
    if (!column || !HasRoseClasses(record.RoseType)) {
        return lines;
    }
    const ClassRule rule = RuleOfClassTable(record.ClassTable, *column);
    const int classes = LastClass(rule);
    const LimitForm form = LimitFormOf(plot, *column);
    for (int c = rule.keepLow ? 1 : 2; c <= classes; ++c) {
        if (CanHoldValues(rule, c)) {
            lines.push_back(PatchLine(FillOfRoseClass(styles, c),
                                      ClassLabel(record.ClassTable, *column, c, form),
                                      PatchWidth(record, c, classes)));
        }
    }
    return lines;
}

std::vector<LegendLine> RoseLegendLines(const Plot& plot, const Styles& styles) {
    const PlotRecord& record = plot.record;
    std::vector<LegendLine> lines = RoseTitleLines(record, styles);
    const auto append = [&lines](std::vector<LegendLine> more) {
        lines.insert(lines.end(), std::make_move_iterator(more.begin()),
                     std::make_move_iterator(more.end()));
    };
    if (CountsBothEnds(record)) {
        lines.push_back(TextLine("(axes counted at both ends)"));
    }
    if (HasRoseClasses(record.RoseType)) {
        const bool byLength = RoseClassOf(record.RoseType) == kRoseByLength;
        lines.push_back(
            TextLine("Classified by: " + (byLength ? record.AppNumName : record.AppNonNumName)));
    }
    append(RoseBiasLines(record));
    append(RoseClassLines(plot, styles));
    return lines;
}

} // namespace quandrel
