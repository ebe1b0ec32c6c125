#include "model/RoughnessCatalogue.h"

#include "common/StringTable.h"
#include "tests/TestData.h"

#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace CommonUI
{

namespace
{

TEST(RoughnessCatalogue, UnknownNumbersAreDimensionlessWithoutVariables)
{
    for (const int number : {-1, 54, 55, 114, 115, 121, 133, 144}) {
        EXPECT_EQ(CParameter::EDimension::None, RoughnessParameter2Dimension(ERoughnessParameters(number)))
            << number;
        EXPECT_TRUE(GetRoughnessVariables(ERoughnessParameters(number)).empty()) << number;
        EXPECT_TRUE(GetRoughnessParametersEnum().GetIniName(number).IsEmpty()) << number;
    }
}

// The rows of the page's tables, each as its first five cells with '|' before every cell.
struct SPage {
    std::vector<std::string> parameters; // the standard's number stands before the cells
    std::vector<std::string> variables;
};

SPage ReadParameters()
{
    SPage page;
    std::string standard;
    for (const std::string& line : SplitText(ReadPage("roughness-parameters.md"), '\n')) {
        if (const auto found = line.find("(standard "); line.starts_with("## "))
            standard = found == std::string::npos ? std::string() : line.substr(found + 10, 1);
        if (!line.starts_with("| ") || line.starts_with("| value") || line.starts_with("| template"))
            continue;
        std::string joined = standard;
        const auto cells = SplitText(line, '|');
        for (std::size_t i = 1; i < 6 && i < cells.size(); ++i)
            joined += "|" + cells[i].substr(1, cells[i].size() - 2);
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
    const SPage page = ReadParameters();
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
