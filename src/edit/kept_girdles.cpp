// SPDX-License-Identifier: MIT

#include "edit/kept_girdles.h"

#include "core/plot_store.h"
#include "edit/fingerprint.h"
#include "edit/girdles.h"
#include "edit/kept_rows.h"

namespace quandrel {

KeptGirdles KeepGirdles(int slot) {
    const PlotRecord& record = RecordOf(slot);
    KeptGirdles kept;
    for (int row = 0; row < kAxisItems; ++row) {
        if (IsUserGirdle(row)) {
            kept.girdles.push_back(record.AxisItems[static_cast<std::size_t>(row)]);
        }
    }
    kept.modified = record.Modified;
    return kept;
}

void PutGirdlesBack(int slot, const KeptGirdles& kept) {
    PlotRecord& record = RecordOf(slot);
    auto girdle = kept.girdles.begin();
    for (int row = 0; row < kAxisItems; ++row) {
        if (IsUserGirdle(row) && girdle != kept.girdles.end()) {
            record.AxisItems[static_cast<std::size_t>(row)] = *girdle++;
        }
    }
    record.Modified = ModifiedWithout(record.Modified, kept.modified);
}

std::uint64_t FingerprintOfGirdles(int slot) {
    Fingerprint mix;
    for (const auto& girdle : KeepGirdles(slot).girdles) {
        for (const TaggedValue& value : girdle) {
            mix.Add(TextOf(value));
        }
    }
    return mix.Value();
}

} // namespace quandrel
