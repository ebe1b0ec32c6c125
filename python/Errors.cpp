#include "analysis/grain/Grains.h"
#include "analysis/surface/Surface.h"
#include "formats/SurfaceReader.h"
#include "formats/SurfaceWriter.h"
#include "measurement/Request.h"
#include "python/Bindings.h"

namespace Python
{

namespace
{

// The message of an error in Python is the sentence of that in C++.
template<class T>
py::object AddError(py::module_& module, const char* name, const py::object& base, const char* text)
{
    py::object& type = py::register_exception<T>(module, name, base);
    type.attr("__doc__") = text;
    return type;
}

} // namespace

// Of those that fit an error the one that was added last is taken.
void AddErrors(py::module_& module)
{
    namespace Analysis = CommonUI::Analysis;
    namespace Formats = CommonUI::Formats;
    namespace Measurement = CommonUI::Measurement;
    const py::object error =
        AddError<CommonUI::EBase>(module, "Error", py::handle(PyExc_Exception).cast<py::object>(),
                                  "What every error of the library is. Its text is one sentence.");
    AddError<Formats::EReadError>(module, "ReadError", error,
                                  "A file is no surface, or not the one it promises to be.");
    AddError<Formats::EWriteError>(module, "WriteError", error,
                                   "A surface cannot be written as it was asked for.");
    const py::object request =
        AddError<Measurement::ERequest>(module, "RequestError", error, "What was asked for cannot be done.");
    AddError<Measurement::EUnknownSet>(module, "UnknownSetError", request,
                                       "A settings set was asked for that does not exist.");
    AddError<Analysis::ENoPoints>(module, "NoPointsError", error,
                                  "A surface has no valid point to compute from.");
    AddError<Analysis::ETooManyPoints>(module, "TooManyPointsError", error,
                                       "A surface has too many points to find grains in.");
}

} // namespace Python
