#include "output/grid/GridValue.h"
#include "output/grid/GridBaseOutputItem.h"
#include "output/grid/GridView.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace CommonUI;
using EType = EGridValueType;

TEST(GridValue, TextsAreReadInTheTypeOfTheValue)
{
    const std::tuple<CGridValue, const char16_t*, bool, const char16_t*> cases[] = {
        {1.5, u" 2.25 ", true, u"2.25"},
        {1.5, u"1e400", false, u"1.5"},
        {1.5, u"inf", false, u"1.5"},
        {7, u"-12", true, u"-12"},
        {7, u"2147483648", false, u"7"},
        {7u, u"4294967295", true, u"4294967295"},
        {7u, u"-1", false, u"7"},
        {{EType::I1, 300}, u"-128", true, u"-128"},
        {{EType::UI1, 300}, u"256", false, u"255"},
        {{EType::I2, -40000}, u"1.0", false, u"-32768"},
        {u"old", u" new ", true, u" new "},
        {{}, u"x", true, u"x"},
        {true, u"False", false, u"True"},
        {true, u"0", false, u"True"},
        {{EType::Bool, 0}, u"", false, u"False"},
        {{EType::String, 12}, u"", true, u""},
    };
    for (const auto& [before, text, read, result] : cases) {
        CGridValue value = before;
        EXPECT_EQ(value.ReadText(text), read) << value.ToText().ToUtf8();
        EXPECT_EQ(value.ToText(), result);
        EXPECT_EQ(value == before, !read);
    }
    EXPECT_EQ(CGridValue(true).GetInteger(), -1) << "all bits set";
    EXPECT_EQ(CGridValue(-2.9).GetInteger(), -2);
    EXPECT_EQ(CGridValue(std::nan("")).GetInteger(), 0);
    EXPECT_EQ(CGridValue(1e300).GetInteger(), std::numeric_limits<long long>::max());
    EXPECT_FALSE(CGridValue(7) == CGridValue(EType::I4, 7));
}

TEST(GridValue, FormatsByType)
{
    const std::tuple<int, const char16_t*, CGridValue, const char16_t*> cases[] = {
        {5, u"%.2f nm", 1.257, u"1.26 nm"},
        {8, u"<%s>", u"abc", u"<abc>"},
        {8, u"<%s>", 1.257, u"1.257"},
        {5, u"%.2f", u"abc", u"abc"},
        {22, u"%d", 7, u""},
        {3, u"%d", 7, u"7"},
        {0, u"%d", {}, u""},
        {11, u"%d", true, u""},
        {5, u"", 1.5, u"1.5"},
        {5, u"%d", 2.75, u"2"},
        {5, u"%s and %s", 2.75, u"2.75 and %s"},
        {5, u"%n%p", 2.75, u"%n%p"},
        {8, u"%.1f", u"abc", u"abc"},
        {8, u"%*s|", u"abc", u"%*s|"},
    };
    for (const auto& [type, format, value, text] : cases) {
        CGridBaseOutputItem item;
        item.SetFormatString(type, format);
        item.SetFormatString(type, u"");
        item.SetValue(value);
        EXPECT_EQ(item.FormatItem(), text) << item.FormatItem().ToUtf8();
    }
}

TEST(GridValue, EditRulesAndSteps)
{
    const std::tuple<SGridEditRules, const char16_t*, bool> cases[] = {
        {{}, u"anything", true},
        {{.validCharacters = u"0123"}, u"3210", true},
        {{.validCharacters = u"0123"}, u"4", false},
        {{.mask = u"dd:a*"}, u"12:xµ", true},
        {{.mask = u"dd:a*"}, u"12:x", false},
        {{.mask = u"dd:a*"}, u"12;xy", false},
        {{.mask = u"dd:a*"}, u"1x:xy", false},
        {{.mask = u"dd:a*"}, u"12:µy", false},
    };
    for (const auto& [rules, text, accepted] : cases)
        EXPECT_EQ(rules.Accepts(text), accepted) << CStr(text).ToUtf8();

    const SGridEdit edit{.minimum = -2, .maximum = 10};
    const std::tuple<const char16_t*, int, const char16_t*> steps[] = {
        {u"1.5", 1, u"2.5"}, {u"9.5", 1, u"10"}, {u"-1", -5, u"-2"},
        {u"x", 1, u"-1"},    {u"nan", 0, u"-2"}, {u"1e300", -1, u"10"}};
    for (const auto& [text, count, result] : steps)
        EXPECT_EQ(StepGridEdit(edit, text, count), result);
}
