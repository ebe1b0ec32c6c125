#include "settings/PlaneCorrectionSettings.h"
#include "tests/settings/SettingsTesting.h"

#include <gtest/gtest.h>

using namespace CommonUI;

TEST(PlaneCorrectionSettings, WhatIsNotSaidHasItsDefault)
{
    using enum EPlaneCorrectionScope;
    using enum EPlaneCorrectionMethod;
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

TEST(PlaneCorrectionSettings, UnusableSetsAreRefused)
{
    const std::pair<const char16_t*, const char*> rows[] = {
        {u"", "Method="},
        {u"[PlaneCorrection]\nOrder=1", "Method="},
        {u"[Planecorrection]\nMethod=Offset", "Method="},
        {u"[PlaneCorrection]\nMethod=polynomial", "Method=polynomial"},
        {u"[PlaneCorrection]\nMethod=", "Method="},
        {u"[PlaneCorrection]\nMethod=Offset\nScope=Column", "Scope=Column"},
        {u"[PlaneCorrection]\nMethod=Polynomial\nOrder=0", "Order=0"},
        {u"[PlaneCorrection]\nMethod=Polynomial\nOrder=10", "Order=10"},
        {u"[PlaneCorrection]\nMethod=Polynomial\nOrder=99999999999", "Order=99999999999"},
        {u"[PlaneCorrection]\nMethod=Polynomial\nOrder=first", "Order=first"},
        {u"[PlaneCorrection]\nMethod=StepWizard\nOrder=3", "Order=3"},
    };
    for (const auto& [text, reason] : rows)
        EXPECT_EQ(Refusal<SPlaneCorrectionSettings>(text).find(std::string("[PlaneCorrection] ") + reason),
                  0U)
            << CStr(text).ToUtf8();
}

TEST(PlaneCorrectionSettings, SavingReplacesTheSetAndNothingElse)
{
    CInifile ini = Document(u"; mine\n[PlaneCorrection]\n; note\nScope=Profile\nOrder=7\n[Other]\nKey=1\n");
    const SPlaneCorrectionSettings set{EPlaneCorrectionScope::Linewise, EPlaneCorrectionMethod::Offset};
    set.Save(ini);
    EXPECT_EQ(ini.GetBytes(),
              "; mine\n[PlaneCorrection]\n; note\nScope=Linewise\nMethod=Offset\n[Other]\nKey=1\n");
}
