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

from ._engine import (
    Circular,
    DensityField,
    Fabric,
    Format,
    Table,
    __version__,
    azimuth_of_text,
    beta_intersections,
    circular,
    density,
    dip_direction_of_strike,
    fabric,
    intersections,
    kinematic_axes,
    lines_of_vectors,
    orientation_tensor,
    planes_of_poles,
    poles_of_planes,
    project,
    rose,
    rotate_lines,
    rotate_planes,
    trace_of_cone,
    trace_of_plane,
    unfold_lines,
    vectors_of_lines,
)
from ._engine import read_bytes as _read_bytes
from ._engine import read_text as _read_text


def read(path_or_text: str | os.PathLike[str], format: Format | None = None) -> Table:
    """Reads a table of orientations.

    path_or_text: the path of a text file, or a text with a line end. Parameter lines in it change
    the format. Files may be UTF-8, UTF-16 with a mark, or Windows-1252.

    Raises OSError for a file that cannot be read. Lines that are no rows are in `refused`.

    >>> len(read("30\\t120\\n45\\t270\\n"))
    2
    """
    format = Format() if format is None else format
    if isinstance(path_or_text, str) and "\n" in path_or_text:
        return _read_text(path_or_text, format)
    with open(path_or_text, "rb") as file:
        return _read_bytes(file.read(), format)


__all__ = [name for name in dir() if not name.startswith("_") and name not in ("annotations", "os")]
