// SPDX-License-Identifier: MIT
//
// Buttons that show styles that are being changed, before these hold.

#pragma once

#include "shell/styles/style_patch.h"

#include <functional>

namespace quandrel {

/// A patch in the colours of styles that are being changed. A fill that is none shows its colour as
/// an outline.
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

/// A button with a drawing of its own.
class SampleButton : public QAbstractButton {
public:
    using Draw = std::function<void(Surface& surface, const Styles& styles)>;

    /// @param styles  that it draws with; outlive the button
    /// @param draw    draws on the whole of a white surface
    SampleButton(const Styles& styles, QSize room, Draw draw);

    [[nodiscard]] QSize sizeHint() const override { return room_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Styles& styles_;
    QSize room_;
    Draw draw_;
};

/// Draws a line across the middle of a surface of so many pixels: colour index, draw style, width.
void DrawLineAcross(Surface& surface, const Styles& styles, QSize room, const AxisStyle& style);

} // namespace quandrel
