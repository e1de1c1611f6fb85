// SPDX-License-Identifier: MIT
//
// A figure sheet as a picture: its file, and its preview.

#pragma once

#include "core/result.h"
#include "sheet/sheet_drawing.h"

#include <QImage>
#include <QSize>

#include <string>
#include <vector>

namespace quandrel {

/// How a sheet is drawn into a file.
struct SheetExport {
    int dotsPerInch = 300; ///< of a PNG or TIFF, which say so
    bool isTransparent = false;
    bool hasData = false; ///< the file holds the sheet with its plots; not a TIFF
};

/// The look of a sheet with the settings of the program.
///
/// @return a failure where its style cannot be read
[[nodiscard]] Result<SheetLook> LookOfSheet(const FigureSheet& sheet);

/// Draws a sheet into a file whose ending gives its type (PictureTypeOf). The files name the
/// program, its version and the style.
///
/// @return as SavePicture; for a sheet that cannot be drawn, why
[[nodiscard]] std::string SaveSheetPicture(const std::string& path, const FigureSheet& sheet,
                                           const SheetExport& how);

/// A sheet as an image on white, for a preview.
///
/// @param contents  of its panels
/// @param room      pixels that the page is to fill, in width or in height; at least 1 each way
/// @return a failure as LayOutSheet
[[nodiscard]] Result<QImage> SheetImage(const FigureSheet& sheet,
                                        const std::vector<PanelContent>& contents, QSize room);

/// The caption of a sheet; a failure as CaptionOf.
[[nodiscard]] Result<std::string> CaptionOfSheet(const FigureSheet& sheet,
                                                 const std::vector<PanelContent>& contents);

} // namespace quandrel
