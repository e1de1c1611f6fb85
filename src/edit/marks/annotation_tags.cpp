// SPDX-License-Identifier: MIT

#include "edit/marks/annotation_tags.h"

#include <charconv>
#include <limits>
#include <string_view>

namespace quandrel {

namespace {

constexpr int kTagTries = 100;

/// The number of a tag, or 0 for a text that is not a number.
int NumberOfTag(std::string_view tag) {
    int number = 0;
    const auto [stop, error] = std::from_chars(tag.data(), tag.data() + tag.size(), number);
    return error == std::errc() && stop == tag.data() + tag.size() ? number : 0;
}

} // namespace

FreeTags::FreeTags(const Annotations& annotations)
    : last_(annotations.empty() ? 0 : NumberOfTag(annotations.back().Tag)) {
    for (const Annotation& annotation : annotations) {
        taken_.insert(NumberOfTag(annotation.Tag));
    }
}

std::optional<int> FreeTags::Next(int tries) {
    constexpr int kHighest = std::numeric_limits<std::int16_t>::max();
    int number = last_;
    for (int i = 0; i < tries; ++i) {
        number = number < 0 || number >= kHighest ? 1 : number + 1;
        if (taken_.insert(number).second) {
            last_ = number;
            return number;
        }
    }
    return std::nullopt;
}

std::optional<int> FreeAnnotationTag(const Annotations& annotations) {
    return FreeTags(annotations).Next(kTagTries);
}

} // namespace quandrel
