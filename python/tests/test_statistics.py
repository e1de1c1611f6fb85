# SPDX-License-Identifier: MIT
"""Statistics, roses and densities against numpy and direct counts."""

import threading

import numpy as np
import pytest

import quandrel


def random_lines(n, seed=1):
    random = np.random.default_rng(seed)
    return quandrel.lines_of_vectors(random.normal(size=(n, 3)) * [3, 1, 0.5])


def unit(lines):
    """Unit vectors north, east, down: an upward line points away from its lower end."""
    plunge, trend = np.radians(np.asarray(lines, float)).T
    lower = np.abs(plunge)
    vectors = np.stack([np.cos(lower) * np.cos(trend), np.cos(lower) * np.sin(trend), np.sin(lower)], 1)
    return np.where(plunge < 0, -1, 1)[:, None] * vectors


def test_eigenvalues_and_axes_are_those_of_numpy():
    lines = random_lines(500)
    values, vectors = np.linalg.eigh(unit(lines).T @ unit(lines) / 500)
    fabric = quandrel.fabric(lines)
    assert np.allclose(fabric.eigenvalues, values, atol=1e-12)
    for axis, vector in zip(unit(fabric.axes), vectors.T):
        assert abs(axis @ vector) > 1 - 1e-12
    assert np.allclose(quandrel.orientation_tensor(lines), unit(lines).T @ unit(lines) / 500)
    assert fabric.zeta == pytest.approx(np.log(values[2] / values[0]))


def test_shuffled_rows_and_antipodes_are_the_same_fabric():
    lines = random_lines(400)
    fabric = quandrel.fabric(lines)
    other = lines[np.random.default_rng(2).permutation(400)]
    other[::2] = quandrel.lines_of_vectors(-unit(other[::2]))
    assert np.allclose(quandrel.fabric(other).eigenvalues, fabric.eigenvalues, atol=1e-13)


def test_near_vertical_joints_have_a_level_pole():
    dips = np.array([[88, 90], [89, 270], [90, 90], [87, 270], [89, 90]], float)
    axis = quandrel.fabric(quandrel.poles_of_planes(dips)).axes[2]
    assert axis[0] < 2 and abs(axis[1] % 180 - 90) < 1


def test_counts_repeat_rows():
    lines = random_lines(5)
    repeated = np.repeat(lines, [1, 2, 3, 0, 4], axis=0)
    one = quandrel.fabric(lines, counts=[1, 2, 3, 0, 4])
    assert np.allclose(one.eigenvalues, quandrel.fabric(repeated).eigenvalues)
    assert one.count == 10


def test_directions_have_a_mean_and_a_precision():
    lines = quandrel.lines_of_vectors(np.random.default_rng(3).normal([5, 0, 0], 1, (200, 3)))
    fabric = quandrel.fabric(lines, axes=False)
    total = unit(lines).sum(0)
    length = np.linalg.norm(total)
    assert fabric.kappa == pytest.approx(199 / (200 - length))
    assert unit([fabric.mean])[0] @ total == pytest.approx(length)
    assert quandrel.fabric(lines).kappa is None


def test_circular_statistics_are_those_of_vector_sums():
    azimuths = np.random.default_rng(4).normal(350, 20, 300) % 360
    one = quandrel.circular(azimuths)
    total = np.exp(1j * np.radians(azimuths)).sum()
    assert one.mean == pytest.approx(np.degrees(np.angle(total)) % 360)
    assert one.resultant_length == pytest.approx(abs(total) / 300)
    assert one.rayleigh_probability < 1e-6
    axes = quandrel.circular(np.where(np.arange(300) % 2, azimuths, (azimuths + 180) % 360), axes=True)
    twice = np.exp(2j * np.radians(azimuths)).sum()
    assert axes.mean == pytest.approx(np.degrees(np.angle(twice)) / 2 % 180)


def test_roses_count_every_azimuth_once_or_twice():
    azimuths = np.random.default_rng(5).integers(1, 361, 500).astype(float)
    rose = quandrel.rose(azimuths, sector_size=20, axes=False)
    expected = np.bincount(((azimuths - 1) // 20).astype(int), minlength=18)
    assert np.array_equal(rose["count"], expected)
    assert rose["length"].max() == 1
    assert quandrel.rose(azimuths, sector_size=20)["count"].sum() == 1000


def test_projection_is_lamberts_and_the_stereographic():
    lines = np.abs(random_lines(100))
    lines[:, 0] = np.minimum(lines[:, 0], 90)
    colatitude = np.radians(90 - lines[:, 0])
    for name, radius in (
        ("equal area", np.sqrt(1 - np.cos(colatitude))),
        ("equal angle", np.tan(colatitude / 2)),
    ):
        points = quandrel.project(lines, name)
        trend = np.radians(lines[:, 1])
        assert np.allclose(points, np.stack([radius * np.sin(trend), radius * np.cos(trend)], 1))
    with pytest.raises(ValueError, match="'Schmidt' is not"):
        quandrel.project(lines, "Schmidt")


def test_the_traces_of_planes_and_cones_are_on_them():
    trace = quandrel.trace_of_plane(40, 130, "equal angle")
    radius = np.hypot(*trace.T)
    plunge = 90 - 2 * np.degrees(np.arctan(radius))
    lines = np.stack([plunge, np.degrees(np.arctan2(*trace.T))], 1)
    pole = unit(quandrel.poles_of_planes([[40, 130]]))[0]
    assert np.allclose(unit(lines) @ pole, 0, atol=1e-9)
    assert len(quandrel.trace_of_cone((60, 20), 15)) == 1


def test_densities_are_counts_in_a_cone():
    lines = random_lines(300)
    field = quandrel.density(lines, grid_size=20)
    assert field.lines == 300 and field.counts.shape[0] == field.counts.shape[1]
    middle = np.argmin(np.abs(field.first + field.step * np.arange(len(field.counts))))
    east = north = field.first + field.step * middle
    radius = np.hypot(east, north)
    plunge = 90 - np.degrees(np.arccos(1 - radius**2))
    node = unit([[plunge, np.degrees(np.arctan2(east, north))]])[0]
    within = np.abs(unit(lines) @ node) >= np.cos(np.radians(11.478340954533574))
    assert field.counts[middle, middle] == within.sum()
    assert field.greatest == pytest.approx(100 * field.counts.max() / 300)
    with pytest.raises(ValueError):
        field.counts[0, 0] = 1
    contours = field.contours([1.0, 5.0])
    assert set(contours) == {1.0, 5.0}
    assert all(line.shape[1] == 2 for lines in contours.values() for line in lines)


def test_two_threads_may_compute_at_once():
    lines = random_lines(20000)
    expected = quandrel.density(lines, grid_size=60).counts.copy()
    results = [None] * 4

    def work(i):
        results[i] = quandrel.density(lines, grid_size=60).counts

    threads = [threading.Thread(target=work, args=(i,)) for i in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert all(np.array_equal(result, expected) for result in results)


@pytest.mark.parametrize("function", [quandrel.fabric, quandrel.orientation_tensor])
def test_without_lines_there_are_no_statistics(function):
    with pytest.raises(ValueError, match="there are no lines"):
        function(np.empty((0, 2)))
