# SPDX-License-Identifier: MIT
"""Conversions, rotations, intersections and axes against vector algebra."""

import numpy as np
import pytest
from hypothesis import given
from hypothesis import strategies as st
from hypothesis.extra import numpy as arrays

import quandrel


def unit(lines):
    """Unit vectors north, east, down: an upward line points away from its lower end."""
    plunge, trend = np.radians(np.asarray(lines, float)).T
    lower = np.abs(plunge)
    vectors = np.stack([np.cos(lower) * np.cos(trend), np.cos(lower) * np.sin(trend), np.sin(lower)], 1)
    return np.where(plunge < 0, -1, 1)[:, None] * vectors


def pairs(low, high):
    """Arrays (n, 2) of dips or plunges and azimuths."""
    return arrays.arrays(
        float,
        st.tuples(st.integers(1, 40), st.just(2)),
        elements=st.floats(0, 1),
    ).map(lambda a: a * [high - low, 360] + [low, 0])


def between(a, b):
    """Angles between rows of unit vectors, degrees, also precise when small."""
    cross = np.linalg.norm(np.cross(a, b), axis=1)
    return np.degrees(np.arctan2(cross, np.sum(a * b, 1)))


@given(pairs(-90, 90))
def test_vectors_are_those_of_trigonometry_and_lead_back(lines):
    vectors = quandrel.vectors_of_lines(lines)
    assert np.allclose(vectors, unit(lines), atol=1e-14)
    back = quandrel.lines_of_vectors(vectors)
    assert np.all(between(unit(back), vectors) < 1e-6)


@given(pairs(0, 90))
def test_poles_are_at_right_angles_to_strike_and_dip(planes):
    poles = unit(quandrel.poles_of_planes(planes))
    strikes = unit(np.stack([np.zeros(len(planes)), planes[:, 1] - 90], 1))
    assert np.allclose(np.sum(poles * unit(planes), 1), 0, atol=1e-12)
    assert np.allclose(np.sum(poles * strikes, 1), 0, atol=1e-12)
    again = quandrel.poles_of_planes(quandrel.planes_of_poles(quandrel.poles_of_planes(planes)))
    assert np.all(np.minimum(between(unit(again), poles), between(unit(again), -poles)) < 1e-6)


@given(pairs(-90, 90), st.floats(0, 90), st.floats(0, 360), st.floats(-360, 360))
def test_rotations_keep_the_angle_to_the_axis_and_have_an_inverse(lines, plunge, trend, angle):
    axis = (plunge, trend)
    rotated = quandrel.rotate_lines(lines, axis, angle)
    k = unit([axis])
    # Near the vertical a plunge in doubles is precise to 1e-6 degrees only.
    assert np.allclose(unit(rotated) @ k.T, unit(lines) @ k.T, atol=1e-6)
    back = quandrel.rotate_lines(rotated, axis, -angle)
    assert np.all(between(unit(back), unit(lines)) < 1e-4)


def test_a_positive_rotation_is_clockwise_down_the_axis():
    assert np.allclose(quandrel.rotate_lines([[0, 0]], (90, 0), 30), [[0, 30]])


@given(pairs(1, 89), pairs(1, 89))
def test_intersections_lie_in_both_planes(a, b):
    n = min(len(a), len(b))
    lines = quandrel.intersections(a[:n], b[:n])
    is_known = ~np.isnan(lines[:, 0])
    for planes in (a[:n], b[:n]):
        poles = unit(quandrel.poles_of_planes(planes))
        products = np.abs(np.sum(poles * unit(lines), 1))
        spread = np.linalg.norm(np.cross(unit(quandrel.poles_of_planes(a[:n])), unit(quandrel.poles_of_planes(b[:n]))), axis=1)
        assert np.all(products[is_known] * spread[is_known] < 1e-9)


def test_beta_intersections_are_those_of_all_pairs():
    planes = np.array([[30.0, 90], [60, 100], [45, 280], [45, 280]])
    lines = quandrel.beta_intersections(planes)
    assert lines.shape == (5, 2), "parallel planes have none"
    assert np.allclose(lines[0], quandrel.intersections(planes[:1], planes[1:2])[0])


@given(pairs(1, 90), st.floats(1, 179))
def test_kinematic_axes_are_at_45_degrees_to_pole_and_slip(planes, pitch):
    poles = unit(quandrel.poles_of_planes(planes))
    strikes = unit(np.stack([np.zeros(len(planes)), planes[:, 1] - 90], 1))
    slips = np.cos(np.radians(pitch)) * strikes + np.sin(np.radians(pitch)) * unit(planes)
    p, t = quandrel.kinematic_axes(planes, quandrel.lines_of_vectors(slips))
    half = np.sqrt(0.5)
    for axes in (unit(p), unit(t)):
        assert np.allclose(np.abs(np.sum(axes * poles, 1)), half, atol=1e-7)
        assert np.allclose(np.abs(np.sum(axes * slips, 1)), half, atol=1e-7)
    assert np.allclose(np.sum(unit(p) * unit(t), 1), 0, atol=1e-7)


def test_p_of_a_normal_fault_is_steep():
    p, t = quandrel.kinematic_axes([[60, 90]], [[60, 90]])
    assert np.allclose(p[0, 0], 75) and np.allclose(t[0, 0], 15)
    p, t = quandrel.kinematic_axes([[60, 90]], [[-60, 90]])
    assert np.allclose(p[0, 0], 15) and np.allclose(t[0, 0], 75)
    p, t = quandrel.kinematic_axes([[60, 90]], [[10, 90]])
    assert np.all(np.isnan(p)) and np.all(np.isnan(t)), "the slip line is not in the plane"


def test_beds_are_unfolded():
    assert np.allclose(quandrel.unfold_lines([[30, 90]], [[30, 90]], (0, 0)), [[0, 90]])


def test_azimuths_and_senses_are_read():
    assert quandrel.azimuth_of_text("N30E") == 30
    assert quandrel.azimuth_of_text(" S10w ") == 190
    assert quandrel.dip_direction_of_strike(30) == 120
    assert quandrel.dip_direction_of_strike(30, "NW") == 300
    with pytest.raises(ValueError, match="'north' is not an azimuth"):
        quandrel.azimuth_of_text("north")
    with pytest.raises(ValueError, match="sense"):
        quandrel.dip_direction_of_strike(0, "N")


@pytest.mark.parametrize("odd", [[1.0, 2.0], [[1.0, 2.0, 3.0]], [[[1.0, 2.0]]], 3.0])
def test_other_shapes_are_told(odd):
    with pytest.raises(ValueError, match=r"lines must be an array of shape \(n, 2\)"):
        quandrel.vectors_of_lines(odd)
    with pytest.raises(ValueError, match="the same length"):
        quandrel.intersections([[1, 2]], [[1, 2], [3, 4]])


def test_angles_that_no_line_has_are_told():
    with pytest.raises(ValueError):
        quandrel.vectors_of_lines([[91, 0]])
    with pytest.raises(ValueError):
        quandrel.vectors_of_lines([[np.nan, 0]])


def test_no_rows_are_no_rows():
    assert quandrel.poles_of_planes(np.empty((0, 2))).shape == (0, 2)
