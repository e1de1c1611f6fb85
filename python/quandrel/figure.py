# SPDX-License-Identifier: MIT
"""Figures of orientations, drawn by the program's own procedures."""

from __future__ import annotations

import os
import pathlib
from collections.abc import Sequence

import numpy as np

from ._engine import FigureDocument

_NET = {"data": "net", "shown": "net"}
_BELOW_ROWS = ("net", "bands", "contours")


class Figure:
    """A net or a rose, built from arrays, or opened from a plot file.

    Angles are degrees. The first set of rows makes the plot; further ones are overlays. Methods
    return the figure, so that they can be chained. In a notebook the figure shows itself.

    >>> figure = Figure().poles([[40, 120], [38, 118], [41, 125]], name="S0").contours(filled=True)
    >>> figure.svg()[:5]
    '<svg '
    """

    def __init__(self, style: str = "Journal", width: float = 84.0, decimals: bool = False) -> None:
        """An empty figure.

        style: "Classic", "Screen", "Journal", "Grey", or the text of a style file; width: of the
        page in millimetres; decimals: rows are drawn and counted as measured, not in whole degrees.
        """
        self._document: FigureDocument | None = None
        self._kind = "equal area"
        self._style: str | None = style
        self._decimals = decimals
        self._page = {"width": float(width), "net": 0.0, "height": 0.0, "legend": "usual"}
        self._layers: list[dict[str, object]] | None = [dict(_NET)]
        self._sets = 0
        self._densities: dict[str, object] | None = None
        self._regions: dict[str, object] | None = None

    @classmethod
    def _of(cls, document: FigureDocument) -> Figure:
        figure = cls()
        figure._document = document
        figure._style = None
        figure._layers = None
        figure._sets = 1 + len(document.rows()["overlays"])
        return figure

    # What is drawn.

    def net(self, projection: str = "equal area") -> Figure:
        """The projection: "equal area" or "equal angle". Returns the figure."""
        if projection not in ("equal area", "equal angle"):
            raise ValueError(f"'{projection}' is not 'equal area' or 'equal angle'")
        self._kind = projection
        if self._document is not None:
            self._document.set_kind(projection)
        return self

    def poles(self, planes, **look) -> Figure:
        """Planes as their poles.

        planes: (n, 2), dip and dip direction; look: name, colour ("#b02030"), opacity, symbol (a
        code of the program's table), size (millimetres), labels. Returns the figure.
        """
        return self._add(planes, "planes", "poles", "symbols", look)

    def planes(self, planes, **look) -> Figure:
        """Planes as great circles.

        planes: (n, 2), dip and dip direction; look: name, colour, opacity, width (points), line
        ("solid", "dashed", "dotted", "dashdot"). Returns the figure.
        """
        return self._add(planes, "planes", "great circles", "greatcircles", look)

    def lines(self, lines, polar: bool = False, **look) -> Figure:
        """Lines as symbols.

        lines: (n, 2), plunge and trend; polar: lines with a sense, negative plunges pointing up;
        look: as of poles. Returns the figure.
        """
        what = "polar lines" if polar else "lines"
        return self._add(lines, what, what, "symbols", look)

    def contours(
        self,
        filled: bool = False,
        palette: str | None = None,
        method: str = "kernel",
        k: float = 3.0,
        half_width: float = 0.0,
        unit: str | None = None,
        levels: Sequence[float] = (),
        steps: int | None = None,
        envelope: bool = False,
        maxima: bool = False,
        axes: bool = True,
    ) -> Figure:
        """Contours of the density of the latest rows.

        filled: bands in a palette ("warm", "cool", "diverging", "grey", "levels"); method, k,
        half_width, unit: as of smooth_density(); levels: ascending, else as the style says; steps:
        that many even steps; envelope: the outline of significant density; maxima: with their
        numbers (both of the first rows). Returns the figure.
        """
        self._densities = {
            "method": method,
            "axes": axes,
            "k": k,
            "half_width": half_width,
            "unit": unit,
            "levels": [float(level) for level in levels],
            "envelope": envelope,
            "maxima": maxima,
        }
        data = self._latest()
        if filled:
            self._insert({"data": data, "shown": "bands", "palette": palette, "steps": steps})
        else:
            self._insert({"data": data, "shown": "contours", "steps": steps})
        if envelope or maxima:
            self.layer(data="main", shown="densitymarks")
        return self

    def region(
        self,
        about: str | Sequence[str] = "axis",
        method: str = "auto",
        level: int = 95,
        refused: bool = False,
        of_overlays: bool = False,
    ) -> Figure:
        """Confidence regions of the first rows, and of overlays too if wanted.

        about, method: as of region(); level: per cent, 50 to 99; refused: also where the data do
        not tell the axis apart. Returns the figure.
        """
        self._latest()
        self._regions = {
            "about": [about] if isinstance(about, str) else list(about),
            "method": method,
            "level": level,
            "of_overlays": of_overlays,
            "refused": refused,
        }
        return self.layer(data="results", shown="regions").layer(data="results", shown="axes")

    def rose(
        self,
        azimuths,
        sector_size: float = 10.0,
        start: float = 0.0,
        axes: bool = True,
        equal_area: bool = True,
    ) -> Figure:
        """A rose diagram; the figure then has no net.

        azimuths: (n,); sector_size, start: degrees; axes: both ends count; equal_area: areas of
        petals in proportion to their counts. Returns the figure.
        """
        if self._document is not None:
            raise ValueError("the figure has rows already: a rose is a figure of its own")
        trends = np.asarray(azimuths, dtype=float)
        if trends.ndim != 1:
            raise ValueError("azimuths must be an array of shape (n,)")
        rows = np.column_stack([np.zeros_like(trends), trends % 360])
        what = "lines" if axes else "polar lines"
        self._document = FigureDocument(rows, what, "rose", self._decimals)
        self._document.set_rose(sector_size, start, equal_area)
        self._layers = None
        self._sets = 1
        return self

    def layer(self, data: str | None = None, shown: str = "symbols", **look) -> Figure:
        """A further layer on top: some data shown in some way.

        data: "main", "overlay1" and so on, "results", "net"; the latest rows without; shown:
        "symbols", "greatcircles", "poles", "intersections", "bands", "contours", "gridsymbols",
        "regions", "axes" and the other words of the program's layers; look: as of poles and planes.
        Returns the figure.
        """
        wanted = {"data": data or self._latest(), "shown": shown, **look}
        if not any(
            layer["data"] == wanted["data"] and layer["shown"] == shown for layer in self.layers
        ):
            self.layers = [*self.layers, wanted]
        return self

    @property
    def layers(self) -> list[dict[str, object]]:
        """The layers, lowest first, as dicts. They can be set, too."""
        if self._layers is None and self._document is not None:
            return list(self._document.layers)
        return list(self._layers or ())

    @layers.setter
    def layers(self, layers: Sequence[dict[str, object]]) -> None:
        self._layers = [dict(layer) for layer in layers]

    # How it is drawn.

    def style(self, style: str) -> Figure:
        """Another style: a standard one, or the path or the text of a style file. Returns the figure."""
        if style.endswith(".json"):
            style = pathlib.Path(style).read_text(encoding="utf-8")
        self._style = style
        return self

    def legend(self, place: str | None = "usual") -> Figure:
        """The legend's place: "right", "below", "usual", or None for no legend. Returns the figure."""
        if place not in ("usual", "right", "below", "none", None):
            raise ValueError(f"'{place}' is not 'usual', 'right', 'below' or None")
        self._page["legend"] = place or "none"
        return self

    def page(self, width: float = 84.0, net: float = 0.0, height: float = 0.0) -> Figure:
        """The page in millimetres: its width, the net's diameter, its height; 0 for what they need.

        Returns the figure.
        """
        self._page.update(width=float(width), net=float(net), height=float(height))
        return self

    # Results.

    def svg(self, transparent: bool = False) -> str:
        """The figure as the text of an SVG document; transparent: without a white ground.

        Raises ValueError where the page is too small.
        """
        return self._drawn().svg(**self._page, transparent=transparent)

    def _repr_svg_(self) -> str:
        return self.svg()

    def to_matplotlib(self, ax=None):
        """Draws the figure on axes of matplotlib, in points as on its page.

        ax: axes, whose limits are set; without any a matplotlib figure in the true size is made.
        Returns the axes.
        """
        from ._matplotlib import draw

        return draw(self._drawn().operations(**self._page), ax)

    def save(self, path: str | os.PathLike[str]) -> None:
        """Writes the figure: .svg, .qpx (a plot file of the program), or what matplotlib writes
        (.pdf, .png, .eps, .tif) in the true size.

        Raises OSError where the file cannot be written.
        """
        target = pathlib.Path(path)
        ending = target.suffix.lower()
        if ending == ".svg":
            target.write_text(self.svg(), encoding="utf-8")
        elif ending == ".qpx":
            target.write_bytes(self._drawn().bytes())
        else:
            self.to_matplotlib().figure.savefig(target, dpi=300)

    def rows(self) -> dict[str, object]:
        """What the plot holds: a dict with the arrays main and overlays, are_planes, numbers, texts,
        fabric, description, and left_out, what of a damaged file is missing."""
        return self._drawn().rows()

    def _add(self, rows, what: str, overlay: str, shown: str, look: dict[str, object]) -> Figure:
        array = np.asarray(rows, dtype=float)
        before = self.layers
        if self._document is None:
            self._document = FigureDocument(array, what, self._kind, self._decimals)
            data = "main"
        else:
            self._document.add_overlay(array, overlay)
            data = f"overlay{self._sets}"
        self._sets += 1
        self._layers = [*before, {"data": data, "shown": shown, **look}]
        return self

    def _latest(self) -> str:
        if self._document is None:
            raise ValueError("the figure has no rows yet")
        return "main" if self._sets == 1 else f"overlay{self._sets - 1}"

    def _insert(self, layer: dict[str, object]) -> None:
        """Puts a layer of a density above the net and other densities, below rows."""
        layers = self.layers
        place = 0
        while place < len(layers) and layers[place]["shown"] in _BELOW_ROWS:
            place += 1
        chosen = {name: value for name, value in layer.items() if value is not None}
        self.layers = [*layers[:place], chosen, *layers[place:]]

    def _drawn(self) -> FigureDocument:
        """The document with everything that was chosen."""
        if self._document is None:
            raise ValueError("the figure has no rows yet")
        document = self._document
        if self._style is not None:
            document.style = self._style
        if self._densities is not None:
            document.set_densities(**self._densities)
        if self._regions is not None:
            document.set_regions(**self._regions)
        if self._layers is not None:
            document.layers = self._layers
        return document


def open(path: str | os.PathLike[str]) -> Figure:
    """Opens a plot file (.qpx) as a figure with all that it says; Figure.save writes it again.

    Raises OSError for a file that cannot be read, ValueError for one that is no plot file.
    """
    return Figure._of(FigureDocument.read(pathlib.Path(path).read_bytes()))
