// SPDX-License-Identifier: MIT

#include "hypotheses/test_form.h"

#include "core/plot_store.h"
#include "core/settings_value.h"
#include "hypotheses/made_tests.h"

#include <algorithm>

namespace quandrel {

namespace {

std::optional<RowSet> SetAt(const RowSetPlace& place) {
    if (!IsOpenSlot(place.slot)) {
        return std::nullopt;
    }
    for (const RowSet& set : RowSetsOf(PlotOf(place.slot))) {
        if (set.id == place.id) {
            return set;
        }
    }
    return std::nullopt;
}

/// Adds the sets of a plot that have a sense, without one of them.
void AddComparable(int slot, RowsTestedAs as, const RowSetPlace& own,
                   std::vector<RowSetEntry>& entries) {
    const std::string title = PlotOf(slot).record.PlotTitle;
    const std::string plot = slot == own.slot ? std::string() : title + ": ";
    for (const RowSet& set : RowSetsOf(PlotOf(slot))) {
        const RowSetPlace place{slot, set.id};
        if (set.as == as && !(place == own)) {
            entries.push_back({place, plot + set.name});
        }
    }
}

std::string CountedName(const NamedSample& sample) {
    return sample.name + ", " + CountText(sample.sample.Count(), sample.sample.as);
}

bool MaySimulate(const TestRows& rows) {
    return rows.with || AreAzimuths(rows.rows.sample.as);
}

} // namespace

std::vector<RowSetEntry> SetsToTest(int slot) {
    std::vector<RowSetEntry> entries;
    if (IsOpenSlot(slot)) {
        for (const RowSet& set : RowSetsOf(PlotOf(slot))) {
            entries.push_back({{slot, set.id}, set.name});
        }
    }
    return entries;
}

std::vector<RowSetEntry> SetsToCompare(const RowSetPlace& place) {
    std::vector<RowSetEntry> entries;
    const std::optional<RowSet> own = SetAt(place);
    if (!own) {
        return entries;
    }
    AddComparable(place.slot, own->as, place, entries);
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (slot != place.slot && IsOpenSlot(slot)) {
            AddComparable(slot, own->as, place, entries);
        }
    }
    return entries;
}

std::optional<NamedSample> NamedSampleOf(const RowSetPlace& place) {
    const std::optional<RowSet> set = SetAt(place);
    if (!set) {
        return std::nullopt;
    }
    Plot& plot = PlotOf(place.slot);
    return NamedSample{plot.record.PlotTitle + ": " + set->name,
                       TestSampleOf(plot, gSettings.styles, *set)};
}

std::optional<TestRows> RowsOf(const TestQuestion& question) {
    const std::optional<NamedSample> rows = NamedSampleOf(question.rows);
    if (!rows) {
        return std::nullopt;
    }
    TestRows all{*rows, {}};
    if (question.with) {
        all.with = NamedSampleOf(*question.with);
        if (!all.with) {
            return std::nullopt;
        }
    }
    return all;
}

bool AreSame(const TestRows& one, const TestRows& other) {
    const auto isSame = [](const NamedSample& a, const NamedSample& b) {
        return a.name == b.name && AreSame(a.sample, b.sample);
    };
    return isSame(one.rows, other.rows) && one.with.has_value() == other.with.has_value()
           && (!one.with || isSame(*one.with, *other.with));
}

RowTests TestsOf(const TestRows& rows, const TestChoice& choice) {
    return rows.with ? TestsOf(rows.rows.sample, rows.with->sample, choice)
                     : TestsOf(rows.rows.sample, choice);
}

std::string HeadingOf(const TestRows& rows) {
    const std::string own = CountedName(rows.rows);
    return rows.with ? own + "\ncompared with " + CountedName(*rows.with) : own;
}

std::string TextOfTests(const TestRows& rows, const RowTests& tests, const TestChoice& choice) {
    std::string text = HeadingOf(rows) + "\n";
    if (MaySimulate(rows)) {
        text += "Simulations: " + std::to_string(choice.tries) + " tries, seed "
                + std::to_string(choice.seed) + "\n";
    }
    for (const RowTest& test : tests.tests) {
        text += "\n" + test.name + "\n   " + test.sentence + "\n";
    }
    return text;
}

} // namespace quandrel
