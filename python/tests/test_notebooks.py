# SPDX-License-Identifier: MIT
"""The notebooks of the documents run, and give the texts and pictures that they hold.

QUANDREL_WRITE_NOTEBOOKS=1 writes what they give now."""

import os
import pathlib

import nbclient
import nbformat
import pytest

FOLDER = pathlib.Path(__file__).parents[2] / "docs" / "notebooks"
NOTEBOOKS = sorted(FOLDER.glob("*.ipynb"))


def executed(path):
    notebook = nbformat.read(path, as_version=4)
    client = nbclient.NotebookClient(
        notebook, timeout=120, kernel_name="python3", resources={"metadata": {"path": str(FOLDER)}}
    )
    client.execute()
    for cell in notebook.cells:
        cell.metadata.pop("execution", None)
        for output in cell.get("outputs", []):
            output.get("data", {}).pop("text/plain", None) if "image/svg+xml" in output.get("data", {}) else None
    return notebook


def outputs_of(notebook):
    """Texts and pictures of each cell."""
    held = []
    for cell in notebook.cells:
        for output in cell.get("outputs", []):
            data = output.get("data", {})
            held.append(data.get("image/svg+xml") or data.get("text/plain") or output.get("text"))
    return held


@pytest.mark.parametrize("path", NOTEBOOKS, ids=[path.stem for path in NOTEBOOKS])
def test_a_notebook_gives_what_it_holds(path):
    notebook = executed(path)
    if os.environ.get("QUANDREL_WRITE_NOTEBOOKS"):
        nbformat.write(notebook, path)
    kept = nbformat.read(path, as_version=4)
    assert outputs_of(notebook) == outputs_of(kept)
    assert any("<svg" in output for output in outputs_of(kept))


def test_there_are_three():
    assert [path.stem for path in NOTEBOOKS] == ["directions", "faults", "fold"]
