// SPDX-License-Identifier: MIT

#include "persistence/picture_data.h"

#include "persistence/packed_text.h"
#include "persistence/png_text.h"
#include "svg/svg_data.h"

#include <algorithm>
#include <new>
#include <utility>

namespace quandrel {

namespace {

constexpr const char* kNoPlot =
    "The picture holds no plot: only pictures that were exported with their data can be opened.";
constexpr const char* kDamaged = "The plot in the picture is damaged.";
constexpr const char* kTooLarge = "The plot is too large for a picture.";
constexpr const char* kNoMemory = "There is not enough memory for the plot in the picture.";
constexpr std::size_t kSearched = 4096; ///< of a text, for the element of an SVG
constexpr std::size_t kPdfSearched = 1024;

Result<std::string> PlotOfText(const std::optional<std::string>& text) {
    return text ? PlotFileOfText(*text) : Failure{kNoPlot};
}

Result<std::string> PlotOfPdf(std::string_view picture, AttachmentReader readPdf) {
    if (readPdf == nullptr) {
        return Failure{"This program does not read PDF files."};
    }
    Result<std::string> plot = readPdf(picture, kPlotOfPdf, kLargestPlotInPicture);
    if (plot && plot->empty()) {
        plot = readPdf(picture, kSheetOfPdf, kLargestPlotInPicture);
    }
    return plot && plot->empty() ? Failure{kNoPlot} : std::move(plot);
}

} // namespace

std::optional<PictureKind> KindOfPicture(std::string_view start) {
    if (start.starts_with(kPngSignature)) {
        return PictureKind::Png;
    }
    if (start.starts_with(std::string_view("II*\0", 4))
        || start.starts_with(std::string_view("MM\0*", 4))) {
        return PictureKind::Tiff;
    }
    if (start.substr(0, kPdfSearched).find("%PDF-") != std::string_view::npos) {
        return PictureKind::Pdf;
    }
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    std::string_view text = start.substr(0, kSearched);
    text.remove_prefix(text.starts_with(kMark) ? kMark.size() : 0);
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    const bool isXml = text.starts_with('<');
    return isXml && text.find("<svg") != std::string_view::npos ? std::optional(PictureKind::Svg)
                                                                : std::nullopt;
}

bool IsSheetText(std::string_view start) {
    constexpr std::string_view kMember = "\"quandrelFigure\"";
    const std::size_t first = start.find_first_not_of(" \t\r\n");
    return first != std::string_view::npos && start[first] == '{'
           && start.substr(0, kSearched).find(kMember) != std::string_view::npos;
}

Result<std::string> PlotFileOfPicture(std::string_view picture, AttachmentReader readPdf) {
    try {
        const std::optional<PictureKind> kind = KindOfPicture(picture);
        if (kind == PictureKind::Svg) {
            return PlotOfText(DataOfSvg(picture));
        }
        if (kind == PictureKind::Png) {
            return PlotOfText(TextOfPng(picture, kPlotOfPng, kLongestPngText));
        }
        return kind == PictureKind::Pdf ? PlotOfPdf(picture, readPdf) : Failure{kNoPlot};
    } catch (const std::bad_alloc&) {
        return Failure{kNoMemory};
    }
}

Result<std::string> TextOfPlotFile(std::string_view plotFile) {
    if (plotFile.size() > kLargestPlotInPicture) {
        return Failure{kTooLarge};
    }
    try {
        const std::optional<std::string> packed = Packed(plotFile);
        return packed ? Result<std::string>(Base64Of(*packed)) : Failure{kNoMemory};
    } catch (const std::bad_alloc&) {
        return Failure{kNoMemory};
    }
}

Result<std::string> PlotFileOfText(std::string_view text) {
    try {
        const std::optional<std::string> packed = BytesOfBase64(text);
        std::optional<std::string> plot =
            packed ? Unpacked(*packed, kLargestPlotInPicture) : std::nullopt;
        return plot ? Result<std::string>(std::move(*plot)) : Failure{kDamaged};
    } catch (const std::bad_alloc&) {
        return Failure{kNoMemory};
    }
}

} // namespace quandrel
