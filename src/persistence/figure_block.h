// SPDX-License-Identifier: MIT
//
// The style and the layers of a plot as a block of the extension: the two texts of the style, the
// number of layers (16 bits), and for each layer the number of its bytes (16 bits) and its fields
// as in field_block.h. A plot in the Classic style with the layers of its mode has no block.

#pragma once

#include "core/plot_record.h"
#include "persistence/binary_stream.h"
#include "persistence/plot_extension.h"

#include <optional>
#include <string_view>

namespace quandrel {

inline constexpr BlockHead kFigureBlock{{'F', 'I', 'G', 'R'}, true};

void WriteFigure(const RecordFigure& figure, BinaryWriter& writer);

/// Nothing when it is damaged or a value is beyond its limits.
[[nodiscard]] std::optional<RecordFigure> FigureOfBlock(std::string_view bytes);

} // namespace quandrel
