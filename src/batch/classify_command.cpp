// SPDX-License-Identifier: MIT

#include "batch/classify_command.h"

#include "batch/key_values.h"
#include "classify/class_settings.h"
#include "core/data_format.h"
#include "core/plot_store.h"
#include "orientation/number_text.h"
#include "rose/rose_go.h"

#include <algorithm>
#include <optional>

namespace quandrel {

namespace {

/// A draft of a classification. A procedure gives limits and names, or the arguments do so one by
/// one. Single arguments override the procedure, whatever their order.
struct Draft {
    ClassSettings settings;
    std::optional<int> classes;
    std::string procedure;
    std::vector<double> limits;
    std::vector<std::string> names;
    bool hasNames = false; ///< the key is present
    std::optional<bool> low;
    std::optional<bool> high;
};

const std::map<std::string, RangeProcedure> kRangeWords = {
    {"equal", RangeProcedure::EqualRanges},
    {"stddev", RangeProcedure::DeviationSplits},
    {"lastused", RangeProcedure::LastUsed},
    {"custom", RangeProcedure::Custom},
};

const std::map<std::string, TypeProcedure> kTypeWords = {
    {"first", TypeProcedure::FirstFound},      {"ascending", TypeProcedure::Ascending},
    {"descending", TypeProcedure::Descending}, {"lastused", TypeProcedure::LastUsed},
    {"custom", TypeProcedure::Custom},
};

const Names kGridValues = {{"mean", static_cast<int>(ClassGridValue::Mean)},
                           {"cumulative", static_cast<int>(ClassGridValue::Cumulative)}};

std::string TakeProcedure(const std::string& value, Draft& draft) {
    if (!kRangeWords.contains(value) && !kTypeWords.contains(value)) {
        return "'" + value + "' is not one of " + ListOf(kRangeWords) + ", " + ListOf(kTypeWords);
    }
    draft.procedure = value;
    return {};
}

std::string TakeLimits(const std::string& value, Draft& draft) {
    for (const std::string& part : SplitAtCommas(value)) {
        const std::string error = TakeNumber(part, draft.limits.emplace_back());
        if (!error.empty()) {
            return error;
        }
    }
    if (draft.limits.size() < 2 || draft.limits.size() > kMostRanges + 1U) {
        return "limits are two to eleven numbers: the lowest, then the upper limit of each class";
    }
    return {};
}

std::string TakeNames(const std::string& value, Draft& draft) {
    draft.names = SplitAtCommas(value);
    draft.hasNames = true;
    return draft.names.size() > kMostNames ? "there are at most eleven names" : "";
}

std::string TakeBackground(const std::string& value, Draft& draft) {
    draft.settings.background.reset();
    return value == "none" ? "" : TakeNumber(value, draft.settings.background.emplace());
}

const Takers<Draft>& ClassTakers() {
    static const Takers<Draft> takers = {
        {"mode", [](auto& v, Draft& d) { return TakeWhole(v, 0, 3, d.settings.mode); }},
        {"plottype", [](auto& v, Draft& d) { return TakeWhole(v, 0, 4, d.settings.plotType); }},
        {"classes",
         [](auto& v, Draft& d) { return TakeWhole(v, 1, kMostNames, d.classes.emplace()); }},
        {"procedure", TakeProcedure},
        {"limits", TakeLimits},
        {"names", TakeNames},
        {"low", [](auto& v, Draft& d) { return TakeTruth(v, d.low); }},
        {"high", [](auto& v, Draft& d) { return TakeTruth(v, d.high); }},
        {"casesensitive", [](auto& v, Draft& d) { return TakeTruth(v, d.settings.caseSensitive); }},
        {"gridvalues",
         [](auto& v, Draft& d) { return TakeName(kGridValues, v, d.settings.gridValue); }},
        {"background", TakeBackground},
    };
    return takers;
}

/// The single arguments that the chosen mode does not allow.
std::string MisfitOf(const Draft& draft) {
    const int mode = draft.settings.mode;
    if (draft.hasNames && mode != kClassesByName) {
        return "names apply to mode 3 only";
    }
    if (mode == kClassesByName && !draft.limits.empty()) {
        return "limits apply to modes 1 and 2 only";
    }
    if (mode == kClassesByName && draft.high) {
        return "high applies to modes 1 and 2 only: names that fit no class are low";
    }
    return {};
}

/// The given procedure. The default is the initial one for a plot without classes, otherwise the
/// plot's existing limits or names.
std::string ProcedureOr(const Draft& draft, int formerClasses, const char* first) {
    if (!draft.procedure.empty()) {
        return draft.procedure;
    }
    return formerClasses == 0 ? first : "lastused";
}

/// Lets the procedure fill limits or names. The default number of classes is the existing one; for
/// types, as many as there are.
std::string FillByProcedure(Draft& draft) {
    ClassSettings& settings = draft.settings;
    if (draft.procedure.empty() && !draft.classes) {
        return {};
    }
    if (settings.mode == kClassesByNumber) {
        const int former = settings.numbers.limits.base;
        const auto procedure = kRangeWords.find(ProcedureOr(draft, former, "equal"));
        return procedure == kRangeWords.end()
                   ? "'" + draft.procedure + "' does not apply to ranges of numbers"
                   : FillRanges(settings, procedure->second, draft.classes.value_or(former));
    }
    const int former =
        settings.mode == kClassesByTextNumber ? settings.textNumbers.limits.base : settings.types;
    const auto procedure = kTypeWords.find(ProcedureOr(draft, former, "first"));
    if (procedure == kTypeWords.end()) {
        return "'" + draft.procedure + "' is a procedure for ranges";
    }
    FillTypes(settings, procedure->second, draft.classes.value_or(kMostNames));
    return {};
}

void TakeGivenLimits(const Draft& draft, ClassRanges& ranges) {
    if (draft.limits.empty()) {
        return;
    }
    ranges.limits.base = static_cast<int>(draft.limits.size()) - 1;
    std::copy(draft.limits.begin(), draft.limits.end() - 1, ranges.limits.limits.begin());
    ranges.limits.top = draft.limits.back();
}

/// Stores single arguments in the column that the mode reads.
void TakeGiven(Draft& draft) {
    ClassSettings& settings = draft.settings;
    if (settings.mode == kClassesByName) {
        if (!draft.names.empty()) {
            settings.types = static_cast<int>(draft.names.size());
            std::ranges::copy(draft.names, settings.names.begin());
        }
        settings.keepOthers = draft.low.value_or(settings.keepOthers);
        return;
    }
    ClassRanges& ranges =
        settings.mode == kClassesByNumber ? settings.numbers : settings.textNumbers;
    TakeGivenLimits(draft, ranges);
    ranges.keepLow = draft.low.value_or(ranges.keepLow);
    ranges.keepHigh = draft.high.value_or(ranges.keepHigh);
}

/// The classes of a rose: the mode of a stereo plot is the kind of class of a rose.
std::string ApplyToRose(ClassSettings& settings) {
    RoseSettings rose = RoseSettingsOf(ActiveRecord());
    settings.treatAsNumeric = settings.mode == kClassesByTextNumber;
    rose.table = TableOfSettings(settings, ActiveRecord().ClassTable);
    rose.classes = settings.mode == kNotClassified     ? kRoseUnclassified
                   : settings.mode == kClassesByNumber ? kRoseByLength
                                                       : kRoseByType;
    const std::optional<RoseRefusal> refusal = ApplyRoseSettings(rose);
    return refusal ? refusal->reason : std::string();
}

} // namespace

std::string ApplyClassArguments(const std::vector<Argument>& arguments) {
    Draft draft;
    draft.settings = SettingsOfActivePlot();
    std::string error = TakeArguments(arguments, ClassTakers(), "a classification", draft);
    if (error.empty()) {
        error = MisfitOf(draft);
    }
    if (error.empty()) {
        error = FillByProcedure(draft);
    }
    if (!error.empty()) {
        return error;
    }
    TakeGiven(draft);
    return ActiveRecord().PlotKind == kRose ? ApplyToRose(draft.settings)
                                            : ApplyClassSettings(draft.settings);
}

} // namespace quandrel
