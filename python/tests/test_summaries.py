# SPDX-License-Identifier: MIT
"""Summaries add up in any order, on one machine and on a cluster."""

import copy
import os
import pickle
import subprocess

import numpy as np
import pytest
from hypothesis import given
from hypothesis import strategies as some

import quandrel

BATCH = os.environ["QUANDREL_BATCH"]


def rows(n=2000, seed=1, decimals=1):
    random = np.random.default_rng(seed)
    return np.round(np.column_stack([random.uniform(0, 90, n), random.uniform(0, 360, n)]), decimals)


def test_parts_in_any_order_are_the_whole():
    planes = rows()
    whole = quandrel.summarise(planes)
    parts = [quandrel.summarise(part) for part in np.array_split(planes, 4)]
    for order in ([0, 1, 2, 3], [3, 1, 0, 2]):
        assert quandrel.merge([parts[part] for part in order]).bytes() == whole.bytes()
    assert quandrel.summarise(np.array_split(planes[::-1], 7)) == whole
    assert len(whole) == whole.rows == 2000 and whole.refused == 0


@given(some.lists(some.tuples(some.floats(-90, 90), some.floats(0, 360)), min_size=2), some.data())
def test_any_split_adds_up(lines, data):
    at = data.draw(some.integers(0, len(lines)))
    array = np.array(lines)
    whole = quandrel.summarise(array, "lines")
    assert quandrel.summarise([array[at:], array[:at]], "lines") == whole


def test_results_are_those_of_the_rows():
    lines = rows()
    summary = quandrel.summarise(lines, "lines")
    values, axes = quandrel.eigenvectors(lines)
    found, found_axes = summary.eigenvectors()
    assert np.allclose(found, values, atol=1e-12) and np.allclose(found_axes, axes, atol=1e-6)
    directions = quandrel.fabric(lines, axes=False)
    assert summary.directions()["mean"] == pytest.approx(directions.mean)
    assert summary.directions()["kappa"] == pytest.approx(directions.kappa)
    circular = quandrel.circular(lines[:, 1], axes=True)
    assert summary.azimuths()[0] == pytest.approx(circular.mean)
    cells = summary.cells
    assert cells[:, 2].sum() == 2000
    field = quandrel.density(np.repeat(cells[:, :2] % 360, cells[:, 2].astype(int), axis=0))
    assert np.array_equal(field.counts, quandrel.density(lines).counts)


def test_numbers_have_a_histogram_and_weigh():
    planes = np.array([[40, 120], [40, 130], [50, 10]])
    numbers = [3, 1, np.nan]
    summary = quandrel.summarise([(planes, numbers)], weighted=True)
    assert summary.weight == 4 and summary.rows == 3
    assert summary.numbers["sum"] == 4 and summary.numbers["sum_of_squares"] == 10
    assert summary.numbers["histogram"][:, 2].sum() == 2
    repeated = quandrel.summarise(planes[[0, 0, 0, 1]])
    assert np.allclose(summary.eigenvectors()[0], repeated.eigenvectors()[0])


def test_directions_and_copies():
    summary = quandrel.summarise([[350, 10, 20]], "directions")
    assert summary.kind == "directions"
    assert summary.azimuths(axes=False)[0] == pytest.approx(6.7, abs=0.1)
    assert pickle.loads(pickle.dumps(summary)) == summary and copy.copy(summary) == summary


def test_files_are_those_of_the_batch_program(tmp_path):
    planes = rows(300)
    text = "".join(f"{dip}\t{direction}\n" for dip, direction in planes)
    (tmp_path / "rows.txt").write_text(text)
    arguments = ["summarise", "rows.txt", "--format", "primary=plane", "-o", "rows.qsum"]
    subprocess.run([BATCH, *arguments], cwd=tmp_path, check=True, capture_output=True)
    theirs = quandrel.open_summary(tmp_path / "rows.qsum")
    assert quandrel.summarise_file(tmp_path / "rows.txt", quandrel.Format()) == theirs
    assert quandrel.summarise(planes) == theirs
    quandrel.save_summary(theirs, tmp_path / "again.qsum")
    assert (tmp_path / "again.qsum").read_bytes() == (tmp_path / "rows.qsum").read_bytes()


def test_odd_summaries_are_told(tmp_path):
    with pytest.raises(ValueError, match="dip"):
        quandrel.summarise([[[95, 10]]])
    with pytest.raises(ValueError, match="different rows"):
        quandrel.merge([quandrel.Summary("planes"), quandrel.Summary("lines")])
    with pytest.raises(ValueError, match="no summaries"):
        quandrel.merge([])
    with pytest.raises(ValueError, match="not a summary"):
        quandrel.Summary.read(b"a letter")
    with pytest.raises(ValueError, match="no rows"):
        quandrel.Summary().eigenvectors()
    with pytest.raises(ValueError, match="opened"):
        quandrel.summarise_file(tmp_path / "none", quandrel.Format())


def test_a_cluster_gives_the_bytes_of_one_machine(tmp_path):
    import dask.dataframe
    import pandas
    from distributed import Client, LocalCluster

    import quandrel.dask

    planes = rows(4000)
    frame = pandas.DataFrame({"dip": planes[:, 0], "direction": planes[:, 1]})
    parts = dask.dataframe.from_pandas(frame, npartitions=10)
    dask.config.set(temporary_directory=str(tmp_path))
    options = {"n_workers": 2, "threads_per_worker": 1, "processes": True, "dashboard_address": None}
    with LocalCluster(**options) as cluster, Client(cluster):
        summary = quandrel.dask.summarise(parts, dip="dip", dip_direction="direction")
    assert summary.bytes() == quandrel.summarise(planes).bytes()
    with pytest.raises(ValueError, match="name dip and dip_direction"):
        quandrel.dask.summarise(parts, dip="dip", trend="direction")
