// SPDX-License-Identifier: MIT

#include "batch/rose_command.h"

#include "batch/key_values.h"
#include "core/plot_store.h"
#include "orientation/number_text.h"
#include "rose/rose_go.h"

namespace quandrel {

namespace {

const Names kClassNames = {
    {"none", kRoseUnclassified}, {"length", kRoseByLength}, {"type", kRoseByType}};

/// "tick" or "circ", followed by "auto" or an interval.
std::string TakeScale(const std::string& value, RoseSettings& settings) {
    const std::string marks = value.substr(0, 4);
    const std::string interval = value.size() > 4 ? value.substr(4) : "auto";
    const std::optional<double> number = ReadNumber(interval);
    if ((marks != "tick" && marks != "circ") || (interval != "auto" && !number)) {
        return "'" + value + "' is not a scale such as tickauto or circ5";
    }
    settings.circles = marks == "circ";
    settings.interval = number;
    return {};
}

/// Plunge and trend of the sampling line.
std::string TakeSample(const std::string& value, RoseSettings& settings) {
    const std::vector<std::string> parts = SplitAtCommas(value);
    const std::optional<int> plunge = WholeNumber(parts[0], 0, 90);
    const std::optional<int> trend =
        parts.size() == 2 ? WholeNumber(parts[1], 0, 360) : std::nullopt;
    if (!plunge || !trend) {
        return "'" + value
               + "' is not a plunge from 0 to 90 and a trend from 0 to 360, such as 20,135";
    }
    settings.samplePlunge = *plunge;
    settings.sampleTrend = *trend;
    settings.ownLines = false;
    return {};
}

const Takers<RoseSettings>& RoseTakers() {
    using Settings = RoseSettings;
    static const Takers<Settings> takers = {
        {"type", [](auto& v, Settings& s) { return TakeWhole(v, 0, 8, s.kind); }},
        {"classify", [](auto& v, Settings& s) { return TakeName(kClassNames, v, s.classes); }},
        {"shape", [](auto& v, Settings& s) { return TakeWhole(v, 0, 4, s.shape); }},
        {"sector", [](auto& v, Settings& s) { return TakeNumber(v, s.sectorSize); }},
        {"sectors",
         [](auto& v, Settings& s) {
             int sectors = 36;
             const std::string error = TakeWhole(v, 1, 360, sectors);
             s.sectorSize = SizeOfSectors(sectors);
             return error;
         }},
        {"start", [](auto& v, Settings& s) { return TakeNumber(v, s.startAngle); }},
        {"bias", [](auto& v, Settings& s) { return TakeWhole(v, 0, 3, s.biasMode); }},
        {"sample", TakeSample},
        {"minangle", [](auto& v, Settings& s) { return TakeWhole(v, 1, 90, s.minBiasAngle); }},
        {"useappended", [](auto& v, Settings& s) { return TakeTruth(v, s.ownLines); }},
        {"fraction", [](auto& v, Settings& s) { return TakeWhole(v, 1, 100, s.sectorFraction); }},
        {"zero", [](auto& v, Settings& s) { return TakeWhole(v, 0, 90, s.zeroCircle); }},
        {"scale", TakeScale},
        {"equalarea", [](auto& v, Settings& s) { return TakeTruth(v, s.equalArea); }},
        {"segshape", [](auto& v, Settings& s) { return TakeWhole(v, 0, 1, s.segShape); }},
        {"outercircle", [](auto& v, Settings& s) { return TakeTruth(v, s.outerCircle); }},
    };
    return takers;
}

} // namespace

std::string ApplyRoseArguments(const std::vector<Argument>& arguments) {
    RoseSettings settings = RoseSettingsOf(ActiveRecord());
    std::string error = TakeArguments(arguments, RoseTakers(), "a rose", settings);
    if (error.empty()) {
        if (const std::optional<RoseRefusal> refusal = ApplyRoseSettings(settings)) {
            error = refusal->reason;
        }
    }
    return error;
}

} // namespace quandrel
