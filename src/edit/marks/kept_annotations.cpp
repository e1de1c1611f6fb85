// SPDX-License-Identifier: MIT

#include "edit/marks/kept_annotations.h"

#include "core/fingerprint.h"
#include "core/plot_store.h"

#include <memory>

namespace quandrel {

KeptAnnotations AnnotationsProperty::Of(int slot) {
    const PlotRecord& record = RecordOf(slot);
    return {record.PlotAnnotations ? *record.PlotAnnotations : Annotations{},
            record.ShowAnnotations};
}

void AnnotationsProperty::Give(int slot, const KeptAnnotations& kept) {
    PlotRecord& record = RecordOf(slot);
    if (record.PlotAnnotations || !kept.annotations.empty()) {
        record.PlotAnnotations = std::make_unique<Annotations>(kept.annotations);
    }
    record.ShowAnnotations = kept.shown;
}

std::uint64_t AnnotationsProperty::FingerprintOf(int slot) {
    Fingerprint mix;
    for (const Annotation& annotation : Of(slot).annotations) {
        for (const std::int16_t value :
             {annotation.X, annotation.Y, annotation.SymbolType, annotation.Colour, annotation.Size,
              annotation.lineStyle}) {
            mix.AddWhole(value);
        }
        mix.Add(annotation.Tag);
        mix.Add(std::uint64_t{annotation.LineNodes.size()});
        for (const LineNode& node : annotation.LineNodes) {
            mix.AddWhole(node.X);
            mix.AddWhole(node.Y);
        }
    }
    return mix.Value();
}

std::size_t AnnotationsProperty::BytesOf(const KeptAnnotations& kept) {
    std::size_t bytes = sizeof(KeptAnnotations);
    for (const Annotation& annotation : kept.annotations) {
        bytes += sizeof(Annotation) + annotation.Tag.capacity()
                 + annotation.LineNodes.capacity() * sizeof(LineNode);
    }
    return bytes;
}

} // namespace quandrel
