# SPDX-License-Identifier: MIT
"""Figures, plot files, workspaces."""

import subprocess
import sys
import xml.etree.ElementTree as xml

import numpy as np
import pytest

import quandrel

BEDS = np.array([[40, 120], [38, 118], [41, 125], [36, 131], [44, 122], [39, 110], [42, 116], [70, 300]])
AXES = np.array([[12, 31], [15, 28], [9, 35]])


def groups_of(svg):
    groups = xml.fromstring(svg).iter("{http://www.w3.org/2000/svg}g")
    return [group.get("id") for group in groups if group.get("id")]


def fold():
    return quandrel.Figure().poles(BEDS, name="S0").contours(filled=True, palette="warm").lines(AXES, name="B")


def test_a_figure_has_its_layers_from_the_net_up():
    figure = fold().region("axis")
    shown = [(layer["data"], layer["shown"]) for layer in figure.layers]
    assert shown == [
        ("net", "net"),
        ("main", "bands"),
        ("main", "symbols"),
        ("overlay1", "symbols"),
        ("results", "regions"),
        ("results", "axes"),
    ]
    svg = figure.svg()
    ids = groups_of(svg)
    assert ids.index("net") < ids.index("rows") < ids.index("overlay-1") < ids.index("legend")
    assert "S0, n = 8" in svg and "B, n = 3" in svg
    assert figure._repr_svg_() == svg
    assert xml.fromstring(svg).get("width").startswith("84")


def test_layers_and_styles_are_those_of_the_program():
    figure = quandrel.Figure().planes(BEDS, colour="#ff0000", width=0.5, line="dashed")
    assert "#ff0000" in figure.svg()
    grey = quandrel.Figure("Grey").poles(BEDS).svg()
    assert grey != quandrel.Figure("Journal").poles(BEDS).svg()
    with pytest.raises(ValueError, match="as bands"):
        quandrel.Figure().poles(BEDS).layer(data="net", shown="bands").svg()
    with pytest.raises(ValueError, match="colour"):
        quandrel.Figure().poles(BEDS, colour="red").svg()
    with pytest.raises(ValueError, match="no property 'weight'"):
        quandrel.Figure().poles(BEDS, weight=2).svg()
    with pytest.raises(ValueError):
        quandrel.Figure("Loud").poles(BEDS).svg()


def test_pages_and_legends():
    wide = fold().page(174).legend("right").svg()
    assert xml.fromstring(wide).get("width").startswith("174")
    assert "n = 8" in fold().svg() and "n = 8" not in fold().legend(None).svg()
    with pytest.raises(ValueError):
        fold().page(width=5).svg()
    with pytest.raises(ValueError, match="left"):
        fold().legend("left")
    with pytest.raises(ValueError, match="no rows"):
        quandrel.Figure().svg()


def test_roses_count_axes_or_directions():
    azimuths = [10, 12, 14, 200, 203, 17]
    both = quandrel.Figure().rose(azimuths).svg()
    one = quandrel.Figure().rose(azimuths, axes=False, sector_size=20, equal_area=False).svg()
    assert both != one and "n = 6" in both and "n = 6" in one
    with pytest.raises(ValueError, match="figure of its own"):
        fold().rose(azimuths)


def test_a_plot_file_keeps_the_figure(tmp_path):
    figure = fold().region("girdle", refused=True)
    path = tmp_path / "fold.qpx"
    figure.save(path)
    again = quandrel.open(path)
    assert again.svg() == figure.svg()
    assert again.layers == figure.layers
    assert np.array_equal(again.rows()["main"], BEDS)
    assert np.array_equal(again.rows()["overlays"][0], AXES)
    more = again.poles(BEDS[:2], name="cleavage")
    assert "cleavage, n = 2" in more.svg()
    assert more.layers[-1]["data"] == "overlay2"
    path.write_bytes(b"a letter")
    with pytest.raises(ValueError, match="not a binary plot file"):
        quandrel.open(path)
    with pytest.raises(OSError):
        quandrel.open(tmp_path / "none.qpx")


def test_decimals_are_drawn_as_measured():
    rows = BEDS + 0.4
    assert quandrel.Figure().poles(rows).svg() == quandrel.Figure().poles(BEDS).svg()
    assert quandrel.Figure(decimals=True).poles(rows).svg() != quandrel.Figure().poles(BEDS).svg()


def test_workspaces_list_their_plots(tmp_path):
    fold().save(tmp_path / "fold.qpx")
    (tmp_path / "beds.txt").write_text("40\t120\n")
    quandrel.save_workspace(tmp_path / "area.qwo", [tmp_path / "fold.qpx", tmp_path / "beds.txt", "/none.qpx"])
    plots = quandrel.open_workspace(tmp_path / "area.qwo")
    assert list(plots) == [str(tmp_path / "fold.qpx"), str(tmp_path / "beds.txt"), "/none.qpx"]
    figures = list(plots.values())
    assert figures[0].svg() == fold().svg() and figures[1:] == [None, None]
    with pytest.raises(ValueError, match="lists no files"):
        quandrel.open_workspace(tmp_path / "beds.txt")


def test_matplotlib_draws_the_same_operations(tmp_path):
    figure = fold()
    axes = figure.to_matplotlib()
    texts = [text.get_text() for text in axes.texts]
    assert "S0, n = 8" in texts and "N" in texts
    marks = [artist for artist in axes.get_children() if type(artist).__name__ == "PathCollection"]
    assert sum(len(mark.get_offsets()) for mark in marks) >= len(BEDS) + len(AXES)
    size = axes.figure.get_size_inches() * 25.4
    assert abs(size[0] - 84) < 0.01
    for ending in ("pdf", "png"):
        figure.save(tmp_path / f"fold.{ending}")
        assert (tmp_path / f"fold.{ending}").stat().st_size > 5000


def test_importing_the_package_does_not_import_matplotlib():
    code = "import quandrel, sys; assert 'matplotlib' not in sys.modules and 'dask' not in sys.modules"
    subprocess.run([sys.executable, "-c", code], check=True)
