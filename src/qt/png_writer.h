// SPDX-License-Identifier: MIT
//
// PNG files written line by line.

#pragma once

#include "core/atomic_file.h"

#include <QRgb>

#include <cstdint>
#include <memory>
#include <vector>

namespace quandrel {

/// Puts out a PNG of opaque colours, 8 bits a channel. Calls follow each other: Begin, a WriteLine
/// for each line from the top, End. Each gives false once something has failed.
class PngWriter {
public:
    explicit PngWriter(PutBytes put);
    ~PngWriter();
    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;

    /// @param dotsPerMetre  resolution, both ways
    [[nodiscard]] bool Begin(int width, int height, int dotsPerMetre);

    /// @param pixels  as many as the picture is wide, 0xffRRGGBB
    [[nodiscard]] bool WriteLine(const QRgb* pixels);

    [[nodiscard]] bool End();

private:
    struct State;
    std::unique_ptr<State> state_;
    std::vector<std::uint8_t> line_; ///< red, green, blue
};

} // namespace quandrel
