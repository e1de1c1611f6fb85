// SPDX-License-Identifier: MIT
//
// A patch that shows a line as it is drawn, and can be selected by mouse or key.

#pragma once

#include "edit/marks/small_circles.h"

#include <QAbstractButton>

namespace quandrel {

class LinePatch : public QAbstractButton {
public:
    explicit LinePatch(QSize room);

    void SetStyle(const CircleStyle& style);

    [[nodiscard]] const CircleStyle& Style() const { return style_; }

    [[nodiscard]] QSize sizeHint() const override { return room_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSize room_;
    CircleStyle style_;
};

} // namespace quandrel
