// SPDX-License-Identifier: MIT
//
// The numbers of annotations.

#pragma once

#include "core/plot_record.h"

#include <optional>
#include <unordered_set>

namespace quandrel {

/// Returns unused numbers in sequence: each is one more than the last, skipping used numbers. After
/// 32767 the sequence continues at 1.
class FreeTags {
public:
    explicit FreeTags(const Annotations& annotations);

    /// The next unused number; nothing after the given number of used numbers in a row.
    [[nodiscard]] std::optional<int> Next(int tries);

private:
    std::unordered_set<int> taken_;
    int last_;
};

/// The number of a new annotation: one more than that of the last annotation, or 1 without any,
/// skipping used numbers. After 32767 the sequence continues at 1. Nothing after 100 used numbers
/// in a row.
[[nodiscard]] std::optional<int> FreeAnnotationTag(const Annotations& annotations);

} // namespace quandrel
