// SPDX-License-Identifier: MIT
//
// PNG files written line by line.

#pragma once

#include "core/atomic_file.h"

#include <QRgb>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quandrel {

/// A text in the file. The keyword has 1 to 79 letters, digits and inner blanks.
struct PngText {
    std::string keyword;
    std::string text; ///< UTF-8 without zero bytes; plain letters when compressed
    bool isCompressed = false;
};

struct PngHead {
    int width = 0;
    int height = 0;
    int dotsPerMetre = 0; ///< resolution in both directions
    bool hasAlpha = false;
    std::vector<PngText> texts;
};

/// Writes a PNG of 8 bits per channel. The order of calls is Begin, a WriteLine for
/// each line from the top, End. Each returns false after an error.
class PngWriter {
public:
    explicit PngWriter(PutBytes put);
    ~PngWriter();
    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;

    [[nodiscard]] bool Begin(const PngHead& head);

    /// @param pixels  one per pixel of the width: 0xffRRGGBB, or with alpha the premultiplied
    ///                0xAARRGGBB
    [[nodiscard]] bool WriteLine(const QRgb* pixels);

    [[nodiscard]] bool End();

private:
    struct State;
    std::unique_ptr<State> state_;
    std::vector<std::uint8_t> line_; ///< red, green, blue, and alpha if there is one
    bool hasAlpha_ = false;
};

} // namespace quandrel
