// SPDX-License-Identifier: MIT

#include "qt/svg_clips.h"

#include <QPaintEngine>
#include <QPen>

#include <algorithm>

namespace quandrel {

namespace {

// A mark is known by a limit of mitres that no other line has. In the file it precedes the name of
// the font, so that no text of a user can look like it.
constexpr int kStartLimit = 7001;
constexpr int kEndLimit = 7002;

QByteArray SignOf(int limit) {
    return "<g fill=\"none\" stroke=\"#000000\" stroke-opacity=\"0\" stroke-width=\"1\" "
           "stroke-linecap=\"butt\" stroke-linejoin=\"miter\" stroke-miterlimit=\""
           + QByteArray::number(limit) + "\"";
}

void DrawMark(QPainter& painter, const QPainterPath& path, int limit) {
    QPen pen(QColor(0, 0, 0, 0), 1, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    pen.setMiterLimit(limit);
    painter.save();
    const QPainterPath inFile = painter.transform().map(path);
    painter.resetTransform();
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(inFile);
    painter.restore();
}

/// The part of a text from `from` between two others.
QByteArray Between(const QByteArray& text, qsizetype from, const QByteArray& before,
                   const QByteArray& after) {
    const qsizetype first = text.indexOf(before, from) + before.size();
    return text.mid(first, text.indexOf(after, first) - first);
}

/// What replaces the mark at a place of a file.
QByteArray ReplacementOf(const QByteArray& svg, qsizetype mark, bool isStart, int number) {
    if (!isStart) {
        return "</g>";
    }
    const QByteArray name = "clip" + QByteArray::number(number);
    return "<clipPath id=\"" + name + "\"><path d=\"" + Between(svg, mark, " d=\"", "\"")
           + "\"/></clipPath>\n<g clip-path=\"url(#" + name + ")\">";
}

} // namespace

bool IsSvg(const QPainter& painter) {
    return painter.isActive() && painter.paintEngine()->type() == QPaintEngine::SVG;
}

void MarkClipStart(QPainter& painter, const QPainterPath& clip) {
    DrawMark(painter, clip, kStartLimit);
}

void MarkClipEnd(QPainter& painter) {
    QPainterPath point;
    point.lineTo(1, 1);
    DrawMark(painter, point, kEndLimit);
}

void WriteSvgClips(QByteArray& svg) {
    const QByteArray start = SignOf(kStartLimit);
    const QByteArray end = SignOf(kEndLimit);
    const QByteArray groupEnd = "</g>";
    QByteArray clipped;
    qsizetype done = 0;
    int clips = 0;
    qsizetype nextStart = svg.indexOf(start);
    qsizetype nextEnd = svg.indexOf(end);
    while (nextEnd >= 0) {
        const bool isStart = nextStart >= 0 && nextStart < nextEnd;
        qsizetype& mark = isStart ? nextStart : nextEnd;
        clips += isStart ? 1 : 0;
        clipped += svg.mid(done, mark - done) + ReplacementOf(svg, mark, isStart, clips);
        done = svg.indexOf(groupEnd, mark) + groupEnd.size();
        mark = svg.indexOf(isStart ? start : end, done);
    }
    if (done > 0) {
        svg = clipped + svg.mid(done);
    }
}

} // namespace quandrel
