#include "common/Enum.h"

#include <gtest/gtest.h>

using namespace CommonUI;

namespace
{

enum class EShape { None = -1, Line = 1, Circle = 2, Square = 7 };

constexpr SEnumRow c_rows[] = {{7, u"Square ", 0, u"Square", 0, 3},
                               {1, u"Line", 7340, u"", 7341},
                               {1, u"Stroke", 0, u"Stroke"},
                               {2, u"Line", 0, u"Circle"}};

} // namespace

TEST(Enum, LookUps)
{
    const auto shapes =
        CEnum<EShape>::FromRows(c_rows, CEnum<EShape>(EShape::None, u"none", u"No shape", u"-"));
    ASSERT_EQ(shapes.GetCount(), 4u);
    EXPECT_EQ(shapes.begin()->GetStandard(), 3);
    const std::tuple<int, const char16_t*, const char16_t*, const char16_t*> numbers[] = {
        {7, u"Square ", u"Square", u"Square"},
        {1, u"Line", u"Length", u"Breadth"}, // the first of two
        {2, u"Line", u"Circle", u"Circle"},
        {99, u"none", u"No shape", u"-"}};
    for (const auto& [number, iniName, text, shortText] : numbers) {
        EXPECT_TRUE(shapes.GetIniName(number) == iniName && shapes.GetFriendlyString(number) == text)
            << number;
        EXPECT_EQ(shapes.GetShortFriendlyString(number), shortText);
    }
    const std::pair<const char16_t*, EShape> keys[] = {
        {u"Square ", EShape::Square}, {u"Square", EShape::None}, {u"Line", EShape::Line},
        {u"line", EShape::None},      {u"", EShape::None},       {u"none", EShape::None}};
    for (const auto& [iniName, value] : keys)
        EXPECT_EQ(shapes.GetValue(iniName), value) << ToUtf8(iniName);
    EXPECT_EQ(shapes.GetValue(u"unknown", EShape::Circle), EShape::Circle);
    CEnum<EShape> added(EShape::None, u"none", u"No shape");
    added.Add({5, u"five", u"Five", u"", 0}).SetShortFriendlyString(u"5");
    EXPECT_TRUE(added.GetShortFriendlyString(5) == u"5" && added.GetShortFriendlyString(6).IsEmpty());
}

TEST(EnumValue, ComparesItsNumberOnly)
{
    const CEnumValue<int> a(1, u"a", u"A", u"", 0);
    const CEnumValue<int> b(1, u"b", u"B", u"b", 2);
    EXPECT_TRUE(a == b && a == 1 && a != 2);
}
