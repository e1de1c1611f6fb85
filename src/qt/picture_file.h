// SPDX-License-Identifier: MIT
//
// Drawings in files: PNG, SVG, PDF, TIFF.

#pragma once

#include "core/result.h"
#include "qt/picture_page.h"

#include <QByteArray>

#include <functional>
#include <optional>
#include <string>

namespace quandrel {

inline constexpr double kPointsInAPixel = 0.75; ///< a logical pixel, 96 per inch

/// A PNG with more bytes of pixels is drawn and written in bands of this size.
inline constexpr std::size_t kBytesInBand = std::size_t{64} << 20;

/// The kinds of picture as a filter of a path question.
inline constexpr const char* kPictureFilter =
    "PNG picture (*.png)|*.png|SVG drawing (*.svg)|*.svg|PDF page (*.pdf)|*.pdf|"
    "TIFF picture (*.tif)|*.tif";

enum class PictureType { Png, Svg, Pdf, Tiff };

/// The type that the ending of a path means, in any case: .png, .svg, .pdf, .tif, .tiff. Nothing
/// for another ending.
[[nodiscard]] std::optional<PictureType> PictureTypeOf(const std::string& path);

/// What files of a type can have. All of them can be transparent.
struct PictureAbilities {
    bool hasPixels = false;   ///< of a number per inch, which the file gives
    bool namesOrigin = false; ///< the program, its version and the style
    bool holdsPlot = false;   ///< the plot itself; a PNG one of kLongestPngText at most
};

[[nodiscard]] PictureAbilities AbilitiesOf(PictureType type);

/// Whether the plug-in for TIFF files is installed. Needs a QGuiApplication.
[[nodiscard]] bool CanWriteTiff();

/// The size of a picture.
struct PictureSize {
    double width = 600; ///< logical pixels, 96 per inch
    double height = 600;
    double scale = 1; ///< pixels of a PNG or TIFF per logical pixel; vector files have no pixels
    /// Bands are invisible in a picture whose pens are all at least a pixel wide.
    std::size_t bandBytes = kBytesInBand;
    bool isTransparent = false; ///< without a white ground; a PDF never has one
};

/// What a picture file says besides its drawing.
struct PictureFacts {
    std::string title;    ///< of an SVG or a PDF
    std::string style;    ///< the name of the style; empty for none
    std::string plotFile; ///< the plot or the figure sheet that a PDF shows; empty for none
    std::string plotText; ///< the same of an SVG or a PNG, by TextOfPlotFile
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

/// Draws into a file whose ending gives its type, see PictureTypeOf. A page of a PDF is as large as
/// the picture, to a thousandth of a point. The file is written completely or not at all; an
/// existing file stays until the new one is complete. The same drawing gives the same bytes.
///
/// A PNG of several bands shows its progress and can be stopped; its memory does not grow with its
/// height. A TIFF is drawn as a whole, of 300 million pixels at most.
///
/// @return empty, kPictureStopped when the user stopped it, or a message for the user with the
///         reason for the failure
///
/// Needs a QGuiApplication.
[[nodiscard]] std::string SavePicture(const std::string& path, const PictureSize& size,
                                      const PictureFacts& facts, const DrawPictureOn& draw);

/// The same for a picture that holds a file, a plot file or a figure sheet; a TIFF cannot. Where
/// the file has no room in the picture, the picture is saved without it and the user is told why.
///
/// @param held  the bytes of the file, or why there are none
[[nodiscard]] std::string SavePictureWithFile(const std::string& path, const PictureSize& size,
                                              PictureFacts facts, const Result<std::string>& held,
                                              const DrawPictureOn& draw);

/// The same for a picture with a title alone.
[[nodiscard]] std::string SavePicture(const std::string& path, const PictureSize& size,
                                      const std::string& title, const DrawPictureOn& draw);

} // namespace quandrel
