#include "measurement/Choices.h"

#include "analysis/areal/ArealParameters.h"
#include "analysis/areal/TemplateParameters.h"
#include "analysis/grain/GrainMeasures.h"
#include "analysis/profile/ProfileParameters.h"
#include "model/MeasureParameters.h"
#include "model/RoughnessAnalysisPreferencesData.h"
#include "model/RoughnessCatalogue.h"

#include "tests/TestData.h"

#include <gtest/gtest.h>

#include <set>

using namespace CommonUI;
using namespace CommonUI::Measurement;

namespace
{

void AddKeys(std::set<std::string>& keys, const std::vector<Analysis::SQuantity>& quantities)
{
    for (const Analysis::SQuantity& quantity : quantities)
        keys.emplace(quantity.key);
}

std::string TextsOf(const std::vector<CParameter>& parameters)
{
    std::string texts;
    for (const CParameter& parameter : parameters)
        texts += parameter.GetShortFriendlyString().ToUtf8() + ' ';
    return texts;
}

std::string RefusalOf(const SRequest& request)
{
    try {
        MakeChoices(CAnalysisPreferencesManager(), request);
    } catch (const ERequest& error) {
        return error.what();
    }
    return {};
}

} // namespace

TEST(Choices, EveryRowOfTheCatalogueIsComputedOrATemplateOrAPlugIns)
{
    std::set<std::string> computed;
    AddKeys(computed, Analysis::GetArealQuantities());
    AddKeys(computed, Analysis::GetProfileQuantities());
    std::set<std::string> templates;
    AddKeys(templates, Analysis::GetTemplates());
    AddKeys(templates, Analysis::GetLineTemplates());
    for (const auto& row : GetRoughnessParametersEnum()) {
        const std::string key = row.GetIniName().ToUtf8();
        const auto id = static_cast<ERoughnessParameters>(row.GetValue());
        const bool isTemplate = !GetRoughnessVariables(id).empty();
        EXPECT_EQ(templates.contains(key), isTemplate) << key;
        EXPECT_EQ(computed.contains(key) + isTemplate + IsSuppliedByPlugIn(MakeRoughnessParameter(id)), 1)
            << key;
        if (computed.contains(key)) {
            EXPECT_EQ(RefusalOf({.keys = {row.GetIniName()}}), "") << key;
        }
    }
}

TEST(Choices, EveryQuantityOfGrainsIsComputed)
{
    std::string missing;
    for (const auto& row : GetMeasureParametersEnum())
        if (!Analysis::IsAmong(row.GetIniName().ToUtf8(), Analysis::GetGrainKeys()))
            missing += row.GetIniName().ToUtf8() + ' ';
    EXPECT_EQ(missing, "None ");
}

TEST(Choices, TemplatesWithValuesAreParametersOfTheirOwn)
{
    CAnalysisPreferencesManager manager;
    const SChoices choices =
        MakeChoices(manager, {.keys = {u"Sdc(10,50)", u"Smc(5)", u"Smc(90)", u"4287Rmr(-1e-7)", u"Sa"}});
    EXPECT_EQ(TextsOf(choices.surface), "Sa Sdc(10 %, 50 %) Smc(5 %) Smc(90 %) ");
    EXPECT_EQ(TextsOf(choices.rows), "Rmr(-100 nm) ");
    EXPECT_EQ(TextsOf(MakeChoices(manager, {.keys = {u"Sq"}}).surface), "Sq ") << "nothing is kept";
    EXPECT_THROW(MakeChoices(manager, {.keys = {u"Smc"}}), ERequest);
}

TEST(Choices, WhatCannotBeChosenIsRefusedWithAReason)
{
    const std::pair<CStr, const char*> rows[] = {
        {u"Smc", "\"Smc\" is a template: it takes values, such as \"Smc(10)\""},
        {u"4287Rmr2", "\"4287Rmr2\" is a template: it takes values, such as \"4287Rmr2(5,1E-06)\""},
        {u"Sdc(10)", "Sdc(10): it takes 2 values"},
        {u"Smc(101)", "Smc(101): \"101\" is no percentage, 0 to 100"},
        {u"Smc()", "Smc(): \"\" is no number"},
        {u"Smc(10", "Smc(10: it has the form KEY(VALUE,...)"},
        {u"Sa(1)", "Sa(1): it takes no values"},
        {u"Count(1)", "Count(1): it takes no values"},
        {u"Fractile(90)", "Fractile(90): there is no parameter \"Fractile\""},
    };
    for (const auto& [key, reason] : rows)
        EXPECT_EQ(RefusalOf({.keys = {key}}), reason);
    EXPECT_EQ(
        RefusalOf({.method = {.grains = SGrainLimit{0, Analysis::EGrainKind::Pore}}, .keys = {u"Smc(10)"}}),
        "\"Smc\" is a template: it takes values, such as \"Smc(10)\"");
}

TEST(Choices, WhatPlugInsSupplyIsChosenWhereSomebodyAsks)
{
    CAnalysisPreferencesManager manager;
    const auto data = manager.GetData(EAnalysis::Roughness).Clone();
    // Called as one that is computed, which it is not.
    CParameter theirs(500, u"Sa", u"Theirs, Supplied", u"Theirs",
                      static_cast<int>(EAnalysisStandards::RoughnessPlugIns), true);
    data->AddParameter(0, theirs);
    manager.SetData(EAnalysis::Roughness, *data);
    EXPECT_TRUE(TextsOf(MakeChoices(manager, {.usesPreferences = true}).surface).ends_with(" Theirs "));
    EXPECT_EQ(TextsOf(MakeChoices(manager, {.keys = {u"Sa", u"Sq"}}).surface), "Sa Sq Theirs ");
    const SChoices byKey = MakeChoices({}, {.keys = {u"PlugIn"}});
    EXPECT_EQ(TextsOf(byKey.surface) + TextsOf(byKey.rows), "Plug-in Parameters Plug-in Parameters ");
    EXPECT_FALSE(Has(TextsOf(MakeChoices({}, {}).surface), "Plug-in"));
}

TEST(Choices, ValleysAreThoseOfThePreferences)
{
    CAnalysisPreferencesManager manager;
    EXPECT_EQ(MakeChoices(manager, {}).method.valleys.line, Analysis::EReferenceLine::Regression2);
    EXPECT_EQ(MakeChoices(manager, {}).method.valleys.closingRatio, 2);
    const auto copy = manager.GetData(EAnalysis::RoughnessProfile).Clone();
    auto& data = dynamic_cast<CRoughnessAnalysisPreferencesData&>(*copy);
    data.SetMUFUFilterType(EMUFUFilterType::RGR0);
    data.SetMUFUClosingCutOffRatio(EMUFUClosingCutOffRatio::Ratio1_5);
    manager.SetData(EAnalysis::RoughnessProfile, data);
    EXPECT_EQ(MakeChoices(manager, {}).method.valleys.line, Analysis::EReferenceLine::Regression0);
    EXPECT_EQ(MakeChoices(manager, {}).method.valleys.closingRatio, 1.5);
}
