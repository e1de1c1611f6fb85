// SPDX-License-Identifier: MIT
//
// The rules of the tests dialog and of the command of scripts: the sets of rows of all open plots,
// what can be compared with what, and the answer to a question in words.

#pragma once

#include "hypotheses/row_sets.h"
#include "hypotheses/row_tests.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// A set of rows of an open plot.
struct RowSetPlace {
    int slot = 0;
    RowSetId id;

    friend bool operator==(const RowSetPlace&, const RowSetPlace&) = default;
};

/// A set as a list offers it.
struct RowSetEntry {
    RowSetPlace place;
    std::string name; ///< of another plot "folds.txt: 2: Overlay 1", with its title
};

/// The sets of an open plot.
[[nodiscard]] std::vector<RowSetEntry> SetsToTest(int slot);

/// The sets of all open plots that can be compared with a set: of the same sense, those of its own
/// plot first.
[[nodiscard]] std::vector<RowSetEntry> SetsToCompare(const RowSetPlace& place);

/// What is asked: the tests of a set, or of two.
struct TestQuestion {
    RowSetPlace rows;
    std::optional<RowSetPlace> with;

    friend bool operator==(const TestQuestion&, const TestQuestion&) = default;
};

/// A set of an open plot with its rows.
struct NamedSample {
    std::string name; ///< with the title of its plot: "folds: Main rows"
    TestSample sample;
};

/// The rows of a set of an open plot; nothing if there is no such set. O(rows).
[[nodiscard]] std::optional<NamedSample> NamedSampleOf(const RowSetPlace& place);

/// The rows of a question.
struct TestRows {
    NamedSample rows;
    std::optional<NamedSample> with;

    /// Of both sets.
    [[nodiscard]] std::size_t Count() const {
        return rows.sample.Count() + (with ? with->sample.Count() : 0);
    }
};

/// Nothing if a plot does not have a set.
[[nodiscard]] std::optional<TestRows> RowsOf(const TestQuestion& question);

/// Whether two questions have the same rows under the same names.
[[nodiscard]] bool AreSame(const TestRows& one, const TestRows& other);

[[nodiscard]] RowTests TestsOf(const TestRows& rows, const TestChoice& choice);

/// "folds: Main rows, 70 axes", and what they are compared with.
[[nodiscard]] std::string HeadingOf(const TestRows& rows);

/// The heading, a line for the simulations if some were made or wait, then each test: its name, and
/// its sentence in a line below.
[[nodiscard]] std::string TextOfTests(const TestRows& rows, const RowTests& tests,
                                      const TestChoice& choice);

} // namespace quandrel
