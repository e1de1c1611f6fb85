// SPDX-License-Identifier: MIT

#include "shell/controls/faint_text.h"

#include "stereo/colour_names.h"

#include <QApplication>
#include <QPalette>

namespace quandrel {

namespace {

constexpr double kLegible = 4.5;

Colour ColourOf(const QColor& colour) {
    return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
            static_cast<std::uint8_t>(colour.blue())};
}

QColor Mixed(const QColor& ink, const QColor& paper, int percent) {
    const auto mix = [percent](int a, int b) { return (percent * a + (100 - percent) * b) / 100; };
    return {mix(ink.red(), paper.red()), mix(ink.green(), paper.green()),
            mix(ink.blue(), paper.blue())};
}

} // namespace

QColor MutedText(const QPalette& palette) {
    // A mixture: not all desktops set the palette's own muted colours for dark themes.
    constexpr int kFaintest = 60;
    constexpr int kStep = 5;
    const QColor text = palette.color(QPalette::Text);
    const QColor base = palette.color(QPalette::Base);
    for (int percent = kFaintest; percent < 100; percent += kStep) {
        const QColor faint = Mixed(text, base, percent);
        if (ContrastOf(ColourOf(faint), ColourOf(base)) >= kLegible
            && ContrastOf(ColourOf(faint), ColourOf(palette.color(QPalette::Window))) >= kLegible) {
            return faint;
        }
    }
    return text;
}

void UseReadablePlaceholders() {
    QPalette palette = QApplication::palette();
    const QColor faint = MutedText(palette);
    // Setting a palette sends each window another theme change.
    if (palette.color(QPalette::PlaceholderText) != faint) {
        palette.setColor(QPalette::PlaceholderText, faint);
        QApplication::setPalette(palette);
    }
}

} // namespace quandrel
