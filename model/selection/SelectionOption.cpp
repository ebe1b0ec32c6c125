#include "model/selection/SelectionOption.h"

#include "model/RoughnessAnalysisPreferencesData.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>

namespace CommonUI
{

namespace
{

using CData = CAnalysisPreferencesData;
using CRoughnessData = CRoughnessAnalysisPreferencesData;
using SConfig = CRoughnessData::SBarChartConfig;
using EOption = ESelectionOption;

const CRoughnessData& AsRoughness(const CData& data)
{
    return dynamic_cast<const CRoughnessData&>(data);
}
CRoughnessData& AsRoughness(CData& data)
{
    return dynamic_cast<CRoughnessData&>(data);
}

// Numbers from 0 to `last`, all whole where `whole`.
struct SRule {
    double first = 0;
    double last = 1;
    bool whole = true;
};

struct SAccess {
    EOption option;
    SRule rule;
    double (*get)(const CData&);
    void (*set)(CData&, double);
};

template<auto Get, auto Set>
constexpr SAccess Switch(EOption option)
{
    return {option,
            {},
            [](const CData& data) { return (data.*Get)() ? 1.0 : 0.0; },
            [](CData& data, double number) { (data.*Set)(number != 0); }};
}

template<class T, auto Get, auto Set>
constexpr SAccess Choice(EOption option, T last)
{
    return {option,
            {.last = static_cast<double>(last)},
            [](const CData& data) { return static_cast<double>((AsRoughness(data).*Get)()); },
            [](CData& data, double number) {
                (AsRoughness(data).*Set)(static_cast<T>(static_cast<int>(number)));
            }};
}

template<auto Member>
constexpr SAccess Bar(EOption option, SRule rule)
{
    return {
        option, rule,
        [](const CData& data) { return static_cast<double>(AsRoughness(data).GetBarChartConfig().*Member); },
        [](CData& data, double number) {
            SConfig config = AsRoughness(data).GetBarChartConfig();
            using CMember = std::remove_reference_t<decltype(config.*Member)>;
            if constexpr (std::is_enum_v<CMember>)
                config.*Member = static_cast<CMember>(static_cast<int>(number));
            else
                config.*Member = static_cast<CMember>(number);
            AsRoughness(data).SetBarChartConfig(config);
        }};
}

constexpr SRule c_any{-std::numeric_limits<double>::max(), std::numeric_limits<double>::max(), false};

constexpr SAccess c_accesses[] = {
    {EOption::HeightUnit,
     {.last = static_cast<double>(CUnit::EUnitFactor::Giga)},
     [](const CData& data) { return static_cast<double>(data.GetUnit().GetFactor()); },
     [](CData& data, double number) {
         data.SetUnit(data.GetUnit().WithFactor(static_cast<CUnit::EUnitFactor>(static_cast<int>(number))));
     }},
    {EOption::Preprocessing,
     {.last = static_cast<double>(ERoughnessPreprocessingOptions::Lines)},
     [](const CData& data) { return static_cast<double>(data.GetPreprocessingOption()); },
     [](CData& data, double number) { data.SetPreprocessingNo(static_cast<int>(number)); }},
    Choice<ERoughnessFormRemoval, &CRoughnessData::GetFormRemoval, &CRoughnessData::SetFormRemoval>(
        EOption::FormRemoval, ERoughnessFormRemoval::Parabola),
    Choice<EMUFUFilterType, &CRoughnessData::GetMUFUFilterType, &CRoughnessData::SetMUFUFilterType>(
        EOption::MufuFilter, EMUFUFilterType::RGR2),
    Choice<EMUFURobustSeed, &CRoughnessData::GetMUFURobustSeed, &CRoughnessData::SetMUFURobustSeed>(
        EOption::MufuSeed, EMUFURobustSeed::Closing),
    Choice<EMUFUClosingCutOffRatio, &CRoughnessData::GetMUFUClosingCutOffRatio,
           &CRoughnessData::SetMUFUClosingCutOffRatio>(EOption::MufuRatio, EMUFUClosingCutOffRatio::Ratio5),
    Switch<&CData::GetWriteToFile, &CData::SetWriteToFile>(EOption::WriteToFile),
    Switch<&CData::GetWriteToDB, &CData::SetWriteToDB>(EOption::WriteToDB),
    Choice<ERoughnessReportOption, &CRoughnessData::GetReportOption, &CRoughnessData::SetReportOption>(
        EOption::Report, ERoughnessReportOption::HTML),
    Bar<&SConfig::parameter>(EOption::BarParameter, {.last = 1e6}),
    Bar<&SConfig::barCount>(EOption::BarCount, {.first = 1, .last = 1000}),
    Bar<&SConfig::autoScale>(EOption::BarAutoScale, {}),
    Bar<&SConfig::lower>(EOption::BarLower, c_any),
    Bar<&SConfig::upper>(EOption::BarUpper, c_any),
    Bar<&SConfig::limitsOn>(EOption::BarLimitsOn, {}),
    Bar<&SConfig::lowerLimit>(EOption::BarLowerLimit, c_any),
    Bar<&SConfig::upperLimit>(EOption::BarUpperLimit, c_any),
};

constexpr auto c_options = [] {
    std::array<EOption, std::size(c_accesses)> options{};
    for (std::size_t i = 0; i < options.size(); ++i)
        options[i] = c_accesses[i].option;
    return options;
}();

static_assert(
    [] {
        for (std::size_t i = 0; i < c_options.size(); ++i)
            if (c_options[i] != static_cast<EOption>(i))
                return false;
        return true;
    }(),
    "the rows are looked up by number");

const SAccess& AccessOf(EOption option)
{
    return c_accesses[static_cast<std::size_t>(option)];
}

bool IsPossible(const CData& data, EOption option, double number)
{
    const SRule& rule = AccessOf(option).rule;
    if (!(rule.first <= number && number <= rule.last) || (rule.whole && number != std::floor(number)))
        return false;
    const std::vector<int> ids = data.GetParameterIDs();
    return option != EOption::BarParameter ||
           std::find(ids.begin(), ids.end(), static_cast<int>(number)) != ids.end();
}

} // namespace

std::span<const ESelectionOption> GetSelectionOptions()
{
    return c_options;
}

bool HasSelectionOption(const CData& data, EOption option)
{
    switch (option) {
    case EOption::HeightUnit:
        return true;
    case EOption::Preprocessing:
        return data.GetAllowed().preprocessing;
    case EOption::FormRemoval:
    case EOption::MufuFilter:
    case EOption::MufuSeed:
    case EOption::MufuRatio:
        return data.GetAnalysis() == EAnalysis::RoughnessProfile;
    case EOption::WriteToFile:
        return data.GetAllowed().writeToFile;
    case EOption::WriteToDB:
        return data.GetAllowed().writeToDB;
    case EOption::Report:
        return IsRoughness(data.GetAnalysis()) && data.GetAllowed().reports;
    default:
        return IsRoughness(data.GetAnalysis());
    }
}

double GetSelectionOption(const CData& data, EOption option)
{
    return HasSelectionOption(data, option) ? AccessOf(option).get(data) : 0;
}

bool SetSelectionOption(CData& data, EOption option, double number)
{
    if (!HasSelectionOption(data, option) || !IsPossible(data, option, number))
        return false;
    AccessOf(option).set(data, number);
    return true;
}

} // namespace CommonUI
