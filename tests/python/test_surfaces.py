"""Surfaces as arrays, and their files."""

import os
import shutil
import sys
import threading

import numpy as np
import pytest

import commonui
from conftest import SAMPLE


def test_heights_are_the_memory_of_the_surface(sample):
    heights = sample.heights
    assert heights.shape == (96, 128) and heights.dtype == np.float64 and heights.flags.writeable
    assert np.shares_memory(heights, sample.heights)
    heights[0, :3] = np.nan, 1e-6, 2e-6
    assert sample.missing == np.isnan(heights).sum()
    del sample
    assert heights[0, 2] == 2e-6  # the array keeps the surface


def test_surface_of_an_array_is_a_copy():
    heights = np.arange(6.0, dtype=np.float32).reshape(2, 3).T
    surface = commonui.Surface.from_array(heights, dx=1e-6, dy=2e-6, channel="Höhe")
    heights[:] = 9
    assert surface.heights.tolist() == [[0, 3], [1, 4], [2, 5]]
    assert (surface.dx, surface.dy, surface.channel) == (1e-6, 2e-6, "Höhe")
    assert commonui.Surface.from_array([1, 2, 3], dx=1).heights.shape == (1, 3)


def test_masked_points_are_missing():
    heights = np.ma.masked_greater(np.array([[1, 2, 3], [4, 5, 6]], dtype=np.int32), 4)
    surface = commonui.Surface.from_array(heights, dx=1e-6)
    assert np.array_equal(surface.heights, [[1, 2, 3], [4, np.nan, np.nan]], equal_nan=True)
    assert surface.missing == 2 and heights.data[1, 1] == 5
    assert commonui.Surface.from_array(np.ma.array([1.0, 2.0]), dx=1).missing == 0


def test_names_that_are_no_characters_work(sample, tmp_path):
    name = os.path.join(os.fsencode(tmp_path), b"a\xff.sdf")
    with pytest.raises(commonui.ReadError, match="sdf: no such file"):
        commonui.read_surface(name)
    shutil.copy(SAMPLE, name)
    for path in (name, os.fsdecode(name)):
        read = commonui.read_surface(path)
        assert np.array_equal(read.heights, sample.heights, equal_nan=True) and read.file_name.endswith(".sdf")
    sample.heights[0, 0] = 7e-6
    commonui.write_surface(sample, name)
    assert commonui.read_surface(name).heights[0, 0] == 7e-6
    assert os.listdir(os.fsencode(tmp_path)) == [b"a\xff.sdf"]
    with pytest.raises(commonui.WriteError, match="ends in none of"):
        commonui.write_surface(sample, name + b".foo")
    with pytest.raises(commonui.WriteError, match="none.*/a.sdf: .*No such file"):
        commonui.write_surface(sample, os.fsencode(tmp_path) + b"/none\xff/a.sdf")
    with pytest.raises(commonui.RequestError, match="preferences need a name of characters"):
        commonui.Preferences(os.fsdecode(name))


@pytest.fixture
def no_switching():
    """Threads take turns only where one lets go of the interpreter's lock."""
    interval = sys.getswitchinterval()
    sys.setswitchinterval(1000)
    yield
    sys.setswitchinterval(interval)


def test_what_is_written_is_the_surface_of_one_moment(tmp_path, no_switching):
    surface = commonui.Surface.from_array(np.zeros((1000, 1000)), dx=1e-6)
    thread = threading.Thread(target=commonui.write_surface, args=(surface, tmp_path / "a.sdf"))
    thread.start()
    surface.heights[:] = 1e-6  # while it is written
    surface.dx = 5e-6
    thread.join()
    written = commonui.read_surface(tmp_path / "a.sdf")
    assert not written.heights.any() and written.dx == 1e-6


@pytest.mark.parametrize("name, options", [("a.sdf", {}), ("a.sdf", {"binary": True}), ("a.x3p", {}), ("a.TXT", {})])
def test_files_give_the_same_heights(name, options, sample, tmp_path):
    try:
        commonui.write_surface(sample, tmp_path / name, **options)
    except commonui.WriteError as error:
        assert name == "a.x3p"
        pytest.skip(str(error))
    read = commonui.read_surface(tmp_path / name)
    assert np.array_equal(read.heights, sample.heights, equal_nan=True)
    assert read.missing == sample.missing and len(read.sha256) in (0, 64)


def test_profile_without_positions_takes_a_spacing(tmp_path):
    path = tmp_path / "profile.txt"
    path.write_text("z [um]\n1\n2\n3\n")
    assert commonui.read_surface(path, spacing=1e-6).heights.tolist() == [[1e-6, 2e-6, 3e-6]]
    with pytest.raises(commonui.ReadError, match="profile.txt"):
        commonui.read_surface(path)


@pytest.mark.parametrize(
    "make, error, sentence",
    [
        (lambda: commonui.Surface((0, 3), dx=1), ValueError, "one point at the least"),
        (lambda: commonui.Surface((1 << 40, 1 << 40), dx=1), ValueError, "does not fit into memory"),
        (lambda: commonui.Surface((1 << 30, 1 << 28), dx=1), MemoryError, ""),
        (lambda: commonui.Surface((2, 2), dx=0), ValueError, "dx: a spacing from 1e-18 m to 1e9 m expected, not 0"),
        (lambda: commonui.Surface((2, 2), dx=1, dy=np.nan), ValueError, "dy: a spacing"),
        (lambda: commonui.Surface.from_array(np.zeros((2, 2, 2)), dx=1), ValueError, "not of 3 dimensions"),
        (lambda: commonui.Surface.from_array([1 + 2j, 0], dx=1), ValueError, "heights: real numbers expected"),
        (lambda: commonui.Surface.from_array(np.ma.array([1j]), dx=1), ValueError, "heights: real numbers expected"),
        (lambda: commonui.Surface.from_array([[0, 1], [0, np.inf]], dx=1), ValueError, r"heights\[1, 1\]"),
        (lambda: commonui.read_surface("none.sdf"), commonui.ReadError, "none.sdf: no such file"),
    ],
)
def test_bad_surfaces_are_refused(make, error, sentence):
    with pytest.raises(error, match=sentence):
        make()


def test_heights_are_checked_before_they_are_used(waves, tmp_path):
    waves.heights[2, 3] = 1e300
    for use in (
        lambda: commonui.analyse(waves),
        lambda: commonui.apply(waves),
        lambda: commonui.find_grains(waves, 0),
        lambda: commonui.measure_grains(waves, 0),
        lambda: commonui.write_surface(waves, tmp_path / "a.sdf"),
    ):
        with pytest.raises(ValueError, match=r"heights\[2, 3\]: a height up to 1e9 m"):
            use()
    assert list(tmp_path.iterdir()) == []


def test_a_file_stays_whole_when_it_cannot_be_written(waves, tmp_path):
    path = tmp_path / "a.txt"
    path.write_text("old")
    with pytest.raises(commonui.WriteError, match="ends in none of .sdf, .x3p, .txt"):
        commonui.write_surface(waves, tmp_path / "a.foo")
    with pytest.raises(commonui.WriteError, match="a.txt"):
        commonui.write_surface(commonui.Surface((1, 1), dx=1), path)  # a profile of one point
    assert path.read_text() == "old"


def test_reading_tells_of_its_progress_and_can_be_ended():
    shares = []
    commonui.read_surface(SAMPLE, progress=shares.append)
    assert shares == sorted(shares) and shares[-1] == 1

    def stop(_):
        raise RuntimeError("enough")

    with pytest.raises(RuntimeError, match="enough"):
        commonui.read_surface(SAMPLE, progress=stop)
