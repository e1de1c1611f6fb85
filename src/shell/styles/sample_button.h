// SPDX-License-Identifier: MIT
//
// Buttons that show a style as preferences would have it, before these hold.

#pragma once

#include "preferences/preferences.h"
#include "shell/styles/style_patch.h"

#include <functional>

namespace quandrel {

/// A patch in the colours of preferences that are being changed. A fill that is none shows its
/// colour as an outline.
class PreviewPatch : public StylePatch {
public:
    /// @param preferences  outlive the patch
    PreviewPatch(const Preferences& preferences, StyleKind kind, QSize room,
                 PatchScale scale = PatchScale::Plot);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintOutline();

    const Preferences& preferences_;
    StyleKind kind_;
};

/// A button with a drawing of its own.
class SampleButton : public QAbstractButton {
public:
    /// @param preferences  in force while it draws; outlive the button
    /// @param draw         draws on the whole of a white surface
    SampleButton(const Preferences& preferences, QSize room, std::function<void(Surface&)> draw);

    [[nodiscard]] QSize sizeHint() const override { return room_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Preferences& preferences_;
    QSize room_;
    std::function<void(Surface&)> draw_;
};

/// Draws a line across the middle of a surface of so many pixels: colour index, draw style, width.
void DrawLineAcross(Surface& surface, QSize room, const AxisStyle& style);

} // namespace quandrel
