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

/// Writes a PNG of opaque colours, 8 bits per channel. The order of calls is Begin, a WriteLine for
/// each line from the top, End. Each returns false after an error.
class PngWriter {
public:
    explicit PngWriter(PutBytes put);
    ~PngWriter();
    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;

    /// @param dotsPerMetre  resolution in both directions
    [[nodiscard]] bool Begin(int width, int height, int dotsPerMetre);

    /// @param pixels  one per pixel of the width, 0xffRRGGBB
    [[nodiscard]] bool WriteLine(const QRgb* pixels);

    [[nodiscard]] bool End();

private:
    struct State;
    std::unique_ptr<State> state_;
    std::vector<std::uint8_t> line_; ///< red, green, blue
};

} // namespace quandrel
