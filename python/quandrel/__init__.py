# SPDX-License-Identifier: MIT
"""Orientations of planes and lines: conversions, statistics, densities, nets.

Angles are degrees. Planes are arrays of shape (n, 2) with dip and dip direction, lines with plunge
and trend; a line that points up has a negative plunge and the trend of its lower end. Arrays of
doubles in C order are used without a copy. Long computations release the interpreter's lock.
Errors are ValueError with the program's own text.

>>> import quandrel
>>> quandrel.poles_of_planes([[30, 120]])
array([[ 60., 300.]])
"""

from __future__ import annotations

import os
import pathlib

from ._engine import (
    Circular,
    DensityField,
    Fabric,
    Format,
    Region,
    RowTest,
    SmoothDensity,
    SuggestedFormat,
    Summary,
    Table,
    __version__,
    azimuth_of_text,
    beta_intersections,
    circular,
    classes_of_names,
    classes_of_numbers,
    density,
    dip_direction_of_strike,
    eigenvectors,
    fabric,
    from_arrays,
    intersections,
    kinematic_axes,
    line_text,
    lines_at_pitch,
    lines_at_points,
    lines_at_trend,
    lines_of_vectors,
    orientation_tensor,
    plane_text,
    planes_of_poles,
    planes_through,
    poles_of_planes,
    project,
    region,
    rose,
    rotate_lines,
    rotate_planes,
    smooth_density,
    tests,
    trace_of_cone,
    trace_of_plane,
    unfold_lines,
    vectors_of_lines,
)
from ._engine import decoded as _decoded
from ._engine import read_bytes as _read_bytes
from ._engine import read_sure as _read_sure
from ._engine import read_text as _read_text
from ._engine import suggest_text as _suggest_text
from .figure import Figure, open
from .summary import merge, open_summary, save_summary, summarise, summarise_file
from .workspace import open_workspace, save_workspace


def _is_text(path_or_text: str | os.PathLike[str]) -> bool:
    return isinstance(path_or_text, str) and "\n" in path_or_text


def _text_of(path_or_text: str | os.PathLike[str]) -> str:
    if _is_text(path_or_text):
        return str(path_or_text)
    return _decoded(pathlib.Path(path_or_text).read_bytes())


def read(path_or_text: str | os.PathLike[str], format: Format | str | None = None) -> Table:
    """Reads a table of orientations.

    path_or_text: the path of a text file, or a text with a line end; format: what its columns hold,
    dip and dip direction without one, or "auto" for what its headings and values say. Parameter
    lines in the text change the format. Files may be UTF-8, UTF-16 with a mark, or Windows-1252.

    Raises OSError for a file that cannot be read, ValueError where "auto" finds no sure format.
    Lines that are no rows are in `refused`.

    >>> len(read("30\\t120\\n45\\t270\\n"))
    2
    >>> read("dip,dip direction,rock\\n45,120,gneiss\\n70,302,slate\\n", "auto").planes[0]
    array([ 45., 120.])
    """
    if format == "auto":
        return _read_sure(_text_of(path_or_text))
    if isinstance(format, str):
        raise ValueError("format must be a Format or 'auto'")
    format = Format() if format is None else format
    if _is_text(path_or_text):
        return _read_text(path_or_text, format)
    return _read_bytes(pathlib.Path(path_or_text).read_bytes(), format)


def suggest_formats(path_or_text: str | os.PathLike[str]) -> list[SuggestedFormat]:
    """Formats that a text may have, the most probable first; at most one has 0.9 or more.

    path_or_text: the path of a text file, or a text with a line end. Raises OSError.

    >>> suggest_formats("dip,dip direction\\n30,120\\n71,302\\n")[0].format.primary
    'planes'
    """
    return _suggest_text(_text_of(path_or_text))


__all__ = [
    name
    for name in dir()
    if not name.startswith("_") and name not in ("annotations", "figure", "os", "pathlib", "summary", "workspace")
]
