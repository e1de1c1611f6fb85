// SPDX-License-Identifier: MIT
//
// A surface that is not shown: it measures the texts of a picture before its page is divided.

#pragma once

#include "qt/image_surface.h"
#include "qt/picture_file.h"
#include "svg/svg_surface.h"

#include <string>

namespace quandrel {

inline constexpr int kUnseenSide = 8; ///< logical pixels of a picture that is not shown

/// With the sizes of texts of the surfaces of a file.
class UnseenSurface {
public:
    /// @param path  of the file
    explicit UnseenSurface(const std::string& path)
        : image_({kUnseenSide, kUnseenSide}, 1, kWhite)
        , document_(kUnseenSide, kUnseenSide, 1)
        , inDocument_(document_, {0, 0, kUnseenSide, kUnseenSide})
        , isSvg_(IsSvgFile(path)) {}

    [[nodiscard]] Surface& Drawing() {
        return isSvg_ ? static_cast<Surface&>(inDocument_) : image_.Drawing();
    }

private:
    ImageSurface image_;
    SvgWriter document_;
    SvgSurface inDocument_;
    bool isSvg_;
};

} // namespace quandrel
