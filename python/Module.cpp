#include "common/Version.h"
#include "python/Bindings.h"

PYBIND11_MODULE(_commonui, module)
{
    // What people see of classes and errors is the package.
    module.attr("__name__") = "commonui";
    module.attr("__version__") = CommonUI::GetVersion();
    Python::AddErrors(module);
    Python::AddSurfaces(module);
    Python::AddGrains(module);
    Python::AddPreferences(module);
    Python::AddResults(module);
    Python::AddAnalyses(module);
    module.attr("__name__") = "commonui._commonui";
}
