// SPDX-License-Identifier: MIT

#include "core/appended_range.h"

#include "core/letter_case.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <optional>
#include <string>

namespace quandrel {

namespace {

TaggedValue HeldOf(double value) {
    return value;
}

TaggedValue HeldOf(std::string_view text) {
    return std::string(text);
}

/// Stores a value in the first free place, unless it is already there or all places are taken.
template <class Range, class Value, class Equals>
void KeepDistinct(Range& range, std::size_t which, const Value& value, const Equals& equals) {
    for (auto& held : range.DistinctValues) {
        if (IsEmpty(held[which])) {
            held[which] = HeldOf(value);
            return;
        }
        if (equals(held[which])) {
            return;
        }
    }
}

template <class Range>
bool HoldsAllItCan(const Range& range, std::size_t which) {
    return !IsEmpty(range.DistinctValues.back()[which]);
}

template <class Range>
void Widen(Range& range, std::size_t which, double least, double most) {
    range.AppendedMin[which] = std::min(range.AppendedMin[which], least);
    range.AppendedMax[which] = std::max(range.AppendedMax[which], most);
}

template <class Range>
void KeepNumber(Range& range, double value) {
    if (!HoldsAllItCan(range, kOfNumbers)) {
        KeepDistinct(range, kOfNumbers, value,
                     [value](const TaggedValue& held) { return NumberOf(held) == value; });
    }
}

template <class Range>
void KeepText(Range& range, std::string_view text) {
    if (!HoldsAllItCan(range, kOfTexts)) {
        KeepDistinct(range, kOfTexts, text, [text](const TaggedValue& held) {
            return EqualWithoutCase(std::get<std::string>(held), text);
        });
    }
}

template <class Range>
void TrackNumberIn(Range& range, float number) {
    if (number == kInvalidNumber) {
        return;
    }
    const auto value = static_cast<double>(number);
    Widen(range, kOfNumbers, value, value);
    KeepNumber(range, value);
}

template <class Range>
void TrackTextIn(Range& range, std::string_view text) {
    if (text.empty()) {
        return;
    }
    if (MayBeNumber(text)) {
        if (const std::optional<double> value = ReadNumber(text)) {
            Widen(range, kOfTexts, *value, *value);
        }
    }
    KeepText(range, text);
}

} // namespace

void ResetAppendedRange(PlotRecord& record) {
    static_cast<RecordRanges&>(record) = AppendedRange();
}

void TrackAppendedRange(Plot& plot, std::int32_t row) {
    if (plot.record.HasAppendedNumeric != 0) {
        TrackNumberIn(plot.record, plot.rows.number(row));
    }
    if (plot.record.HasAppendedText != 0) {
        TrackTextIn(plot.record, plot.rows.text(row));
    }
}

void TrackNumber(AppendedRange& range, float number) {
    TrackNumberIn(range, number);
}

void TrackText(AppendedRange& range, std::string_view text) {
    TrackTextIn(range, text);
}

void MergeAppendedRange(PlotRecord& record, const AppendedRange& later) {
    for (const std::size_t which : {kOfNumbers, kOfTexts}) {
        Widen(record, which, later.AppendedMin[which], later.AppendedMax[which]);
    }
    // The first distinct values of all rows are among the first distinct values of each part.
    for (const auto& held : later.DistinctValues) {
        if (!IsEmpty(held[kOfNumbers])) {
            KeepNumber(record, NumberOf(held[kOfNumbers]));
        }
        if (!IsEmpty(held[kOfTexts])) {
            KeepText(record, std::get<std::string>(held[kOfTexts]));
        }
    }
}

} // namespace quandrel
