#include "python/Preferences.h"

#include "common/PathText.h"
#include "measurement/Columns.h"
#include "measurement/EditPreferences.h"
#include "measurement/FailureReason.h"
#include "measurement/Request.h"
#include "model/ParameterList.h"
#include "python/Bindings.h"

#include <pybind11/stl.h>
#include <pybind11/stl/filesystem.h>

#include <stdexcept>

namespace Python
{

namespace Measurement = CommonUI::Measurement;
using CommonUI::CParameter;
using CommonUI::CStr;
using CommonUI::EAnalysis;
using CData = CommonUI::CAnalysisPreferencesData;

namespace
{

constexpr int c_analysisCount = 10;

// A parameter, a statistic or an output as the preferences have it.
struct SChoice {
    CStr key;
    CStr name;
    bool isOn;
    CStr unit;
    double value;
};

using FKey = CStr (*)(const CParameter&);
using FList = std::vector<CParameter> (CData::*)() const;

template<FKey Key, FList List>
std::vector<SChoice> GetChoices(const CScriptPreferences& preferences, const std::string& analysis)
{
    const CommonUI::CUnit metre(CommonUI::CUnit::EUnitFactor::Unity);
    std::vector<SChoice> choices;
    for (const CParameter& parameter : (preferences.GetData(analysis).*List)())
        choices.push_back({Key(parameter), parameter.GetFriendlyString(), parameter.IsOn(),
                           parameter.GetScaledUnitStr(metre), parameter.GetVariableValue()});
    return choices;
}

CStr IniNameOf(const CParameter& parameter)
{
    return parameter.GetIniName();
}

// The text that names a set, in this process and in any other.
std::string SpecOf(const CommonUI::CSettingsFactory& factory, const std::string& type, int id)
{
    const CommonUI::SSettingsEntry entry = factory.GetEntry(id);
    return type +
           (entry.m_IsFile ? "[File(" + entry.m_File.ToUtf8() + ")]" : "[Id(" + std::to_string(id) + ")]");
}

void AppendSets(const CommonUI::CSettingsFactory& factory,
                const std::vector<CommonUI::CSettingsFactory::CTree>& trees, const std::string& type,
                const CStr& path, py::list& sets)
{
    for (const auto& tree : trees) {
        const auto& [name, id] = tree.GetValue();
        const CStr place = path.IsEmpty() ? name : path + u" / " + name;
        if (id != CommonUI::SSettingsEntry::s_InvalidID)
            sets.append(py::make_tuple(SpecOf(factory, type, id), place));
        AppendSets(factory, tree.GetChildren(), type, place, sets);
    }
}

py::list ListSettings(CScriptPreferences& preferences, const std::string& type)
{
    for (const auto& row : CommonUI::GetSettingTypeEnum()) {
        const auto listed = static_cast<CommonUI::ESettingType>(row.GetValue());
        if (row.GetIniName() != CStr::FromUtf8(type) || listed == CommonUI::ESettingType::Unknown)
            continue;
        py::list sets;
        CommonUI::CSettingsFactory& factory = preferences.GetFactory();
        AppendSets(factory, factory.GetTree(listed, true), type, {}, sets);
        return sets;
    }
    throw std::invalid_argument("type: there is no type \"" + type + "\" of settings");
}

} // namespace

EAnalysis AnalysisOf(const std::string& name)
{
    for (int number = 0; number < c_analysisCount; ++number) {
        if (CData::GetININame(EAnalysis{number}) == CStr::FromUtf8(name))
            return EAnalysis{number};
    }
    throw std::invalid_argument("analysis: \"" + name + "\" is no analysis such as ZCalibration");
}

CScriptPreferences::CScriptPreferences(const std::optional<std::filesystem::path>& path, const CStr& section)
    : m_section(section)
    , m_hasFile(path)
{
    if (!path)
        return;
    CommonUI::CInifile& ini = m_store.GetInifile();
    CStr fileName;
    if (!CommonUI::ToText(*path, fileName))
        throw Measurement::ERequest(fileName, u"preferences need a name of characters, not of any bytes");
    ini.SetFileName(fileName);
    const bool exists = std::filesystem::exists(*path);
    if (const Measurement::CFailureReason reason; !m_store.Load())
        throw Measurement::ERequest({}, reason.GetText());
    m_factory.Load(ini);
    ini.SelectSection(m_section);
    if (exists)
        m_manager.Load(ini);
}

const CData& CScriptPreferences::GetData(const std::string& analysis) const
{
    return m_manager.GetData(AnalysisOf(analysis));
}

void CScriptPreferences::Change(const CStr& change)
{
    Measurement::EditPreferences(m_manager, change);
}

void CScriptPreferences::Save()
{
    if (!m_hasFile)
        throw Measurement::ERequest({}, u"the preferences come from no file to which they could be saved");
    CommonUI::CInifile& ini = m_store.GetInifile();
    ini.SelectSection(m_section);
    m_manager.Save(ini);
    m_factory.Save(ini);
    if (const Measurement::CFailureReason reason; !m_store.Save(CommonUI::IsDynamicParametersSection))
        throw Measurement::ERequest({}, reason.GetText());
}

void AddPreferences(py::module_& module)
{
    py::class_<SChoice>(module, "Choice",
                        "A parameter, a statistic or an output as preferences have it; read only.")
        .def_readonly("key", &SChoice::key, "By what files, and `change`, know it.")
        .def_readonly("name", &SChoice::name, "What people see.")
        .def_readonly("on", &SChoice::isOn, "Whether it is computed and shown.")
        .def_readonly("unit", &SChoice::unit, "In which it is shown; empty for a mere number.")
        .def_readonly("value", &SChoice::value, "What belongs to it, such as the percentage of a percentile.")
        .def("__repr__",
             [](const SChoice& self) { return "<" + self.key.ToUtf8() + (self.isOn ? ", on>" : ", off>"); });

    py::class_<CScriptPreferences>(
        module, "Preferences",
        "What is computed and how it is shown, for all analyses; a file of surface_report, or defaults.")
        .def(py::init<const std::optional<std::filesystem::path>&, const CStr&>(),
             py::arg("path") = py::none(), py::arg("section") = CStr(u"SurfaceReport"),
             "The preferences of a file, which need not be there yet, or the defaults.\n\n"
             "section: under which the file has them; that of surface_report without it")
        .def("parameters", &GetChoices<&Measurement::GetKey, &CData::GetParameters>,
             py::arg("analysis") = "RoughnessAnalysis", "The parameters of an analysis.")
        .def("statistics", &GetChoices<&IniNameOf, &CData::GetStatistics>,
             py::arg("analysis") = "RoughnessAnalysis", "The statistics of its profiles or grains.")
        .def("outputs", &GetChoices<&IniNameOf, &CData::GetOutputs>,
             py::arg("analysis") = "RoughnessAnalysis", "What it draws.")
        .def("change", &CScriptPreferences::Change, py::arg("change"),
             "Makes one change: Sa=off  Sq.unit=um  Sq.format=Digits:4  Fractile=on:95  Sch=on:95\n\n"
             "Raises RequestError, and nothing changes.")
        .def("save", &CScriptPreferences::Save,
             "Saves to the file from which they come; what it holds besides stays. Raises RequestError.")
        .def("list_settings", &ListSettings, py::arg("type"),
             "The settings sets of a type, such as Filter: pairs of the text by which a set is applied and "
             "of its place in a menu, those used recently first.")
        .def_property_readonly("remarks", &CScriptPreferences::GetRemarks,
                               "What was found in the file and repaired, in sentences.");
    py::list analyses;
    for (int number = 0; number < c_analysisCount; ++number)
        analyses.append(CData::GetININame(EAnalysis{number}));
    module.attr("ANALYSES") = py::tuple(analyses);
}

} // namespace Python
