# SPDX-License-Identifier: MIT
"""Summaries of more rows than fit into memory, or of rows on several machines."""

from __future__ import annotations

import os
import pathlib
from collections.abc import Iterable

import numpy as np

from ._engine import Format, Summary


def summarise(parts, kind: str = "planes", weighted: bool = False) -> Summary:
    """The summary of rows in parts.

    parts: an array, or an iterable of arrays: (n, 2), dip and dip direction, or plunge and trend;
    (n,), azimuths, for directions; or pairs of such an array and the appended numbers (n,). kind:
    "planes", "lines" or "directions"; weighted: the number of a row says how often it counts. Parts
    in any order give an equal summary.

    Returns a Summary. Raises ValueError for angles out of range.

    >>> summary = summarise([[[40, 120], [38.5, 118]], [[41, 125]]])
    >>> summary.rows
    3
    """
    summary = Summary(kind, weighted)
    if isinstance(parts, np.ndarray):
        parts = [parts]
    for part in parts:
        rows, numbers = part if isinstance(part, tuple) else (part, None)
        summary.add(rows, numbers)
    return summary


def summarise_file(path: str | os.PathLike[str], format: Format, weighted: bool = False) -> Summary:
    """The summary of a text file of any length, read in constant memory by all processors.

    format: what its columns hold; weighted: its number says how often a row counts.

    Returns a Summary. Raises ValueError for a file that cannot be read.
    """
    summary = Summary(format.primary, weighted)
    summary.add_file(os.fspath(path), format)
    return summary


def merge(summaries: Iterable[Summary]) -> Summary:
    """The summary of what several summaries of the same rows are of, in any order.

    Returns a Summary. Raises ValueError without any, and where they are of other rows.
    """
    merged: Summary | None = None
    for summary in summaries:
        merged = summary if merged is None else merged + summary
    if merged is None:
        raise ValueError("there are no summaries")
    return merged


def open_summary(path: str | os.PathLike[str]) -> Summary:
    """The summary of a file (.qsum). Raises OSError, and ValueError for a file that is none."""
    return Summary.read(pathlib.Path(path).read_bytes())


def save_summary(summary: Summary, path: str | os.PathLike[str]) -> None:
    """Writes a summary as a file (.qsum), which the program opens as a plot. Raises OSError."""
    pathlib.Path(path).write_bytes(summary.bytes())
