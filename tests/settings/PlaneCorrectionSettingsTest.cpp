#include "settings/readers/PlaneCorrectionSettings.h"
#include "tests/settings/SettingsTesting.h"

#include <gtest/gtest.h>

using namespace CommonUI;

TEST(PlaneCorrectionSettings, WhatIsNotSaidHasItsDefault)
{
    using enum Analysis::ECorrectionScope;
    using enum Analysis::ECorrectionMethod;
    const std::pair<const char16_t*, SPlaneCorrectionSettings> rows[] = {
        {u"Method=Polynomial", {Global, Polynomial, 1}},
        {u"Method=StepWizard\nOrder=2\nScope=Profile", {Profile, StepWizard, 2}},
        {u"Method=Offset\nOrder=none\nColour=red", {Global, Offset, 1}},
        {u"Method=Polynomial\nOrder=9\nOrder=10\n[Other]\nMethod=?", {Global, Polynomial, 9}},
    };
    for (const auto& [text, expected] : rows) {
        CInifile ini = Document(CStr(u"[PlaneCorrection]\n") + text);
        ini.SelectSection(u"Other");
        SPlaneCorrectionSettings set{Linewise, ZeroBackground, 5};
        EXPECT_TRUE(set.Load(ini)) << CStr(text).ToUtf8();
        EXPECT_EQ(set, expected) << CStr(text).ToUtf8();
        EXPECT_EQ(ini.GetSection(), u"Other");
    }
}

TEST(PlaneCorrectionSettings, SavingReplacesTheSetAndNothingElse)
{
    CInifile ini = Document(u"; mine\n[PlaneCorrection]\n; note\nScope=Profile\nOrder=7\n[Other]\nKey=1\n");
    const SPlaneCorrectionSettings set{Analysis::ECorrectionScope::Linewise,
                                       Analysis::ECorrectionMethod::Offset};
    set.Save(ini);
    EXPECT_EQ(ini.GetBytes(),
              "; mine\n[PlaneCorrection]\n; note\nScope=Linewise\nMethod=Offset\n[Other]\nKey=1\n");
}
