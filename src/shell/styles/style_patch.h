// SPDX-License-Identifier: MIT
//
// A patch that shows a style as it is drawn, and can be selected by mouse or key.

#pragma once

#include "core/style_tables.h"
#include "platform/surface.h"

#include <QAbstractButton>

class QImage;

namespace quandrel {

/// The meaning of a style's second value.
enum class StyleKind {
    Symbol, ///< a symbol code; the third value is its size
    Fill,   ///< a fill style
};

/// The size of a symbol in a patch.
enum class PatchScale {
    Plot, ///< as in a plot; smaller if it does not fit
    Fit,  ///< all at the same size
};

class StylePatch : public QAbstractButton {
    Q_OBJECT

public:
    /// @param styles  the source of its colours; outlive the patch
    explicit StylePatch(StyleKind kind, QSize room, PatchScale scale = PatchScale::Plot,
                        const Styles& styles = gSettings.styles);

    void SetStyle(const SymbolRow& style);

    [[nodiscard]] const SymbolRow& Style() const { return style_; }

    [[nodiscard]] QSize sizeHint() const override { return room_; }

Q_SIGNALS:
    /// @param button  left or right for the mouse, no button for a key
    void Picked(Qt::MouseButton button);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void DrawFill(Surface& surface) const;
    void DrawSample(Surface& surface) const;
    void DrawFrame(Surface& surface) const;
    [[nodiscard]] double UnitsPerPixel() const;

    StyleKind kind_;
    QSize room_;
    PatchScale scale_;
    const Styles& styles_;
    SymbolRow style_{};
    bool byMouse_ = false;
};

} // namespace quandrel
