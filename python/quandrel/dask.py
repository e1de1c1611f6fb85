# SPDX-License-Identifier: MIT
"""Summaries of the partitions of dask: each where it is, added up in a tree."""

from __future__ import annotations

import numpy as np
from dask import delayed

from ._engine import Summary
from .summary import merge

_EVERY = 8  # summaries that one task adds up


def _of_partition(frame, kind: str, columns: list[str], number: str | None, weighted: bool) -> Summary:
    summary = Summary(kind, weighted)
    rows = np.column_stack([np.asarray(frame[column], dtype=float) for column in columns])
    if kind == "directions":
        rows = rows[:, 0]
    numbers = None if number is None else np.asarray(frame[number], dtype=float)
    summary.add(rows, numbers)
    return summary


def summarise(
    dataframe,
    dip: str | None = None,
    dip_direction: str | None = None,
    plunge: str | None = None,
    trend: str | None = None,
    azimuth: str | None = None,
    number: str | None = None,
    weighted: bool = False,
    compute: bool = True,
):
    """The summary of a dataframe of dask, by a tree of additions.

    dataframe: of dask; dip and dip_direction, plunge and trend, or azimuth: the names of its columns
    of planes, lines or directions; number: that of appended numbers; weighted: they say how often a
    row counts; compute: False for a delayed value.

    Returns a Summary. Raises ValueError where the columns are not those of one kind of rows.
    """
    named = {
        "planes": [dip, dip_direction],
        "lines": [plunge, trend],
        "directions": [azimuth],
    }
    kinds = [kind for kind, columns in named.items() if any(column is not None for column in columns)]
    if len(kinds) != 1 or None in named[kinds[0]]:
        raise ValueError("name dip and dip_direction, or plunge and trend, or azimuth")
    of_part = delayed(_of_partition)
    parts = [
        of_part(partition, kinds[0], named[kinds[0]], number, weighted)
        for partition in dataframe.to_delayed()
    ]
    add_up = delayed(merge)
    while len(parts) > 1:
        parts = [add_up(parts[first : first + _EVERY]) for first in range(0, len(parts), _EVERY)]
    return parts[0].compute() if compute else parts[0]
