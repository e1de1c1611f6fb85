// SPDX-License-Identifier: MIT
//
// Drawings in files: PNG, SVG, PDF.

#pragma once

#include "qt/picture_page.h"

#include <QByteArray>

#include <functional>
#include <string>

namespace quandrel {

inline constexpr double kPointsInAPixel = 0.75; ///< a logical pixel, 96 per inch

/// A PNG with more bytes of pixels is drawn and written in bands of this size.
inline constexpr std::size_t kBytesInBand = std::size_t{64} << 20;

/// The kinds of picture as a filter of a path question.
inline constexpr const char* kPictureFilter =
    "PNG picture (*.png)|*.png|SVG drawing (*.svg)|*.svg|PDF page (*.pdf)|*.pdf";

/// The size of a picture.
struct PictureSize {
    double width = 600; ///< logical pixels, 96 per inch
    double height = 600;
    double scale = 1; ///< pixels of a PNG per logical pixel; vector files have no pixels
    /// Bands are invisible in a picture whose pens are all at least a pixel wide.
    std::size_t bandBytes = kBytesInBand;
    bool isTransparent = false; ///< without a white ground; a PNG always has one, and is refused
};

/// Draws a picture on its page; that of a large PNG several times, each time clipped to a band.
using DrawPictureOn = std::function<void(PicturePage& page)>;

/// Whether SavePicture writes SVG into a file of this name: texts then have the sizes of
/// svg/text_metrics.h, in the other files those of the fonts of the machine.
[[nodiscard]] bool IsSvgFile(const std::string& path);

/// What SavePicture returns when the user has stopped it.
inline constexpr const char* kPictureStopped = "The picture was stopped and has not been written";

/// Replaces the creation time in a PDF by blanks, so that the same drawing gives the same bytes.
/// Blanks keep all offsets, which the file lists.
void ForgetTime(QByteArray& pdf);

/// Draws into a file whose ending, in any case, gives its type: .png, .svg, .pdf. A page of a PDF
/// is as large as the picture. The file is written completely or not at all; an existing file stays
/// until the new one is complete. The same drawing gives the same bytes.
///
/// A PNG of several bands shows its progress and can be stopped; its memory does not grow with its
/// height.
///
/// @param title  the title in the file; a PNG has none
/// @return empty, kPictureStopped when the user stopped it, or a message for the user with the
///         reason for the failure
///
/// Needs a QGuiApplication.
[[nodiscard]] std::string SavePicture(const std::string& path, const PictureSize& size,
                                      const std::string& title, const DrawPictureOn& draw);

} // namespace quandrel
