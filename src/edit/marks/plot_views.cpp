// SPDX-License-Identifier: MIT

#include "edit/marks/plot_views.h"

#include "core/fingerprint.h"
#include "core/plot_store.h"
#include "edit/history/edit_step.h"

#include <bit>
#include <string>
#include <type_traits>

namespace quandrel {

namespace {

template <class Part>
void AddFields(const Part& part, Fingerprint& mix) {
    const auto add = [&mix](const char* /*name*/, const auto& field) {
        using Field = std::remove_cvref_t<decltype(field)>;
        if constexpr (std::is_same_v<Field, double>) {
            mix.Add(std::bit_cast<std::uint64_t>(field));
        } else if constexpr (std::is_integral_v<Field>) {
            mix.AddWhole(field);
        } else {
            mix.Add(std::string_view(field));
        }
    };
    VisitFieldsOf(part, add);
}

/// A part of the record, kept whole.
template <class Part, PlotPart part>
struct PartProperty {
    using Value = Part;
    static constexpr PlotPart kPart = part;

    [[nodiscard]] static Value Of(int slot) { return RecordOf(slot); }

    static void Give(int slot, const Value& value) { static_cast<Part&>(RecordOf(slot)) = value; }

    [[nodiscard]] static std::uint64_t FingerprintOf(int slot) {
        const Part& now = RecordOf(slot);
        Fingerprint mix;
        AddFields(now, mix);
        if constexpr (std::is_same_v<Part, RecordFigure>) {
            mix.AddWhole(static_cast<std::int32_t>(now.Layers.size()));
            for (const FigureLayer& layer : now.Layers) {
                AddFields(layer, mix);
            }
            for (const RoseName& name : now.RoseNames) {
                AddFields(name, mix);
            }
        }
        return mix.Value();
    }

    [[nodiscard]] static std::size_t BytesOf(const Value& value) {
        if constexpr (std::is_same_v<Part, RecordFigure>) {
            return sizeof(value) + value.StyleText.size()
                   + value.Layers.size() * sizeof(FigureLayer)
                   + value.RoseNames.size() * sizeof(RoseName);
        }
        return sizeof(value);
    }
};

using DensityProperty = PartProperty<RecordDensityView, PlotPart::Densities>;
using RegionProperty = PartProperty<RecordRegions, PlotPart::Regions>;
using FigureProperty = PartProperty<RecordFigure, PlotPart::Figure>;

template <class Property>
void Change(int slot, const typename Property::Value& value, EditKind kind, EditRun run) {
    if (gBusy || !IsOpenSlot(slot) || !IsValid(value) || Property::Of(slot) == value) {
        return;
    }
    const PlotInWork work(slot);
    EditStep step(kind, Before<PropertyChange<Property>>, run);
    Property::Give(slot, value);
    step.Finish(Redraw::Plot);
}

} // namespace

void ChangeDensities(int slot, const RecordDensityView& view, EditRun run) {
    Change<DensityProperty>(slot, view, kDensityEdit, run);
}

void ChangeRegions(int slot, const RecordRegions& regions, EditRun run) {
    Change<RegionProperty>(slot, regions, kRegionEdit, run);
}

void ChangeFigure(int slot, const RecordFigure& figure, EditRun run) {
    Change<FigureProperty>(slot, figure, kFigureEdit, run);
}

} // namespace quandrel
