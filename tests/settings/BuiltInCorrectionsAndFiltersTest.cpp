#include "settings/FilterSettings.h"
#include "settings/PlaneCorrectionSettings.h"
#include "tests/settings/SettingsTesting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>
#include <vector>

using namespace CommonUI;

namespace
{

std::string Name(int number)
{
    return GetBuiltInSettingEnum().GetFriendlyString(number).ToUtf8();
}

std::string OnOneLine(int number)
{
    std::string text = GetBuiltInSettingText(EBuiltInSetting{number}).ToUtf8();
    std::ranges::replace(text, '\n', ' ');
    return text;
}

bool Has(int number, const char* text)
{
    return Name(number).find(text) != std::string::npos;
}

/// The numbers in the display text of a set.
std::vector<double> NamedNumbers(int number)
{
    std::string name = Name(number);
    std::ranges::replace_if(
        name, [](char c) { return (c < '0' || c > '9') && c != '.'; }, ' ');
    std::istringstream text(name);
    std::vector<double> numbers;
    for (double value = 0; text >> value;)
        numbers.push_back(value);
    return numbers;
}

/// The length in metres that the display text tells, or 0.
double NamedLength(int number)
{
    if (Has(number, " mm"))
        return NamedNumbers(number).at(0) * 1e-3;
    return Has(number, " um") || Has(number, " µm") ? NamedNumbers(number).at(0) * 1e-6 : 0;
}

/// The fraction of the evaluation length that the display text tells, or 0.
double NamedFraction(int number)
{
    const auto numbers = NamedNumbers(number);
    return Has(number, "/") ? numbers.at(0) / numbers.at(1) : 0;
}

/// The polynomial order that the display text tells; 1 when it tells none.
double NamedOrder(int number)
{
    const auto numbers = NamedNumbers(number);
    if (!numbers.empty())
        return numbers.front();
    return Has(number, "Bow") ? 2 : 1;
}

} // namespace

// What is stored: a change here changes what people's sequences do.
TEST(BuiltInCorrectionsAndFilters, TextsAreThoseOnRecord)
{
    std::ifstream file(COMMONUI_TEST_DATA "/built-in-corrections-and-filters.txt", std::ios::binary);
    std::string line;
    for (const SBuiltInSettingGroup& group : GetBuiltInSettingGroups()) {
        if (group.type != ESettingType::PlaneCorr && group.type != ESettingType::Filter)
            continue;
        for (int number = group.first; number <= group.last; ++number) {
            std::getline(file, line);
            EXPECT_EQ(std::to_string(number) + ' ' + OnOneLine(number), line);
        }
    }
    EXPECT_FALSE(std::getline(file, line));
}

TEST(BuiltInCorrectionsAndFilters, EachIsReadAndWrittenAsItStandsAndIsLikeNoOther)
{
    std::set<std::string> texts;
    for (int number = 1; number <= 21; ++number)
        texts.insert(Bytes(BuiltIn<SPlaneCorrectionSettings>(number)));
    EXPECT_EQ(texts.size(), 21U);
    texts.clear();
    for (int number = 75; number <= 169; ++number) {
        texts.insert(Bytes(BuiltIn<SFilterSettings>(number)));
        EXPECT_TRUE(texts.contains(GetBuiltInSettingText(EBuiltInSetting{number}).ToUtf8())) << number;
    }
    EXPECT_EQ(texts.size(), 95U);
}

TEST(BuiltInCorrectionsAndFilters, PlaneCorrectionsDoWhatTheirNamesSay)
{
    using enum EPlaneCorrectionScope;
    using enum EPlaneCorrectionMethod;
    const std::pair<const char*, EPlaneCorrectionMethod> methods[] = {
        {"Wizard", StepWizard}, {"Zero", ZeroBackground}, {"Linewise Offset", Offset}, {"", Polynomial}};
    for (int number = 1; number <= 21; ++number) {
        const auto set = BuiltIn<SPlaneCorrectionSettings>(number);
        const std::string name = Name(number);
        EXPECT_EQ(set.scope, name.starts_with("Linewise") ? Linewise
                             : number < 10                ? Global
                                                          : Profile)
            << name;
        EXPECT_EQ(set.method,
                  std::ranges::find_if(
                      methods, [&](const auto& row) { return name.find(row.first) != std::string::npos; })
                      ->second)
            << name;
        EXPECT_EQ(set.order, NamedOrder(number)) << name;
    }
}

TEST(BuiltInCorrectionsAndFilters, CutoffsAreThoseOfTheirNames)
{
    using enum ENestingIndex;
    const struct {
        int first;
        int last;
        EFilterKind kind;
        ENestingIndex nestingIndex;
        EFilterPass pass;
    } groups[] = {
        {93, 105, EFilterKind::ProfileGaussian, LambdaC, EFilterPass::High},
        {106, 112, EFilterKind::ProfileGaussian, LambdaS, EFilterPass::Low},
        {113, 140, EFilterKind::ArealGaussian, L, EFilterPass::High},
        {141, 161, EFilterKind::ArealGaussian, S, EFilterPass::Low},
    };
    for (const auto& group : groups)
        for (int number = group.first; number <= group.last; ++number) {
            const auto set = BuiltIn<SFilterSettings>(number);
            EXPECT_EQ(set.kind, group.kind) << number;
            EXPECT_EQ(set.cutoff.nestingIndex, group.nestingIndex) << number;
            EXPECT_EQ(set.cutoff.pass, group.pass) << number;
            EXPECT_DOUBLE_EQ(set.cutoff.length, NamedLength(number)) << number;
            EXPECT_DOUBLE_EQ(set.cutoff.fraction, NamedFraction(number)) << number;
            EXPECT_EQ(set.cutoff.rule == ECutoffRule::Automatic, Name(number) == "Default ") << number;
        }
}

TEST(BuiltInCorrectionsAndFilters, KernelsAreThoseOfTheirNames)
{
    using enum EFilterApplication;
    for (const int number : {82, 83, 84, 85, 86, 87, 90, 91, 92, 162, 163, 164, 165, 166, 167, 168, 169}) {
        const auto set = BuiltIn<SFilterSettings>(number);
        const auto sizes = NamedNumbers(number);
        const bool isCurve = Has(number, "point");
        EXPECT_EQ(set.kind, Has(number, "Median")  ? EFilterKind::Median
                            : Has(number, "Spike") ? EFilterKind::Spikes
                                                   : EFilterKind::Mean)
            << number;
        EXPECT_EQ(set.application, isCurve ? Curve : Image) << number;
        EXPECT_EQ(set.rows, isCurve ? 1 : sizes.at(0)) << number;
        EXPECT_EQ(set.columns, sizes.back()) << number;
        EXPECT_EQ(set.strength == EFilterStrength::Weak, Has(number, "weak")) << number;
        EXPECT_EQ(set.threshold < 3, Has(number, "strong")) << number;
    }
    for (const int deviation : {1, 2}) {
        const auto set = BuiltIn<SFilterSettings>(87 + deviation);
        EXPECT_EQ(set.kind, EFilterKind::Gauss);
        EXPECT_EQ(set.standardDeviation, deviation);
        EXPECT_EQ(set.columns, 6 * deviation + 1);
    }
}
