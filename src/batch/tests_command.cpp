// SPDX-License-Identifier: MIT

#include "batch/tests_command.h"

#include "batch/key_values.h"
#include "core/plot_store.h"
#include "hypotheses/test_form.h"
#include "qt/quantile_picture.h"

#include <nlohmann/json.hpp>

#include <array>
#include <limits>
#include <optional>

namespace quandrel {

namespace {

using Json = nlohmann::ordered_json;

struct TestsAsked {
    TestQuestion question;
    TestChoice choice;
    std::string picture;
};

/// A class by its place among those of a plot, from 1; of none if there are fewer.
RowSetId ClassAt(const Plot& plot, int place) {
    int passed = 0;
    for (const RowSet& set : RowSetsOf(plot)) {
        passed += set.id.kind == RowGroupKind::Class ? 1 : 0;
        if (passed == place) {
            return set.id;
        }
    }
    return {RowGroupKind::Class, 0};
}

/// The number after a word: 2 of "class2".
std::optional<int> NumberAfter(const std::string& start, const std::string& word) {
    constexpr int kMostNumber = 99;
    return word.starts_with(start) ? WholeNumber(word.substr(start.size()), 1, kMostNumber)
                                   : std::nullopt;
}

/// "main", "p", "t", "overlay1", "class2" of a plot; nothing for other words.
std::optional<RowSetId> SetOfWord(const Plot& plot, const std::string& word) {
    if (word == "main") {
        return RowSetId{};
    }
    if (word == "p" || word == "t") {
        return RowSetId{word == "p" ? RowGroupKind::Shortening : RowGroupKind::Extension, 0};
    }
    if (const auto overlay = NumberAfter("overlay", word)) {
        return RowSetId{RowGroupKind::Overlay, *overlay};
    }
    const auto place = NumberAfter("class", word);
    return place ? std::optional(ClassAt(plot, *place)) : std::nullopt;
}

/// Reads rows, of another plot with its number and a colon before them.
std::string TakeRows(const std::string& value, RowSetPlace& place) {
    const std::size_t colon = value.find(':');
    place.slot = gActivePlot;
    if (colon != std::string::npos) {
        const auto slot = WholeNumber(value.substr(0, colon), 1, HighestSlot());
        if (!slot || !IsOpenSlot(*slot)) {
            return "'" + value.substr(0, colon) + "' is not an open plot";
        }
        place.slot = *slot;
    }
    const auto set =
        SetOfWord(PlotOf(place.slot), colon == std::string::npos ? value : value.substr(colon + 1));
    if (!set) {
        return "'" + value + "' is not one of main, p, t, overlay1, class1 and so on";
    }
    place.id = *set;
    return {};
}

std::string TakeOther(const std::string& value, TestsAsked& asked) {
    RowSetPlace place;
    std::string error = TakeRows(value, place);
    if (error.empty()) {
        asked.question.with = place;
    }
    return error;
}

const Takers<TestsAsked>& TestTakers() {
    static const Takers<TestsAsked> takers = {
        {"of", [](auto& v, TestsAsked& a) { return TakeRows(v, a.question.rows); }},
        {"with", [](auto& v, TestsAsked& a) { return TakeOther(v, a); }},
        {"tries",
         [](auto& v, TestsAsked& a) {
             return TakeWhole(v, kFewestTries, kMostTries, a.choice.tries);
         }},
        {"seed",
         [](auto& v, TestsAsked& a) {
             return TakeWhole(v, 0, std::numeric_limits<std::int32_t>::max(), a.choice.seed);
         }},
        {"qq",
         [](auto& v, TestsAsked& a) {
             a.picture = v;
             return std::string();
         }},
    };
    return takers;
}

const char* NameOf(RowsTestedAs as) {
    constexpr std::array<const char*, 4> kNames = {"axes", "directions", "axial azimuths",
                                                   "azimuths"};
    return kNames[static_cast<std::size_t>(as)];
}

Json NumberJson(const std::optional<double>& number) {
    return number ? Json(*number) : Json(nullptr);
}

Json RowsJson(const NamedSample& sample) {
    return {
        {"rows", sample.name}, {"as", NameOf(sample.sample.as)}, {"count", sample.sample.Count()}};
}

Json TestJson(const RowTest& test) {
    Json json = {{"name", test.name}};
    if (!test.symbol.empty()) {
        json["symbol"] = test.symbol;
        json["statistic"] = NumberJson(test.statistic);
        json["p"] = NumberJson(test.probability);
    }
    json["sentence"] = test.sentence;
    return json;
}

Json AnswerJson(const TestRows& rows, const TestsAsked& asked, const RowTests& tests) {
    Json json = {{"of", RowsJson(rows.rows)},
                 {"with", rows.with ? RowsJson(*rows.with) : Json(nullptr)},
                 {"tries", asked.choice.tries},
                 {"seed", asked.choice.seed}};
    json["tests"] = Json::array();
    for (const RowTest& test : tests.tests) {
        json["tests"].push_back(TestJson(test));
    }
    return json;
}

/// Why rows cannot be tested: a plot does not have a set, or the sets are of different senses.
std::string RefusalOf(const TestsAsked& asked, const std::optional<TestRows>& rows) {
    if (!NamedSampleOf(asked.question.rows)) {
        return "of: the plot has no such rows";
    }
    if (!rows) {
        return "with: the plot has no such rows";
    }
    if (rows->with && rows->with->sample.as != rows->rows.sample.as) {
        return std::string("with: ") + NameOf(rows->rows.sample.as) + " are not compared with "
               + NameOf(rows->with->sample.as);
    }
    return {};
}

} // namespace

Result<std::string> TestsJson(const std::vector<Argument>& arguments) {
    TestsAsked asked;
    asked.question.rows.slot = gActivePlot;
    std::string error = TakeArguments(arguments, TestTakers(), "tests", asked);
    if (!error.empty()) {
        return Failure{error};
    }
    const std::optional<TestRows> rows = RowsOf(asked.question);
    if (error = RefusalOf(asked, rows); !error.empty()) {
        return Failure{error};
    }
    const RowTests tests = TestsOf(*rows, asked.choice);
    if (!asked.picture.empty()) {
        error = tests.quantiles.empty()
                    ? "qq: these tests have no quantile plots"
                    : SaveQuantilePicture(asked.picture, rows->rows.name, tests.quantiles);
    }
    return error.empty() ? Result<std::string>(AnswerJson(*rows, asked, tests).dump())
                         : Failure{error};
}

} // namespace quandrel
