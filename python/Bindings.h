#pragma once

#include "python/TextCaster.h"

#include <pybind11/pybind11.h>

namespace Python
{

namespace py = pybind11;

// Each adds a part of the module: classes, functions and their docstrings.
void AddErrors(py::module_& module);
void AddSurfaces(py::module_& module);
void AddGrains(py::module_& module);
void AddPreferences(py::module_& module);
void AddResults(py::module_& module);
void AddAnalyses(py::module_& module);

} // namespace Python
