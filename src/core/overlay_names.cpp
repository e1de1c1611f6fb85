// SPDX-License-Identifier: MIT

#include "core/overlay_names.h"

#include "core/path_names.h"

#include <cstddef>

namespace quandrel {

std::string NameOfOverlay(const PlotRecord& record, int overlay) {
    const auto place = static_cast<std::size_t>(overlay);
    std::string name;
    for (const std::string& path : record.OverlayFiles[place]) {
        name += (name.empty() ? "" : " + ") + FileTitleOf(path);
    }
    if (name.empty() && overlay == record.SelectedOverlay) {
        return record.OverlayKind[place] <= kOverlayPoles ? "Secondary planes" : "Secondary lines";
    }
    return name.empty() ? "Overlay " + std::to_string(overlay) : name;
}

} // namespace quandrel
