// SPDX-License-Identifier: MIT
//
// The numbers that annotations bear.

#pragma once

#include "core/plot_record.h"

#include <optional>
#include <unordered_set>

namespace quandrel {

/// Hands out free numbers one after the other: each one more than the last, on upward past those
/// that are taken; numbers end at 32767 and go on at 1.
class FreeTags {
public:
    explicit FreeTags(const Annotations& annotations);

    /// The next free number; nothing after so many that are taken.
    [[nodiscard]] std::optional<int> Next(int tries);

private:
    std::unordered_set<int> taken_;
    int last_;
};

/// The number for a new annotation: one more than the last one's, 1 without any, and on upward to
/// the first that none bears; numbers end at 32767 and go on at 1. Nothing after 100 numbers that
/// are taken.
[[nodiscard]] std::optional<int> FreeAnnotationTag(const Annotations& annotations);

} // namespace quandrel
