// SPDX-License-Identifier: MIT

#include "qt/sheet_picture.h"

#include "core/settings_value.h"
#include "platform/platform.h"
#include "qt/unseen_surface.h"
#include "sheet/sheet_caption.h"
#include "sheet/sheet_content.h"
#include "sheet/sheet_text.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr double kPixelsInMillimetre = 96 / 25.4;
constexpr double kPixelsInInch = 96;

RoomRect InPixels(const FigureBox& box) {
    return {box.left * kPixelsInMillimetre, box.top * kPixelsInMillimetre,
            box.width * kPixelsInMillimetre, box.height * kPixelsInMillimetre};
}

SurfaceOfPart PartsOf(PicturePage& page) {
    return [&page](const FigureBox& part) -> Surface& { return page.In(InPixels(part)); };
}

} // namespace

Result<SheetLook> LookOfSheet(const FigureSheet& sheet) {
    const Result<std::shared_ptr<const FigureStyle>> style = StyleOfSheet(sheet);
    if (!style) {
        return Failure{style.Error()};
    }
    return SheetLook{gSettings.styles, *style, gSettings.notation.formulas};
}

std::string SaveSheetPicture(const std::string& path, const FigureSheet& sheet,
                             const SheetExport& how) {
    const Result<SheetLook> look = LookOfSheet(sheet);
    if (!look) {
        return look.Error();
    }
    const BusyPointer busy(*gPlatform.status);
    const Result<std::vector<PanelContent>> contents = ContentOf(sheet, gSettings);
    if (!contents) {
        return contents.Error();
    }
    UnseenSurface unseen(path);
    const Result<SheetLayout> layout = LayOutSheet(sheet, *contents, *look, unseen.Drawing());
    if (!layout) {
        return layout.Error();
    }
    PictureSize size{layout->width * kPixelsInMillimetre, layout->height * kPixelsInMillimetre,
                     how.dotsPerInch / kPixelsInInch};
    size.isTransparent = how.isTransparent;
    PictureFacts facts;
    facts.title = "Figure";
    facts.style = look->style->name;
    const auto draw = [&](PicturePage& page) {
        DrawSheet(sheet, *contents, *look, *layout, PartsOf(page));
    };
    if (!how.hasData) {
        return SavePicture(path, size, facts, draw);
    }
    const Result<FigureSheet> whole = WithItsPlots(sheet, *contents);
    return SavePictureWithFile(
        path, size, facts,
        whole ? Result<std::string>(TextOfSheet(*whole, "/")) : Failure{whole.Error()}, draw);
}

Result<QImage> SheetImage(const FigureSheet& sheet, const std::vector<PanelContent>& contents,
                          QSize room) {
    const Result<SheetLook> look = LookOfSheet(sheet);
    if (!look) {
        return Failure{look.Error()};
    }
    ImageSurface unseen({kUnseenSide, kUnseenSide}, 1, kWhite);
    const Result<SheetLayout> layout = LayOutSheet(sheet, contents, *look, unseen.Drawing());
    if (!layout) {
        return Failure{layout.Error()};
    }
    const RoomRect whole = InPixels({0, 0, layout->width, layout->height});
    const double scale = std::min(room.width() / whole.width, room.height() / whole.height);
    const auto pixels = [scale](double length) {
        return std::max(static_cast<int>(std::lround(length * scale)), 1);
    };
    QImage image(pixels(whole.width), pixels(whole.height), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    PainterPage page(painter, scale, Medium::Raster);
    DrawSheet(sheet, contents, *look, *layout, PartsOf(page));
    painter.end();
    return image;
}

Result<std::string> CaptionOfSheet(const FigureSheet& sheet,
                                   const std::vector<PanelContent>& contents) {
    const Result<SheetLook> look = LookOfSheet(sheet);
    if (!look) {
        return Failure{look.Error()};
    }
    ImageSurface unseen({kUnseenSide, kUnseenSide}, 1, kWhite);
    return CaptionOf(sheet, contents, *look, unseen.Drawing());
}

} // namespace quandrel
