# SPDX-License-Identifier: MIT
"""Smooth densities, regions and tests against sums and samples of their own."""

import numpy as np
import pytest

import quandrel


def vectors(lines):
    """Unit vectors; trends are those of lower ends."""
    plunge, trend = np.radians(lines).T
    level = np.cos(plunge)
    lower = np.column_stack([level * np.cos(trend), level * np.sin(trend), np.abs(np.sin(plunge))])
    return np.where(plunge < 0, -1, 1)[:, None] * lower


def cluster(n=200, seed=3):
    random = np.random.default_rng(seed)
    around = random.normal(size=(n, 3)) * 0.2 + [0.5, 0.5, 0.7]
    return quandrel.lines_of_vectors(around / np.linalg.norm(around, axis=1)[:, None])


def test_a_kernel_is_the_sum_over_the_lines():
    lines = cluster()
    density = quandrel.smooth_density(lines, half_width=12)
    kappa = np.log(2) / np.sin(np.radians(12)) ** 2
    places = np.array([[45.0, 45.0], [60.0, 30.0], [10.0, 200.0], [0.0, 90.0]])
    cosines = vectors(places) @ vectors(lines).T
    sums = np.exp(kappa * (cosines**2 - 1)).sum(axis=1)
    grid = np.linspace(0, 1, 400001)
    mean = len(lines) * np.trapz(np.exp(kappa * (grid**2 - 1)), grid)
    assert np.allclose(density.at(places), sums / mean, rtol=1e-3, atol=1e-3)
    assert density.half_angle == pytest.approx(12)
    plunge, trend, greatest = density.greatest
    assert density.at([[plunge, trend]])[0] == pytest.approx(greatest, rel=1e-6)
    assert greatest >= density.at(places).max()


def test_contours_lie_on_their_levels():
    density = quandrel.smooth_density(cluster(), half_width=12)
    for level, lines in density.contours([2, 5]).items():
        for line in lines:
            assert np.allclose(density.at(line), level, rtol=1e-2)
    assert density.maxima()[0][2] == pytest.approx(density.greatest[2])
    level, lines = quandrel.smooth_density(cluster(60), half_width=20).significant()
    assert level > 1 and len(lines) == 1


def test_kamb_counts_the_lines_in_its_cone():
    lines = cluster(120)
    density = quandrel.smooth_density(lines, "kamb", unit="counts")
    cosine = np.cos(np.radians(density.half_angle))
    place = np.array([[45.0, 45.0]])
    count = (np.abs(vectors(place) @ vectors(lines).T) >= cosine).sum()
    assert density.at(place)[0] == count


def test_weights_repeat_lines():
    lines = cluster(30)
    twice = quandrel.smooth_density(np.vstack([lines, lines[:10]]), half_width=15)
    weighted = quandrel.smooth_density(lines, half_width=15, weights=[2.0] * 10 + [1.0] * 20)
    places = [[45, 45], [80, 10]]
    assert np.allclose(twice.at(places), weighted.at(places), rtol=1e-6)


def test_odd_choices_are_told():
    with pytest.raises(ValueError, match="'loud' is not one of cone, kamb"):
        quandrel.smooth_density(cluster(), "loud")
    with pytest.raises(ValueError, match="unit"):
        quandrel.smooth_density(cluster(), "kernel", unit="counts")
    with pytest.raises(ValueError, match="no lines"):
        quandrel.smooth_density(np.empty((0, 2)))
    with pytest.raises(ValueError, match="method"):
        quandrel.region(cluster(), "axis", "fisher")
    with pytest.raises(ValueError, match="no lines"):
        quandrel.region(np.empty((0, 2)))
    with pytest.raises(ValueError, match="level"):
        quandrel.region(cluster(), level=95)


def test_regions_hold_the_true_axis_as_often_as_they_say():
    random = np.random.default_rng(7)
    truth = np.array([0.5, 0.5, np.sqrt(0.5)])
    held = 0
    for _ in range(200):
        around = truth + random.normal(size=(80, 3)) * 0.3
        region = quandrel.region(quandrel.lines_of_vectors(around), method="watson")
        centre = vectors(np.array([region.centre]))[0]
        held += np.degrees(np.arccos(min(1, abs(centre @ truth)))) <= region.semi_axes[0]
    assert 180 <= held <= 199


def test_a_mean_and_a_bootstrap():
    lines = cluster(40)
    fisher = quandrel.region(lines, "mean", "fisher")
    statistics = quandrel.fabric(lines, axes=False)
    assert fisher.centre == pytest.approx(statistics.mean)
    one = quandrel.region(lines, method="bootstrap", seed=5)
    assert one.resamples == 2000
    assert np.array_equal(one.outline, quandrel.region(lines, method="bootstrap", seed=5).outline)
    assert one.outline.shape == (181, 2)
    assert np.array_equal(one.outline[0], one.outline[-1])


def test_tests_reject_what_they_should():
    results = {test.name: test for test in quandrel.tests(cluster(), tries=499)}
    assert results["Uniform axes (Bingham)"].probability < 0.001
    even = quandrel.lines_of_vectors(np.random.default_rng(11).normal(size=(200, 3)))
    assert quandrel.tests(even, tries=499)[0].probability > 0.01
    azimuths = np.random.default_rng(2).normal(30, 12, 80) % 360
    assert quandrel.tests(azimuths, axes=False, tries=499)[0].probability < 0.001
    same = quandrel.tests(cluster(80, 1), cluster(80, 2), tries=499)
    assert same and all(test.sentence for test in same)


def test_eigenvectors_are_those_of_numpy():
    lines = cluster(5000) + 0.01
    v = vectors(lines)
    wanted = np.linalg.eigvalsh(v.T @ v / len(v))
    for rows in (lines, v, 3 * v):
        values, axes = quandrel.eigenvectors(rows)
        assert np.allclose(values, wanted, atol=1e-12)
        assert np.allclose(abs(vectors(axes[2:]) @ np.linalg.eigh(v.T @ v)[1][:, 2]), 1)
    whole = np.round(lines)
    values, axes = quandrel.eigenvectors(whole)
    assert np.allclose(values, quandrel.eigenvectors(vectors(whole))[0], atol=1e-12)
    assert np.allclose(values, quandrel.fabric(whole).eigenvalues, atol=1e-15)
    with pytest.raises(ValueError, match="no lines"):
        quandrel.eigenvectors(np.empty((0, 3)))
    with pytest.raises(ValueError, match="no length"):
        quandrel.eigenvectors([[0, 0, 0]])


def test_shuffled_rows_and_antipodes_change_nothing():
    lines = np.round(cluster(300))
    lines[:20] = [[0, 40], [1, 220]] * 10  # near the primitive, on both sides
    shuffled = np.random.default_rng(1).permutation(lines)
    values = quandrel.fabric(lines).eigenvalues
    assert np.array_equal(values, quandrel.fabric(shuffled).eigenvalues)
    upward = lines * [-1, 1]
    assert np.allclose(values, quandrel.fabric(upward).eigenvalues, atol=1e-15)
    assert np.array_equal(quandrel.density(lines).counts, quandrel.density(shuffled).counts)
    assert np.array_equal(quandrel.density(lines).counts, quandrel.density(upward).counts)


def test_near_vertical_joints_have_one_mean():
    joints = np.array([[89, 90], [88, 270], [90, 91], [87, 269], [89.5, 271]])
    found = quandrel.fabric(quandrel.poles_of_planes(joints))
    plane = quandrel.planes_of_poles(found.axes[2:])[0]
    assert plane[0] > 89 and abs(np.sin(np.radians(plane[1] - 90))) < 0.02


def test_classes_are_those_of_ranges_and_names():
    assert list(quandrel.classes_of_numbers([0.2, 1, 6, 7, np.nan], [0, 1, 6])) == [1, 2, 2, -1, -1]
    assert list(quandrel.classes_of_numbers([-1, 7], [0, 6], below=True, above=True)) == [0, 2]
    assert list(quandrel.classes_of_names(["Slate", "marl", ""], ["slate", "gneiss"], others=True)) == [1, 0, 0]
