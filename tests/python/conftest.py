import os
import pathlib
import subprocess

import numpy as np
import pytest

import commonui

ROOT = pathlib.Path(__file__).parents[2]
SAMPLE = ROOT / "examples" / "data" / "ground_steel.sdf"


@pytest.fixture
def sample():
    return commonui.read_surface(SAMPLE)


@pytest.fixture
def waves():
    """Hills of 20 nm on a square of 16 µm."""
    x = np.arange(64)
    return commonui.Surface.from_array(2e-8 * np.outer(np.sin(x / 5), np.cos(x / 7)), dx=2.5e-7)


@pytest.fixture
def report(tmp_path):
    """Runs surface_report and gives the folder of what it has written."""
    program = os.environ.get("SURFACE_REPORT")
    if not program:
        pytest.skip("surface_report is not built")

    def run(*options):
        subprocess.run([program, *map(str, options), "--out", tmp_path / "report"], check=True, stdout=subprocess.DEVNULL)
        return tmp_path / "report"

    return run
