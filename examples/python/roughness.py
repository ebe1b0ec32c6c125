#!/usr/bin/python3
"""Levels a surface, removes its spikes, and writes its roughness and its grains as tables: roughness.py FILE FOLDER"""

import pathlib
import sys

import commonui


def main(file, folder):
    surface = commonui.read_surface(file)
    surface.heights[:2] = float("nan")  # the first two lines are known to be bad

    processed = commonui.apply(surface, ["Filter[Id(76)]"], level="plane")
    commonui.write_surface(processed, folder / "processed.sdf")

    roughness = commonui.analyse(processed, cutoff="12um")
    for key in ("Sa", "Sq", "Sz"):
        print(f"{key}: {roughness.values[key]:.4g} {roughness.units[key]}")
    (folder / "roughness.html").write_text(roughness.html(), encoding="utf-8")

    limit = commonui.find_threshold(processed, "otsu")
    grains = commonui.analyse(processed, grains=limit)
    areas = grains.columns()["AreaExHoles"]
    print(f"{grains.row_count} grains, the largest {areas.max():.3g} {grains.units['AreaExHoles']}")
    (folder / "grains.txt").write_text(grains.text(), encoding="utf-8")


if __name__ == "__main__":
    try:
        main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]))
    except commonui.Error as error:
        sys.exit(str(error))
