// SPDX-License-Identifier: MIT
//
// Drawings in files: PNG, SVG, PDF.

#pragma once

#include "qt/painter_surface.h"

#include <QByteArray>
#include <QPainter>
#include <QSizeF>

#include <functional>
#include <string>

namespace quandrel {

/// A larger PNG is drawn and written in bands of so many bytes of pixels.
inline constexpr std::size_t kBytesInBand = std::size_t{64} << 20;

/// The size of a picture.
struct PictureSize {
    double width = 600; ///< logical pixels, 96 to the inch
    double height = 600;
    double scale = 1; ///< pixels of a PNG in a logical pixel; vector files have no pixels
    /// Bands cannot be seen in a picture whose pens are all a pixel wide or wider.
    std::size_t bandBytes = kBytesInBand;
};

/// Draws a picture; a large one several times, each time clipped to a band. What is drawn lies
/// between (0, 0) and the logical size times `factor`.
///
/// @param painter  a white page of the size
/// @param factor   painter units in a logical pixel
using DrawPictureOn = std::function<void(QPainter& painter, double factor, Medium medium)>;

/// What SavePicture gives when the user has stopped it.
inline constexpr const char* kPictureStopped = "The picture was stopped and is not written";

/// Blanks out the time at which a PDF was made, so that the same drawing gives the same bytes.
/// Blanks keep the places of all else, which the file lists.
void ForgetTime(QByteArray& pdf);

/// Draws into a file whose ending, in any case, says what it is: .png, .svg, .pdf. A page of a PDF
/// is as large as the picture. The file is written whole or not at all; what stood there stays
/// until the new one is complete. The same drawing gives the same bytes.
///
/// A PNG of several bands shows its progress and can be stopped; its memory does not grow with its
/// height.
///
/// @param title  what the file calls itself; a PNG has no title
/// @return empty, kPictureStopped when the user stopped it, or a text for the user that says why
///     there is no picture
///
/// Needs a QGuiApplication.
[[nodiscard]] std::string SavePicture(const std::string& path, const PictureSize& size,
                                      const std::string& title, const DrawPictureOn& draw);

} // namespace quandrel
