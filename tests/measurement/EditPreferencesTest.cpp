#include "measurement/EditPreferences.h"

#include "measurement/Request.h"
#include "tests/TestData.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace CommonUI;
using namespace CommonUI::Measurement;

namespace
{

const CParameter& Find(const std::vector<CParameter>& list, const CStr& key)
{
    const auto found = std::ranges::find(list, key, &CParameter::GetIniName);
    return found == list.end() ? throw std::out_of_range(key.ToUtf8()) : *found;
}

} // namespace

TEST(EditPreferences, ChangesEveryAnalysisThatHasTheKey)
{
    CAnalysisPreferencesManager manager;
    const auto parameter = [&](EAnalysis analysis, const CStr& key) {
        return Find(manager.GetData(analysis).GetParameters(), key);
    };
    for (const char16_t* change : {u"Sa=off", u"Rq.format=Digits:4", u"Sq.unit=um", u"Sch=on:95",
                                   u"Smr=on:-1e-6", u"Fractile=on:90", u"statistic.Count=off"})
        EditPreferences(manager, change);
    EXPECT_FALSE(parameter(EAnalysis::Roughness, u"Sa").IsOn());
    EXPECT_EQ(parameter(EAnalysis::Roughness, u"Sq").GetUnitFactor(), CUnit::EUnitFactor::Micro);
    EXPECT_EQ(parameter(EAnalysis::RoughnessProfile, u"Rq").GetFloatFormat().count, 4);
    EXPECT_EQ(
        std::ranges::count_if(manager.GetData(EAnalysis::Roughness).GetParameters(), &CParameter::HasParent),
        2);
    for (const EAnalysis analysis : {EAnalysis::RoughnessProfile, EAnalysis::Measure}) {
        const auto& statistics = manager.GetData(analysis).GetStatistics();
        EXPECT_EQ(Find(statistics, u"Fractile").GetVariableValue(), 90);
        EXPECT_FALSE(Find(statistics, u"Count").IsOn());
    }
}

// A line of the record: the edit, and why it is refused.
TEST(EditPreferences, WhatCannotBeMadeIsRefused)
{
    CAnalysisPreferencesManager manager;
    for (const std::string& row : ReadTestLines("preference-edit-refusals.txt")) {
        const std::vector<std::string> cells = SplitText(row, '|');
        const CStr change = CStr::FromUtf8(cells[0]);
        try {
            EditPreferences(manager, change);
            ADD_FAILURE() << row;
        } catch (const ERequest& error) {
            EXPECT_EQ(error.what(), cells[0] + ": " + cells[1]);
            EXPECT_EQ(error.GetSubject(), change);
        }
    }
}
