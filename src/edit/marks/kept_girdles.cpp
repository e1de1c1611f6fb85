// SPDX-License-Identifier: MIT

#include "edit/marks/kept_girdles.h"

#include "core/fingerprint.h"
#include "core/plot_store.h"
#include "edit/marks/girdles.h"

namespace quandrel {

GirdlesProperty::Value GirdlesProperty::Of(int slot) {
    const PlotRecord& record = RecordOf(slot);
    Value girdles;
    for (int row = kFirstUserGirdle; row <= kLastUserGirdle; ++row) {
        girdles.push_back(record.AxisItems[static_cast<std::size_t>(row)]);
    }
    return girdles;
}

void GirdlesProperty::Give(int slot, const Value& girdles) {
    auto row = static_cast<std::size_t>(kFirstUserGirdle);
    for (const auto& girdle : girdles) {
        RecordOf(slot).AxisItems[row++] = girdle;
    }
}

std::uint64_t GirdlesProperty::FingerprintOf(int slot) {
    Fingerprint mix;
    for (const auto& girdle : Of(slot)) {
        for (const TaggedValue& value : girdle) {
            mix.Add(TextOf(value));
        }
    }
    return mix.Value();
}

std::size_t GirdlesProperty::BytesOf(const Value& girdles) {
    return sizeof(Value) + girdles.size() * sizeof(girdles.front());
}

} // namespace quandrel
