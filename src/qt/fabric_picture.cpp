// SPDX-License-Identifier: MIT

#include "qt/fabric_picture.h"

#include "platform/platform.h"
#include "qt/image_surface.h"
#include "qt/picture_file.h"

#include <QSizeF>

namespace quandrel {

namespace {

constexpr double kPixelsInPoint = 96.0 / 72;

/// The size on paper in logical pixels.
QSizeF PixelSizeOf(FabricDiagram diagram, std::span<const FabricPoint> points) {
    const FabricPictureSize size = PaperSizeOf(diagram, points);
    return QSizeF(size.width, size.height) * kPixelsInPoint;
}

} // namespace

std::string SaveFabricPicture(const std::string& path, FabricDiagram diagram,
                              std::span<const FabricPoint> points, int height) {
    const QSizeF size = PixelSizeOf(diagram, points);
    const PictureSize picture{size.width(), size.height(), height / size.height(), kBytesInBand};
    const BusyPointer busy(*gPlatform.status);
    return SavePicture(path, picture, "Fabric plot", [&](PicturePage& page) {
        DrawFabric(page.In({0, 0, size.width(), size.height()}), diagram, points);
    });
}

QImage FabricImage(FabricDiagram diagram, std::span<const FabricPoint> points, double density) {
    ImageSurface image(PixelsOf(PixelSizeOf(diagram, points).toSize(), density), density, kWhite);
    DrawFabric(image.Drawing(), diagram, points);
    return image.Image().copy();
}

} // namespace quandrel
