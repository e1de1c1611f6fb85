// SPDX-License-Identifier: MIT
//
// What a plot file leaves out and a picture shows, as a block of an extension: the names of the
// data, since a plot that is opened has that of its file, and the choice of a confidence cone. The
// plot in a picture has this block, so that it is drawn again as it was.

#pragma once

#include "core/plot_record.h"
#include "persistence/binary_stream.h"
#include "persistence/plot_extension.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

inline constexpr BlockHead kPictureBlock{{'P', 'I', 'C', 'T'}, true};

struct PictureView {
    std::string title;             ///< of the rows; never empty
    std::vector<std::string> main; ///< names of the files of the main rows; empty for typed rows
    std::array<std::vector<std::string>, kMaxOverlays + 1> overlays; ///< [k] the same of overlay k
    bool showsCone = false;

    friend bool operator==(const PictureView&, const PictureView&) = default;
};

/// That of a plot. Names are without paths; the title is that of the plot where its data have none.
[[nodiscard]] PictureView PictureViewOf(const PlotRecord& record);

/// Appends the contents of a block.
void WritePictureView(const PictureView& view, BinaryWriter& writer);

/// Inverse of WritePictureView; nothing for a block that is damaged.
[[nodiscard]] std::optional<PictureView> PictureViewOfBlock(std::string_view bytes);

} // namespace quandrel
