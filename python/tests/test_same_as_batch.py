# SPDX-License-Identifier: MIT
"""The package and quandrel-batch give the same numbers, bit for bit."""

import json
import os
import re
import subprocess

import numpy as np
import pytest

import quandrel

BATCH = os.environ["QUANDREL_BATCH"]


def dump_of(folder, text, commands):
    (folder / "rows.txt").write_text(text)
    script = [*commands, "replot", "dump out.json"]
    (folder / "script").write_text("\n".join(script) + "\n")
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen"}
    subprocess.run([BATCH, "--script", "script"], cwd=folder, check=True, env=environment, capture_output=True)
    return json.loads((folder / "out.json").read_text())


def text_of(rows):
    return "".join("\t".join(repr(float(value)) for value in row) + "\n" for row in rows)


def random_lines(decimals, n=300):
    random = np.random.default_rng(5)
    plunge = random.uniform(0, 90, n)
    trend = random.uniform(0, 359, n)
    return np.round(np.column_stack([plunge, trend]), decimals)


@pytest.mark.parametrize("decimals", [0, 1])
def test_statistics(tmp_path, decimals):
    lines = random_lines(decimals)
    reference = dump_of(
        tmp_path, text_of(lines), ["format primary=line data=lines delimiter=tab", "open rows.txt"]
    )["statsReference"]
    found = quandrel.fabric(lines)
    assert {reference[f"eigenvalue {number}"] for number in (1, 2, 3)} == set(found.eigenvalues)
    assert reference["ln(E2/E1)"] == found.log_ratio_12
    assert reference["ln(E3/E2)"] == found.log_ratio_23
    assert reference["gamma"] == found.gamma
    assert reference["zeta"] == found.zeta
    assert reference["axial R/n"] == found.resultant_length_of_axes


def test_regions_and_densities(tmp_path):
    planes = np.array([[40, 120], [38, 118], [41, 125], [36, 131], [70, 300], [44, 119], [39, 117]], dtype=float)
    dump = dump_of(
        tmp_path,
        text_of(planes),
        ["format primary=plane delimiter=tab", "open rows.txt", "symbols 5", "region about=axis level=95 seed=7"],
    )
    poles = quandrel.poles_of_planes(planes)
    region = quandrel.region(poles, seed=7)
    assert dump["regions"][0]["method"] == region.method
    assert dump["regions"][0]["semiAxes"] == region.semi_axes
    assert dump["regions"][0]["centre"] == dict(zip(("plunge", "trend"), region.centre))
    counts = np.array(dump["densityGrid"]["counts"])
    assert np.array_equal(counts, quandrel.density(poles, grid_size=50).counts)


def test_pictures(tmp_path):
    planes = np.array([[40, 120], [38, 118], [41, 125], [36, 131], [70, 300]], dtype=float)
    commands = [
        "format primary=plane delimiter=tab",
        "open rows.txt",
        "style Journal",
        "density method=kernel width=15",
        "symbols 5",
        "layer add main symbols",
        "replot",
        "export batch.svg style=Journal width=84mm legend=below",
    ]
    dump_of(tmp_path, text_of(planes), commands)
    ours = quandrel.Figure().poles(planes).contours(half_width=15).legend("below").svg()
    assert drawn(ours) == drawn((tmp_path / "batch.svg").read_text())


def drawn(svg):
    """What an SVG draws: without its title and origin, and the names of its data."""
    return re.sub(r"<title>.*?</title>\n?", "", svg.split("</desc>", 1)[1])
