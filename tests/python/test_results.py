"""Results are those of surface_report, to the bit and to the byte."""

import threading

import numpy as np
import pytest

import commonui
from conftest import SAMPLE

FILTER = "Filter[Id(76)]"
PLANE = "PlaneCorr[Id(4)]"

# What surface_report is told, and what the same is to analyse().
CASES = {
    "roughness": (["--level", "plane"], {"level": "plane"}),
    "sets": (["--settings", PLANE, "--settings", FILTER], {"settings": [PLANE, FILTER]}),
    "chosen": (
        ["--parameters", "Sa,Smc(10),4287Ra", "--unit", "um", "--cutoff", "12um", "--motif-limits", "10um"],
        {"parameters": ["Sa", "Smc(10)", "4287Ra"], "unit": "um", "cutoff": "12um", "motif_limits": 1e-5},
    ),
    "grains": (["--level", "plane", "--grains", "100nm"], {"level": "plane", "grains": "100nm"}),
    "pores": (["--level", "plane", "--pores", "-100nm"], {"level": "plane", "pores": "-100nm"}),
    "grain set": (["--grains", "PnP[Id(198)]"], {"grains": "PnP[Id(198)]"}),
    "pitch": (
        ["--analysis", "1DCalibration", "--reference", "10um", "--pitch", "centroid"],
        {"analysis": "1DCalibration", "reference": "10um", "pitch": "centroid"},
    ),
    "tip": (
        ["--analysis", "TipAnalysis", "--tip", "Depth10,1nm"],
        {"analysis": "TipAnalysis", "tip": "Depth10", "tip_noise": 1e-9},
    ),
}


@pytest.mark.parametrize("case", CASES)
def test_all_files_are_those_of_the_program(case, report, sample):
    options, arguments = CASES[case]
    folder = report(SAMPLE, *options)
    results = commonui.analyse(sample, **arguments)
    assert results.csv().encode() == (folder / "report.csv").read_bytes()
    assert results.json().encode() == (folder / "report.json").read_bytes()
    assert results.text().encode() == (folder / "report.txt").read_bytes()
    assert results.html().encode() == (folder / "report.html").read_bytes()


def test_second_surface_is_taken(report, sample):
    folder = report(SAMPLE, "--analysis", "CrossCorrelation", "--second", SAMPLE, "--level", "mean")
    second = commonui.read_surface(SAMPLE)
    results = commonui.analyse(sample, level="mean", analysis="CrossCorrelation", second=second)
    assert results.csv().encode() == (folder / "report.csv").read_bytes()


def parse(csv):
    """The values by table, row, key and statistic."""
    lines = (line.split(",") for line in csv.splitlines()[1:] if not line.startswith("provenance") and '"' not in line)
    return {tuple(line[:4]): float(line[4]) for line in lines if line[4]}


def test_values_are_those_of_the_data(sample):
    results = commonui.analyse(sample, level="plane")
    wanted = parse(results.csv())
    rows, columns = results.row_name.lower(), results.columns()
    found = {("surface", "", key, ""): value for key, value in results.values.items()}
    for key, values in columns.items():
        found |= {(rows, str(row), key, ""): value for row, value in enumerate(values, 1)}
        found |= {(rows, "", key, name): value for name, value in results.statistics[key].items()}
    found = {key: value for key, value in found.items() if not np.isnan(value)}
    assert len(wanted) > 1000
    assert {key: value for key, value in wanted.items() if found.get(key) != value} == {}
    assert len(next(iter(columns.values()))) == results.row_count == sample.heights.shape[0]


def test_raw_values_stand_beside_processed_ones(sample):
    results = commonui.analyse(sample, [PLANE])
    assert results.raw_values["Sq"] == commonui.analyse(sample).values["Sq"] != results.values["Sq"]
    assert list(results.table()) == ["key", "name", "raw", "value", "unit", "reason"]
    applied = commonui.apply(sample, [PLANE])
    assert commonui.analyse(applied).values == pytest.approx(results.values, rel=0, abs=0, nan_ok=True)


def test_undefined_values_have_reasons():
    flat = commonui.Surface((8, 8), dx=1e-6)
    results = commonui.analyse(flat, parameters=["Ssk", "4287Rsk"])
    assert np.isnan(results.values["Ssk"]) and "Ssk" in results.reasons
    key = next(iter(results.columns()))
    assert results.reason(key, 0) != ""
    with pytest.raises(IndexError, match="there are 8 rows"):
        results.reason(key, 8)
    with pytest.raises(KeyError, match="Sz"):
        results.reason("Sz", 0)


def test_columns_and_grains(waves):
    results = commonui.analyse(waves, grains=1e-8)
    labels = commonui.find_grains(waves, 1e-8)
    assert np.array_equal(results.grains, labels) and not results.grains.flags.writeable
    assert results.row_count == labels.max() > 3
    measured = commonui.measure_grains(waves, 1e-8)
    for key, values in results.columns().items():
        assert np.array_equal(values, measured[key], equal_nan=True), key
    large = commonui.find_grains(waves, 1e-8, minimum_points=40, edge=False)
    assert 0 < large.max() < labels.max()
    assert commonui.analyse(waves).grains is None
    assert commonui.find_threshold(waves, "relative", 50) == pytest.approx(0, abs=1e-9)


def test_results_outlive_what_they_came_from(sample):
    results = commonui.analyse(sample, grains=0.0)
    labels, columns = results.grains, results.columns()
    wanted = labels.copy(), {key: values.copy() for key, values in columns.items()}
    del results, sample
    assert np.array_equal(labels, wanted[0])
    assert all(np.array_equal(columns[key], values, equal_nan=True) for key, values in wanted[1].items())


def test_pandas(waves):
    pytest.importorskip("pandas")
    results = commonui.analyse(waves, grains=1e-8)
    frame = results.to_pandas()
    assert list(frame.index) == list(range(1, results.row_count + 1))
    assert list(frame.columns) == list(results.columns())
    assert commonui.analyse(waves).to_pandas("surface").loc["Sa", "unit"] == "m"


def test_other_threads_go_on_while_it_computes():
    heights = np.random.default_rng(1).normal(0, 1e-8, (400, 400))
    surface = commonui.Surface.from_array(heights, dx=1e-7)
    done = threading.Event()
    result = []
    thread = threading.Thread(target=lambda: (result.append(commonui.analyse(surface)), done.set()))
    thread.start()
    # Without the lock let go this thread would have its turn only when all is done.
    turns = 0
    while not done.wait(0.001):
        turns += 1
        surface.heights[:] = 1  # the analysis has heights of its own
    thread.join()
    assert turns > 5
    assert result[0].values["Sq"] == pytest.approx(heights.std(), rel=1e-6)


@pytest.mark.parametrize(
    "error, arguments, sentence",
    [
        (commonui.RequestError, {"parameters": ["Sx"]}, 'there is no parameter "Sx"'),
        (commonui.UnknownSetError, {"settings": ["Filter[Id(9999)]"]}, r"Filter\[Id\(9999\)\]: there is no such set"),
        (commonui.RequestError, {"settings": ["ActiveReport[Id(30)]"]}, "a report template lays out documents"),
        (commonui.RequestError, {"cutoff": 1.0}, "cut-off"),
        (commonui.RequestError, {"unit": "parsec"}, 'unit: "parsec" is no unit of length'),
        (ValueError, {"level": "flat"}, 'level: none, mean, plane expected, not "flat"'),
        (ValueError, {"analysis": "Tip"}, '"Tip" is no analysis such as ZCalibration'),
        (ValueError, {"analysis": "CrossCorrelation"}, "takes a surface to compare with"),
        (ValueError, {"reference": 1e-6}, "for an analysis, which is not given"),
        (ValueError, {"grains": 0.0, "pores": 0.0}, "either grains or pores"),
        (ValueError, {"cutoff": "12 parsec"}, 'cutoff: "12 parsec" is no length such as 50nm'),
        (ValueError, {"cutoff": -1}, "cutoff: a length above 0 expected"),
        (ValueError, {"analysis": "ZCalibration", "reference": (1e-6, "")}, 'reference: "" is no length'),
        (ValueError, {"motif_limits": (2e-6, 1e-6)}, "the second length is shorter"),
    ],
)
def test_what_cannot_be_done_is_said(error, arguments, sentence, sample):
    with pytest.raises(error, match=sentence):
        commonui.analyse(sample, **arguments)


def test_surface_without_points_is_refused():
    empty = commonui.Surface.from_array(np.full((4, 4), np.nan), dx=1e-6)
    with pytest.raises(commonui.NoPointsError, match="no valid point"):
        commonui.analyse(empty)
