"""Surfaces of microscopes and profilers: read, corrected, filtered, and their roughness and grains measured.

All values are in SI units, degrees or percent. What cannot be done raises Error with one sentence.
"""

from ._commonui import (
    ANALYSES,
    GRAIN_KEYS,
    Choice,
    Error,
    NoPointsError,
    Preferences,
    ReadError,
    RequestError,
    Results,
    Surface,
    TooManyPointsError,
    UnknownSetError,
    WriteError,
    __version__,
    analyse,
    apply,
    find_grains,
    find_threshold,
    measure_grains,
    read_surface,
    write_surface,
)

__all__ = [
    "ANALYSES",
    "GRAIN_KEYS",
    "Choice",
    "Error",
    "NoPointsError",
    "Preferences",
    "ReadError",
    "RequestError",
    "Results",
    "Surface",
    "TooManyPointsError",
    "UnknownSetError",
    "WriteError",
    "__version__",
    "analyse",
    "apply",
    "find_grains",
    "find_threshold",
    "measure_grains",
    "read_surface",
    "write_surface",
]
