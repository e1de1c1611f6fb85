# SPDX-License-Identifier: MIT
"""Tables of texts as arrays."""

import doctest
import importlib

import numpy as np
import pytest

import quandrel


def test_rows_are_arrays_with_their_line_numbers():
    table = quandrel.read("; beds\n30.5\t120\nnone\n45\t270\n91\t10\n")
    assert len(table) == 2
    assert np.array_equal(table.planes, [[30.5, 120], [45, 270]])
    assert np.array_equal(table.line_number, [2, 4])
    assert table.lines is None and table.number is None and table.text == []
    assert [line for line, _ in table.refused] == [3, 5]


def test_formats_are_stated(tmp_path):
    path = tmp_path / "beds.csv"
    path.write_bytes("strike;dip;rock;mm\n030;45E;Kalk;1,5\n210;45W;gr\u00e8s;2\n".encode())
    format = quandrel.Format(
        convention=3, delimiter=";", columns=[1, 0, 1, 3, 4, 5, 6, 7, 3, 2], heading=True, number=True, text=True
    )
    table = quandrel.read(path, format)
    assert np.allclose(table.planes, [[45, 120], [45, 300]])
    assert np.allclose(table.number, [1.5, 2])
    assert table.text == ["Kalk", "gr\u00e8s"]
    assert table.heading == "strike;dip;rock;mm"


def test_parameter_lines_change_the_format():
    table = quandrel.read("/T1\t/I2\t/C2\t/12\t/20\n120\t30\n")
    assert np.allclose(table.planes, [[30, 120]])


def test_odd_formats_are_told():
    for odd, words in (
        ({"primary": "beds"}, "'beds' is not one of directions, planes, lines"),
        ({"convention": 7}, "1 to 6"),
        ({"delimiter": ";;"}, "one character"),
        ({"columns": list(range(11))}, "at most ten"),
    ):
        with pytest.raises(ValueError, match=words):
            quandrel.Format(**odd)
    with pytest.raises(OSError):
        quandrel.read("no such file")


def test_the_examples_of_the_module_are_right():
    for name in ("quandrel", "quandrel.figure", "quandrel.summary"):
        tried = doctest.testmod(importlib.import_module(name))
        assert tried.attempted > 0 and tried.failed == 0, name
