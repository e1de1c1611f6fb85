# SPDX-License-Identifier: MIT
"""Workspaces: lists of files of plots."""

from __future__ import annotations

import os
import pathlib
from collections.abc import Iterable

from ._engine import files_of_workspace, workspace_text
from .figure import Figure
from .figure import open as open_figure


def open_workspace(path: str | os.PathLike[str]) -> dict[str, Figure | None]:
    """Opens the plots of a workspace (.qwo).

    Returns a dict in its order: the path of each file to its figure, or to None for a file that is
    missing or no plot file, such as a table. Raises OSError for a workspace that cannot be read,
    ValueError for a file that is none.
    """
    file = pathlib.Path(path).absolute()
    paths = files_of_workspace(file.read_bytes().decode("utf-8", "replace"), str(file.parent))
    if not paths:
        raise ValueError(f"{file.name} lists no files")
    return {listed: _figure_of(listed) for listed in paths}


def save_workspace(path: str | os.PathLike[str], files: Iterable[str | os.PathLike[str]]) -> None:
    """Writes a workspace (.qwo).

    files: paths of plot files and tables, in their order. Raises OSError.
    """
    file = pathlib.Path(path).absolute()
    paths = [str(pathlib.Path(listed).absolute()) for listed in files]
    file.write_bytes(workspace_text(paths, str(file.parent)).encode())


def _figure_of(path: str) -> Figure | None:
    try:
        return open_figure(path)
    except (OSError, ValueError):
        return None
