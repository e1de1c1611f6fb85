// SPDX-License-Identifier: MIT
//
// Clips in SVG files. A QSvgGenerator ignores the clips of its painter. So marks are drawn where a
// clip starts and ends, which nobody sees, and replaced in the finished file.

#pragma once

#include <QByteArray>
#include <QPainter>
#include <QPainterPath>

namespace quandrel {

/// Whether a painter writes SVG.
[[nodiscard]] bool IsSvg(const QPainter& painter);

/// Draws the mark of a clip, in the coordinates of the painter. Each start has an end; clips may be
/// nested.
void MarkClipStart(QPainter& painter, const QPainterPath& clip);
void MarkClipEnd(QPainter& painter);

/// Turns the marks of a finished file into clips: elements clipPath with the ids "clip1", "clip2"
/// ..., and a group of all that is drawn within each. A file without marks is not changed.
void WriteSvgClips(QByteArray& svg);

} // namespace quandrel
