// SPDX-License-Identifier: MIT
//
// Arbitrary bytes as a picture that may hold a plot. A plot file that comes out of one comes out of
// another one, too.

#include "pdf/pdf_file.h"
#include "persistence/binary_plot.h"
#include "persistence/picture_data.h"
#include "svg/svg_data.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quandrel;
    const std::string_view picture(reinterpret_cast<const char*>(data), size);
    const Result<std::string> plotFile = PlotFileOfPicture(picture, AttachmentOfPdf);
    if (plotFile) {
        (void)ReadBinaryPlot(*plotFile);
        const Result<std::string> text = TextOfPlotFile(*plotFile);
        Require(static_cast<bool>(text));
        const Result<std::string> again =
            PlotFileOfPicture("<svg>" + SvgOfData(*text) + "</svg>", nullptr);
        Require(plotFile->empty() || (again && *again == *plotFile));
    }
    if (KindOfPicture(picture) == PictureKind::Pdf && FactsOfPdf(picture)) {
        (void)WithPageSize(picture, {100, 100}, "subject");
    }
    return 0;
}
