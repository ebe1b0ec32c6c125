"""Preferences, which scripts and surface_report share in one file."""

import pytest

import commonui
from conftest import SAMPLE


def find(choices, key):
    return next(choice for choice in choices if choice.key == key)


def test_changes_are_read_and_used(sample):
    preferences = commonui.Preferences()
    for change in ("Sa=off", "Sq.unit=um", "Fractile=on:90", "Sch=on:95"):
        preferences.change(change)
    assert not find(preferences.parameters(), "Sa").on
    assert find(preferences.parameters(), "Sq").unit == "µm"
    assert find(preferences.statistics(), "Fractile").value == 90
    results = commonui.analyse(sample, preferences=preferences)
    assert "Sa" not in results.values and "Sch(95)" in results.values
    assert "Fractile(90)" in next(iter(results.statistics.values()))
    assert all(preferences.parameters(name) for name in commonui.ANALYSES)


def test_the_program_reads_what_a_script_saves(report, tmp_path, sample):
    path = tmp_path / "choices.ini"
    path.write_text("[Other]\nkept=1\n")
    preferences = commonui.Preferences(path)
    preferences.change("Sq=off")
    commonui.apply(sample, ["Filter[Id(76)]"], preferences=preferences)
    preferences.save()
    assert "kept=1" in path.read_text()
    folder = report(SAMPLE, "--preferences", path)
    assert commonui.analyse(sample, preferences=preferences).csv().encode() == (folder / "report.csv").read_bytes()
    again = commonui.Preferences(path)
    assert not find(again.parameters(), "Sq").on
    assert again.list_settings("Filter")[0][0] == "Filter[Id(76)]"


def test_sets_are_listed_by_what_names_them(sample):
    sets = commonui.Preferences().list_settings("PlaneCorr")
    assert len(sets) > 5 and all(" / " in name for _, name in sets)
    commonui.apply(sample, [sets[0][0]])


def test_a_set_of_ones_own_is_named_by_its_path(sample, tmp_path):
    path = tmp_path / "large.pnps"
    path.write_text("[GrainThreshold]\nThreshold=Otsu\nMinimumPoints=5\nIncludeEdgeGrains=0\n")
    preferences = commonui.Preferences()
    results = commonui.analyse(sample, grains=f"PnP[File({path})]", preferences=preferences)
    name = preferences.list_settings("PnP")[0][0]
    assert name == f"PnP[File({path})]"
    assert commonui.analyse(sample, grains=name).row_count == results.row_count > 0


@pytest.mark.parametrize(
    "use, error, sentence",
    [
        (lambda p: p.change("Sq.unit=parsec"), commonui.RequestError, 'Sq.unit=parsec: "parsec" is no unit of length'),
        (lambda p: p.change("Sx=on"), commonui.RequestError, "Sx"),
        (lambda p: p.save(), commonui.RequestError, "come from no file"),
        (lambda p: p.parameters("Rough"), ValueError, "is no analysis"),
        (lambda p: p.list_settings("Sieve"), ValueError, 'there is no type "Sieve" of settings'),
        (lambda p: commonui.Preferences(SAMPLE.parent), commonui.RequestError, "data"),
    ],
)
def test_what_cannot_be_done_is_said(use, error, sentence):
    with pytest.raises(error, match=sentence):
        use(commonui.Preferences())
