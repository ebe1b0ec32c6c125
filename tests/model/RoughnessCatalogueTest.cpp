#include "model/RoughnessCatalogue.h"

#include "common/StringTable.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace CommonUI
{

namespace
{

TEST(RoughnessCatalogue, FamiliesStandInTheirOrderWithTheirNumbersAndEnds)
{
    struct SFamily {
        int standard;
        int firstValue;
        std::size_t count;
        const char* firstKey;
        const char* lastKey;
    };
    static constexpr SFamily c_families[] = {
        {1, 0, 54, "Sa", "Sch"},
        {1, 56, 16, "Ra", "Rmr2"},
        {2, 72, 42, "4287Ra", "4287Pmr2"},
        {4, 116, 5, "p13565_2Rk", "p13565_2Rmr2"},
        {3, 122, 11, "p12085_RAr", "p12085_Wrx"},
        {5, 134, 8, "Msm", "rMv"},
        {6, 142, 1, "PlugIn", "PlugIn"},
        {0, 143, 1, "Count", "Count"},
    };
    const auto& catalogue = GetRoughnessParametersEnum();
    EXPECT_EQ(&catalogue, &GetRoughnessParametersEnum());
    auto parameter = catalogue.begin();
    for (const SFamily& family : c_families) {
        SCOPED_TRACE(family.firstKey);
        ASSERT_LE(family.count, static_cast<std::size_t>(catalogue.end() - parameter));
        EXPECT_EQ(family.firstKey, parameter->GetIniName().ToUtf8());
        std::set<int> numbers;
        for (std::size_t i = 0; i < family.count; ++i, ++parameter) {
            numbers.insert(parameter->GetValue());
            EXPECT_EQ(family.standard, parameter->GetStandard()) << parameter->GetIniName().ToUtf8();
        }
        EXPECT_EQ(family.lastKey, std::prev(parameter)->GetIniName().ToUtf8());
        EXPECT_EQ(family.count, numbers.size());
        EXPECT_EQ(family.firstValue, *numbers.begin());
        EXPECT_EQ(family.firstValue + static_cast<int>(family.count) - 1, *numbers.rbegin());
    }
    EXPECT_EQ(parameter, catalogue.end());
}

TEST(RoughnessCatalogue, EveryParameterHasADisplayTextOfItsOwn)
{
    std::set<CStr> texts;
    for (const auto& parameter : GetRoughnessParametersEnum()) {
        const CStr text = parameter.GetFriendlyString();
        EXPECT_FALSE(text.IsEmpty()) << parameter.GetIniName().ToUtf8();
        EXPECT_TRUE(texts.insert(text).second) << text.ToUtf8();
    }
}

/// The symbol without variables that a key stands for.
std::string SymbolOfKey(std::string key)
{
    static const std::map<std::string, std::string> c_others = {{"p13565_2Rk", "Rk"},
                                                                {"p13565_2Rpk", "Rpk"},
                                                                {"p13565_2Rvk", "Rvk"},
                                                                {"p13565_2Rmr1", "Mr1"},
                                                                {"p13565_2Rmr2", "Mr2"},
                                                                {"p12085_RAr", "AR"},
                                                                {"p12085_Rr", "R"},
                                                                {"p12085_Rrx", "Rx"},
                                                                {"p12085_RSAr", "SAR"},
                                                                {"p12085_RSr", "SR"},
                                                                {"p12085_WAr", "AW"},
                                                                {"p12085_Wr", "W"},
                                                                {"p12085_WSAr", "SAW"},
                                                                {"p12085_WSr", "SW"},
                                                                {"p12085_Wte", "Wte"},
                                                                {"p12085_Wrx", "Wx"},
                                                                {"PlugIn", "Plug-in Parameters"}};
    if (const auto other = c_others.find(key); other != c_others.end())
        return other->second;
    std::ranges::replace(key, '_', '-');
    return key.starts_with("4287") ? key.substr(4) : key;
}

TEST(RoughnessCatalogue, SymbolsFollowTheKeysAndVariables)
{
    for (const auto& parameter : GetRoughnessParametersEnum()) {
        std::string symbol = SymbolOfKey(parameter.GetIniName().ToUtf8());
        std::string variables;
        for (const auto& variable : GetRoughnessVariables(ERoughnessParameters(parameter.GetValue())))
            variables += (variables.empty() ? "(" : ",") + CStr(variable.key).ToUtf8();
        if (!variables.empty() && symbol.ends_with("mr2"))
            symbol.pop_back();
        EXPECT_EQ(symbol + (variables.empty() ? "" : variables + ")"),
                  parameter.GetShortFriendlyString().ToUtf8());
    }
}

TEST(RoughnessCatalogue, TemplatesAndNoOthersHaveVariables)
{
    std::set<std::string> expected = {"Smr", "Smc", "Sdc", "Vm", "Vv", "Sch"};
    for (const char* const profile : {"R", "4287R", "4287W", "4287P"})
        for (const char* const suffix : {"mr", "dc", "mr2"})
            expected.insert(std::string(profile) + suffix);
    std::set<std::string> found;
    for (const auto& parameter : GetRoughnessParametersEnum())
        if (!GetRoughnessVariables(ERoughnessParameters(parameter.GetValue())).empty())
            found.insert(parameter.GetIniName().ToUtf8());
    EXPECT_EQ(expected, found);
}

TEST(RoughnessCatalogue, UnknownNumbersAreDimensionlessWithoutVariables)
{
    for (const int number : {-1, 54, 55, 114, 115, 121, 133, 144}) {
        EXPECT_EQ(CParameter::EDimension::None, RoughnessParameter2Dimension(ERoughnessParameters(number)))
            << number;
        EXPECT_TRUE(GetRoughnessVariables(ERoughnessParameters(number)).empty()) << number;
        EXPECT_TRUE(GetRoughnessParametersEnum().GetIniName(number).IsEmpty()) << number;
    }
}

/// The rows of the page's tables, each as its first five cells with '|' before every cell.
struct SPage {
    std::vector<std::string> parameters; ///< the standard's number stands before the cells
    std::vector<std::string> variables;
};

std::vector<std::string> Cells(const std::string& line)
{
    std::vector<std::string> cells;
    std::istringstream stream(line.substr(1));
    for (std::string cell; std::getline(stream, cell, '|');)
        cells.push_back(cell.size() > 2 ? cell.substr(1, cell.size() - 2) : std::string());
    return cells;
}

SPage ReadPage()
{
    const auto root = std::filesystem::path(COMMONUI_TEST_DATA).parent_path().parent_path();
    std::ifstream file(root / "docs" / "roughness-parameters.md");
    SPage page;
    std::string standard;
    for (std::string line; std::getline(file, line);) {
        if (const auto found = line.find("(standard "); line.starts_with("## "))
            standard = found == std::string::npos ? std::string() : line.substr(found + 10, 1);
        if (!line.starts_with("| ") || line.starts_with("| value") || line.starts_with("| template"))
            continue;
        std::string joined = standard;
        const auto cells = Cells(line);
        for (std::size_t i = 0; i < 5 && i < cells.size(); ++i)
            joined += "|" + cells[i];
        (standard.empty() ? page.variables : page.parameters).push_back(joined);
    }
    return page;
}

std::string DimensionCell(CParameter::EDimension dimension)
{
    static const std::map<int, std::string> c_cells = {
        {0, "dimensionless"},       {1, "length, m"},          {5, "area, m²"}, {6, "volume, m³"},
        {7, "inverse length, 1/m"}, {8, "inverse area, 1/m²"}, {9, "angle, °"}, {10, "percent, %"},
    };
    return c_cells.at(static_cast<int>(dimension));
}

TEST(RoughnessCatalogue, ThePageOfParametersAgrees)
{
    const SPage page = ReadPage();
    std::vector<std::string> parameters;
    std::vector<std::string> variables;
    for (const auto& parameter : GetRoughnessParametersEnum()) {
        const ERoughnessParameters value{parameter.GetValue()};
        const std::string key = "|`" + parameter.GetIniName().ToUtf8() + "`|";
        const std::string text = parameter.GetFriendlyString().ToUtf8();
        const std::string symbol = parameter.GetShortFriendlyString().ToUtf8();
        parameters.push_back(std::to_string(parameter.GetStandard()) + "|" +
                             std::to_string(parameter.GetValue()) + key +
                             (symbol == text ? "|" + text : symbol + "|" + text.substr(symbol.size() + 2)) +
                             "|" + DimensionCell(RoughnessParameter2Dimension(value)));
        for (const auto& variable : GetRoughnessVariables(value)) {
            std::ostringstream defaultValue;
            defaultValue << variable.defaultValue;
            variables.push_back(key + CStr(variable.key).ToUtf8() + "|" +
                                GetString(variable.textId).ToUtf8() + "|" +
                                DimensionCell(variable.dimension) + "|" + defaultValue.str());
        }
    }
    EXPECT_EQ(parameters, page.parameters);
    EXPECT_EQ(variables, page.variables);
}

} // namespace

} // namespace CommonUI
