#include "measurement/EditPreferences.h"

#include "measurement/Request.h"

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

TEST(EditPreferences, WhatCannotBeMadeIsRefused)
{
    CAnalysisPreferencesManager manager;
    const std::pair<const char16_t*, const char*> rows[] = {
        {u"Sa", "it has the form KEY=VALUE"},
        {u"Nope=on", "there is no parameter or statistic \"Nope\""},
        {u"Sa=perhaps", "the value is on or off"},
        {u"Sa=on:3", "it takes no values"},
        {u"Sq.unit=furlong", "\"furlong\" is no unit of length"},
        {u"Sq.unit=nm:7", "it takes no values"},
        {u"Ssk.unit=um", "the parameter is no length, area or volume"},
        {u"Sq.format=Roman:3", "the format is Decimals, Digits or Integer"},
        {u"Sq.format=Digits:13", "the count of a format is 1 to 12"},
        {u"Sq.format=Digits:4.5", "the count of a format is 1 to 12"},
        {u"Sq.format=Digits:4:5", "it has one colon too many"},
        {u"Fractile=on:101", "only Fractile=on takes a value, 0 to 100"},
        {u"Fractile=off:5", "only Fractile=on takes a value, 0 to 100"},
        {u"Mean=on:3", "only Fractile=on takes a value, 0 to 100"},
        {u"Mean.unit=nm", "a statistic has no unit and no format"},
        {u"Sch=on", "it takes 1 values"},
        {u"Sch=on:1,2", "it takes 1 values"},
        {u"Sch=on:x", "\"x\" is no number"},
        {u"Sch=on:nan", "\"nan\" is no number"},
        {u"Sch=on:100.5", "\"100.5\" is no percentage, 0 to 100"},
        {u"Sdc=on:10,-1", "\"-1\" is no percentage, 0 to 100"},
        {u"Sch=off:1", "it takes no values"},
    };
    for (const auto& [change, reason] : rows) {
        try {
            EditPreferences(manager, change);
            ADD_FAILURE() << reason;
        } catch (const ERequest& error) {
            EXPECT_EQ(error.what(), CStr(change).ToUtf8() + ": " + reason);
            EXPECT_EQ(error.GetSubject(), change);
        }
    }
}
