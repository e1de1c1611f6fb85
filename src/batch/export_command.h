// SPDX-License-Identifier: MIT
//
// The words of the command `export` after its path.
//
//     export net.png size=1200 part=net
//     export figure.svg style=journal width=84mm legend=below
//     export figure.png net=60mm style=thesis.json dpi=600
//     export talk.png width=slide style=screen
//     export figure.pdf width=120mm legend=none background=transparent data=yes

#pragma once

#include "batch/script.h"
#include "core/result.h"

#include <string_view>
#include <vector>

namespace quandrel {

struct PictureOptions; // qt/plot_picture.h: its macros would reach the readers of this header

[[nodiscard]] std::vector<std::string_view> ExportKeys();

/// The picture that a command wants. Any key but size, part and data makes it a figure: 84 mm wide
/// without width and net, as wide as it needs with net alone; its legend is where UsualPlace says.
[[nodiscard]] Result<PictureOptions> OptionsOfExport(const Command& command);

} // namespace quandrel
