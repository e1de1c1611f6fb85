// SPDX-License-Identifier: MIT
//
// Buttons that show edited styles before these are applied.

#pragma once

#include "shell/styles/style_patch.h"

#include <functional>

namespace quandrel {

/// A patch in the colours of the edited styles. An empty fill is shown as an outline in its colour.
class PreviewPatch : public StylePatch {
public:
    /// @param styles  outlive the patch
    PreviewPatch(const Styles& styles, StyleKind kind, QSize room,
                 PatchScale scale = PatchScale::Plot);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintOutline();

    const Styles& styles_;
    StyleKind kind_;
};

/// A button with a custom drawing.
class SampleButton : public QAbstractButton {
public:
    using Draw = std::function<void(Surface& surface, const Styles& styles)>;

    /// @param styles  the styles of the drawing; outlive the button
    /// @param draw    draws on a white surface, over its full size
    SampleButton(const Styles& styles, QSize room, Draw draw);

    [[nodiscard]] QSize sizeHint() const override { return room_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Styles& styles_;
    QSize room_;
    Draw draw_;
};

/// Draws a line across the middle of a surface of the given size in pixels: colour index, draw
/// style, width.
void DrawLineAcross(Surface& surface, const Styles& styles, QSize room, const AxisStyle& style);

} // namespace quandrel
