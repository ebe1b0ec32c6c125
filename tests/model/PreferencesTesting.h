#pragma once

#include "common/ini/Inifile.h"
#include "model/GrainAnalysisPreferencesData.h"
#include "model/RoughnessAnalysisPreferencesData.h"
#include "tests/DiagnosticsCapture.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

constexpr int c_analysisCount = 10;

inline std::unique_ptr<CommonUI::CAnalysisPreferencesData> MakePreferences(CommonUI::EAnalysis analysis)
{
    using namespace CommonUI;
    if (analysis == EAnalysis::Measure)
        return std::make_unique<CGrainAnalysisPreferencesData>();
    if (IsRoughness(analysis))
        return std::make_unique<CRoughnessAnalysisPreferencesData>(analysis);
    return std::make_unique<CAnalysisPreferencesData>(analysis);
}

inline CommonUI::CInifile PreferencesIni(const std::string& bytes = {}, std::u16string_view section = u"A")
{
    CommonUI::CInifile ini;
    ini.LoadBytes(bytes);
    ini.SelectSection(section);
    return ini;
}

/// What Save writes for the object.
inline std::string SavedBytes(CommonUI::CAnalysisPreferencesData& data)
{
    CommonUI::CInifile ini = PreferencesIni();
    data.Save(ini);
    return ini.GetBytes();
}

/// The numbers of what stands in groups and their subgroups.
inline std::vector<int> GroupedIDs(const std::vector<CommonUI::SParameterGroup>& groups)
{
    std::vector<int> ids;
    for (const CommonUI::SParameterGroup& group : groups) {
        for (const CommonUI::CParameter& parameter : group.parameters)
            ids.push_back(parameter.GetValue());
        const std::vector<int> below = GroupedIDs(group.subGroups);
        ids.insert(ids.end(), below.begin(), below.end());
    }
    return ids;
}
