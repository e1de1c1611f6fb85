// SPDX-License-Identifier: MIT

#include "rose/rose_choices.h"

#include "core/data_format.h"
#include "core/plot_store.h"

namespace quandrel {

namespace {

constexpr int kLastClosedByFault = kRoseWindEnergy;
constexpr int kStrikeBias = 2;

constexpr std::string_view kNeedsNumber = "The plot has no appended numbers";
constexpr std::string_view kNeedsText = "The plot has no appended texts";
constexpr std::string_view kNeedsBoth = "The plot lacks appended numbers or appended texts";
constexpr std::string_view kNoRowFits = "No row of the plot has a value for this kind of rose";
constexpr std::string_view kNoClassesOfMeans = "Means and variances have no classes";
constexpr std::string_view kNeedsClasses = "Only the sectors of a rose with classes are divided";
constexpr std::string_view kNoBiasOfKind =
    "Only frequencies, values and mean values are corrected for bias";
constexpr std::string_view kNeedsDips = "The data are directions without a dip or plunge";
constexpr std::string_view kNeedsLines = "The plot has no appended lines";
constexpr std::string_view kNeedsBias = "Choose a bias correction first";
constexpr std::string_view kLinesOfRows = "The appended line of each row is used";
constexpr std::string_view kTrendAlone = "The trend alone counts for this correction";

std::string_view WhyNotKind(int kind, const PlotRecord& record) {
    const bool hasNumber = record.HasAppendedNumeric != 0;
    const bool hasText = record.HasAppendedText != 0;
    switch (kind) {
    case kRoseFrequency:
        return {};
    case kRoseWindSpeed:
        return hasText ? std::string_view() : kNeedsText;
    case kRoseWindEnergy:
    case kRoseOverlaidWind:
        return hasNumber && hasText ? std::string_view() : kNeedsBoth;
    default:
        return hasNumber ? std::string_view() : kNeedsNumber;
    }
}

bool HasNoClasses(int kind) {
    return kind == kRoseMeanValue || kind == kRoseVariance;
}

void CloseBias(RoseChoices& choices, const RoseSettings& settings, const PlotRecord& record) {
    choices.bias = settings.kind <= kRoseMeanValue ? std::string_view() : kNoBiasOfKind;
    const bool hasDips = record.ShowSecondary != 0 || record.PrimaryFormat > kDirections;
    for (int mode = 0; mode < 4; ++mode) {
        const bool needsDip = mode != 0 && mode != kStrikeBias;
        choices.biasModes[static_cast<std::size_t>(mode)] = !choices.bias.empty() ? choices.bias
                                                            : needsDip && !hasDips
                                                                ? kNeedsDips
                                                                : std::string_view();
    }
    std::string_view closed = choices.bias;
    if (closed.empty() && settings.biasMode == 0) {
        closed = kNeedsBias;
    }
    choices.ownLines = closed.empty() && record.HasAppendedLine == 0 ? kNeedsLines : closed;
    choices.biasBoxes.fill(closed);
    if (!closed.empty()) {
        return;
    }
    std::string_view& plunge = choices.biasBoxes[static_cast<std::size_t>(BiasBox::Plunge)];
    if (settings.ownLines) {
        plunge = kLinesOfRows;
        choices.biasBoxes[static_cast<std::size_t>(BiasBox::Trend)] = kLinesOfRows;
    } else if (settings.biasMode == kStrikeBias) {
        plunge = kTrendAlone;
    }
}

} // namespace

RoseChoices ChoicesOfRose(const RoseSettings& settings, const PlotRecord& record, int fault) {
    RoseChoices choices;
    for (int kind = 0; kind < static_cast<int>(kRoseKinds); ++kind) {
        std::string_view& reason = choices.kinds[static_cast<std::size_t>(kind)];
        reason = WhyNotKind(kind, record);
        if (reason.empty() && fault == kNoRoseValues && kind != kRoseFrequency
            && kind <= kLastClosedByFault) {
            reason = kNoRowFits;
        }
    }
    if (HasNoClasses(settings.kind)) {
        choices.classes[kRoseByLength] = kNoClassesOfMeans;
        choices.classes[kRoseByType] = kNoClassesOfMeans;
    } else {
        choices.classes[kRoseByLength] =
            record.HasAppendedNumeric != 0 ? std::string_view() : kNeedsNumber;
        choices.classes[kRoseByType] =
            record.HasAppendedText != 0 ? std::string_view() : kNeedsText;
    }
    if (settings.classes == kRoseUnclassified || HasNoClasses(settings.kind)) {
        choices.segments = kNeedsClasses;
    }
    CloseBias(choices, settings, record);
    return choices;
}

void FollowRoseKind(RoseSettings& settings) {
    if (HasNoClasses(settings.kind)) {
        settings.classes = kRoseUnclassified;
    }
}

void FollowRoseFault(RoseSettings& settings, int fault) {
    settings.kind = kRoseFrequency;
    const bool isOfNumbers = fault == kNoRoseValues || fault == kNoRoseLengths;
    const int suspect = isOfNumbers               ? static_cast<int>(kRoseByLength)
                        : fault == kNoRoseClasses ? static_cast<int>(kRoseByType)
                                                  : static_cast<int>(kRoseUnclassified);
    if (settings.classes == suspect) {
        settings.classes = kRoseUnclassified;
    }
}

ClassSettings ClassSettingsOfRose() {
    ClassSettings settings = SettingsOfActivePlot();
    switch (RoseClassOf(ActiveRecord().RoseType)) {
    case kRoseByLength:
        settings.mode = kClassesByNumber;
        break;
    case kRoseByType:
        settings.mode = settings.treatAsNumeric ? kClassesByTextNumber : kClassesByName;
        break;
    default:
        settings.mode = kNotClassified;
        break;
    }
    return settings;
}

RoseOutcome ApplyRose(const RoseSettings& settings, const ClassStyles& fills) {
    RoseOutcome outcome = TryRoseSettings(settings);
    if (outcome.verdict == RoseVerdict::Done) {
        WriteStylesOfClasses(fills, kFirstRoseClassStyle);
        PlotRoseSettings(settings);
    }
    return outcome;
}

} // namespace quandrel
