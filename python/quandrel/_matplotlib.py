# SPDX-License-Identifier: MIT
"""The operations of a figure on axes of matplotlib."""

from __future__ import annotations

import functools

import matplotlib
import numpy as np
from matplotlib import font_manager
from matplotlib.collections import PathCollection
from matplotlib.figure import Figure
from matplotlib.patches import Arc, Circle, PathPatch, Wedge
from matplotlib.path import Path
from matplotlib.transforms import Affine2D

_PIXELS_IN_AN_INCH = 96.0
_POINTS_IN_A_PIXEL = 0.75
_FAMILIES = ["Liberation Sans", "Arial", "Helvetica", "DejaVu Sans"]  # the last comes with matplotlib
_DASHES = {
    "solid": "-",
    "dashed": (0, (4, 2)),
    "dotted": (0, (1, 2)),
    "dashdot": (0, (4, 2, 1, 2)),
    "dashdotdot": (0, (4, 2, 1, 2, 1, 2)),
    "none": "None",
}
_HATCHES = {2: "-", 3: "|", 4: "/", 5: "\\", 6: "+", 7: "x"}
_SOLID = 0
_NO_FILL = 1


def draw(picture, ax=None):
    """Draws (width, height, operations) on axes, or on those of a new figure in the true size."""
    width, height, operations = picture
    if ax is None:
        size = (width / _PIXELS_IN_AN_INCH, height / _PIXELS_IN_AN_INCH)
        ax = Figure(figsize=size).add_axes((0, 0, 1, 1))
    ax.set_xlim(0, width)
    ax.set_ylim(height, 0)
    ax.set_aspect("equal")
    ax.axis("off")
    _Painter(ax, width).draw(operations)
    return ax


class _Painter:
    """Draws in the order of the operations; lengths in points grow with the axes."""

    def __init__(self, ax, width: float) -> None:
        self.ax = ax
        ax.apply_aspect()
        inches = ax.get_window_extent().width / ax.figure.dpi
        self.scale = inches * _PIXELS_IN_AN_INCH / width
        self.clips = []
        self.order = 2.0

    def draw(self, operations) -> None:
        for operation in operations:
            getattr(self, "_" + operation["kind"].replace(" ", "_"))(operation)

    def _stroke(self, pen) -> dict[str, object]:
        colour, width, dash, opacity = pen
        return {
            "edgecolor": matplotlib.colors.to_rgba(colour, opacity if dash != "none" else 0),
            "linewidth": 0 if dash == "none" else width * _POINTS_IN_A_PIXEL * self.scale,
            "linestyle": _DASHES[dash] if dash != "none" else "-",
        }

    @staticmethod
    def _inside(fill) -> dict[str, object]:
        pattern, colour, opacity = fill
        if pattern == _SOLID:
            return {"facecolor": matplotlib.colors.to_rgba(colour, opacity)}
        return {"facecolor": "none"}

    def _put(self, artist) -> None:
        self.order += 1e-4
        artist.set_zorder(self.order)
        self.ax.add_artist(artist)
        artist.set_clip_on(bool(self.clips))
        if self.clips:
            artist.set_clip_path(self.clips[-1])

    def _shape(self, path: Path, pen, fill=(_NO_FILL, "#000000", 1.0)) -> None:
        pattern, colour, opacity = fill
        if pattern in _HATCHES:
            hatched = {"edgecolor": matplotlib.colors.to_rgba(colour, opacity), "linewidth": 0}
            self._put(PathPatch(path, facecolor="none", hatch=_HATCHES[pattern] * 2, **hatched))
        look = {**self._stroke(pen), **self._inside(fill)}
        self._put(PathPatch(path, capstyle="round", joinstyle="round", **look))

    def _clear(self, operation) -> None:
        self.ax.set_facecolor(operation["pen"][0])

    def _polyline(self, operation) -> None:
        self._shape(Path(operation["points"]), operation["pen"])

    def _polygon(self, operation) -> None:
        self._shape(_closed([operation["points"]]), operation["pen"], operation["fill"])

    def _path(self, operation) -> None:
        rings = [ring for ring in operation["rings"] if len(ring) > 2]
        if rings:
            self._shape(_closed(_wound(rings)), operation["pen"], operation["fill"])

    def _circle(self, operation) -> None:
        centre = operation["points"][0]
        path = Path.circle(centre, operation["radius"])
        self._shape(path, operation["pen"], operation["fill"])

    def _angles(self, operation) -> tuple[float, float]:
        """From the top clockwise to angles from +x, which run clockwise here: y points down."""
        start = operation["from"] - 90
        return start, start + operation["sweep"]

    def _arc(self, operation) -> None:
        start, end = self._angles(operation)
        side = 2 * operation["radius"]
        look = self._stroke(operation["pen"])
        self._put(Arc(operation["points"][0], side, side, theta1=start, theta2=end, **look))

    def _wedge(self, operation) -> None:
        start, end = self._angles(operation)
        wedge = Wedge(operation["points"][0], operation["radius"], start, end)
        path = wedge.get_patch_transform().transform_path(wedge.get_path())
        self._shape(path, operation["pen"], operation["fill"])

    def _markers(self, operation) -> None:
        parts = operation["marker"]
        looks = [{**self._stroke(pen), **self._inside(fill)} for *_, pen, fill in parts]
        marks = PathCollection(
            [_part(part) for part in parts],
            offsets=np.repeat(operation["points"], len(parts), axis=0),
            offset_transform=self.ax.transData,
            facecolors=[look["facecolor"] for look in looks],
            edgecolors=[look["edgecolor"] for look in looks],
            linewidths=[look["linewidth"] for look in looks],
            linestyles=[look["linestyle"] for look in looks],
        )
        pixel = self.scale / _PIXELS_IN_AN_INCH
        marks.set_transform(Affine2D().scale(pixel, -pixel) + self.ax.figure.dpi_scale_trans)
        self._put(marks)

    def _text(self, operation) -> None:
        family, points, bold, italic = operation["font"]
        x, y = operation["points"][0]
        ascent = 0.905 * points / _POINTS_IN_A_PIXEL
        self.order += 1e-4
        self.ax.text(
            x,
            y + ascent,
            operation["text"].replace("$", r"\$"),
            family=_family(family),
            fontsize=points * self.scale,
            fontweight="bold" if bold else "normal",
            fontstyle="italic" if italic else "normal",
            color=operation["pen"][0],
            ha="left",
            va="baseline",
            zorder=self.order,
        )

    def _push_clip(self, operation) -> None:
        circle = Circle(operation["points"][0], operation["radius"], transform=self.ax.transData)
        self.clips.append(circle)

    def _pop_clip(self, operation) -> None:
        self.clips.pop()


@functools.lru_cache
def _family(wanted: str) -> str:
    """The first of some families, separated by commas, that is installed."""
    installed = set(font_manager.get_font_names())
    families = [*wanted.split(", "), *_FAMILIES]
    return next(family for family in families if family in installed)


def _closed(rings) -> Path:
    """Closed rings as one path."""
    vertices = []
    codes = []
    for ring in rings:
        vertices.append(np.vstack([ring, ring[:1]]))
        codes += [Path.MOVETO, *[Path.LINETO] * (len(ring) - 1), Path.CLOSEPOLY]
    return Path(np.concatenate(vertices), codes)


def _area(ring) -> float:
    x, y = np.asarray(ring).T
    return float(np.sum(x * np.roll(y, -1) - np.roll(x, -1) * y)) / 2


def _wound(rings):
    """Rings turned so that the nonzero rule fills what the odd-even rule does: each ring within an
    odd number of others runs against them."""
    outlines = [Path(ring) for ring in rings]
    turned = []
    for ring in rings:
        depth = sum(
            other is not ring and outline.contains_point(ring[0])
            for other, outline in zip(rings, outlines)
        )
        forward = _area(ring) > 0
        turned.append(ring if forward == (depth % 2 == 0) else ring[::-1])
    return turned


def _part(part) -> Path:
    kind, points, radius, *_ = part
    if kind == 2:
        return Path.circle(points[0] if len(points) else (0, 0), radius)
    return _closed([points]) if kind == 1 else Path(points)
