#include "python/Surface.h"

#include "common/ControlCharacters.h"
#include "common/file/FileBytes.h"
#include "common/NumberText.h"
#include "common/PathText.h"
#include "formats/FileDigest.h"
#include "formats/SurfaceReader.h"
#include "formats/SurfaceWriter.h"
#include "python/Bindings.h"
#include "python/Lengths.h"

#include <pybind11/functional.h>
#include <pybind11/numpy.h>
#include <pybind11/stl.h>
#include <pybind11/stl/filesystem.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <limits>
#include <optional>
#include <stdexcept>

namespace Python
{

namespace fs = std::filesystem;
namespace Formats = CommonUI::Formats;
using CommonUI::CStr;
using CommonUI::Analysis::SSurface;

namespace
{

// What files may hold, too.
constexpr double c_largestHeight = 1e9;
constexpr double c_leastSpacing = 1e-18;
constexpr double c_largestSpacing = 1e9;

using CHeights = py::array_t<double, py::array::c_style | py::array::forcecast>;

// What a script gives as an array. Masked points are missing ones, and nothing of a height is dropped.
CHeights HeightsOf(const py::object& given)
{
    const auto numpy = py::module_::import("numpy");
    const py::object masked = numpy.attr("ma");
    const bool isMasked = py::isinstance(given, masked.attr("MaskedArray"));
    const py::object array = isMasked ? given : numpy.attr("asarray")(given);
    if (numpy.attr("iscomplexobj")(array).cast<bool>())
        throw std::invalid_argument("heights: real numbers expected, not complex ones");
    if (!isMasked)
        return array;
    return masked.attr("filled")(array.attr("astype")("float64"), std::numeric_limits<double>::quiet_NaN());
}

std::string TextOf(double number)
{
    return CommonUI::ShortestText(number).ToUtf8();
}

double CheckSpacing(const char* name, double spacing)
{
    if (!(spacing >= c_leastSpacing && spacing <= c_largestSpacing))
        throw std::invalid_argument(std::string(name) + ": a spacing from 1e-18 m to 1e9 m expected, not " +
                                    TextOf(spacing));
    return spacing;
}

SScriptSurface MakeSurface(std::size_t lines, std::size_t points, double dx, std::optional<double> dy)
{
    if (lines == 0 || points == 0)
        throw std::invalid_argument("a surface has one point at the least");
    SScriptSurface made;
    made.surface.lines = lines;
    made.surface.points = points;
    made.surface.dx = CheckSpacing("dx", dx);
    made.surface.dy = CheckSpacing("dy", dy.value_or(dx));
    return made;
}

SScriptSurface MakeOfShape(std::pair<std::size_t, std::size_t> shape, double dx, std::optional<double> dy,
                           std::string channel)
{
    SScriptSurface made = MakeSurface(shape.first, shape.second, dx, dy);
    if (shape.first > made.surface.heights.max_size() / shape.second)
        throw std::invalid_argument("a surface of so many points does not fit into memory");
    made.surface.heights.resize(shape.first * shape.second);
    made.surface.channel = std::move(channel);
    return made;
}

SScriptSurface MakeOfHeights(const py::object& given, double dx, std::optional<double> dy,
                             std::string channel)
{
    const CHeights heights = HeightsOf(given);
    if (heights.ndim() != 1 && heights.ndim() != 2)
        throw std::invalid_argument("heights: an array of lines and points expected, not of " +
                                    std::to_string(heights.ndim()) + " dimensions");
    const auto extent = [&](py::ssize_t axis) { return static_cast<std::size_t>(heights.shape(axis)); };
    const bool isLine = heights.ndim() == 1;
    SScriptSurface made = MakeSurface(isLine ? 1 : extent(0), extent(isLine ? 0 : 1), dx, dy);
    made.surface.heights.assign(heights.data(), heights.data() + heights.size());
    made.surface.channel = std::move(channel);
    Checked(made);
    return made;
}

// The heights themselves, which live as long as the array does.
py::array_t<double> ViewHeights(const py::object& self)
{
    auto& surface = self.cast<SScriptSurface&>().surface;
    return py::array_t<double>({surface.lines, surface.points}, surface.heights.data(), self);
}

// Tells Python of the share that is done, and of Ctrl-C.
Formats::FProgress MakeProgress(const std::function<void(double)>& progress)
{
    return [&progress](double fraction) {
        const py::gil_scoped_acquire locked;
        if (PyErr_CheckSignals() != 0)
            throw py::error_already_set();
        if (progress)
            progress(fraction);
    };
}

SScriptSurface Read(const fs::path& path, const std::optional<CLength>& spacing,
                    const std::function<void(double)>& progress)
{
    Formats::SReadOptions options{.progress = MakeProgress(progress)};
    if (spacing)
        options.spacing = LengthOf("spacing", *spacing);
    const py::gil_scoped_release unlocked;
    return {Formats::ReadSurface(path, options), Formats::ComputeSha256(path)};
}

// A path in a message, on one line and nothing but characters.
std::string NameOf(const fs::path& path)
{
    CStr text;
    CommonUI::ToText(path, text);
    return CStr(CommonUI::ReplaceControls(text, u'?')).ToUtf8();
}

Formats::EFormat FormatOf(const fs::path& path, bool isProfile, bool isBinary)
{
    std::string suffix = path.extension().string();
    std::ranges::transform(suffix, suffix.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    if (isBinary && suffix != ".sdf")
        throw std::invalid_argument("binary is for a name that ends in .sdf");
    if (suffix == ".sdf")
        return isBinary ? Formats::EFormat::BinarySdf : Formats::EFormat::Sdf;
    if (suffix == ".x3p")
        return Formats::EFormat::X3p;
    if (suffix == ".txt")
        return isProfile ? Formats::EFormat::Profile : Formats::EFormat::Matrix;
    throw Formats::EWriteError(NameOf(path) + ": the name ends in none of .sdf, .x3p, .txt");
}

void Write(SScriptSurface& surface, const fs::path& path, bool isBinary)
{
    const SSurface checked = Checked(surface); // of which other threads may change the original meanwhile
    const Formats::EFormat format = FormatOf(path, checked.IsProfile(), isBinary);
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const py::gil_scoped_release unlocked;
    CStr reason;
    try {
        if (CommonUI::ReplacePathBytes(path, Formats::WriteSurface(checked, format, now), reason))
            return;
    } catch (const Formats::EWriteError& error) {
        throw Formats::EWriteError(NameOf(path) + ": " + error.what());
    }
    throw Formats::EWriteError(NameOf(path) + ": " + reason.ToUtf8());
}

std::string Describe(const SScriptSurface& self)
{
    const SSurface& surface = self.surface;
    return "<Surface of " + std::to_string(surface.lines) + " lines with " + std::to_string(surface.points) +
           " points, dx " + TextOf(surface.dx) + " m, dy " + TextOf(surface.dy) + " m>";
}

template<std::string SSurface::*Member>
void AddText(py::class_<SScriptSurface>& type, const char* name, const char* text)
{
    type.def_property(
        name, [](const SScriptSurface& self) { return self.surface.*Member; },
        [](SScriptSurface& self, std::string value) { self.surface.*Member = std::move(value); }, text);
}

template<double SSurface::*Member>
void AddSpacing(py::class_<SScriptSurface>& type, const char* name, const char* text)
{
    type.def_property(
        name, [](const SScriptSurface& self) { return self.surface.*Member; },
        [name](SScriptSurface& self, double value) { self.surface.*Member = CheckSpacing(name, value); },
        text);
}

} // namespace

const SSurface& Checked(SScriptSurface& script)
{
    SSurface& surface = script.surface;
    surface.missing = 0;
    for (std::size_t i = 0; i < surface.heights.size(); ++i) {
        const double height = surface.heights[i];
        surface.missing += std::isnan(height);
        if (std::abs(height) > c_largestHeight)
            throw std::invalid_argument("heights[" + std::to_string(i / surface.points) + ", " +
                                        std::to_string(i % surface.points) +
                                        "]: a height up to 1e9 m, or NaN, expected, not " + TextOf(height));
    }
    return surface;
}

CommonUI::Analysis::ELevelling LevellingOf(const std::string& name)
{
    using enum CommonUI::Analysis::ELevelling;
    if (name == "none")
        return None;
    if (name == "mean")
        return Mean;
    if (name == "plane")
        return Plane;
    throw std::invalid_argument("level: none, mean, plane expected, not \"" + name + "\"");
}

void AddSurfaces(py::module_& module)
{
    py::class_<SScriptSurface> type(
        module, "Surface",
        "A measured surface: heights over a regular grid, all lengths in metres. A surface of one line is a "
        "profile.");
    type.def(py::init(&MakeOfShape), py::arg("shape"), py::kw_only(), py::arg("dx"),
             py::arg("dy") = py::none(), py::arg("channel") = "",
             "A flat surface of so many lines and points, to be filled through `heights` without a copy.\n\n"
             "shape: lines, points\ndx: spacing of the points in m\ndy: that of the lines; dx without it");
    type.def_static("from_array", &MakeOfHeights, py::arg("heights"), py::kw_only(), py::arg("dx"),
                    py::arg("dy") = py::none(), py::arg("channel") = "",
                    "A surface with a copy of the heights of an array, in m: lines of points, or one line. "
                    "What is NaN or masked is a missing point.");
    type.def_property_readonly(
        "heights", &ViewHeights,
        "The heights in m, an array of lines and points that is the surface's own memory: what is written to "
        "it is in the surface. NaN is a missing point. What takes long has a copy, so that other threads "
        "may go on writing.");
    AddSpacing<&SSurface::dx>(type, "dx", "Spacing of the points of a line, in m.");
    AddSpacing<&SSurface::dy>(type, "dy", "Spacing of the lines, in m.");
    AddText<&SSurface::channel>(type, "channel", "What was measured; empty where the file names nothing.");
    AddText<&SSurface::fileName>(type, "file_name", "The name of its file, without folder.");
    AddText<&SSurface::date>(type, "date", "The date that the file states; empty where it states none.");
    type.def_property_readonly(
        "sha256", [](const SScriptSurface& self) { return self.sha256; },
        "The SHA-256 of the file from which it was read; empty where it comes from none.");
    type.def_property_readonly(
        "missing", [](SScriptSurface& self) { return Checked(self).missing; }, "How many points are NaN.");
    type.def("__repr__", &Describe);

    module.def("read_surface", &Read, py::arg("path"), py::kw_only(), py::arg("spacing") = py::none(),
               py::arg("progress") = py::none(),
               "Reads a surface or a profile, whose content says in which format it is.\n\n"
               "spacing: of a profile whose file has heights alone, in m or as a text such as '0.5um'\n"
               "progress: is called with the share that is done, 0 to 1; what it raises ends the reading\n"
               "Raises ReadError with a sentence that names file and place.");
    module.def("write_surface", &Write, py::arg("surface"), py::arg("path"), py::kw_only(),
               py::arg("binary") = false,
               "Writes a surface in the format of the name: .sdf, .x3p, or .txt, which is a matrix or, for a "
               "profile, columns. A file that is there is replaced whole, or stays as it was.\n\n"
               "binary: the binary form of .sdf\nRaises WriteError.");
}

} // namespace Python
