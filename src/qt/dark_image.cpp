// SPDX-License-Identifier: MIT

#include "qt/dark_image.h"

#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <array>

namespace quandrel {

namespace {

constexpr int kFull = 255;

/// The luma of a colour, 0 to 255, in whole numbers: the weights are of 2^16.
constexpr int LumaOf(QRgb colour) {
    constexpr int kRed = 13933;
    constexpr int kGreen = 46871;
    constexpr int kBlue = 4732;
    constexpr int kHalf = 1 << 15;
    return (kRed * qRed(colour) + kGreen * qGreen(colour) + kBlue * qBlue(colour) + kHalf) >> 16;
}

/// What each part becomes after its shift, which is -255 to 255.
constexpr auto kParts = [] {
    std::array<std::uint8_t, 3 * kFull + 1> parts{};
    for (int i = 0; i <= 3 * kFull; ++i) {
        const int part = std::clamp(i - kFull, 0, kFull);
        parts[static_cast<std::size_t>(i)] =
            static_cast<std::uint8_t>(kDarkGround + part * (kLightInk - kDarkGround) / kFull);
    }
    return parts;
}();

QRgb Mirrored(QRgb colour) {
    const int shift = 2 * (kFull - LumaOf(colour)); // and kFull less, as kParts begins there
    const auto part = [shift](int value) {
        return kParts[static_cast<std::size_t>(value + shift)];
    };
    return qRgba(part(qRed(colour)), part(qGreen(colour)), part(qBlue(colour)), qAlpha(colour));
}

} // namespace

bool IsDarkTheme() {
    constexpr int kDarkBelow = 128; // lightness of a dark palette's base
    return QGuiApplication::palette().color(QPalette::Base).lightness() < kDarkBelow;
}

QColor InDarkColours(const QColor& colour) {
    return QColor::fromRgba(Mirrored(colour.rgba()));
}

QImage InDarkColours(const QImage& image) {
    const bool isOpaque = !image.hasAlphaChannel();
    QImage dark = image.convertToFormat(isOpaque ? QImage::Format_RGB32 : QImage::Format_ARGB32);
    for (int y = 0; y < dark.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(dark.scanLine(y));
        std::transform(line, line + dark.width(), line, Mirrored);
    }
    return dark;
}

} // namespace quandrel
